#include "tools/aids/identity_number.h"

#include "platform/clock.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace hotel {

namespace {

constexpr QStringView kAreaFile = u"sfzcode.dll";

bool StartsWithDigits(QStringView text, qsizetype count) {
    const QStringView start = text.left(count);
    return start.size() == count &&
           std::all_of(start.begin(), start.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString ReadAreaFile() {
    for (const QString& folder : {QDir::currentPath(), QCoreApplication::applicationDirPath()}) {
        QFile file(QDir(folder).filePath(kAreaFile.toString()));
        if (file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.readAll());
    }
    MsgBox(u"请将SFZCODE.DLL复制到当前目录下"_s, u"错误"_s);
    return {};
}

// The difference of the two dates read as whole numbers: its first four digits are the full years,
// since a birthday still to come borrows one.
QString FullYears(QStringView birth, QDate today) {
    const qint64 difference = today.toString(u"yyyyMMdd").toLongLong() - birth.toLongLong();
    return FormatNumber(LeadingNumber(FormatNumber(difference, u"00000000").left(4)), u"#0");
}

} // namespace

AreaTable AreaTable::FromText(QStringView text) {
    AreaTable table;
    for (const QStringView line : text.split(u'\n')) {
        const qsizetype blank = line.indexOf(u' ');
        if (blank < 0)
            continue;
        const QString name = TrimWhite(line.mid(blank)).remove(QChar(0x3000));
        QList<Area>* areas = blank == 2   ? &table.provinces_
                             : blank == 4 ? &table.cities_
                             : blank == 6 ? &table.counties_
                                          : nullptr;
        const int limit = blank == 2 ? kProvinceLimit : blank == 4 ? kCityLimit : kCountyLimit;
        if (areas && name.size() >= 2 && areas->size() < limit)
            areas->append({line.left(blank).toString(), name});
    }
    return table;
}

QString AreaTable::name(QStringView code) const {
    const QList<Area>& areas = code.size() == 2   ? provinces_
                               : code.size() == 4 ? cities_
                                                  : counties_;
    const auto found =
        std::lower_bound(areas.begin(), areas.end(), code,
                         [](const Area& area, QStringView wanted) { return area.code < wanted; });
    return found != areas.end() && found->code == code ? found->name : QString();
}

const AreaTable& ResidentAreas() {
    static const AreaTable table = AreaTable::FromText(ReadAreaFile());
    return table;
}

std::optional<IdentityNumber> AnalyseIdentityNumber(QStringView number, QDate today,
                                                    const AreaTable& areas) {
    QString birth;
    QChar sexDigit;
    if (number.size() == 15 && StartsWithDigits(number, 15)) {
        birth = u"19"_s + number.mid(6, 6);
        sexDigit = number[14];
    } else if (StartsWithDigits(number, 17)) {
        birth = number.mid(6, 8).toString();
        sexDigit = number[16];
    } else {
        return std::nullopt;
    }

    IdentityNumber holder;
    holder.province = areas.name(number.left(2));
    holder.city = areas.name(number.left(4));
    holder.county = areas.name(number.left(6));
    holder.birthDate = QStringList{birth.left(4), birth.mid(4, 2), birth.mid(6, 2)}.join(u'-');
    holder.age = FullYears(birth, today);
    holder.sex = sexDigit.digitValue() % 2 == 1 ? u"男"_s : u"女"_s;
    return holder;
}

std::optional<IdentityNumber> AnalyseIdentityNumber(QStringView number) {
    return AnalyseIdentityNumber(number, Clock::Today(), ResidentAreas());
}

QString ToHalfWidth(QStringView text) {
    QString plain = text.toString();
    for (QChar& c : plain) {
        const bool digit = c >= u'０' && c <= u'９';
        const bool letter = (c >= u'Ａ' && c <= u'Ｚ') || (c >= u'ａ' && c <= u'ｚ');
        if (digit || letter)
            c = QChar(c.unicode() - (u'０' - u'0'));
    }
    return plain;
}

} // namespace hotel
