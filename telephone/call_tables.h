#pragma once

// The tables of the call accounting on the server, read and written whole.

#include <QString>

#include "record/text_table.h"
#include "telephone/billing_files.h"
#include "telephone/call_rating.h"

namespace hotel {

struct CallTables {
    TextTable extensions; // extensions.h
    TextTable parameters; // tariff.h
    TextTable prefixes;
    // Parts that could not be read, which must not be written over.
    bool extensionsUnread = false;
    bool parametersUnread = false;
    bool prefixesUnread = false;

    bool unread() const { return extensionsUnread || parametersUnread || prefixesUnread; }
};

// Empty tables where the server has none. (Wait on the server.)
void ReadExtensions(const BillingFiles& files, CallTables& tables);
void ReadTariff(const BillingFiles& files, CallTables& tables);
CallTables ReadCallTables(const BillingFiles& files);

RatingTables RatingTablesOf(const CallTables& tables, const AccountingConfig& config);

// A status is 0 when it is done.
int SaveExtensions(const BillingFiles& files, const TextTable& extensions);
int SavePrefixes(const BillingFiles& files, const TextTable& prefixes);
int SaveParameters(const BillingFiles& files, const TextTable& parameters);

} // namespace hotel
