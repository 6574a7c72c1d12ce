#pragma once

// What the screens of the statistics have in common: the two fields by which a period is chosen, KsDate and JsDate,
// both included, and the words for days of it that could not be read.

#include <QDate>

#include <optional>
#include <utility>

#include "screen/field_form.h"

namespace hotel {

// The two, and behind them what else a screen asks.
QList<FormField> PeriodFields(const QList<FormField>& more = {});

// From the first of this month to today.
void ProposeThisMonth(FieldForm& form);

// The period typed; nothing where it is none, which the user is told.
std::optional<std::pair<QDate, QDate>> PeriodOf(const FieldForm& form);

// What stands behind the result in the status where days could not be read; empty where all could.
QString UnreadDays(int days);

} // namespace hotel
