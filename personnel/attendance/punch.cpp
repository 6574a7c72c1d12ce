#include "personnel/attendance/punch.h"

#include "link/records.h"
#include "link/serv_api.h"
#include "personnel/attendance/staff_walk.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr int kTimeLength = 8;
constexpr int kDateLength = 10;
constexpr int kSecondsADay = 24 * 60 * 60;

template<typename Read>
QString InLength(Read read, int length) {
    const QString text = read();
    return text.size() == length ? text : read();
}

// The fields of a punch in their order of writing.
QList<std::pair<QStringView, QString>> FieldsOf(const PreparedPunch& punch) {
    using namespace punch_record;
    return {{kNumber, punch.person.number},
            {kName, punch.person.name},
            {kDepartment, punch.person.department},
            {kPost, punch.person.post},
            {kTime, punch.moment.toString(u"HH:mm:ss")},
            {kState, punch.decision.state},
            {kShift, punch.decision.shift},
            {kMode, punch.decision.mode},
            {kFunction, punch.decision.function},
            {kMeans, punch.means},
            {kDate, punch.moment.toString(u"yyyy-MM-dd")},
            {kNote, punch.note},
            {kOperator, punch.operatorName},
            {kPlace, punch.place}};
}

struct Employee {
    StaffDirectory::Found found;
    RecordRead record;
};

Employee FindEmployee(StaffDirectory& directory, QStringView entered) {
    Employee employee{directory.find(entered), {}};
    const auto read = [&employee] {
        if (employee.found.outcome == Reading::Present)
            employee.record = ReadToChange(EmployeeFile(), employee.found.member.department,
                                           employee.found.member.number);
    };
    read();
    if (employee.record.outcome == Reading::Absent && directory.refill()) {
        employee.found = directory.find(entered);
        read();
    }
    return employee;
}

} // namespace

std::optional<QDateTime> ServerMoment() {
    const QTime time = QTime::fromString(InLength([] { return DbServerTime(); }, kTimeLength));
    const QDate date =
        QDate::fromString(InLength([] { return DbServerDate(); }, kDateLength), Qt::ISODate);
    if (!time.isValid() || !date.isValid())
        return {};
    return QDateTime(date, time);
}

bool PreparedPunch::isBirthday() const {
    return birthday.size() == kDateLength && birthday.endsWith(moment.toString(u"MM-dd"));
}

PreparedPunch PreparePunch(StaffDirectory& directory, QStringView entered) {
    QString text = TrimWhite(entered);
    const bool framed =
        (text.startsWith(u';') || text.startsWith(u'%')) && text.endsWith(u'?') && text.size() > 2;
    if (framed)
        text = text.sliced(1, text.size() - 2);

    PreparedPunch punch;
    const Employee employee = FindEmployee(directory, text);
    if (employee.found.outcome == Reading::Failed)
        return punch;
    punch.person = employee.found.member;
    if (employee.found.outcome == Reading::Absent)
        punch.person.number = text;
    punch.means = (employee.found.byCard ? punch_means::kCard
                   : framed              ? punch_means::kMagneticCard
                                         : punch_means::kKeyboard)
                      .toString();
    const auto moment = ServerMoment();
    if (!moment)
        return punch;
    punch.served = true;
    punch.moment = *moment;
    const QString& record = employee.record.value;
    punch.birthday = GetTag(record, employee::kBirthday);
    punch.decision = DecidePunch(punch.moment.time().hour() * 60 + punch.moment.time().minute(),
                                 RuleWeekday(punch.moment.date()),
                                 ReadShiftPeriods(GetTag(record, employee::kShiftPeriods)));
    return punch;
}

std::optional<Notice> CheckPunch(const PreparedPunch& punch) {
    const std::pair<const QString&, QStringView> checks[] = {
        {punch.person.number, u"编号没有确定"},
        {punch.person.name, u"员工姓名没有确定"},
        {punch.person.department, u"部门没有确定"},
        {punch.decision.function,
         u"当前时间已经不能自动确定考勤功能，必须手工选择，决定是上班还是下班？"},
        {punch.decision.state,
         u"当前时间已经不能自动确定考勤状态，必须手工选择，决定是事假还是病假，还是其他？"}};
    for (const auto& [value, words] : checks) {
        if (value.isEmpty())
            return Notice{kPunchRefused.toString(), words.toString()};
    }
    return {};
}

BufferedPunch ReadBufferedPunch(QStringView entry) {
    const QList<QStringView> parts = entry.split(u',');
    return {TrimWhite(parts.value(0)), TrimWhite(parts.value(1))};
}

QStringList DeskColumns() {
    QStringList columns = {kRowNumber.toString()};
    for (const auto& [field, value] : FieldsOf({}))
        columns.append(field.toString());
    columns.append(kRecordKey.toString());
    return columns;
}

int AddDeskRow(TextTable& list, const PreparedPunch& punch) {
    QStringList cells = {QString::number(list.rows())};
    for (const auto& [field, value] : FieldsOf(punch))
        cells.append(value);
    return list.addRow(cells);
}

QString PunchText(const PreparedPunch& punch) {
    QString record;
    for (const auto& [field, value] : FieldsOf(punch))
        record = SetTag(record, field, value);
    return record;
}

std::optional<QString> PunchFile::save(const PreparedPunch& punch) {
    const QString file = AttendanceFile(punch.moment.date());
    if (file != madeFile_) {
        DbCreateFile(file);
        DbCreateProject(file, punch_record::kProject);
        DbCreateProject(file, absence_record::kProject);
    }
    for (int later = 0; later < kSecondsADay; ++later) {
        const QString key = PunchKey(punch.moment.addSecs(later));
        const RecordRead there = ReadToChange(file, punch_record::kProject, key);
        if (there.failed())
            return {};
        if (there.outcome == Reading::Present && !there.value.isEmpty())
            continue;
        if (DbModifyRecord(file, punch_record::kProject, key, PunchText(punch)) != 0)
            return {};
        madeFile_ = file;
        return key;
    }
    return {};
}

} // namespace hotel
