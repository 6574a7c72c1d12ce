#include "tools/paper/print_macros.h"

#include "platform/clock.h"
#include "record/literals.h"

namespace hotel {

namespace {

struct MacroForm {
    QStringView code;
    QStringView format; // of QDateTime::toString
};

constexpr MacroForm kMacros[] = {
    {u"YY", u"yyyy"}, {u"yy", u"yy"},         {u"MM", u"MM"},       {u"mm", u"mm"},
    {u"DD", u"dd"},   {u"dd", u"dd"},         {u"HH", u"HH"},       {u"SS", u"ss"},
    {u"ss", u"ss"},   {u"DT", u"yyyy/MM/dd"}, {u"TM", u"HH:mm:ss"},
};

QString MacroText(QStringView code, const QDateTime& now) {
    for (const MacroForm& macro : kMacros)
        if (macro.code == code)
            return now.toString(macro.format.toString());
    return {};
}

// Overwrites again and again: a blank that an overwritten amount left may stand ahead of another.
void BlankOut(QString& text, QLatin1StringView amount) {
    const QString blanks(amount.size(), u' ');
    for (qsizetype at = text.indexOf(amount); at >= 0; at = text.indexOf(amount, at))
        text.replace(at, amount.size(), blanks);
}

} // namespace

QString ExpandPrintMacros(const QString& text, const QDateTime& now) {
    QString result = text;
    for (qsizetype at = result.indexOf(u'$'); at >= 0; at = result.indexOf(u'$', at)) {
        const QString value = MacroText(QStringView(result).mid(at + 1, 2), now);
        if (value.isEmpty())
            result[at] = u' ';
        else
            result.replace(at, 3, value);
    }
    BlankOut(result, " 0.00"_L1);
    BlankOut(result, " 0 "_L1);
    return result;
}

QString ExpandPrintMacros(const QString& text) {
    return ExpandPrintMacros(text, Clock::Now());
}

} // namespace hotel
