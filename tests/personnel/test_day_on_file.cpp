#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "house/rooms/working_days.h"
#include "personnel/attendance/FrmKqCount.h"
#include "personnel/attendance/FrmTj.h"
#include "personnel/attendance/attendance_report.h"
#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_load.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/frmCheck.h"
#include "personnel/attendance/frmCx.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/period_statistics.h"
#include "personnel/attendance/punch.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/personnel/staff.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"
#include "tools/charts/ChartPane.h"
#include "tools/paper/PrtPrev.h"
#include "tools/queries/CmnQuery.h"

using namespace hotel;

namespace {

const QString kDay = u"Kqxx\\2603\\260305.qvr"_s;

QString Words(const std::optional<Notice>& notice) {
    return notice ? notice->title + u": "_s + notice->words : QString();
}

// "0012 07:50:00 2026-03-05 早班 上班 正常": a punch as the desk writes it.
QString PutPunch(const QString& punch, const QString& mode = u"常规"_s) {
    const QStringList part = punch.split(u' ');
    const QDate day = QDate::fromString(part[2], Qt::ISODate);
    const QString key = PunchKey(QDateTime(day, QTime::fromString(part[1])));
    const auto none = [](const QString& text) { return text == u"-" ? QString() : text; };
    SaveRecord(
        AttendanceFile(day), u"上班记录", key,
        u"<编号>%1</编号><姓名>员%1</姓名><所在部门>前厅部</所在部门><职务>服务员</职务>"
        "<实到时间>%2</实到时间><状态>%3</状态><班次名称>%4</班次名称><考勤方式>%5</考勤方式>"
        "<考勤功能>%6</考勤功能><模式>键盘操作</模式><日期>%7</日期><地点>通道</地点>"_s.arg(
            part[0], part[1], part[5], none(part[3]), mode, none(part[4]), part[2]));
    return key;
}

// A day's saved result: "0012 前厅部 出勤次数=1 迟到分钟=15".
void PutResult(QDate day, const QStringList& people, const QStringList& shifts = {}) {
    TextTable list(StatisticsColumns());
    for (const QString& person : people) {
        const QStringList part = person.split(u' ');
        const int row = list.addRow({part[0], u"员"_s + part[0]});
        list.setText(row, u"所在部门", part[1]);
        for (const QString& cell : part.mid(2))
            list.setText(row, cell.section(u'=', 0, 0), cell.section(u'=', 1));
    }
    TextTable groups(ShiftColumns());
    for (const QString& shift : shifts) {
        const QStringList part = shift.split(u' ');
        const int row = groups.addRow(QStringList{part[0], u"员"_s + part[0]} + part.mid(2));
        groups.setText(row, u"所在部门", part[1]);
    }
    SaveListAsProject(DayResultFile(day), u"当天统计数据", list);
    SaveListAsProject(DayResultFile(day), u"当天班次数据", groups);
}

QStringList Rows(const TextTable& list, const QStringList& columns) {
    QStringList rows;
    for (int row = 1; row < list.rows(); ++row) {
        QStringList cells;
        for (const QString& column : columns)
            cells.append(list.text(row, column));
        rows.append(cells.join(u' '));
    }
    return rows;
}

} // namespace

class DayOnFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    WorkingFolder folder_;
    Screen* screen_ = nullptr;

    template<class Widget>
    Widget* in(const char* name) {
        auto* widget = screen_->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no %s", name);
        return widget;
    }
    void open(QStringView name) {
        OpenScreen(name);
        screen_ = FindScreen(name);
        if (!screen_ || !QTest::qWaitForWindowActive(screen_))
            qFatal("no screen");
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(screen_->focusWidget() ? screen_->focusWidget() : screen_, key, modifiers);
    }
    const TextTable& list(const char* name) { return in<GridView>(name)->table(); }
    QString told() const {
        const auto& entries = messages_->entries();
        return entries.isEmpty() ? QString()
                                 : entries.last().title + u": "_s + entries.last().words;
    }
    bool status(const QString& words) {
        const auto labels = screen_->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](QLabel* label) { return label->text() == words; });
    }
    static QStringList onPaper() {
        QStringList texts;
        for (const PrintedText& text : TextsOf(ScriptOfJob().previewPage(1)))
            texts.append(text.text);
        return texts;
    }
    static int picturesOnPaper() {
        return int(ItemTexts(ScriptOfJob().previewPage(1)).filter(u"picture "_s).size());
    }
    QString stored(const QString& key, QStringView field) {
        return GetTag(hotel_->stored(kDay, u"上班记录"_s, key), field);
    }

