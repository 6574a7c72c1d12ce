#include "personnel/attendance/period_statistics.h"

#include <QHash>
#include <QMap>

#include <array>

#include "link/records.h"
#include "personnel/attendance/day_lists.h"
#include "personnel/attendance/day_records.h"
#include "personnel/staff/employee_records.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr QStringView kCounts =
    u",出勤次数,加班次数,迟到次数,迟到分钟,早退次数,早退分钟,事假次数,病假次数,缺勤次数,";
constexpr int kFirstSum = 2; // behind number and name
constexpr int kSums = 16;
using Sums = std::array<Money, kSums>;

// The columns of a person's sums as a day's result has them.
struct SumColumn {
    QString tag;
    QStringView format;
};

const QList<SumColumn>& SumColumns() {
    static const QList<SumColumn> columns = [] {
        QList<SumColumn> made;
        for (const QString& header : StatisticsColumns().mid(kFirstSum, kSums))
            made.append({header, kCounts.contains(u',' + header + u',') ? u"#0" : u"#0.0"});
        return made;
    }();
    return columns;
}

// What the analysis writes has one decimal at most; anything else is read at length.
Money Amount(QStringView cell) {
    constexpr qint64 kUnits = 10000;
    constexpr qsizetype kSurelyFits = 12;
    const qsizetype point = cell.indexOf(u'.');
    const bool hasTenth = point >= 0 && point == cell.size() - 2;
    if (cell.size() > kSurelyFits || (point >= 0 && !hasTenth))
        return Money::FromText(cell);
    qint64 digits = 0;
    for (const QChar c : cell) {
        if (c == u'.')
            continue;
        if (c < u'0' || c > u'9')
            return Money::FromText(cell);
        digits = digits * 10 + c.digitValue();
    }
    return Money::FromUnits(digits * (hasTenth ? kUnits / 10 : kUnits));
}

void Add(Sums& sums, const Sums& more) {
    for (int i = 0; i < kSums; ++i)
        sums[i] += more[i];
}

struct PersonDay {
    QStringView number;
    QStringView name;
    QStringView department;
    Sums sums;
};

// A record's fields stand in the order of the columns, which finds each at once.
PersonDay ReadPerson(QStringView record) {
    PersonDay person;
    const QList<SumColumn>& columns = SumColumns();
    int expected = 0;
    for (FieldWalk field(record); field.next();) {
        const QStringView name = field.name();
        if (expected < kSums && name == columns[expected].tag) {
            person.sums[expected++] = Amount(field.value());
        } else if (name == punch_record::kNumber) {
            person.number = field.value();
        } else if (name == punch_record::kName) {
            person.name = field.value();
        } else if (name == punch_record::kDepartment) {
            person.department = field.value();
        } else {
            for (int i = 0; i < kSums; ++i) {
                if (name == columns[i].tag) {
                    person.sums[i] = Amount(field.value());
                    expected = i + 1;
                }
            }
        }
    }
    return person;
}

struct Person {
    QString number;
    QString name;
    QString department;
    Sums sums;
};

struct Shift {
    QString number;
    QString name;
    QString shift;
    std::array<Money, 3> sums; // 次数, 时间, 在岗
};

class Summing {
public:
    explicit Summing(const QString& department)
        : department_(department), all_(department == kAllDepartments) {}

    void addDay(QDate date, QStringView people, QStringView shifts);
    PeriodStatistics result() const;

private:
    bool isMeant(QStringView department) const { return all_ || department == department_; }
    void addShifts(QStringView record);
    Person& personOf(const PersonDay& day);
    Shift& shiftOf(QStringView number, QStringView name, QStringView shift);
    Sums& departmentOf(const QString& department);

    QString department_;
    bool all_;
    // Days list the same people in the same order: whoever stood behind the last one is looked at first.
    QList<Person> people_;
    qsizetype nextPerson_ = 0;
    QHash<QString, qsizetype> personOf_;
    QList<Shift> shifts_;
    qsizetype nextShift_ = 0;
    QHash<QString, qsizetype> shiftOf_; // by person and shift
    QMap<QDate, Sums> days_;
    QMap<QString, Sums> departments_;
    QString lastDepartment_;
    Sums* lastDepartmentSums_ = nullptr; // of a map, whose values stay where they are
};

Person& Summing::personOf(const PersonDay& day) {
    if (nextPerson_ >= people_.size() || people_[nextPerson_].number != day.number) {
        const QString number = day.number.toString();
        nextPerson_ = personOf_.value(number, people_.size());
        if (nextPerson_ == people_.size()) {
            personOf_.insert(number, nextPerson_);
            people_.append({number, day.name.toString(), day.department.toString(), Sums{}});
        }
    }
    return people_[nextPerson_++];
}

Shift& Summing::shiftOf(QStringView number, QStringView name, QStringView shift) {
    if (nextShift_ >= shifts_.size() || shifts_[nextShift_].number != number ||
        shifts_[nextShift_].shift != shift) {
        const QString key = number.toString() + u'|' + shift;
        nextShift_ = shiftOf_.value(key, shifts_.size());
        if (nextShift_ == shifts_.size()) {
            shiftOf_.insert(key, nextShift_);
            shifts_.append({number.toString(), name.toString(), shift.toString(), {}});
        }
    }
    return shifts_[nextShift_++];
}

Sums& Summing::departmentOf(const QString& department) {
    if (!lastDepartmentSums_ || lastDepartment_ != department) {
        lastDepartment_ = department;
        lastDepartmentSums_ = &departments_[department];
    }
    return *lastDepartmentSums_;
}

