#pragma once

// Accnt.Cfg: what a workstation with the call accounting desk, and the link program at the telephone exchange, are
// set to. A local text file in the program's folder, which need not be there:
//
//     <计费参数>
//     AUTOCHECK=1800
//     HALFFEE=1111111 1111111  220006590500010
//     </计费参数>
//
// All keys are rows of one table, from which reading, editing and saving follow. The desk itself looks at the keys
// of namespace accounting_key; the others are kept for the link program.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <limits>
#include <optional>
#include <span>

namespace hotel {

enum class KeyKind {
    Kept,   // flags and other values of the exchange link: any text
    Text,   // any text but the empty one
    Number, // from `least` to `greatest`
    Speed,  // of a line: 300 to 9600, or the same in hundreds
    Folder, // with a "\" at its end when it is asked for
    File,   // of this workstation; must be there
    Lines,  // up to kRepeats texts of `greatest` characters each, in the order of the file
    Days,   // up to kRepeats numbers from `least` to `greatest`
};

struct AccountingKey {
    QStringView name;
    KeyKind kind = KeyKind::Kept;
    int least = 0;
    int greatest = 0;
    QStringView defaultValue = {}; // empty: none
};

// In the order in which the reader tests them.
std::span<const AccountingKey> AccountingKeys();

namespace accounting_key {
inline constexpr QStringView kRateFile = u"FEEFILE";
inline constexpr QStringView kExtensionFile = u"STATIONFILE";
inline constexpr QStringView kDayFile = u"DIALCODEFILE";     // pattern of a daily file's name
inline constexpr QStringView kHalfRate = u"HALFFEE";         // see rate_bands.h
inline constexpr QStringView kHalfRateDay = u"HALFDEF";      // month × 100 + day
inline constexpr QStringView kShownDigits = u"CODEDISPLENG"; // of a called number in the live list
inline constexpr QStringView kMostExtensions = u"STAMAXNUM";
inline constexpr QStringView kLongestExtension = u"STAMAXLENG";
inline constexpr QStringView kShortestExtension = u"STAMINLENG";
} // namespace accounting_key

class AccountingConfig {
public:
    static constexpr int kRepeats = 10;        // lines of a key that may repeat
    static constexpr int kLineLimit = 1000;    // lines that are read
    static constexpr int kBlankLinesUpTo = 10; // behind this line the first empty one ends the file
    static constexpr int kNumberLengthLimit = 8; // a value of so many characters is no number

    // What became of a line.
    enum class Taken {
        Added,
        Replaced, // the entry of that key
        Standing, // an equal one of a key that may repeat
        Full,     // kRepeats lines of the key stand already
        NoKey,    // no "=", or a name that is no key
        NoValue,  // empty, out of its range or of another length: what stood before holds
        NoFile,   // the file that it names isn't there
    };

    AccountingConfig() = default;
    // From the file's text. `missingFile` is set when a line named a file that isn't there.
    explicit AccountingConfig(QStringView text, bool* missingFile = nullptr);

    // Takes a line KEY=VALUE, the key in any letters.
    Taken take(QStringView line);

    // Takes an entry out, counted from 0 in the order of lines().
    void removeAt(int entry) { entries_.removeAt(entry); }

    // "KEY=VALUE" of all entries, in the order in which they came.
    QStringList lines() const;
    // The file's text.
    QString text() const;

    // The value that holds, the default where none was given; the speed as "9600", a folder with its "\".
    QString value(QStringView key) const;
    // Nothing where there is neither value nor default.
    std::optional<int> number(QStringView key) const;
    // Of a key that may repeat.
    QStringList values(QStringView key) const;

private:
    struct Entry {
        const AccountingKey* key;
        QString value;
    };
    QList<Entry> entries_;
};

// Accnt.Cfg in the program's folder, or in the user's where the program's can't be written to.
QString AccountingConfigFile();

// In UTF-8 or in the code page; empty when there is no such file.
QString ReadAccountingFile(const QString& path);
// In the code page, which the link program reads. False when it could not be written.
bool WriteAccountingFile(const QString& path, const AccountingConfig& config);

} // namespace hotel
