#include "app/demo/made_up_guests.h"

#include <array>

namespace hotel {

QList<DemoGuest> GuestMaker::of(const DemoStay& stay, const DemoTown& town, int number) {
    QList<DemoGuest> guests;
    if (number == 1 && !stay.custom->signs && dice_.chance(3))
        return {foreigner()};
    if (number == 1 && stay.custom->employed && dice_.chance(35)) {
        if (const auto guest = regular(stay))
            return {*guest};
    }
    const bool pensioners = stay.isSentBy(Sends::TourGroups);
    const bool couple = number > 1 && !stay.custom->signs;
    const bool woman = dice_.chance(35);
    for (int n = 0; n < number; ++n) {
        const bool child = couple && n == 2;
        const int age = child        ? dice_.between(6, 14)
                        : pensioners ? dice_.between(52, 74)
                                     : dice_.between(22, 62);
        const QChar surname =
            child ? guests.first().name.front() : dice_.pick(DemoNames().surnames);
        guests.append(resident(surname,
                               couple && n == 1   ? !woman
                               : couple && n == 0 ? woman
                                                  : dice_.chance(40),
                               age, town));
    }
    if (number == 1 && stay.custom->employed)
        regulars_.append({guests.first(), stay.leaves});
    return guests;
}

DemoGuest GuestMaker::resident(QChar surname, bool woman, int age, const DemoTown& town) {
    const NameCharacters& names = DemoNames();
    QString name(surname);
    if (dice_.chance(75))
        name += dice_.pick(woman ? names.femaleFirst : names.maleFirst);
    name += dice_.pick(woman ? names.femaleSecond : names.maleSecond);
    static constexpr std::array<QStringView, 14> kJobs = {
        u"职员", u"工程师", u"教师", u"业务员",     u"部门经理", u"个体经营者", u"会计师",
        u"医生", u"公务员", u"工人", u"自由职业者", u"司机",     u"律师",       u"采购员"};
    const QStringView job = age < 22 ? u"学生" : age > 59 ? u"离退休人员" : dice_.pick(kJobs);
    return {words_.keep(name), words_.keep(identityNumber(town.code, woman, age)), job};
}

QString GuestMaker::identityNumber(QStringView area, bool woman, int age) {
    const QDate born = today_.addYears(-age).addDays(-dice_.below(360));
    const int serial = 2 * dice_.between(1, 490) + (woman ? 0 : 1);
    const QString number =
        area + born.toString(u"yyyyMMdd") + u"%1"_s.arg(serial, 3, 10, QChar(u'0'));
    constexpr std::array kWeights = {7, 9, 10, 5, 8, 4, 2, 1, 6, 3, 7, 9, 10, 5, 8, 4, 2};
    int sum = 0;
    for (int n = 0; n < int(kWeights.size()); ++n)
        sum += number[n].digitValue() * kWeights[size_t(n)];
    return number + u"10X98765432"_s[sum % 11];
}

DemoGuest GuestMaker::foreigner() {
    const DemoForeigner& guest = dice_.pick(DemoForeigners());
    return {guest.name,   words_.keep(u"P%1"_s.arg(dice_.between(1'000'000, 9'999'999))),
            u"职员",      u"护照",
            guest.sex,    words_.keep(QString::number(dice_.between(24, 63))),
            guest.country};
}

// Who has left some days ago and comes again.
std::optional<DemoGuest> GuestMaker::regular(const DemoStay& stay) {
    for (auto& [guest, left] : regulars_) {
        if (left.daysTo(stay.arrives) < 3 || !dice_.chance(40))
            continue;
        left = stay.leaves;
        return guest;
    }
    return {};
}

} // namespace hotel
