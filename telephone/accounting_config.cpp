#include "telephone/accounting_config.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>

#include "platform/work_folder.h"
#include "record/code_page.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr QStringView kField = u"计费参数";
constexpr QStringView kFileName = u"Accnt.Cfg";

// The rows without a kind are flags of 0 to 7 and other values of the link.
constexpr AccountingKey kKeys[] = {
    {u"AUTOCHECK", KeyKind::Number, 0, 30000, u"1800"},
    {u"ACCOUNTDAY", KeyKind::Number, 1, 31},
    {u"ACCOUNTNUM"},
    {u"BAUDRATE", KeyKind::Speed, 0, 0, u"2400"},
    {u"CARDS"},
    {u"CARTON"},
    {u"CHAINCMD"},
    {u"CHAINFILE"},
    {u"CHAININTERVAL", KeyKind::Number, 0, 29999, u"10"},
    {u"CHECKFEEMODE"},
    {u"CODECHECK"},
    {u"CODEDISPLENG", KeyKind::Number, 1, 17, u"17"},
    {u"COLORMODE"},
    {u"COMPORT", KeyKind::Number, 1, 2},
    {u"COMM_MON"},
    {u"COMM_MODEM"},
    {u"COMM_CHAIN"},
    {u"CURRDAY"},
    {u"COMM_LOG"},
    {u"CURRTIME"},
    {u"DBSMODE", KeyKind::Number, 0, 254},
    {u"DBSFILE", KeyKind::Text, 0, 0, u"ACCNT.DBF"},
    {u"DBSFILTER", KeyKind::Number, 0, 1023, u"511"},
    {u"DBSNUMCHECK"},
    {u"DBSPATH", KeyKind::Folder, 0, 0, u".\\"},
    {u"DIALCODEFILE", KeyKind::Text, 0, 0, u"yyMMdd.QVR"},
    {u"DIALRECMAXNUM"},
    {u"DISCOUNT", KeyKind::Lines, 0, 9},
    {u"DISPMODE", KeyKind::Number, 0, 1024, u"511"},
    {u"DISCARDCODE"},
    {u"DISCARDLESSCODE"},
    {u"ERRORDELAY", KeyKind::Number, 0, 1799},
    {u"FEEFILE", KeyKind::Text, 0, 0, u"FEE.QVR"},
    {u"FEELIMITWAIT", KeyKind::Number, 0, 17999},
    {u"HALFDEF", KeyKind::Days, 1, 1231},
    {u"HALFFEE", KeyKind::Lines, 0, 32},
    {u"HIDECODE"},
    {u"HOTEL", KeyKind::Number, 0, 4095},
    {u"HOTELFILE", KeyKind::Text, 0, 0, u"电话费"},
    {u"HOTELFILTER", KeyKind::Number, 0, 1023, u"511"},
    {u"HOTELNUMCHECK"},
    {u"HOTELZEROIGNORE", KeyKind::Number, 0, 4095},
    {u"HOTELPATH", KeyKind::Folder, 0, 0, u".\\"},
    {u"INTF"},
    {u"IMONIT"},
    {u"IMMDNUMCHECK"},
    {u"IMMDMODE"},
    {u"IMMDFILE", KeyKind::Text, 0, 0, u"COM2:1200,N,8,1,CS100,DS100,CD"},
    {u"IMMDFILTER", KeyKind::Number, 0, 1023, u"511"},
    {u"IMMDZEROIGNORE", KeyKind::Number, 0, 4095},
    {u"INTF168"},
    {u"IOADDR"},
    {u"LINEPRINTER", KeyKind::Text, 0, 0, u"LPT1:"},
    {u"LOCKED"},
    {u"MODE905"},
    {u"MONTHFEEMODE"},
    {u"MAXSTEP", KeyKind::Number, 0, 100},
    {u"MULTPTASK"},
    {u"NATIONAL"},
    {u"PASSWORDENABLE"},
    {u"PASSWORDNUM"},
    {u"PAYOK"},
    {u"PRNTMODE"},
    {u"QUITEMODE"},
    {u"RENTMODE"},
    {u"SCREENSAVE"},
    {u"SENDPASSWORD", KeyKind::Number, 0, 30},
    {u"SORTFILEMODE"},
    {u"STATIONFILE", KeyKind::Text, 0, 0, u"STATION.QVR"},
    {u"STAMAXNUM", KeyKind::Number, 0, 1000, u"1000"},
    {u"STAMAXLENG", KeyKind::Number, 1, 7},
    {u"STAMINLENG", KeyKind::Number, 1, 7},
    {u"STARTGET"},
    {u"STATIONNEWFORM"},
    {u"TABLEFILE", KeyKind::File},
    {u"TEMPPATH", KeyKind::Folder, 0, 0, u".\\"},
    {u"TIMEMODIFY"},
    {u"TIMETITLE"},
    {u"UNDEFDISP"},
    {u"UNITNAME"},
};

constexpr QStringView kSpeeds[] = {u"300", u"600", u"1200", u"2400", u"4800", u"9600"};

