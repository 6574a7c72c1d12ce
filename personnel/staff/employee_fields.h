#pragma once

// The employee's card as tables: its panels, and the pages of its repeating lists.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <span>

#include "screen/field_form.h"

namespace hotel {

// Above the pages, always to be seen.
const QList<FormField>& HeadFields();
inline constexpr int kHeadColumns = 3;

struct FieldsPage {
    QString caption;
    QList<FormField> fields;
};
std::span<const FieldsPage> FieldsPages();
inline constexpr int kPageColumns = 4;

// What a member of staff may be. No category holds it.
QStringList EmployeeStatuses();
inline constexpr QStringView kTrialStatus = u"试用期"; // where nothing else was chosen

struct EntriesPage {
    QStringView list; // field of the record
    QString caption;
    QString add; // names of its commands
    QString modify;
    QString remove;
    QList<FormField> fields; // in the order in which they are typed
    QString proposed;        // what a fresh entry begins with, record text
};
std::span<const EntriesPage> EntriesPages();

} // namespace hotel