void Summing::addDay(QDate date, QStringView people, QStringView shifts) {
    nextPerson_ = 0;
    nextShift_ = 0;
    Sums* daySums = nullptr;
    for (FieldWalk record(people); record.next();) {
        const PersonDay day = ReadPerson(record.value());
        if (!isMeant(day.department))
            continue;
        Person& person = personOf(day);
        if (person.department != day.department)
            person.department = day.department.toString();
        if (!daySums)
            daySums = &days_[date];
        Add(person.sums, day.sums);
        Add(*daySums, day.sums);
        Add(departmentOf(person.department), day.sums);
    }
    for (FieldWalk record(shifts); record.next();)
        addShifts(record.value());
}

void Summing::addShifts(QStringView record) {
    QStringView number;
    QStringView name;
    QStringView department;
    std::array<std::array<QStringView, 4>, kShiftGroups> groups; // 名称, 次数, 时间, 在岗
    constexpr std::array<QStringView, 4> kParts = {u"名称", u"次数", u"时间", u"在岗"};
    for (FieldWalk field(record); field.next();) {
        const QStringView tag = field.name();
        const int group = tag.back().digitValue();
        if (group >= 1 && group <= kShiftGroups) {
            for (size_t part = 0; part < kParts.size(); ++part) {
                if (tag.chopped(1) == kParts[part])
                    groups[size_t(group - 1)][part] = field.value();
            }
        } else if (tag == punch_record::kNumber) {
            number = field.value();
        } else if (tag == punch_record::kName) {
            name = field.value();
        } else if (tag == punch_record::kDepartment) {
            department = field.value();
        }
    }
    if (!isMeant(department))
        return;
    for (const auto& group : groups) {
        if (group[0].isEmpty())
            continue;
        Shift& shift = shiftOf(number, name, group[0]);
        for (size_t i = 0; i < shift.sums.size(); ++i)
            shift.sums[i] += Amount(group[i + 1]);
    }
}

QStringList Cells(const Sums& sums) {
    QStringList cells;
    for (int i = 0; i < kSums; ++i)
        cells.append(sums[i].text(SumColumns()[i].format));
    return cells;
}

QStringList ComparedCells(const Sums& sums) {
    QStringList cells;
    for (const QString& header : ComparedColumns()) {
        for (int i = 0; i < kSums; ++i) {
            if (SumColumns()[i].tag == header)
                cells.append(sums[i].text(SumColumns()[i].format));
        }
    }
    return cells;
}

PeriodStatistics Summing::result() const {
    PeriodStatistics result;
    result.people.setHeaders(StatisticsColumns());
    Sums total{};
    for (const Person& person : people_) {
        result.people.addRow(QStringList{person.number, person.name} + Cells(person.sums) +
                             QStringList{person.department});
        Add(total, person.sums);
    }
    result.persons = int(people_.size());
    result.people.addRow(QStringList{kTotalLabel.toString(), {}} + Cells(total));

    result.shifts.setHeaders({punch_record::kNumber.toString(), punch_record::kName.toString(),
                              punch_record::kShift.toString(), u"次数"_s, u"时间"_s, u"在岗"_s});
    const auto cells = [](const std::array<Money, 3>& sums) {
        return QStringList{sums[0].text(u"#0"), sums[1].text(u"#0.0"), sums[2].text(u"#0.0")};
    };
    std::array<Money, 3> all{};
    for (const Shift& shift : shifts_) {
        result.shifts.addRow(QStringList{shift.number, shift.name, shift.shift} +
                             cells(shift.sums));
        for (size_t i = 0; i < all.size(); ++i)
            all[i] += shift.sums[i];
    }
    result.shifts.addRow(QStringList{kTotalLabel.toString(), {}, {}} + cells(all));

    result.days.setHeaders(QStringList{punch_record::kDate.toString()} + ComparedColumns());
    for (auto day = days_.cbegin(); day != days_.cend(); ++day)
        result.days.addRow(QStringList{day.key().toString(u"yyyy-MM-dd")} + ComparedCells(*day));
    result.departments.setHeaders(QStringList{punch_record::kDepartment.toString()} +
                                  ComparedColumns());
    for (auto each = departments_.cbegin(); each != departments_.cend(); ++each)
        result.departments.addRow(QStringList{each.key()} + ComparedCells(*each));
    return result;
}

} // namespace

const QStringList& ComparedColumns() {
    static const QStringList columns = {u"出勤次数"_s, u"迟到次数"_s, u"早退次数"_s, u"缺勤次数"_s,
                                        u"加班小时"_s};
    return columns;
}

PeriodStatistics SumPeriod(QDate first, QDate last, const QString& department,
                           const DayProgress& progress) {
    Summing summing(department);
    const int total = int(first.daysTo(last)) + 1;
    bool finished = true;
    int unread = 0;
    for (int done = 0; done < total && finished; ++done) {
        const QDate day = first.addDays(done);
        const QString file = DayResultFile(day);
        if (progress && !progress(file, done, total)) {
            finished = false;
            break;
        }
        const RecordRead people = ReadProjectToChange(file, day_result::kPeopleProject);
        const RecordRead shifts = people.outcome == Reading::Present
                                      ? ReadProjectToChange(file, day_result::kShiftProject)
                                      : people;
        if (shifts.failed())
            ++unread;
        else
            summing.addDay(day, people.value, shifts.value);
    }
    PeriodStatistics result = summing.result();
    result.finished = finished;
    result.unread = unread;
    return result;
}

} // namespace hotel
