// Kept plans by their acts: reservations and repairs. Receivables are tested with the cashier.

#include "house/stays/repairs.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kLive = u"ydxx\\Kfydxx.QVR"_s;
const QString kProject = u"客房预订信息"_s;
const QString kRepairFile = u"wxzl\\wxzl.QVR"_s;

QString Booking(const QString& changes = {}) {
    QString record =
        u"<客人姓名>王一</客人姓名><预定人>王一</预定人><订房间数>2</订房间数>"
        u"<预计到达>2026-03-06</预计到达><预计离店>2026-03-08</预计离店>"
        u"<预定状态>计划</预定状态><经办单位>前厅部</经办单位><经办人>林晓燕</经办人>"_s;
    for (FieldWalk change(changes); change.next();)
        record = SetTag(record, change.name(), change.value());
    return record;
}

QString Repair(const QString& changes = {}) {
    QString record =
        u"<房间号>8203</房间号><目前状态>维修</目前状态><维修原因>空调故障</维修原因>"
        u"<报修日期>2026-03-05</报修日期><报修单位>前厅部</报修单位><报修人>林晓燕</报修人>"_s;
    for (FieldWalk change(changes); change.next();)
        record = SetTag(record, change.name(), change.value());
    return record;
}

QString Numbers(const TextTable& list) {
    QStringList numbers;
    for (int row = 1; row < list.rows(); ++row)
        numbers.append(list.text(row, 0));
    return numbers.join(u' ');
}

QStringList Stored(const QString& file, const QString& project) {
    QStringList names;
    const QString whole = ReadProject(file, project);
    for (FieldWalk record(whole); record.next();)
        names.append(record.name().toString());
    return names;
}

} // namespace

class PlansTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>(TestHotel::Start::NobodyLoggedIn);
        hotel_->desk().logIn(u"QIANTAI"_s, u"111111"_s);
    }
    void cleanup() { hotel_.reset(); }

    void whatAReservationLacks() {
        TextTable list(ReservationPlans().columns);
        const auto row = [&](const QString& changes, const QString& words) {
            const PlanOutcome outcome = AddPlan(ReservationPlans(), list, Booking(changes));
            Check(qPrintable(changes), Words(outcome.notice), words);
            Check(qPrintable(changes), outcome.done, words.isEmpty());
        };
        const QString nobody = u"缺少参数: 预订客人姓名或预定客人单位必须说明至少一项!"_s;
        row(u"<客人姓名></客人姓名>"_s, nobody);
        row(u"<客人姓名> </客人姓名><预定人></预定人>"_s, nobody);
        row(u"<预定人> </预定人><订房间数>0</订房间数>"_s, u"缺少参数: 预订人必须说明!"_s);
        row(u"<订房间数>0</订房间数>"_s, u"缺少参数: 订房间数必须大于0!"_s);
        row(u"<订房间数></订房间数>"_s, u"缺少参数: 订房间数必须大于0!"_s);
        row(u"<预计到达>2026-02-30</预计到达>"_s, u"请检查: 预计到达或预计离店不是有效的日期！"_s);
        row(u"<预计离店>2026-03-05</预计离店>"_s, u"请检查: 预计离店不能早于预计到达！"_s);
        QCOMPARE(Stored(kLive, kProject), QStringList());
        row(u"<客人姓名></客人姓名><客人单位>华联</客人单位>"_s, {});
        row(u"<订房间数>1</订房间数><预计离店></预计离店>"_s, {});
        row(u"<预计离店>2026-03-06</预计离店>"_s, {});
    }

    void aReservationAsItIsKept() {
        TextTable list(ReservationPlans().columns);
        list.addRow(); // a blank row is filled first
        QVERIFY(
            AddPlan(ReservationPlans(), list, Booking(u"<预留客房><001>8203</001></预留客房>"_s))
                .done);
        QCOMPARE(list.dataRows(), 1);
        QCOMPARE(list.row(1), (QStringList{u"260305100000"_s,
                                           u"王一"_s,
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           u"2026-03-06"_s,
                                           u"2026-03-08"_s,
                                           u"2"_s,
                                           {},
                                           u"王一"_s,
                                           u"计划"_s,
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           {},
                                           u"前厅部"_s,
                                           u"林晓燕"_s}));
        const QString record = hotel_->stored(kLive, kProject, u"260305100000"_s);
        QCOMPARE(GetTag(record, u"预定单号"), u"260305100000"_s);
        QCOMPARE(GetTag(record, u"预留客房"), u"<001>8203</001>"_s);
        QCOMPARE(Numbers(*LoadPlans(ReservationPlans())), u"260305100000"_s);
        QCOMPARE(LoadPlans(ReservationPlans())->row(1), list.row(1));
        QCOMPARE(ReservationPlans().columns.join(u' '),
                 u"预定单号 客人姓名 客人单位 通讯地址 电话号码 手机号码 传真号码 电子邮件 "
                 u"预计到达 预计离店 "
                 u"订房间数 预订房价 预定人 预定状态 合约单位 合同编号 付款方式 押金金额 销售中介 "
                 u"佣金说明 预定来源 "
                 u"备注信息 经办单位 经办人"_s);
        QCOMPARE(ReservationStates().join(u' '), u"计划 取消 实施 延期 完成"_s);
    }

    // Plans of one second, of this desk and of another one that the list doesn't show.
    void numbersAreTheMomentOrTheNextFreeOne() {
        TextTable list(ReservationPlans().columns);
        QCOMPARE(*FreePlanNumber(ReservationPlans(), list), u"260305100000"_s);
        list.addRow({u"260305100000"_s});
        SaveRecord(kLive, kProject, u"260305100001", u"<客人姓名>别的工作站</客人姓名>");
        QCOMPARE(*FreePlanNumber(ReservationPlans(), list), u"260305100002"_s);
        const QString taken = Booking(u"<预定单号>260305100001</预定单号>"_s);
        QVERIFY(AddPlan(ReservationPlans(), list, taken).done);
        QCOMPARE(list.text(2, 0), u"260305100002"_s);
        QCOMPARE(hotel_->stored(kLive, kProject, u"260305100001"_s),
                 u"<客人姓名>别的工作站</客人姓名>"_s);
        for (int n = 3; n < 500; ++n)
            list.addRow({Clock::Now().addSecs(n).toString(u"yyMMddHHmmss")});
        QCOMPARE(FreePlanNumber(ReservationPlans(), list), std::nullopt); // five hundred tries
        list.removeRow(list.dataRows());
        QCOMPARE(*FreePlanNumber(ReservationPlans(), list), u"260305100819"_s);
        hotel_->stopServer();
        QCOMPARE(FreePlanNumber(ReservationPlans(), list), std::nullopt);
        QCOMPARE(LoadPlans(ReservationPlans()), std::nullopt);
        QCOMPARE(Words(AddPlan(ReservationPlans(), list, Booking()).notice),
                 u"意外错误: 预订计划保存失败?"_s);
    }

    void aChangeLeavesTheMakerAndWhatIsNoColumn() {
        TextTable list(ReservationPlans().columns);
        AddPlan(ReservationPlans(), list, Booking(u"<预留客房><001>8203</001></预留客房>"_s));
        const QString changed = Booking(
            u"<预定状态>取消</预定状态><经办人>陈志远</经办人><预留客房><001>8205</001></预留客房>"_s);
        QVERIFY(ChangePlan(ReservationPlans(), list, 1, changed).done);
        QCOMPARE(list.text(1, u"预定状态"), u"取消"_s);
        QCOMPARE(list.text(1, u"经办人"), u"林晓燕"_s);
        const auto held = [this] {
            return GetTag(hotel_->stored(kLive, kProject, u"260305100000"_s), u"预留客房");
        };
        QCOMPARE(held(), u"<001>8203</001>"_s);
        QVERIFY(ChangePlan(ReservationPlans(), list, 1, changed, {u"预留客房"_s}).done);
        QCOMPARE(held(), u"<001>8205</001>"_s);
        QCOMPARE(
            Words(ChangePlan(ReservationPlans(), list, 1, Booking(u"<预定人></预定人>"_s)).notice),
            u"缺少参数: 预订人必须说明!"_s);
        DeleteRecord(kLive, kProject, u"260305100000"); // by another desk
        const PlanOutcome gone = ChangePlan(ReservationPlans(), list, 1, changed);
        QVERIFY(!gone.done);
        QCOMPARE(Words(gone.notice), u"意外错误: 预订计划保存失败?"_s);
        QCOMPARE(Stored(kLive, kProject), QStringList());
    }

    void onlyTheMakerDeletesAReservation() {
        TextTable list(ReservationPlans().columns);
        AddPlan(ReservationPlans(), list, Booking(u"<经办人>陈志远</经办人>"_s));
        AddPlan(ReservationPlans(), list, Booking(u"<经办单位>销售部</经办单位>"_s));
        AddPlan(ReservationPlans(), list, Booking());
        AddPlan(ReservationPlans(), list, Booking());
        const QString notOwn = u"操作禁止: "
                               u"为了防止误操作，系统只允许删除本人添加当天增加的计划信息，而且从后"
                               u"往前删，以前的或别人计划请用维修"
                               u"中的取消、中止等方法完成！"_s;
        QCOMPARE(Words(DeletePlan(ReservationPlans(), list, 1).notice), notOwn);
        QCOMPARE(Words(DeletePlan(ReservationPlans(), list, 2).notice), notOwn);
        QVERIFY(DeletePlan(ReservationPlans(), list, 3).done); // not the last one, on any day
        QCOMPARE(Numbers(list), u"260305100000 260305100001 260305100003"_s);
        QCOMPARE(Stored(kLive, kProject).join(u' '), Numbers(list));
        list.removeRow(1);
        list.removeRow(1);
        QVERIFY(DeletePlan(ReservationPlans(), list, 1).done);
        QCOMPARE(list.dataRows(), 1); // blanked
        QVERIFY(!IsPlan(list, 1));
        QCOMPARE(Words(DeletePlan(ReservationPlans(), list, 1).notice), notOwn);
    }

    // What the column of prices says decides, whatever the state is.
    void tidyingReservations() {
        TextTable list(ReservationPlans().columns);
        const auto book = [&](const QString& price, const QString& state, const QString& arrival) {
            AddPlan(
                ReservationPlans(), list,
                Booking(
                    u"<预订房价>%1</预订房价><预定状态>%2</预定状态><预计到达>%3</预计到达>"_s.arg(
                        price, state, arrival)));
        };
        book(u"380"_s, u"完成"_s, u"2026-03-01"_s);  // 00 stays
        book(u"完成"_s, u"计划"_s, u"2026-03-06"_s); // 01
        book(u"取消"_s, u"计划"_s, u"2026-03-06"_s); // 02
        book(u"失效"_s, u"计划"_s, u"2026-03-06"_s); // 03
        book(u"实施"_s, u"实施"_s, u"2026-03-04"_s); // 04
        book(u"实施"_s, u"实施"_s, u"2026-03-05"_s); // 05 stays: today
        book(u"延期"_s, u"延期"_s, u"2026-03-01"_s); // 06 stays
        QList<int> steps;
        const TidyOutcome outcome = TidyPlans(ReservationPlans(), list, [&](int done, int all) {
            steps.append(done * 100 + all);
            return true;
        });
        QCOMPARE(outcome.moved, 4);
        QCOMPARE(outcome.failed, 0);
        QCOMPARE(steps, (QList<int>{7, 107, 207, 307, 407, 507, 607}));
        QCOMPARE(Numbers(list), u"260305100000 260305100005 260305100006"_s);
        QCOMPARE(Stored(kLive, kProject).join(u' '), Numbers(list));
        QCOMPARE(Stored(u"ydxx\\26\\2603.QVR"_s, kProject).join(u' '),
                 u"260305100004 260305100003 260305100002 260305100001"_s);
        QCOMPARE(PlanHistoryFile(ReservationPlans(), QDate(2025, 12, 31)), u"ydxx\\25\\2512.QVR"_s);
    }

    void whatARepairLacks() {
        TextTable list(RepairPlans().columns);
        const auto row = [&](const QString& changes, const QString& words) {
            Check(qPrintable(changes), Words(AddPlan(RepairPlans(), list, Repair(changes)).notice),
                  words);
        };
        row(u"<维修原因></维修原因><房间号></房间号>"_s, u"缺少参数: 维修原因必须说明!"_s);
        row(u"<房间号></房间号><目前状态></目前状态>"_s, u"缺少参数: 维修房号必须说明!"_s);
        row(u"<目前状态></目前状态>"_s, u"缺少参数: 目前房间所处状态必须说明!"_s);
        row(u"<维修结果>已修复</维修结果><维修人>马大勇</维修人>"_s,
            {}); // nobody closes what is just reported
        const QString record = hotel_->stored(kRepairFile, u"维修信息"_s, u"260305100000"_s);
        QCOMPARE(GetTag(record, u"维修原因"), u"空调故障"_s);
        QVERIFY(!record.contains(u"单号") && !record.contains(u"已修复") &&
                !record.contains(u"马大勇"));
        QCOMPARE(
            RepairPlans().columns.join(u' '),
            u"维修单号 房间号 目前状态 维修原因 报修日期 报修单位 报修人 维修结果 维修日期 维修人"_s);
    }

    void aRepairIsClosedAndTidied() {
        TextTable list(RepairPlans().columns);
        AddPlan(RepairPlans(), list, Repair());
        AddPlan(RepairPlans(), list,
                Repair(u"<房间号>8205</房间号><报修日期>2019-03-05</报修日期>"_s));
        const QString closing =
            u"<房间号>9999</房间号><维修日期>2026-03-05</维修日期><维修人>马大勇</维修人>"_s;
        QCOMPARE(Words(ChangePlan(RepairPlans(), list, 1, closing).notice),
                 u"操作错误: 维修结果没有确定,不能完成维修!"_s);
        QVERIFY(ChangePlan(RepairPlans(), list, 1, closing + u"<维修结果>已修复</维修结果>").done);
        QCOMPARE(
            list.row(1).join(u'|'),
            u"260305100000|8203|维修|空调故障|2026-03-05|前厅部|林晓燕|已修复|2026-03-05|马大勇"_s);
        QCOMPARE(TidyPlans(RepairPlans(), list).moved, 1);
        QCOMPARE(Numbers(list), u"260305100001"_s); // open, however old
        QCOMPARE(Stored(u"wxzl\\26\\2603.QVR"_s, u"维修信息"_s), QStringList{u"260305100000"_s});
        QCOMPARE(TidyPlans(RepairPlans(), list).moved, 0);
        QCOMPARE(
            Words(ChangePlan(RepairPlans(), list, 9, closing + u"<维修结果>好</维修结果>").notice),
            u"意外错误: 维修数据库存取错误!"_s);
    }

    void onlyTodaysLastRepairIsDeleted() {
        TextTable list(RepairPlans().columns);
        AddPlan(RepairPlans(), list, Repair());
        AddPlan(RepairPlans(), list, Repair(u"<报修人>马大勇</报修人>"_s));
        const QString notToday = u"操作禁止: "
                                 u"为了防止误操作，系统只能删除当天增加的计划信息，而且从后往前删，"
                                 u"以前的计划请用维修中的取消、中止等方"
                                 u"法完成！"_s;
        QCOMPARE(Words(DeletePlan(RepairPlans(), list, 1).notice), notToday);
        QCOMPARE(Words(DeletePlan(RepairPlans(), list, 2).notice),
                 u"操作禁止: "
                 u"为了防止误操作，系统只允许删除本人添加当天增加的计划信息，而且从后往前删，以前的"
                 u"或别人计划请用维修"
                 u"中的取消、中止等方法完成！"_s);
        list.removeRow(2);
        Clock::Advance(14 * 3600 * 1000LL); // past midnight
        QCOMPARE(Words(DeletePlan(RepairPlans(), list, 1).notice), notToday);
        Clock::Advance(-14 * 3600 * 1000LL);
        QVERIFY(DeletePlan(RepairPlans(), list, 1).done);
        list.setRow(
            1, {u"260305100009"_s, u"8203"_s, {}, {}, u"2026-03-05"_s, u"前厅部"_s, u"林晓燕"_s});
        QCOMPARE(Words(DeletePlan(RepairPlans(), list, 1).notice),
                 u"意外错误: 数据删除失败,请再试一次！"_s); // gone already
        QCOMPARE(list.dataRows(), 1);
    }

    // The server goes away ahead of each write of a tidying: what isn't moved stays in the list and is moved by the
    // next one; nothing is lost, and in the end nothing stands twice.
    void theServerGoesAwayWhileTidying() {
        for (int cut = 1; cut <= 8; ++cut) {
            hotel_.reset();
            hotel_ = std::make_unique<TestHotel>();
            TextTable list(RepairPlans().columns);
            for (int n = 0; n < 2; ++n) {
                AddPlan(RepairPlans(), list, Repair());
                ChangePlan(RepairPlans(), list, n + 1, u"<维修结果>已修复</维修结果>"_s);
            }
            CutLine line(hotel_->port());
            {
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(cut);
                const TidyOutcome outcome = TidyPlans(RepairPlans(), list);
                QCOMPARE(outcome.moved + outcome.failed, 2);
                QCOMPARE(list.dataRows(), outcome.moved == 2 ? 1 : 2 - outcome.moved);
            }
            hotel_->desk().use();
            TidyPlans(RepairPlans(), list);
            QCOMPARE(Stored(kRepairFile, u"维修信息"_s), QStringList());
            QStringList moved = Stored(u"wxzl\\26\\2603.QVR"_s, u"维修信息"_s);
            moved.sort();
            QCOMPARE(moved, (QStringList{u"260305100000"_s, u"260305100001"_s}));
        }
    }

    void heldRooms() {
        QCOMPARE(HeldRoomsText({u"301"_s, u"8302"_s}), u"<001>301</001>\r\n<002>8302</002>"_s);
        QCOMPARE(HeldRoomsText({}), QString());
        QVERIFY(HoldsRoom(u"<001>8301</001>", u"8301"));
        QVERIFY(!HoldsRoom(u"<001>8301</001>", u"301"));
        FillRooms({{u"101"_s, {}, -1, 2, u"1"_s, u"双床"_s},
                   {u"102"_s, {}, -1, 3, u"1"_s, u"三人"_s},
                   {u"201"_s, {}, -1, 2, u"2"_s, u"双床"_s}});
        TextTable rooms({u"选择"_s, u"房间号"_s, u"楼层号"_s, u"客房类型"_s, u"床位数"_s});
        QCOMPARE(HeldRoomTitles(), rooms.headers());
        LoadRoomsToHold(rooms);
        QCOMPARE(rooms.row(2), (QStringList{{}, u"102"_s, u"1"_s, u"三人"_s, u"3"_s}));
        MarkHeldRooms(rooms, u"<001>102</001><002>201</002>");
        QCOMPARE(rooms.text(3, 0), u"是"_s);
        QCOMPARE(MarkedRooms(rooms).join(u','), u"102,201"_s);
        QCOMPARE(MarkedList(rooms).dataRows(), 2);
        const auto counts = [&](const QStringList& types) {
            return SetLcFxtjQd(rooms, {u"1"_s, u"2"_s, u"3"_s}, types);
        };
        const HeldCounts both = counts({u"双床"_s, u"三人"_s});
        QVERIFY(!both.notice);
        const auto lines = [](const TextTable& table) {
            QStringList texts;
            for (int row = 0; row < table.rows(); ++row)
                texts.append(table.row(row).join(u' '));
            return texts.join(u',');
        };
        QCOMPARE(lines(both.byFloor), u"楼层 房数 床数,1 1 3,2 1 2,3 0 0,合计 2 5"_s);
        QCOMPARE(lines(both.byType), u"房型 房数 床数,双床 1 2,三人 1 3,合计 2 5"_s);
        QCOMPARE(Words(counts({u"双床"_s}).notice),
                 u"内部设定错误: 有一种房型没有在房间类型分类中定义！"_s);
        MarkAll(rooms, u"楼层号", u"1", true);
        QCOMPARE(MarkedRooms(rooms).join(u','), u"101,102,201"_s);
        MarkAll(rooms, u"客房类型", u"双床", false);
        QCOMPARE(MarkedRooms(rooms).join(u','), u"102"_s);
    }

private:
    std::unique_ptr<TestHotel> hotel_;
};

HOTEL_TEST(PlansTest)

#include "test_plans.moc"
