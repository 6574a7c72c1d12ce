#pragma once

// Resident identity numbers: what a number says about its holder.
//
// The place names come from the table of area codes, `sfzcode.dll` beside the program. In spite of
// its name it is text in UTF-8, one area a line: a code of 2 digits (province), 4 (city) or 6 (county),
// blanks, the name; sorted by code. It holds today's divisions and, of the codes that are no longer
// given out, as many as the limits below allow: those in force when most living people got theirs.

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace hotel {

inline constexpr int kProvinceLimit = 50;
inline constexpr int kCityLimit = 400;
inline constexpr int kCountyLimit = 3500;

class AreaTable {
public:
    // Reads the table's text. Lines without a blank, with a code of another length or with a name
    // under two characters are skipped; full-width blanks inside a name are removed. Lines beyond a
    // limit are left out.
    static AreaTable FromText(QStringView text);

    // The name of a code of 2, 4 or 6 digits; empty where the table does not hold it. The lookup is
    // by bisection: in a table that is not sorted, codes are missed.
    QString name(QStringView code) const;

    bool isEmpty() const {
        return provinces_.isEmpty() && cities_.isEmpty() && counties_.isEmpty();
    }

private:
    struct Area {
        QString code;
        QString name;
    };
    QList<Area> provinces_;
    QList<Area> cities_;
    QList<Area> counties_;
};

// The program's table, read from the current folder, or else from the program's own, when first
// asked for. Where the file is missing the user is told once, and the table stays empty.
const AreaTable& ResidentAreas();

struct IdentityNumber {
    QString province; // names, each empty where the table has none
    QString city;
    QString county;
    QString birthDate; // yyyy-MM-dd
    QString age;       // in full years
    QString sex;       // "男" or "女"

    // 省,市,县 as an address stands in a record.
    QString address() const { return QStringList{province, city, county}.join(u','); }
};

// What the number says, or nothing when it is none: 15 digits, or at least 17 characters of which
// the first 17 are digits. Neither the check character nor the date is tested. Blanks are not removed
// and full-width digits not taken; see ToHalfWidth.
std::optional<IdentityNumber> AnalyseIdentityNumber(QStringView number, QDate today,
                                                    const AreaTable& areas);

// The same for today, with the program's table.
std::optional<IdentityNumber> AnalyseIdentityNumber(QStringView number);

// `text` with full-width digits and letters, as a Chinese input method gives them, turned into plain
// ones.
QString ToHalfWidth(QStringView text);

} // namespace hotel
