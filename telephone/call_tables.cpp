#include "telephone/call_tables.h"

#include "link/records.h"

namespace hotel {

void ReadExtensions(const BillingFiles& files, CallTables& tables) {
    const RecordRead project = ReadProjectToChange(files.extensionFile(), kExtensionProject);
    tables.extensions = ExtensionTable(project.value);
    tables.extensionsUnread = project.failed();
}

void ReadTariff(const BillingFiles& files, CallTables& tables) {
    const RecordRead parameters = ReadProjectToChange(files.rateFile(), kParameterProject);
    tables.parameters = ParameterTable(parameters.value);
    tables.parametersUnread = parameters.failed();
    const RecordRead prefixes = ReadProjectToChange(files.rateFile(), kPrefixProject);
    tables.prefixes = PrefixTable(prefixes.value);
    tables.prefixesUnread = prefixes.failed();
}

CallTables ReadCallTables(const BillingFiles& files) {
    CallTables tables;
    ReadExtensions(files, tables);
    ReadTariff(files, tables);
    return tables;
}

RatingTables RatingTablesOf(const CallTables& tables, const AccountingConfig& config) {
    return {ExtensionIndex(tables.extensions), Tariff(tables.parameters, tables.prefixes),
            RateBands(config)};
}

int SaveExtensions(const BillingFiles& files, const TextTable& extensions) {
    return SaveProject(files.extensionFile(), kExtensionProject, ExtensionText(extensions));
}

int SavePrefixes(const BillingFiles& files, const TextTable& prefixes) {
    return SaveProject(files.rateFile(), kPrefixProject, PrefixText(prefixes));
}

int SaveParameters(const BillingFiles& files, const TextTable& parameters) {
    return SaveProject(files.rateFile(), kParameterProject, ParameterText(parameters));
}

} // namespace hotel