private Q_SLOTS:
    void initTestCase() {
        SetUpForms();
        RegisterScreen(u"frmCheck", [] { return new frmCheck; });
        RegisterScreen(u"FrmTj", [] { return new FrmTj; });
        RegisterScreen(u"frmCx", [] { return new frmCx; });
        RegisterScreen(u"FrmKqCount", [] { return new FrmKqCount; });
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        CurrentSession().userName = u"何雅琴"_s;
        Employ(u"前厅部"_s, u"0012"_s, u"员0012"_s, {u"早班 08:00 18:00"_s});
        Employ(u"前厅部"_s, u"0013"_s, u"员0013"_s, {u"早班 08:00 18:00"_s});
        Employ(u"保安部"_s, u"0034"_s, u"员0034"_s,
               {u"早班 08:00 16:00 倒班"_s, u"晚班 16:00 23:00 倒班"_s});
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ResetParameters();
        hotel_.reset();
    }

    void listsOfADay() {
        PutPunch(u"0012 18:00:00 2026-03-05 早班 下班 正常"_s);
        PutPunch(u"0012 07:50:00 2026-03-05 早班 上班 正常"_s);
        AttendanceDay day;
        day.date = QDate(2026, 3, 5);
        QVERIFY(LoadKqsdQd(day) && LoadPunches(day) && LoadAbsences(day));
        QCOMPARE(
            Rows(day.punches, {u"序号"_s, u"实到时间"_s, u"考勤方式"_s, u"记录号"_s}),
            QStringList({u"1 07:50:00 常规 260305075000"_s, u"2 18:00:00 常规 260305180000"_s}));
        QStringList due = Rows(day.periods, day.periods.headers());
        due.sort();
        QCOMPARE(due, QStringList({u"0012 员0012 早班 常规 08:00:00 18:00:00 30 30 1 前厅部"_s,
                                   u"0013 员0013 早班 常规 08:00:00 18:00:00 30 30 1 前厅部"_s,
                                   u"0034 员0034 早班 倒班 08:00:00 16:00:00 30 30 1 保安部"_s,
                                   u"0034 员0034 晚班 倒班 16:00:00 23:00:00 30 30 1 保安部"_s}));
        QCOMPARE(day.statistics.dataRows(), 3);

        // What is not due on the weekday; a special day has the rules of another one.
        SaveRecord(u"Ygxx\\Ygxx.QVR", u"前厅部", u"0013",
                   u"<姓名>员0013</姓名><考勤时段>"_s +
                       ShiftsText({u"早班 08:00 18:00"_s}).replace(u"1111111"_s, u"0000001"_s) +
                       u"</考勤时段>"_s);
        LoadKqsdQd(day);
        QCOMPARE(day.periods.find(0, u"0013"), -1);
        QCOMPARE(day.statistics.dataRows(), 3);
        TextTable days({u"说明"_s, u"日期"_s, u"换算星期"_s});
        days.addRow({u"加班"_s, u"2026-03-05"_s, u"星期天"_s});
        SaveWorkingDays(days);
        LoadKqsdQd(day);
        QVERIFY(day.periods.find(0, u"0013") > 0);
        int asked = 0;
        QVERIFY(!LoadKqsdQd(day, [&asked](int, int) { return ++asked < 2; }));
        hotel_->stopServer();
        QVERIFY(!LoadKqsdQd(day) && !LoadPunches(day) && !LoadAbsences(day));
        QCOMPARE(day.punches.dataRows(), 2); // what stood there stands
    }

    void correctionsAreWrittenAtOnce() {
        const QString key = PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        AttendanceDay day;
        day.date = QDate(2026, 3, 5);
        LoadPunches(day);
        QCOMPARE(Words(CorrectState(day, 1, {})),
                 u"操作无效: 请先选择一种状态，再执行点击修改状态功能"_s);
        QCOMPARE(Words(CorrectShift(day, 1, {})),
                 u"操作无效: 请先选择一种班次，再执行点击修改考勤班次"_s);
        QCOMPARE(Words(CorrectNote(day, 1, {})),
                 u"操作无效: "
                 "请先输入考勤说明信息，再执行点击修改说明功能，将输入的说明信息填入记录单元中"_s);
        QCOMPARE(stored(key, u"修订人"), QString());
        QCOMPARE(CorrectState(day, 1, u"公务"_s), std::nullopt);
        QCOMPARE(CorrectShift(day, 1, u"晚班"_s), std::nullopt);
        QCOMPARE(CorrectNote(day, 1, u"接机"_s), std::nullopt);
        QCOMPARE(MarkPunch(day, 1, true), std::nullopt);
        QCOMPARE(hotel_->stored(kDay, u"上班记录"_s, key).section(u"</实到时间>"_s, 1),
                 u"<状态>公务</状态><班次名称>晚班</班次名称><考勤方式>常规</考勤方式>"
                 "<考勤功能>上班</考勤功能><模式>键盘操作</模式><日期>2026-03-05</日期><地点>通道</"
                 "地点>\r\n"
                 "<修订人>何雅琴</修订人>\r\n<修订日期>2026-03-05</修订日期>\r\n<考勤说明>接机</"
                 "考勤说明>\r\n"
                 "<标记>删除</标记>"_s);
        QCOMPARE(day.punches.text(1, u"修订人"), u"何雅琴"_s);
        QCOMPARE(MarkPunch(day, 1, false), std::nullopt);
        QCOMPARE(stored(key, u"标记"), QString());
        DeleteRecord(kDay, u"上班记录", key);
        QCOMPARE(Words(CorrectState(day, 1, u"事假"_s)), u"错误: 记录修改失败!"_s);
        QCOMPARE(day.punches.text(1, u"状态"), u"公务"_s); // as it stood
        QCOMPARE(hotel_->stored(kDay, u"上班记录"_s, key), QString());
    }

    void absencesOnFile() {
        PutPunch(u"0012 07:50:00 2026-03-05 早班 上班 正常"_s);
        const QString overtime = PutPunch(u"0012 20:30:00 2026-03-05 - 未知 正常"_s, u"加班"_s);
        const QString other = PutPunch(u"0034 08:05:00 2026-03-05 夜班 上班 迟到"_s);
        AttendanceDay day;
        day.date = QDate(2026, 3, 5);
        LoadKqsdQd(day);
        LoadPunches(day);
        AbsenceOutcome outcome = MakeAbsences(day, {});
        QCOMPARE(outcome.notices.size(), 1);
        QCOMPARE(Words(outcome.notices.first()),
                 u"提示: "
                 "部分考勤班次进行了自适应调整，请重新进行本操作，并随即执行统计分析处理！"_s);
        QCOMPARE(stored(overtime, u"考勤功能") + stored(overtime, u"班次名称"), u"下班早班"_s);
        QCOMPARE(stored(other, u"班次名称") + stored(other, u"修订人"), u"早班何雅琴"_s);
        outcome = MakeAbsences(day, {.noPunch = u"事假"_s});
        QCOMPARE(outcome.notices.size(), 0);
        TextTable absences(AbsenceColumns());
        QVERIFY(LoadProjectAsList(kDay, u"缺勤记录", absences) == Reading::Present);
        QCOMPARE(Rows(absences, AbsenceColumns()),
                 QStringList({u"1 0013 员0013 早班 事假 1 没有任何考勤纪录,默认为事假 何雅琴"_s,
                              u"2 0034 员0034 早班 早退 30 "
                              "没有下班考勤纪录,默认为早退,使用限额分钟数 何雅琴"_s,
                              u"3 0034 员0034 晚班 事假 1 没有任何考勤纪录,默认为事假 何雅琴"_s}));
        QVERIFY(hotel_->stored(kDay, u"缺勤记录"_s, u"2"_s).startsWith(u"<序号>2</序号>"_s));
        QCOMPARE(hotel_->logged(u"操作内容") + u'|' + hotel_->logged(u"备注"),
                 u"当天缺勤数据|处理某天缺勤记录操作"_s);

        // By hand.
        QCOMPARE(
            Words(AddAbsence(day, {u"0012"_s, u"员0012"_s, u"早班"_s, u"公务"_s, u" "_s, u"x"_s})),
            u"提示: 各项信息均不能为空"_s);
        QCOMPARE(day.absences.dataRows(), 3);
        QCOMPARE(
            AddAbsence(day, {u"0012"_s, u"员0012"_s, u"早班"_s, u"公务"_s, u"0.5"_s, u"接机"_s}),
            std::nullopt);
        QCOMPARE(hotel_->logged(u"操作内容") + u'|' + hotel_->logged(u"备注"),
                 u"手工增加处理缺勤记录操作|0012:员0012, 折算:0.5"_s);
        QCOMPARE(GetTag(hotel_->stored(kDay, u"缺勤记录"_s, u"4"_s), u"缺勤说明"), u"接机"_s);
        QCOMPARE(DeleteAbsence(day, 1), std::nullopt);
        QCOMPARE(hotel_->logged(u"操作内容") + u'|' + hotel_->logged(u"备注"),
                 u"手工删除缺勤记录操作|删除的内容：0013:员0013, 折算:1"_s);
        LoadAbsences(day);
        QCOMPARE(Rows(day.absences, {u"序号"_s, u"编号"_s}),
                 QStringList({u"1 0034"_s, u"2 0034"_s, u"3 0012"_s}));
        for (int n = 0; n < 3; ++n)
            DeleteAbsence(day, 1);
        LoadAbsences(day);
        QCOMPARE(day.absences.dataRows(), 0);
        QCOMPARE(Words(SaveAbsences(day)), QString()); // none is a list, too
        hotel_->stopServer();
        QCOMPARE(Words(MakeAbsences(day, {}).notices.value(0)), u"错误: 缺勤记录保存失败!"_s);
    }

    void aDayWorkedOff() {
        PutPunch(u"0012 07:50:00 2026-03-05 早班 上班 正常"_s);
        PutPunch(u"0012 07:51:00 2026-03-05 早班 上班 正常"_s);
        PutPunch(u"0012 18:20:00 2026-03-05 早班 下班 正常"_s);
        PutPunch(u"0013 08:20:00 2026-03-05 早班 上班 迟到"_s);
        for (int twice = 0; twice < 2; ++twice) {
            QCOMPARE(WorkOffDay(QDate(2026, 3, 5), {}).size(), 0);
            TextTable people(StatisticsColumns());
            LoadProjectAsList(u"Kqtj\\2603\\260305.qvr"_s, u"当天统计数据", people);
            QStringList sums = Rows(people, {u"编号"_s, u"出勤次数"_s, u"在岗时间"_s, u"迟到分钟"_s,
                                             u"早退分钟"_s, u"缺勤天数"_s, u"所在部门"_s});
            sums.sort();
            QCOMPARE(sums,
                     QStringList({u"0012 1 10.5 0 0 0.0 前厅部"_s, u"0013 1 9.7 20 30 0.0 前厅部"_s,
                                  u"0034 0 0.0 0 0 2.0 保安部"_s}));
        }
        QCOMPARE(stored(u"260305075100"_s, u"标记"), u"删除"_s);
        TextTable shifts(ShiftColumns());
        LoadProjectAsList(u"Kqtj\\2603\\260305.qvr"_s, u"当天班次数据", shifts);
        QVERIFY(
            Rows(shifts, {u"编号"_s, u"名称1"_s, u"次数1"_s, u"时间1"_s, u"在岗1"_s, u"名称2"_s})
                .contains(u"0012 早班 1 10.0 10.5 "_s));
        hotel_->stopServer();
        QCOMPARE(WorkOffDay(QDate(2026, 3, 5), {}).size(), 1);
        AttendanceDay day;
        day.date = QDate(2026, 3, 5);
        QCOMPARE(Words(SaveStatistics(day)), u"意外错误: 考勤统计记录保存失败!"_s);
    }

    void sumsOfAPeriod() {
        PutResult(QDate(2026, 2, 28),
                  {u"0012 前厅部 出勤次数=1 在岗时间=9.5 迟到次数=1 迟到分钟=15"_s,
                   u"0034 保安部 缺勤次数=1 缺勤天数=1.0 脱岗统计=0.3"_s},
                  {u"0012 前厅部 早班 1 10.0 9.5"_s});
        PutResult(
            QDate(2026, 3, 2),
            {u"0012 客房部 出勤次数=2 在岗时间=10.7 加班小时=2.5"_s,
             u"0034 保安部 出勤次数=1 脱岗统计=0.4"_s},
            {u"0012 客房部 晚班 1 4.0 4.1 早班 2 20.0 19.5"_s, u"0034 保安部 早班 1 8.0 7.6"_s});
        const QStringList columns = {u"编号"_s,     u"出勤次数"_s, u"在岗时间"_s, u"迟到次数"_s,
                                     u"迟到分钟"_s, u"加班小时"_s, u"缺勤天数"_s, u"脱岗统计"_s};
        QStringList files;
        const PeriodStatistics all = SumPeriod(QDate(2026, 2, 28), QDate(2026, 3, 2), u"所有部门"_s,
                                               [&files](const QString& file, int, int total) {
                                                   files.append(file + QString::number(total));
                                                   return true;
                                               });
        QCOMPARE(files, QStringList({u"Kqtj\\2602\\260228.qvr3"_s, u"Kqtj\\2603\\260301.qvr3"_s,
                                     u"Kqtj\\2603\\260302.qvr3"_s}));
        QCOMPARE(Rows(all.people, columns),
                 QStringList({u"0012 3 20.2 1 15 2.5 0.0 0.0"_s, u"0034 1 0.0 0 0 0.0 1.0 0.7"_s,
                              u"合计 4 20.2 1 15 2.5 1.0 0.7"_s}));
        QCOMPARE(Rows(all.shifts, all.shifts.headers()),
                 QStringList({u"0012 员0012 早班 3 30.0 29.0"_s, u"0012 员0012 晚班 1 4.0 4.1"_s,
                              u"0034 员0034 早班 1 8.0 7.6"_s, u"合计   5 42.0 40.7"_s}));
        QCOMPARE(Rows(all.days, all.days.headers()),
                 QStringList({u"2026-02-28 1 1 0 1 0.0"_s, u"2026-03-02 3 0 0 0 2.5"_s}));
        QCOMPARE(all.persons, 2);
        // Amounts in any form, people in another order than the day before.
        PutResult(QDate(2026, 2, 10),
                  {u"1 前厅部 在岗时间=0.75 出勤次数=3"_s, u"2 前厅部 在岗时间=-1.5"_s});
        PutResult(QDate(2026, 2, 11),
                  {u"2 前厅部 在岗时间=12元 出勤次数=1234567890123"_s, u"1 前厅部 在岗时间=.5"_s});
        QCOMPARE(
            Rows(SumPeriod(QDate(2026, 2, 10), QDate(2026, 2, 11), u"所有部门"_s).people,
                 {u"编号"_s, u"在岗时间"_s, u"出勤次数"_s}),
            QStringList({u"1 1.3 3"_s, u"2 10.5 1234567890123"_s, u"合计 11.8 1234567890126"_s}));
        // By the department of that day.
        const auto of = [&](const QString& department) {
            return Rows(SumPeriod(QDate(2026, 2, 28), QDate(2026, 3, 2), department).people,
                        {u"编号"_s, u"出勤次数"_s});
        };
        QCOMPARE(of(u"前厅部"_s), QStringList({u"0012 1"_s, u"合计 1"_s}));
        QCOMPARE(of(u"客房部"_s), QStringList({u"0012 2"_s, u"合计 2"_s}));
        // One day, its both ends; none that was saved; stopped.
        const auto on = [&](QDate first, QDate last) {
            return Rows(SumPeriod(first, last, u"所有部门"_s).people, columns);
        };
        QCOMPARE(on(QDate(2026, 3, 2), QDate(2026, 3, 2)).size(), 3);
        QCOMPARE(on(QDate(2026, 3, 3), QDate(2026, 3, 9)),
                 QStringList{u"合计 0 0.0 0 0 0.0 0.0 0.0"_s});
        int days = 0;
        const PeriodStatistics stopped =
            SumPeriod(QDate(2026, 2, 28), QDate(2026, 3, 2), u"所有部门"_s,
                      [&days](const QString&, int, int) { return days++ < 1; });
        QVERIFY(!stopped.finished && all.finished);
        QCOMPARE(stopped.people.text(3, u"出勤次数"), u"1"_s);
        // Days that could not be read are told from those that were not saved.
        QCOMPARE(all.unread, 0);
        const PeriodStatistics cut = SumPeriod(QDate(2026, 2, 28), QDate(2026, 3, 2), u"所有部门"_s,
                                               [this](const QString&, int done, int) {
                                                   if (done == 1)
                                                       hotel_->stopServer();
                                                   return true;
                                               });
        QCOMPARE(cut.unread, 2);
        QCOMPARE(Rows(cut.people, {u"编号"_s, u"出勤次数"_s}).last(), u"合计 1"_s);
    }

    void questionsAndTheReport() {
        PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        PutPunch(u"0012 17:40:00 2026-03-05 早班 下班 早退"_s);
        PutPunch(u"0013 07:50:00 2026-03-05 早班 上班 正常"_s);
        PutPunch(u"0013 07:55:00 2026-02-10 早班 上班 正常"_s);
        PutPunch(u"0034 09:00:00 2026-03-01 - 未知 正常"_s, u"加班"_s);
        PutPunch(u"0034 11:30:00 2026-03-01 - 未知 正常"_s, u"加班"_s);
        SaveRecord(kDay, u"上班记录", u"260305120000",
                   u"<编号>0034</编号><实到时间>12:00:00</实到时间><考勤功能>上班</"
                   u"考勤功能><迟到>是</迟到>");
        AttendanceDay day;
        day.date = QDate(2026, 3, 5);
        for (const QString& absence :
             {u"0013 事假 0.5"_s, u"0013 旷工 1"_s, u"0012 出差 2"_s, u"0012 换休 1"_s,
              u"0012 加班 1.5"_s, u"0012 迟到 30"_s, u"0013 因公出差 3"_s}) {
            const QStringList part = absence.split(u' ');
            AddAbsence(day, {part[0], u"员"_s + part[0], u"早班"_s, part[1], part[2], u"x"_s});
        }
        const auto ask = [](AttendanceQuestion question, const AttendanceCondition& condition) {
            TextTable list(QuestionColumns(question));
            AskAttendance(question, condition, list);
            return Rows(list, list.headers());
        };
        const AttendanceCondition march{
            .first = QDate(2026, 3, 1), .last = QDate(2026, 3, 5), .number = {}};
        QCOMPARE(ask(AttendanceQuestion::Arrivals, march),
                 QStringList({u"0012 员0012 前厅部 2026-03-05 08:00:00 08:20:00 是"_s,
                              u"0013 员0013 前厅部 2026-03-05 08:00:00 07:50:00 "_s,
                              u"0034     12:00:00 是"_s}));
        AttendanceCondition late = march;
        late.onlyIrregular = true;
        QCOMPARE(ask(AttendanceQuestion::Arrivals, late).size(), 2);
        late.number = u"0012"_s;
        QCOMPARE(ask(AttendanceQuestion::Arrivals, late).size(), 1);
        QCOMPARE(ask(AttendanceQuestion::Departures, march),
                 QStringList{u"0012 员0012 前厅部 2026-03-05 18:00:00 17:40:00 是"_s});
        QCOMPARE(ask(AttendanceQuestion::Absences, march).size(), 7);
        QCOMPARE(ask(AttendanceQuestion::Absences, march)[0],
                 u"0013 员0013 事假：x 系统管理员 2026-03-05 2026-03-05 0.5"_s.replace(
                     u"系统管理员"_s, u"何雅琴"_s));
        QCOMPARE(ask(AttendanceQuestion::Absences, march)[5].section(u' ', -1), u"0"_s);
        const QString text = ConditionTextOf(AttendanceQuestion::Arrivals, late);
        QCOMPARE(GetTag(GetTag(text, u"00"), u"条件") + GetTag(GetTag(text, u"00"), u"目标"),
                 u"大于260301000000"_s);
        QCOMPARE(GetTag(GetTag(text, u"01"), u"条件") + GetTag(GetTag(text, u"01"), u"目标"),
                 u"不大于260305300000"_s);
        QCOMPARE(GetTag(GetTag(text, u"02"), u"对象") + GetTag(GetTag(text, u"03"), u"对象"),
                 u"编号迟到"_s);

        TextTable report(ReportColumns());
        PutPunch(u"0013 18:01:00 2026-03-05 早班 下班 正常"_s);
        PutPunch(u"0013 17:59:00 2026-03-04 早班 上班 早退"_s); // a state by hand
        PutPunch(u"0013 18:02:00 2026-03-04 早班 下班 迟到"_s);
        const ReportEnd end = ReportMonths(QDate(2026, 3, 4), QDate(2026, 3, 5), report);
        QVERIFY(end.finished && end.unread == 0);
        QCOMPARE(Rows(report, report.headers()),
                 QStringList({u"0012 员0012 前厅部 1 1 0.0 0.0 2.0 1.0 1.5"_s,
                              u"0013 员0013 前厅部 0 0 0.5 1.0 3.0 0.0 0.0"_s,
                              u"0034 员0034 前厅部 0 0 0.0 0.0 0.0 0.0 2.5"_s}));
        int days = 0;
        report.clearRows();
        const auto count = [&days](const QString&, int, int) { return ++days > 0; };
        ReportMonths(QDate(2025, 1, 1), QDate(2027, 1, 1), report, count);
        QCOMPARE(days, 28 + 31); // as far as there are files
        days = 0;
        ReportMonths(QDate(2026, 3, 20), QDate(2026, 3, 1), report, count);
        QCOMPARE(days, 31); // whole months
        QVERIFY(!ReportMonths(QDate(2026, 3, 1), QDate(2026, 3, 1), report,
                              [](const QString&, int, int) { return false; })
                     .finished);
        // The server goes away behind the first day; and before the first.
        const auto cut = [this](const QString&, int done, int) {
            if (done == 1)
                hotel_->stopServer();
            return true;
        };
        QCOMPARE(ReportMonths(QDate(2026, 3, 1), QDate(2026, 3, 1), report, cut).unread, 30);
        QCOMPARE(ReportMonths(QDate(2026, 3, 1), QDate(2026, 3, 1), report).unread, 1);
    }

    // A personnel clerk's morning, by keys.
    void theAnalysisByKeys() {
        const QString late = PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        PutPunch(u"0012 18:05:00 2026-03-05 早班 下班 正常"_s);
        PutPunch(u"0012 08:21:00 2026-03-05 早班 上班 迟到"_s);
        open(u"frmCheck");
        QCOMPARE(in<QLineEdit>("ChkDate")->text(), u"2026-03-05"_s);
        QCOMPARE(list("Kqqd").dataRows(), 3);
        QCOMPARE(list("Kqqd").headers().last(), u"记录号"_s);
        press(Qt::Key_F5);
        QCOMPARE(hotel_->logged(u"操作内容") + u'|' + hotel_->logged(u"备注"),
                 u"自动检查考勤记录操作|2026-03-05"_s);
        QCOMPARE(list("Kqqd").text(2, u"标记"), u"删除"_s);
        QCOMPARE(stored(u"260305082100"_s, u"标记"), u"删除"_s);
        press(Qt::Key_F5);
        QCOMPARE(list("Kqqd").dataRows(), 2);

        in<GridView>("Kqqd")->setCurrent(0);
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(told(), u"操作无效: 请先选择要修订的考勤记录！"_s);
        // Enter on the row leads to the state, letters choose it, Enter writes.
        in<GridView>("Kqqd")->setFocus();
        in<GridView>("Kqqd")->setCurrent(1);
        press(Qt::Key_Return);
        QCOMPARE(screen_->focusWidget()->objectName(), u"Kqzt"_s);
        TypeText(screen_->focusWidget(), u"gw"_s);
        press(Qt::Key_Return);
        QCOMPARE(stored(late, u"状态"), u"公务"_s);
        QCOMPARE(list("Kqqd").text(1, u"修订人"), u"何雅琴"_s);
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(stored(late, u"标记"), u"删除"_s);
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(stored(late, u"标记"), QString());
        QTest::mouseClick(screen_->command(u"XgSm"), Qt::LeftButton);
        QVERIFY(told().startsWith(u"操作无效: 请先输入考勤说明信息"_s));

        press(Qt::Key_F6); // not confirmed
        QCOMPARE(told(),
                 u"慎重确认: "
                 "本操作将清除原来的已经产生的缺勤信息，包括数据库中的纪录！真的要继续吗?"_s);
        QCOMPARE(list("KqqqQd").dataRows(), 0);
        messages_->answerNext(u"yes"_s);
        press(Qt::Key_F6);
        QCOMPARE(list("KqqqQd").dataRows(), 3);
        QCOMPARE(in<QTabWidget>("Tabs")->currentIndex(), 1);
        in<QLineEdit>("Ygbh")->setFocus();
        for (const QString& text : {u"13"_s, u""_s, u""_s, u"bj"_s, u""_s, u"病假条"_s}) {
            TypeText(screen_->focusWidget(), text);
            press(Qt::Key_Return);
        }
        QCOMPARE(Rows(list("KqqqQd"), {u"编号"_s, u"姓名"_s, u"班次名称"_s, u"缺勤类别"_s,
                                       u"缺勤折算"_s, u"缺勤说明"_s})
                     .last(),
                 u"0013 员0013 早班 病假 1.00 病假条"_s);
        in<GridView>("KqqqQd")->setFocus();
        in<GridView>("KqqqQd")->setCurrent(1);
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(list("KqqqQd").dataRows(), 3);

        press(Qt::Key_F7);
        QCOMPARE(in<QTabWidget>("Tabs")->currentIndex(), 2);
        QCOMPARE(list("KqtjQd").headers().last(), u"脱岗统计"_s);
        messages_->answerNext(u"yes"_s);
        press(Qt::Key_F8);
        QCOMPARE(told(),
                 u"慎重确认: 本操作将清除原来的已经产生的该日考勤统计信息！真的要继续吗?"_s);
        QVERIFY(status(u"当天统计数据已经保存"_s));
        const QString file = u"Kqtj\\2603\\260305.qvr"_s;
        QVERIFY(!hotel_->stored(file, u"当天统计数据"_s, u"3"_s).isEmpty());
        messages_->answerNext(u"list.txt"_s);
        press(Qt::Key_F10);
        QCOMPARE(told(), u"保存文件提示: 本查询结果的存放文件名："_s);
        QVERIFY(FileText(u"list.txt"_s).startsWith(u"编号"_s));
        press(Qt::Key_F9);
        QVERIFY(FindScreen(u"PrtPrev"));
    }

    // Nothing is derived from what could not be read.
    void theAnalysisWithoutAServer() {
        PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        hotel_->stopServer();
        open(u"frmCheck");
        const QString words = u"错误: 考勤数据没有完整读取，请重新输入考勤日期！"_s;
        QCOMPARE(told(), words);
        for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8}) {
            messages_->clear();
            press(key);
            QCOMPARE(told(), words);
            QCOMPARE(messages_->entries().size(), 1);
        }
        hotel_->startServer();
        Link().ConnectServer(u"127.0.0.1"_s, QString::number(hotel_->port()));
        hotel_->desk().logIn(u"ADMIN"_s, u"admin888"_s);
        in<QLineEdit>("ChkDate")->setFocus();
        press(Qt::Key_Return);
        QCOMPARE(list("Kqqd").dataRows(), 1);
        in<QLineEdit>("ChkDate")->setFocus();
        in<QLineEdit>("ChkDate")->selectAll();
        TypeText(screen_->focusWidget(), u"30x"_s);
        press(Qt::Key_Return);
        QCOMPARE(told(), u"请核对: 考勤日期不正确！"_s);
        // The lists of the day before are not left standing under the new date.
        hotel_->stopServer();
        in<QLineEdit>("ChkDate")->selectAll();
        TypeText(screen_->focusWidget(), u"2026-03-04"_s);
        press(Qt::Key_Return);
        QCOMPARE(told(), words);
        QCOMPARE(list("Kqqd").dataRows() + list("KqtjQd").dataRows(), 0);
    }

    // Wherever the line breaks while the lists are read, nothing is derived from a part of them.
    void theAnalysisOfACutLine() {
        PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        bool whole = false;
        for (int n = 1; !whole && n < 40; ++n) {
            CutLine line(hotel_->port());
            {
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, u"admin888"_s);
                line.reset();
                line.cutBeforeRequest(n);
                messages_->clear();
                open(u"frmCheck");
                whole = line.requests() < n;
                press(Qt::Key_F6);
                QCOMPARE(told().section(u':', 0, 0), whole ? u"慎重确认"_s : u"错误"_s);
                CloseAllScreens();
            }
            hotel_->desk().use();
        }
        QVERIFY(whole);
    }

    void theStatisticsByKeys() {
        PutResult(QDate(2026, 3, 2), {u"0012 前厅部 出勤次数=1 迟到次数=1"_s});
        PutResult(QDate(2026, 3, 4), {u"0034 保安部 出勤次数=2 缺勤次数=1 加班小时=1.5"_s});
        open(u"FrmTj");
        press(Qt::Key_F9); // ahead of the first statistics
        QCOMPARE(told(), u"请注意: 没有可以打印的内容!"_s);
        in<QLineEdit>("KsDate")->setFocus();
        QCOMPARE(in<QLineEdit>("KsDate")->text() + in<QLineEdit>("JsDate")->text(),
                 u"2026-03-012026-03-05"_s);
        for (int field = 0; field < 4; ++field)
            press(Qt::Key_Return);
        QCOMPARE(Rows(list("KqtjQd"), {u"编号"_s, u"出勤次数"_s}),
                 QStringList({u"0012 1"_s, u"0034 2"_s, u"合计 3"_s}));
        QVERIFY(status(u"文件:Kqtj\\2603\\260305.qvr,共有:2"_s));
        const Chart byDay = in<ChartPane>("byDay")->chart();
        QCOMPARE(byDay.labels, QStringList({u"03-02"_s, u"03-04"_s}));
        QCOMPARE(byDay.series[0].values, QList<qint64>({1, 0}));
        const Chart departments = in<ChartPane>("byDepartment")->chart();
        QCOMPARE(departments.labels, QStringList({u"保安部"_s, u"前厅部"_s}));
        QCOMPARE(departments.series[1].name + QString::number(departments.series[1].values[0]),
                 u"缺勤次数1"_s);
        press(Qt::Key_F9);
        QCOMPARE(hotel_->logged(u"操作内容"), u"打印员工考勤统计结果"_s);
        QVERIFY(onPaper().contains(u"员工考勤统计表"_s) && onPaper().contains(u"员0034"_s));
        QCOMPARE(picturesOnPaper(), 1); // the charts go with it, one a page where both don't fit
        FindScreen(u"PrtPrev")->close();
        screen_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(screen_));
        in<QTabWidget>("Tabs")->setCurrentIndex(1);
        messages_->answerNext(std::nullopt);
        press(Qt::Key_F10);
        QCOMPARE(told(), u"保存文件提示: 员工班次统计信息清单的存放文件名："_s);
        press(Qt::Key_F9);
        QCOMPARE(hotel_->logged(u"操作内容"), u"打印员工班次统计结果"_s);
        QVERIFY(onPaper().contains(u"员工班次统计表"_s) && onPaper().contains(u"合计"_s));
        QCOMPARE(picturesOnPaper(), 0);
        FindScreen(u"PrtPrev")->close();
        screen_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(screen_));

        in<QLineEdit>("KsDate")->setFocus();
        in<QLineEdit>("KsDate")->selectAll();
        TypeText(screen_->focusWidget(), u"2026-03-06"_s);
        press(Qt::Key_F5);
        QCOMPARE(told(), u"设定错误: 起始日期大于结束日期！不能继续．"_s);
        in<QLineEdit>("KsDate")->setText(u"2020-01-01"_s);
        QTimer::singleShot(0, screen_, [this] { screen_->requestStop(); });
        QMetaObject::invokeMethod(screen_->command(u"CmdTj"), "click");
        QTRY_VERIFY(status(u"尚未完成统计，中途停止！"_s));
        hotel_->stopServer();
        in<QLineEdit>("KsDate")->setText(u"2026-03-04"_s);
        press(Qt::Key_F5);
        QVERIFY(status(u"文件:Kqtj\\2603\\260305.qvr,共有:0，2 天读取失败"_s));
    }

    void theSearchAndTheReportByKeys() {
        const QString key = PutPunch(u"0012 08:20:00 2026-03-05 早班 上班 迟到"_s);
        PutPunch(u"0013 07:50:00 2026-03-04 早班 上班 正常"_s);
        WriteBytes(u"a.jpg"_s, "no picture");
        UploadFile(u"a.jpg"_s, PunchPhotographFile(key + u".jpg"_s));
        PutPunch(u"0034 07:50:00 2026-03-06 早班 上班 正常"_s); // behind the period
        open(u"frmCx");
        QTimer answer;
        connect(&answer, &QTimer::timeout, this, [&answer] {
            auto* query = qobject_cast<Screen*>(QApplication::activeModalWidget());
            if (!query)
                return;
            query->findChild<QComboBox*>(u"BxTj"_s)->setEditText(u"早班"_s);
            if (query->command(u"Search_cmd")->isEnabled()) {
                answer.stop();
                query->command(u"Search_cmd")->click();
            }
        });
        answer.start(1);
        press(Qt::Key_F5);
        QCOMPARE(Rows(list("Kqqd"), {u"序号"_s, u"编号"_s, u"职务"_s, u"照片文件"_s}),
                 QStringList({u"1 0013 服务员 "_s, u"2 0012 服务员 260305082000.jpg"_s}));
        QVERIFY(status(u"共检索到2条记录！"_s));
        in<GridView>("Kqqd")->setCurrent(2);
        press(Qt::Key_Return); // no picture, and none is shown
        QCOMPARE(told(), QString());
        SetParam(u"KqzpPath", u"nowhere\\"_s);
        press(Qt::Key_Return);
        QCOMPARE(told(), u"提示: 照片文件读取失败，若需要查看，请再次点击本行！"_s);

        open(u"FrmKqCount");
        press(Qt::Key_F5);
        QCOMPARE(told(), u"提示: 请选择查询条件！"_s);
        press(Qt::Key_F4);
        press(Qt::Key_F4);
        QCOMPARE(list("TjQd").dataRows(), 3);
        press(Qt::Key_F5);
        QVERIFY(status(u"共检索到2条记录！"_s));
        press(Qt::Key_F6);
        QVERIFY(status(u"没有检索到满足条件的记录！请确认统计时间段正确后指定新的条件查询！"_s));
        press(Qt::Key_F8);
        QCOMPARE(told(), u"提示: 本期报表统计结束！"_s);
        QCOMPARE(list("BbQd").dataRows(), 3); // of the whole month
        press(Qt::Key_F9);
        QVERIFY(onPaper().contains(u"定期报表"_s) && onPaper().contains(u"旷工天数"_s));
    }
};

HOTEL_TEST(DayOnFileTest)
#include "test_day_on_file.moc"