const AccountingKey* KeyNamed(QStringView name) {
    const auto* key = std::ranges::find(kKeys, name, &AccountingKey::name);
    return key == std::end(kKeys) ? nullptr : key;
}

bool Repeats(const AccountingKey& key) {
    return key.kind == KeyKind::Lines || key.kind == KeyKind::Days;
}

std::optional<int> NumberIn(const AccountingKey& key, QStringView value) {
    if (value.size() >= AccountingConfig::kNumberLengthLimit)
        return std::nullopt;
    const double number = LeadingNumber(value);
    if (number < key.least || number > key.greatest)
        return std::nullopt;
    return int(number);
}

// Speeds may be given in hundreds.
QString SpeedOf(const QString& value) {
    for (const QString& speed : {value, value + u"00"_s}) {
        if (std::ranges::find(kSpeeds, speed) != std::end(kSpeeds))
            return speed;
    }
    return {};
}

bool CanBe(const AccountingKey& key, const QString& value) {
    switch (key.kind) {
    case KeyKind::Kept:
    case KeyKind::Text:
    case KeyKind::Folder:
    case KeyKind::File:
        return !value.isEmpty();
    case KeyKind::Number:
    case KeyKind::Days:
        return !value.isEmpty() && NumberIn(key, value);
    case KeyKind::Speed:
        return !SpeedOf(value).isEmpty();
    case KeyKind::Lines:
        return value.size() == key.greatest;
    }
    return false;
}

// A relative name lies beside the program.
bool IsThere(const QString& file) {
    return QFileInfo(QDir(QCoreApplication::applicationDirPath())
                         .filePath(QString(file).replace(u'\\', u'/')))
        .isFile();
}

QString DecodeFile(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? DecodeRequest(bytes) : text;
}

} // namespace

std::span<const AccountingKey> AccountingKeys() {
    return kKeys;
}

AccountingConfig::AccountingConfig(QStringView text, bool* missingFile) {
    QString body = GetTag(text, kField);
    body.remove(u'\r');
    const QStringList all = body.split(u'\n');
    for (int n = 0; n < all.size() && n < kLineLimit; ++n) {
        if (all[n].isEmpty() && n >= kBlankLinesUpTo)
            return;
        if (take(all[n]) == Taken::NoFile && missingFile)
            *missingFile = true;
    }
}

AccountingConfig::Taken AccountingConfig::take(QStringView line) {
    const qsizetype equals = line.indexOf(u'=');
    const AccountingKey* key =
        equals < 0 ? nullptr : KeyNamed(TrimWhite(line.first(equals)).toUpper());
    if (!key)
        return Taken::NoKey;
    // The characters of these lines count by their place, blanks too.
    const QStringView behind = line.sliced(equals + 1);
    const QString value = key->kind == KeyKind::Lines ? behind.toString() : TrimWhite(behind);
    if (!CanBe(*key, value) || value.contains(u'<') || value.contains(u'>'))
        return Taken::NoValue;
    if (key->kind == KeyKind::File && !IsThere(value))
        return Taken::NoFile;
    if (!Repeats(*key)) {
        for (Entry& entry : entries_) {
            if (entry.key == key) {
                entry.value = value;
                return Taken::Replaced;
            }
        }
    } else if (const QStringList standing = values(key->name); standing.contains(value)) {
        return Taken::Standing;
    } else if (standing.size() >= kRepeats) {
        return Taken::Full;
    }
    entries_.append({key, value});
    return Taken::Added;
}

QStringList AccountingConfig::lines() const {
    QStringList lines;
    for (const Entry& entry : entries_)
        lines.append(entry.key->name + u"="_s + entry.value);
    return lines;
}

QString AccountingConfig::text() const {
    QString body;
    for (const QString& line : lines())
        body += line + kCrLf;
    return u"<%1>"_s.arg(kField) + kCrLf + body + u"</%1>"_s.arg(kField) + kCrLf;
}

QString AccountingConfig::value(QStringView name) const {
    const AccountingKey* key = KeyNamed(name);
    if (!key)
        return {};
    QString value = key->defaultValue.toString();
    for (const Entry& entry : entries_) {
        if (entry.key == key)
            value = entry.value;
    }
    if (key->kind == KeyKind::Speed)
        return SpeedOf(value);
    if (key->kind == KeyKind::Folder && !value.endsWith(u'\\'))
        value += u'\\';
    return value;
}

std::optional<int> AccountingConfig::number(QStringView name) const {
    const QString text = value(name);
    return text.isEmpty() ? std::nullopt : std::optional(int(LeadingNumber(text)));
}

QStringList AccountingConfig::values(QStringView name) const {
    QStringList values;
    for (const Entry& entry : entries_) {
        if (entry.key->name == name)
            values.append(entry.value);
    }
    return values;
}

QString AccountingConfigFile() {
    return SettingsFolder() + u"/"_s + kFileName;
}

QString ReadAccountingFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? DecodeFile(file.readAll()) : QString();
}

bool WriteAccountingFile(const QString& path, const AccountingConfig& config) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(EncodeForWire(config.text())) >= 0 &&
           file.commit();
}

} // namespace hotel
