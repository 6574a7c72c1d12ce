#include <QBuffer>
#include <QImage>
#include <QTest>

#include "link/serv_api.h"
#include "personnel/staff/departments.h"
#include "personnel/staff/employee_card.h"
#include "personnel/staff/employee_change.h"
#include "personnel/staff/employee_lists.h"
#include "personnel/staff/employee_print.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

const QString kFile = u"Ygxx\\Ygxx.QVR"_s;
const QString kBriefFile = u"Ygxx\\YgJmxx.QVR"_s;
const QString kFormerFile = u"Ygxx\\YgxxLs.QVR"_s;
const QString kFormerBriefFile = u"Ygxx\\YgJmxxLs.QVR"_s;

QString Record(const QString& department, const QString& number, const QString& name,
               const QString& more = {}) {
    return u"<编号>%2</编号>\r\n<姓名>%3</姓名>\r\n<所在部门>%1</所在部门>\r\n"_s.arg(
               department, number, name) +
           more;
}

void Hire(const QString& department, const QString& number, const QString& name,
          const QString& more = {}) {
    const SaveOutcome outcome = SaveEmployee({}, Record(department, number, name, more), false);
    QCOMPARE(int(outcome.step), int(SaveStep::Written));
}

// Where somebody is on file, as "前厅部 0001" for both records; "-" for the one that is missing.
QString Place(TestHotel& hotel, const QString& department, const QString& number) {
    QStringList places;
    for (const QString& file : {kBriefFile, kFile}) {
        const QString name = GetTag(hotel.stored(file, department, number), u"姓名");
        places.append(name.isEmpty() ? u"-"_s : name);
    }
    return places.join(u' ');
}

QString Names(const TextTable& list) {
    QStringList names;
    for (int row = 1; row < list.rows(); ++row)
        names.append(list.text(row, u"姓名"));
    return names.join(u' ');
}

QString Words(const std::optional<Notice>& notice) {
    return notice ? notice->title + u'|' + notice->words : QString();
}

QString Shift(const QString& name, const QString& start = u"08:00:00"_s,
              const QString& week = u"1111100"_s, const QString& late = u"30"_s) {
    return u"<班次名称>%1</班次名称><缺勤折算>1</缺勤折算><开始时间>%2</开始时间><可提前>30</"
           u"可提前>"
           "<结束时间>17:00:00</结束时间><可延迟>%4</可延迟><考勤方式>常规</考勤方式>"
           "<星期设定>%3</星期设定>"_s.arg(name, start, week, late);
}

QString WithSize(const QByteArray& start, qsizetype size) {
    static QTemporaryDir folder;
    return WriteBytes(folder.filePath(QString::number(size) + u".jpg"_s),
                      start + QByteArray(size - start.size(), '\0'));
}

} // namespace

class StaffActsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The name of a single field may stand inside a list.
    void aListHidesNothing() {
        const QString lists =
            u"<培训简历><00><培训内容>消防</培训内容><证书编号>X9</证书编号></00></培训简历>"_s;
        QCOMPARE(EmployeeValue(lists, u"证书编号"), QString());
        QCOMPARE(ComposeEmployee(u"<姓名>王一</姓名><编号>07</编号><工号></工号>", lists,
                                 u"<考勤时段>旧</考勤时段><宿舍>3号楼</宿舍>"),
                 u"<编号>07</编号>\r\n<姓名>王一</姓名>\r\n"_s + lists +
                     u"\r\n<宿舍>3号楼</宿舍>"_s);
        const QString changed = WithEmployeeValue(lists, u"证书编号", u"A1"_s);
        QCOMPARE(EmployeeValue(changed, u"证书编号"), u"A1"_s);
        QVERIFY(changed.endsWith(lists));
        const QString emptied = WithEmployeeValue(changed, u"证书编号", {});
        QCOMPARE(emptied, lists);
    }

    void entriesOfAList() {
        for (const int count : {0, 1, 2, 99, 100, 101}) {
            QStringList entries;
            for (int n = 0; n < count; ++n)
                entries.append(Shift(u"班%1"_s.arg(n)));
            const QString record = u"<家庭情况><00><亲属姓名>甲</亲属姓名></00></家庭情况>"
                                   "<考勤时段>"_s +
                                   EntriesText(entries) + u"</考勤时段>"_s;
            QCOMPARE(EmployeeEntries(record, u"考勤时段"), entries.mid(0, 100));
        }
        const QString holey = u"<考勤时段><00>a</00><01></01><02>c</02></考勤时段>"_s;
        QCOMPARE(EmployeeEntries(holey, u"考勤时段"), QStringList{u"a"_s});
    }

    // Wherever a text is cut, what is read is whole.
    void aCutList() {
        const QStringList entries{Shift(u"早班"_s), Shift(u"夜班"_s, u"22:00:00"_s)};
        const QString list = EntriesText(entries);
        for (qsizetype cut = 0; cut <= list.size(); ++cut) {
            const QString record = u"<编号>1</编号><考勤时段>"_s + list.left(cut) +
                                   u"</考勤时段><工作经历><00>x</00></工作经历>"_s;
            const QStringList read = EmployeeEntries(record, u"考勤时段");
            QVERIFY2(read == entries.mid(0, read.size()), qPrintable(record));
            QCOMPARE(EmployeeValue(record, u"编号"), u"1"_s);
        }
    }

    void whatAnEntryMustHold() {
        const QStringList standing{Shift(u"早班"_s), Shift(u"夜班"_s)};
        const auto row = [&](const char* name, const QString& list, const QString& entry,
                             qsizetype place, const QString& words) {
            Check(name, Words(RefuseEntry(list, entry, standing, place)), words);
        };
        const QString shifts = u"考勤时段"_s;
        const QString times = u"请注意|开始时间、结束时间必须是“HH:mm:ss”形式的时间！"_s;
        const QString week = u"请注意|星期设定最多七位，从星期一开始，“1”为上班，“0”为休息！"_s;
        const QString minutes = u"请注意|可提前、可延迟必须是0到999分钟！"_s;
        row("whole", shifts, Shift(u"中班"_s), 2, {});
        row("over midnight", shifts, Shift(u"中班"_s, u"23:30:00"_s), 2, {});
        row("its own name", shifts, Shift(u"夜班"_s), 1, {});
        row("another's name", shifts, Shift(u"夜班"_s), 0, u"错误名称|班次名称不能相同！"_s);
        row("twice", shifts, Shift(u" 早班"_s), 2, u"错误名称|班次名称不能相同！"_s);
        row("a blank", shifts, Shift(u"  "_s), 2, u"请注意|信息项不能空白"_s);
        row("without an end", shifts, SetTag(Shift(u"中班"_s), u"结束时间", {}), 2,
            u"请注意|信息项不能空白"_s);
        row("no time", shifts, Shift(u"中班"_s, u"8点"_s), 2, times);
        row("24 o'clock", shifts, Shift(u"中班"_s, u"24:00:00"_s), 2, times);
        row("three days", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"101"_s), 2, {});
        row("seven days", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"1111111"_s), 2, {});
        row("eight days", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"11111111"_s), 2, week);
        row("nine days", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"111110011"_s), 2, week);
        row("a 2", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"1211100"_s), 2, week);
        row("999 minutes", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"1"_s, u"999"_s), 2, {});
        row("1000 minutes", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"1"_s, u"1000"_s), 2, minutes);
        row("-5 minutes", shifts, Shift(u"中班"_s, u"08:00:00"_s, u"1"_s, u"-5"_s), 2, minutes);
        row("the hundredth", shifts, Shift(u"中班"_s), 99, {});
        row("one more", shifts, Shift(u"中班"_s), 100, u"请注意|考勤时段最多100条，不能再增加！"_s);

        const QString materials = u"请注意|主要信息（物资品名，领用状态,号码型号）不能有空白！"_s;
        row("a coat", u"物资领用"_s,
            u"<物资品种>工服</物资品种><号码型号>L</号码型号><领用状态>领用</领用状态>"_s, 0, {});
        row("no size", u"物资领用"_s, u"<物资品种>工服</物资品种><领用状态>领用</领用状态>"_s, 0,
            materials);
        row("no state", u"物资领用"_s, u"<物资品种>工服</物资品种><号码型号>L</号码型号>"_s, 0,
            materials);
        row("nobody's family", u"家庭情况"_s, u"<亲属姓名>王父</亲属姓名>"_s, 0,
            u"请注意|主要信息（关系、姓名）不能有空白！"_s);
        row("family", u"家庭情况"_s,
            u"<亲属姓名>王父</亲属姓名><亲属个人情况>父亲，退休</亲属个人情况>"_s, 0, {});
        row("benefit", u"福利待遇"_s, u"<福利种类>养老保险</福利种类>"_s, 0,
            u"请注意|主要信息（福利种类，办理状态）不能有空白！"_s);

        QCOMPARE(Words(RefuseEntryDeletion(standing, 1)), QString());
        QCOMPARE(Words(RefuseEntryDeletion(standing, 0)), u"请注意|请从最后一条开始删除"_s);
        QCOMPARE(Words(RefuseEntryDeletion(standing, -1)), u"请注意|请选择要删除的记录！"_s);
        QCOMPARE(WeekdaySetting({}), u"1111100"_s);
        QCOMPARE(WeekdaySetting(u"010"_s), u"0101111"_s);
        QCOMPARE(WeekdaySetting(u"0000011"_s), u"0000011"_s);
        QCOMPARE(MaterialRemark(u"<物资品种>工服</物资品种><号码型号>L</号码型号><数量>2</数量>"),
                 u"物资：工服，型号：L，数量：2"_s);
    }

    void departments() {
        TestHotel hotel;
        QCOMPARE(StaffDepartments(), QStringList());
        const DepartmentOutcome added = AddDepartment(u" 前厅部 ");
        QCOMPARE(Words(added.notice), u"提示|成功增加部门：前厅部"_s);
        QCOMPARE(hotel.logged(u"操作内容"), u"修改创建部门成功"_s);
        QCOMPARE(hotel.logged(u"备注"), u"操作部门：前厅部"_s);
        QVERIFY(AddDepartment(u"夜班与值班").done);
        QCOMPARE(StaffDepartments(), QStringList({u"前厅部"_s, u"夜班与值班"_s}));
        QCOMPARE(OfferedDepartments().first(), u"总经理办公室"_s);
        QCOMPARE(OfferedDepartments().last(), u"夜班与值班"_s);
        QCOMPARE(OfferedDepartments().count(u"前厅部"_s), 1);

        const auto refused = [](const char* name, const QString& department, const QString& words) {
            const DepartmentOutcome outcome = AddDepartment(department);
            Check(name, outcome.done, false);
            Check(name, outcome.notice.words, words);
        };
        refused("twice", u"前厅部"_s,
                u"不能增加部门：前厅部，请检查部门名称是否有重复或错误!代码:0"_s);
        refused("all", u"所有部门"_s,
                u"不能增加部门：所有部门，请检查部门名称是否有重复或错误!代码:0"_s);
        refused("a mark", u"前<厅"_s, u"部门名称不能含有“<”或“>”！"_s);
        refused("the other mark", u"前>厅"_s, u"部门名称不能含有“<”或“>”！"_s);
        refused("blank", u" "_s, u"请输入部门名称！"_s);

        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        QCOMPARE(
            DeleteDepartment(u"前厅部").notice.words,
            u"删除该部门，其下的员工信息也将删除，该部门非空，先删除员工信息，方可进行本操作！"_s);
        QVERIFY(DeleteEmployee({u"前厅部"_s, u"001"_s}).done);
        QVERIFY(DeleteDepartment(u"前厅部").done);
        QCOMPARE(StaffDepartments(), QStringList{u"夜班与值班"_s});
        hotel.stopServer();
        QCOMPARE(DeleteDepartment(u"夜班与值班").notice.title, u"没有保存"_s);
        QVERIFY(!AddDepartment(u"工程部").done);
    }

    void hiring() {
        TestHotel hotel;
        const auto refused = [](const char* name, const QString& record, const QString& words) {
            Check(name, Words(SaveEmployee({}, record, false).notice), words);
        };
        refused("no number", Record(u"前厅部"_s, u" "_s, u"王一"_s),
                u"请注意|员工编号不能空白！"_s);
        const QString twoDigits =
            u"请注意|员工编号不能只有两位数字，请在前面补0！"_s; // it would be an entry of a list
        refused("two digits", Record(u"前厅部"_s, u"07"_s, u"王一"_s), twoDigits);
        refused("the last two", Record(u"前厅部"_s, u"99"_s, u"王一"_s), twoDigits);
        refused("a mark", Record(u"前厅部"_s, u"A>1"_s, u"王一"_s),
                u"请注意|员工编号不能含有“<”或“>”！"_s);
        refused("no name", Record(u"前厅部"_s, u"1"_s, {}), u"请注意|员工姓名不能空白！"_s);
        refused("nowhere", Record({}, u"1"_s, u"王一"_s), u"请注意|所在部门不能空白！"_s);
        refused("everywhere", Record(u"所有部门"_s, u"1"_s, u"王一"_s),
                u"请注意|请选择员工所在的具体部门！"_s);
        QCOMPARE(NextEmployeeNumber(), u"0001"_s);

        const SaveOutcome hired =
            SaveEmployee({}, Record(u"前厅部"_s, u"0007"_s, u"王一"_s, u"<血型>O</血型>"_s), false);
        QCOMPARE(hired.lines,
                 QStringList({u"员工简明信息已经更新!"_s, u"员工详细信息已经更新!"_s}));
        QCOMPARE(hotel.logged(u"操作内容"), u"新增员工信息"_s);
        QCOMPARE(hotel.logged(u"备注"), u"员工部门:前厅部,编号:0007"_s);
        QCOMPARE(GetTag(hotel.stored(kFile, u"前厅部"_s, u"0007"_s), u"血型"), u"O"_s);
        const QString brief = hotel.stored(kBriefFile, u"前厅部"_s, u"0007"_s);
        QVERIFY(!brief.contains(u"血型"));
        QCOMPARE(GetTag(brief, u"所在部门"), u"前厅部"_s);

        // The number is taken in whatever department.
        const SaveOutcome taken =
            SaveEmployee({}, Record(u"客房部"_s, u"0007"_s, u"李二"_s), false);
        QCOMPARE(int(taken.step), int(SaveStep::NumberTaken));
        QCOMPARE(taken.number, u"0008"_s);
        QCOMPARE(Place(hotel, u"客房部"_s, u"0007"_s), u"- -"_s);
        Hire(u"客房部"_s, u"099"_s, u"李二"_s);
        Hire(u"客房部"_s, u"A500"_s, u"赵六"_s);
        QCOMPARE(NextEmployeeNumber(), u"100"_s);
        QCOMPARE(NextEmployeeNumber(u"99"), u"100"_s);
        QCOMPARE(NextEmployeeNumber(u"A500"), u"0100"_s);
        QCOMPARE(NextEmployeeNumber(u"123456789"), u"000000100"_s);

        hotel.stopServer();
        QCOMPARE(SaveEmployee({}, Record(u"客房部"_s, u"200"_s, u"孙七"_s), false).notice->title,
                 u"没有保存"_s);
    }

    // Another number, another department, or both.
    void moving() {
        TestHotel hotel;
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s);
        const SaveOutcome kept =
            SaveEmployee({u"前厅部"_s, u"001"_s}, Record(u"前厅部"_s, u"001"_s, u"王大"_s), false);
        QCOMPARE(kept.lines, QStringList({u"员工详细信息已经更新!"_s, u"员工简明信息已经更新!"_s}));
        QCOMPARE(hotel.logged(u"操作内容"), u"修改员工信息"_s);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"001"_s), u"王大 王大"_s);

        QCOMPARE(
            SaveEmployee({u"前厅部"_s, u"001"_s}, Record(u"前厅部"_s, u"002"_s, u"王大"_s), true)
                .number,
            u"003"_s);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"002"_s), u"李二 李二"_s);
        const SaveOutcome renumbered =
            SaveEmployee({u"前厅部"_s, u"001"_s}, Record(u"前厅部"_s, u"011"_s, u"王大"_s), true);
        QCOMPARE(renumbered.lines.mid(2),
                 QStringList({u"员工原有简明信息删除成功!"_s, u"员工原有详细信息删除成功!"_s}));
        QCOMPARE(Place(hotel, u"前厅部"_s, u"001"_s), u"- -"_s);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"011"_s), u"王大 王大"_s);
        SaveEmployee({u"前厅部"_s, u"011"_s}, Record(u"前厅部"_s, u"012"_s, u"王大"_s), false);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"011"_s), u"王大 王大"_s); // kept, as was wished
        QCOMPARE(Place(hotel, u"前厅部"_s, u"012"_s), u"王大 王大"_s);

        SaveEmployee({u"前厅部"_s, u"012"_s}, Record(u"工程部"_s, u"012"_s, u"王大"_s), false);
        // The other desk still shows him at his old place.
        const SaveOutcome late =
            SaveEmployee({u"前厅部"_s, u"012"_s}, Record(u"前厅部"_s, u"012"_s, u"王二"_s), false);
        QCOMPARE(late.notice->words,
                 u"这个员工已经不在原来的部门，可能已被删除或调离，没有保存！"_s);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"012"_s), u"- -"_s);
        QCOMPARE(Place(hotel, u"工程部"_s, u"012"_s), u"王大 王大"_s);
    }

    // The line is cut, or a write refused, ahead of every write of a transfer: he is lost at no point.
    void aTransferThatIsBrokenOff() {
        for (const bool spoilt : {false, true}) {
            for (int n = 1; n <= 9; ++n) {
                TestHotel hotel;
                Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
                CutLine line(hotel.port());
                {
                    Desk desk(line.port());
                    desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                    line.reset();
                    spoilt ? line.spoilWrite(n) : line.cutBeforeWrite(n);
                    SaveEmployee({u"前厅部"_s, u"001"_s}, Record(u"工程部"_s, u"001"_s, u"王一"_s),
                                 false);
                }
                hotel.desk().use();
                const QString left = Place(hotel, u"前厅部"_s, u"001"_s);
                const QString come = Place(hotel, u"工程部"_s, u"001"_s);
                QVERIFY2(left == u"王一 王一" || come == u"王一 王一",
                         qPrintable(left + u" / "_s + come));
                if (spoilt) // each write is tried twice
                    QCOMPARE(come + left, u"王一 王一- -"_s);
            }
        }
    }

    void secondJobs() {
        TestHotel hotel;
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s,
             u"<职务>领班</职务><兼职部门1>客房部</兼职部门1><兼职职务1>主管</兼职职务1>"
             "<兼职部门2>工程部</兼职部门2>"_s);
        Hire(u"客房部"_s, u"002"_s, u"李二"_s, u"<职务>主管</职务>"_s);
        Hire(u"客房部"_s, u"003"_s, u"赵六"_s, u"<职务>主管</职务>"_s);
        const auto row = [](const QString& department, const QString& names) {
            const StaffList list = ListStaff(department);
            Check(qPrintable(department), Names(list.table), names);
            Check(qPrintable(department), list.complete, true);
        };
        row(u"前厅部"_s, u"王一"_s);
        row(u"客房部"_s, u"李二 赵六 王一"_s);
        row(u"工程部"_s, u"王一"_s);
        row(u"所有部门"_s, u"王一 李二 赵六"_s);
        row(u"保安部"_s, {});

        const TextTable rooms = ListStaff(u"客房部"_s).table;
        const QString elsewhere = u"请注意|这是该员工的兼职岗位，或员工信息读取错误,不能修改?"_s;
        QCOMPARE(Words(RefuseChange(rooms, 1, u"客房部"_s)), QString());
        QCOMPARE(Words(RefuseChange(rooms, 3, u"客房部"_s)), elsewhere);
        QCOMPARE(Words(RefuseChange(rooms, 0, u"客房部"_s)), u"请注意|请选择要修改的记录！"_s);
        QCOMPARE(Words(RefuseChange(rooms, 4, u"客房部"_s)), u"请注意|请选择要修改的记录！"_s);
        QCOMPARE(Words(RefuseDeletion(rooms, 4, u"客房部"_s)), u"请注意|请选择要删除的记录！"_s);
        QCOMPARE(Words(RefuseDeletion(rooms, 3, u"客房部"_s)), elsewhere);
        QCOMPARE(Words(RefuseDeletion(rooms, 0, u"客房部"_s)), u"请注意|请选择要删除的记录！"_s);
        const TextTable house = ListStaff(u"所有部门"_s).table;
        QCOMPARE(Words(RefuseChange(house, 1, u"所有部门"_s)), QString());
        QCOMPARE(Words(RefuseDeletion(house, 1, u"所有部门"_s)),
                 u"请注意|请先选择具体部门，再删除相应的员工信息，减少误操作！"_s);
        QCOMPARE(Roster(house).row(3).mid(0, 5),
                 QStringList({u"3"_s, u"003"_s, u"赵六"_s, u"客房部"_s, u"主管"_s}));

        QStringList staffing;
        const TextTable table = StaffingTable(house);
        for (int n = 1; n < table.rows(); ++n)
            staffing.append(table.row(n).join(u','));
        QCOMPARE(staffing,
                 QStringList({u"前厅部,领班,1,0,王一"_s, u"前厅部,小计,1,0,"_s,
                              u"客房部,主管,2,1,李二 赵六 王一"_s, u"客房部,小计,2,1,"_s,
                              u"工程部,,0,1,王一"_s, u"工程部,小计,0,1,"_s, u"合计,,3,2,"_s}));
        hotel.stopServer();
        QVERIFY(!ListStaff(u"客房部"_s).complete);
    }

    void lettingGo() {
        TestHotel hotel;
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<血型>O</血型>"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s);
        const DeleteOutcome gone = DeleteEmployee({u"前厅部"_s, u"001"_s});
        QVERIFY(gone.done);
        QCOMPARE(
            gone.lines,
            QStringList({u"简明信息删除成功！"_s, u"简明信息删除后成功存入简明历史纪录库中！"_s,
                         u"信息删除成功！"_s, u"信息删除后成功存入历史纪录库中！"_s}));
        QCOMPARE(hotel.logged(u"操作内容"), u"删除员工信息"_s);
        QCOMPARE(Place(hotel, u"前厅部"_s, u"001"_s), u"- -"_s);
        const QString former = hotel.stored(kFormerFile, u"前厅部"_s, u"260305100000"_s);
        QCOMPARE(GetTag(former, u"血型"), u"O"_s);
        QCOMPARE(GetTag(former, u"处理日期"), u"2026-03-05"_s);
        QCOMPARE(GetTag(former, u"操作人"), u"系统管理员"_s);
        QCOMPARE(GetTag(hotel.stored(kFormerBriefFile, u"前厅部"_s, u"001"_s), u"处理日期"),
                 u"2026-03-05"_s);
        // Another one within the second, and the first once more.
        QVERIFY(DeleteEmployee({u"前厅部"_s, u"002"_s}).done);
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        QVERIFY(DeleteEmployee({u"前厅部"_s, u"001"_s}).done);
        QCOMPARE(GetTag(hotel.stored(kFormerFile, u"前厅部"_s, u"260305100000"_s), u"姓名"),
                 u"王一"_s);
        QCOMPARE(GetTag(hotel.stored(kFormerFile, u"前厅部"_s, u"260305100001"_s), u"姓名"),
                 u"李二"_s);
        QCOMPARE(GetTag(hotel.stored(kFormerFile, u"前厅部"_s, u"260305100002"_s), u"编号"),
                 u"001"_s);
    }

    // Wherever it is broken off, nobody is gone who isn't in history, and the words fit.
    void aDeletionThatIsBrokenOff() {
        for (int n = 1; n <= 4; ++n) {
            TestHotel hotel;
            Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
            CutLine line(hotel.port());
            DeleteOutcome outcome;
            {
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(n);
                outcome = DeleteEmployee({u"前厅部"_s, u"001"_s});
            }
            hotel.desk().use();
            QVERIFY(!outcome.done);
            const QStringList left = Place(hotel, u"前厅部"_s, u"001"_s).split(u' ');
            QCOMPARE(left[0] == u"-", outcome.lines.contains(u"简明信息删除成功！"_s));
            QCOMPARE(left[1] == u"-", outcome.lines.contains(u"信息删除成功！"_s));
            QCOMPARE(left, n < 3 ? QStringList({u"王一"_s, u"王一"_s})
                                 : QStringList({u"-"_s, u"王一"_s}));
            QVERIFY(outcome.lines.last().startsWith(n == 1 || n == 3 ? u"信息无法存入" : u"信息"));
            const QString brief = hotel.stored(kFormerBriefFile, u"前厅部"_s, u"001"_s);
            QCOMPARE(GetTag(brief, u"姓名"), n == 1 ? QString() : u"王一"_s);
        }
    }

    void cards() {
        TestHotel hotel;
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<识别卡号>C 77</识别卡号>"_s);
        Hire(u"客房部"_s, u"002"_s, u"李二"_s);
        const EmployeeKey first{u"前厅部"_s, u"001"_s};
        const EmployeeKey second{u"客房部"_s, u"002"_s};
        const QString held = u"重复定义|部门:前厅部 的员工:王一 已经包含或使用了这一张卡或标志!"_s;
        QCOMPARE(CardText(u" \tC 77\r\n"_s), u"C 77"_s);
        QCOMPARE(Words(RefuseCard(u"C 77"_s, second)), held);
        QCOMPARE(Words(RefuseCard(u"C 77"_s, {})), held);
        QCOMPARE(Words(RefuseCard(u"C 77"_s, first)), QString());
        QCOMPARE(Words(RefuseCard(u"C77"_s, second)), QString());
        const CardOutcome given = GiveCard(second, u"C88"_s);
        QVERIFY(given.done);
        QCOMPARE(given.notice.words, u"该员工可以使用这张磁卡考勤了！"_s);
        for (const QString& file : {kFile, kBriefFile})
            QCOMPARE(GetTag(hotel.stored(file, u"客房部"_s, u"002"_s), u"识别卡号"), u"C88"_s);
        Clock::Advance(3000); // the found record is read by a walk's buffer
        QCOMPARE(Words(RefuseCard(u"C88"_s, first)),
                 u"重复定义|部门:客房部 的员工:李二 已经包含或使用了这一张卡或标志!"_s);
        QVERIFY(!GiveCard({u"客房部"_s, u"003"_s}, u"C99"_s).done);
        hotel.stopServer();
        QVERIFY(!GiveCard(second, u"C99"_s).done);
    }

    void photographs() {
        QByteArray jpeg;
        QBuffer buffer(&jpeg);
        buffer.open(QIODevice::WriteOnly);
        QImage face(60, 80, QImage::Format_RGB32);
        face.fill(Qt::gray);
        QVERIFY(face.save(&buffer, "JPG"));
        const QString tooLarge =
            u"注意|为了提高系统综合速度，请尽量选择较小的员工图片，不要大于120K！"_s;
        const QString none = u"注意|这个文件不是JPEG图片，请重新选择！"_s;
        QCOMPARE(Words(RefusePhotograph(WithSize(jpeg, 125000))), QString());
        QCOMPARE(Words(RefusePhotograph(WithSize(jpeg, 125001))), tooLarge);
        QCOMPARE(Words(RefusePhotograph(WithSize("no picture", 1000))), none);
        QCOMPARE(Words(RefusePhotograph(WithSize(jpeg.left(60), 300))), none);
        QCOMPARE(Words(RefusePhotograph(u"/no/such/file.jpg"_s)), none);
        QCOMPARE(EmployeePhotographFile(u"001"), u"Ygxx\\Ygzp\\001.jpg"_s);
    }

    void career() {
        TestHotel hotel;
        const QString record = u"<职务>领班</职务><职称>经济师</职称>"_s;
        const CareerChange transfer =
            TransferChange(u"王一"_s, u"前厅部"_s, u"客房部"_s, u"主管"_s);
        QCOMPARE(transfer.question, u"是否要将员工：王一 从 前厅部 调往 客房部?"_s);
        QCOMPARE(CareerEntry(record, u"前厅部"_s, transfer),
                 u"<工作开始>2026-03-05</工作开始>\r\n<工作部门>前厅部</工作部门>\r\n"
                 "<当时职务>领班</当时职务>\r\n<当时职称>经济师</当时职称>\r\n"
                 "<经历说明>工作内部调动</经历说明>\r\n<调入部门>客房部</调入部门>\r\n"
                 "<调入岗位>主管</调入岗位>\r\n<录入员>系统管理员</录入员>"_s);
        const CareerChange second = SecondJobChange(u"王一"_s, {}, u"客房部"_s, {});
        QCOMPARE(second.question, u"是否调整员工的兼职岗位：王一 从 无 改为 客房部?"_s);
        QCOMPARE(second.words, u"兼职岗位调整"_s);
        const CareerChange hired = EmployeeStatusChange(u"王一"_s, {}, u"试用期"_s);
        QCOMPARE(hired.question, u"是否要记录员工：王一 进入任职状态 试用期?"_s);
        QCOMPARE(hired.words, u"工作状态进入 试用期"_s);
        const CareerChange left = EmployeeStatusChange(u"王一"_s, u"试用期"_s, u"正式"_s);
        QCOMPARE(left.question, u"是否要记录员工：王一 任职状态从 试用期 变化到 正式?"_s);
        QCOMPARE(left.words, u"工作状态从 试用期 变化到 正式"_s);
        QVERIFY(!CareerEntry(record, u"前厅部"_s, left).contains(u"调入"));
    }

    void paper() {
        QCOMPARE(Code39(u"1"), u"nwnnwnwnn"
                               u"n"
                               u"wnnwnnnnw"
                               u"n"
                               u"nwnnwnwnn"_s);
        QCOMPARE(Code39(u"a"), Code39(u"A"));
        for (const QString& bad : {u"王"_s, u"1*"_s, u"#"_s})
            QCOMPARE(Code39(bad), QString());
        const QString block = u"<00><文本>姓名</文本></00><01><文本>[姓名]</文本></01>"
                              "<02><文本>[血型]</文本></02><03><文本>[]</文本></03>"_s;
        const QMap<int, QString> cells{{1, u"王一"_s}, {2, u" "_s}};
        QCOMPARE(CellsByField(block, u"<姓名>王一</姓名>"), cells);
    }
};

HOTEL_TEST(StaffActsTest)
#include "test_staff_acts.moc"
