#include "cashier/receivables.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

QString Due(const QString& amount, const QString& state, const QString& reason) {
    return u"<金额>%1</金额><目前状态>%2</目前状态><收款原因>%3</收款原因><应收日期>2026-03-05</"
           u"应收日期>"
           u"<应收单位>销售部</应收单位><应收人>黄美玲</应收人>"_s.arg(amount, state, reason);
}

} // namespace

class ReceivablesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fromEntryToHistory() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn);
        hotel.desk().logIn(u"XIAOSHOU"_s, u"777777"_s);
        const PlanKind& kind = ReceivablePlans();
        TextTable list(kind.columns);
        QCOMPARE(
            kind.columns.join(u' '),
            u"应收款单号 金额 目前状态 收款原因 应收日期 应收单位 应收人 收款结果 收款日期 收款人"_s);
        const auto refused = [&](const QString& record) {
            return Words(AddPlan(kind, list, record).notice);
        };
        QCOMPARE(refused(Due({}, {}, {})), u"缺少参数: 收款原因必须说明!"_s);
        QCOMPARE(refused(Due(u"0.00"_s, {}, u"场租"_s)), u"缺少参数: 应收款金额必须说明!"_s);
        QCOMPARE(refused(Due({}, u"未收"_s, u"场租"_s)), u"缺少参数: 应收款金额必须说明!"_s);
        QCOMPARE(refused(Due(u"0.01"_s, {}, u"场租"_s)),
                 u"缺少参数: 目前应收款所处状态必须说明!"_s);
        QVERIFY(AddPlan(kind, list, Due(u"-5.00"_s, u"未收"_s, u"场租"_s)).done);
        QVERIFY(AddPlan(kind, list, Due(u"12800.00"_s, u"未收"_s, u"场租"_s)).done);
        QCOMPARE(list.text(2, 0), u"260305100001"_s); // a second apart
        QCOMPARE(Words(ChangePlan(kind, list, 2, u"<收款人>王丽娟</收款人>"_s).notice),
                 u"操作错误: 收款结果没有确定,不能完成收款!"_s);
        const QString collected = u"<收款结果>转账</收款结果><收款日期>2026-03-05</收款日期>"_s;
        QVERIFY(ChangePlan(kind, list, 2, collected + u"<收款人>王丽娟</收款人>").done);
        QCOMPARE(list.text(2, u"收款人"), u"王丽娟"_s);
        QVERIFY(ChangePlan(kind, list, 2, collected).done);
        QCOMPARE(
            list.row(2).join(u'|'),
            u"260305100001|12800.00|未收|场租|2026-03-05|销售部|黄美玲|转账|2026-03-05|黄美玲"_s);
        QCOMPARE(Words(DeletePlan(kind, list, 1).notice),
                 u"操作禁止: "
                 u"为了防止误操作，系统只能删除当天增加的信息，而且从后往前删，以前的应收款请用应收"
                 u"款中的取消、"
                 u"中止等方法完成！"_s);
        QCOMPARE(TidyPlans(kind, list).moved, 1);
        QCOMPARE(list.dataRows(), 1);
        QCOMPARE(GetTag(hotel.stored(u"yskzl\\26\\2603.QVR"_s, u"应收款信息"_s, u"260305100001"_s),
                        u"金额"),
                 u"12800.00"_s);
        QCOMPARE(hotel.stored(u"yskzl\\ysk.QVR"_s, u"应收款信息"_s, u"260305100001"_s), QString());
        list.setText(1, u"应收人", u"王丽娟"_s);
        QCOMPARE(Words(DeletePlan(kind, list, 1).notice),
                 u"操作禁止: "
                 u"为了防止误操作，系统只允许删除本人添加当天增加的应收款信息，而且从后往前删，以前"
                 u"的或别人应收款请"
                 u"用应收款中的取消、中止等方法完成！"_s);
        hotel.stopServer();
        QCOMPARE(Words(ChangePlan(kind, list, 1, collected).notice),
                 u"意外错误: 应收款数据库存取错误!"_s);
        QCOMPARE(refused(Due(u"1.00"_s, u"未收"_s, u"场租"_s)), u"意外错误: 应收款保存失败?"_s);
    }
};

HOTEL_TEST(ReceivablesTest)

#include "test_receivables.moc"
