#include "house/common/paths.h"
#include "house/folios/folio_posting.h"
#include "house/folios/posting_list.h"
#include "house/folios/service_catalogue.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260301120000"_s;
const QString kLedger = u"kzxx\\26\\03\\01\\260301120000.QVR"_s;
const QDateTime kMoment(QDate(2026, 3, 5), QTime(10, 0, 7));
const QString kDetailsFile = u"QVR\\Kffwmx.QVR"_s;

// A posting of each kind, all that can be typed typed.
PostingValues Typed(PostingKind kind) {
    PostingValues values = {
        {u"Krxm", u"王一"_s}, {u"Fjh", u"8101"_s}, {u"Jbdw", u"前厅部"_s}, {u"Jsr", u"李娜"_s}};
    switch (kind) {
    case kDepositPosting:
        values.insert({{u"Xyzl", u"现金押金"_s}, {u"Zffs", u"现金"_s}, {u"Yje", u"500"_s}});
        values[u"Xysm"] = u"收据12"_s;
        break;
    case kRoomPosting:
        values.insert({{u"Tsff", u"加床费"_s}, {u"Ffje", u"100+20"_s}, {u"Ffsm", u"一张"_s}});
        break;
    case kFoodPosting:
        values.insert({{u"Cymc", u"早餐"_s}, {u"Jsdd", u"早餐厅"_s}, {u"Jldw", u"份"_s}});
        values.insert({{u"Jssl", u"2"_s}, {u"Xfje", u"３８．５"_s}, {u"Xfsm", u"送房"_s}});
        break;
    case kBroadbandPosting:
        values.insert({{u"Wlfymc", u"宽带包日"_s}, {u"Wldk", u"K01"_s}, {u"Wlsc", u"95"_s}});
        values.insert({{u"Wlrq", u"2026-03-04"_s}, {u"Wlsj", u"22:10"_s}, {u"Wlll", u"8"_s}});
        values.insert({{u"Wlfy", u"15"_s}, {u"Wlfwf", u"1.5"_s}, {u"Wlfhj", u"16.5"_s}});
        values[u"Wlbz"] = u"夜间"_s;
        break;
    case kTelephonePosting:
        values.insert({{u"DxywMc", u"市话"_s}, {u"Zjdh", u"6101"_s}, {u"Dxjsdd", u"总机"_s}});
        values.insert({{u"Thsc", u"12"_s}, {u"Thrq", u"2026-03-04"_s}, {u"Thsj", u"21:02"_s}});
        values.insert({{u"Tddq", u"北京"_s}, {u"Hfje", u"5.4"_s}, {u"Fwfje", u"0.54"_s}});
        values.insert({{u"Hjhf", u"5.94"_s}, {u"Bjhm", u"01065881190"_s}, {u"Dhbz", u"代拨"_s}});
        break;
    default:
        values.insert({{u"Fwlb", u"洗衣服务"_s}, {u"Fwmx", u"衬衣"_s}, {u"Fwdh", u"N7"_s}});
        values.insert({{u"Fwdw", u"件"_s}, {u"Fwsl", u"4"_s}, {u"Fwje", u"-48"_s}});
        values[u"Fwsm"] = u"加急"_s;
    }
    return values;
}

// "信用保证种类=现金押金 支付方式=现金 ..."
QString Told(const QString& record) {
    QStringList fields;
    for (qint16 n = 1; !TagName(record, n).isEmpty(); ++n)
        fields.append(TagName(record, n) + u'=' + GetTag(record, TagName(record, n)));
    return fields.join(u' ');
}

// "title: words @control"; empty when nothing is said.
QString Objection(PostingKind kind, const PostingValues& values) {
    const auto objection = CheckPosting(kind, values);
    if (!objection)
        return {};
    return objection->notice.title + u": "_s + objection->notice.words + u" @"_s +
           objection->control;
}

PostingValues Without(PostingValues values, const QStringList& controls) {
    for (const QString& control : controls)
        values.remove(control);
    return values;
}

TextTable Listed(PostingKind kind) {
    return LoadPostings(kFolio, kind).value_or(TextTable());
}

} // namespace

class PostingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void projectsAndLists() {
        const auto row = [](int kind, const char* project, const char* list, const char* headers) {
            Check(project, PostingProject(kind), QString::fromUtf8(project));
            Check(project, PostingKindOf(PostingKind(kind)).list.toString(),
                  QString::fromUtf8(list));
            if (*list)
                Check(project, EmptyPostingList(PostingKind(kind)).headers().join(u' '),
                      QString::fromUtf8(headers));
        };
        row(0, "信用押金信息", "XyyjQd",
            "序号 信用保证种类 支付方式 客人 日期 时间 信用金额 累计信用 实收金额 累计实收 备注 "
            "经办单位 经办人");
        row(1, "房费明细信息", "FfxxQd",
            "序号 费用名称 客人 房间号 日期 时间 金额 累计金额 备注 经办单位 经办人");
        row(2, "餐饮娱乐费用", "CyylQd",
            "序号 费用名称 客人 房间号 日期 时间 结算地点 计量单位 数量 金额 累计金额 经办单位 "
            "经办人 备注");
        row(3, "宽带网络费用", "KdjfQd",
            "序号 费用名称 网络端口 客人 房间号 日期 时间 时长 基本金额 服务费 金额 累计金额 "
            "经办单位 经办人 计费流量 备注");
        row(4, "电话计费信息", "DhjfQd",
            "序号 费用名称 主叫电话 客人 房间号 日期 时间 时长 通达地区 被叫号码 话费金额 服务费 "
            "金额 累计金额 结算地点 经办单位 经办人 备注");
        row(5, "团队结算信息", "", "");
        row(6, "客房服务费用", "KffwQd",
            "序号 服务类别 客人 房间号 日期 时间 服务明细 计量单位 数量 金额 累计金额 经办单位 "
            "经办人 服务说明 服务单号");
        QCOMPARE(PostingProject(7), QString());
        QCOMPARE(PostingProject(-1), QString());
        QCOMPARE(QList<int>(std::begin(kEnteredKinds), std::end(kEnteredKinds)),
                 QList<int>({0, 1, 2, 3, 4, 6}));
    }

    void categoriesOfDropDowns() {
        QStringList categories;
        for (const PostingKind kind : kEnteredKinds) {
            for (const PostingField& field : PostingKindOf(kind).fields) {
                if (!field.category.isEmpty())
                    categories.append(field.control.toString() + u'=' + field.category);
            }
        }
        QCOMPARE(categories.join(u' '),
                 u"Xyzl=信用保证种类 Zffs=支付方式 Tsff=特殊房费项目 Cymc=餐饮娱乐服务种类 "
                 "Jsdd=结算地点 Jldw=计量单位 Wlfymc=宽带业务名称 DxywMc=电信业务名称 "
                 "Dxjsdd=结算地点 Fwlb=客房服务种类 Fwdw=计量单位"_s);
    }

    void recordsAsWritten() {
        const auto row = [](PostingKind kind, const QString& record) {
            Check(qUtf8Printable(PostingProject(kind)),
                  Told(BuildPostingRecord(kind, Typed(kind), kMoment)), record);
        };
        row(kDepositPosting,
            u"信用保证种类=现金押金 支付方式=现金 客人=王一 日期=2026-03-05 "
            "时间=10:00:07 实收金额=500.00 备注=收据12 经办单位=前厅部 经办人=李娜"_s);
        row(kRoomPosting, u"费用名称=加床费 房间号=8101 客人=王一 日期=2026-03-05 时间=10:00:07 "
                          "金额=120.00 备注=一张 经办单位=前厅部 经办人=李娜"_s);
        row(kFoodPosting, u"费用名称=早餐 结算地点=早餐厅 计量单位=份 数量=2 房间号=8101 客人=王一 "
                          "日期=2026-03-05 时间=10:00:07 金额=38.50 备注=送房 经办单位=前厅部 "
                          "经办人=李娜"_s);
        row(kBroadbandPosting,
            u"费用名称=宽带包日 房间号=8101 客人=王一 网络端口=K01 时长=95 日期=2026-03-04 "
            "时间=22:10 计费流量=8 基本金额=15.00 服务费=1.50 金额=16.50 备注=夜间 经办单位=前厅部 "
            "经办人=李娜"_s);
        row(kTelephonePosting,
            u"费用名称=市话 房间号=8101 客人=王一 主叫电话=6101 结算地点=总机 时长=12 "
            "日期=2026-03-04 时间=21:02 通达地区=北京 话费金额=5.40 服务费=0.54 金额=5.94 "
            "被叫号码=01065881190 经办单位=前厅部 经办人=李娜 备注=代拨"_s);
        row(kServicePosting,
            u"服务类别=洗衣服务 服务明细=衬衣 服务单号=N7 计量单位=件 数量=4 金额=-48.00 "
            "房间号=8101 客人=王一 日期=2026-03-05 时间=10:00:07 服务说明=加急 经办单位=前厅部 "
            "经办人=李娜"_s);
        // a moment that is not typed is that of the posting, an amount that is not counts 0.00
        QCOMPARE(Told(BuildPostingRecord(kBroadbandPosting, {{u"Wlfymc", u"宽带包日"_s}}, kMoment)),
                 u"费用名称=宽带包日 日期=2026-03-05 时间=10:00 基本金额=0.00 服务费=0.00 "
                 "金额=0.00"_s);
    }

    void moneyOrCredit() {
        const auto row = [](const char* kind, bool isMoney) {
            Check(kind, IsMoneyReceipt(QString::fromUtf8(kind)), isMoney);
            PostingValues values = Typed(kDepositPosting);
            values[u"Xyzl"] = QString::fromUtf8(kind);
            const QString record = BuildPostingRecord(kDepositPosting, values, kMoment);
            Check(kind, GetTag(record, u"实收金额"), isMoney ? u"500.00"_s : QString());
            Check(kind, GetTag(record, u"信用金额"), isMoney ? QString() : u"500.00"_s);
        };
        row("实收补款", true);
        row("预付订金", true);
        row("定额押金", true);
        row("退现金", true);
        row("信用担保", false);
        row("限额签单", false);
        row("", false);
    }

    void whatMustBeTyped() {
        const auto row = [](PostingKind kind, const char* missing, const char* words) {
            const QStringList controls = QString::fromUtf8(missing).split(u' ');
            Check(missing, Objection(kind, Without(Typed(kind), controls)),
                  u"缺少必须输入的项目: %1 @%2"_s.arg(QString::fromUtf8(words), controls.first()));
        };
        // with each the checks behind it fail, too: the first one speaks
        row(kDepositPosting, "Xyzl Zffs Yje Krxm Xysm", "选择输入信用种类");
        row(kDepositPosting, "Zffs Yje Krxm Xysm", "选择输入支付方式");
        row(kDepositPosting, "Yje Krxm Xysm", "选择输入信用额度或实际押金额");
        row(kDepositPosting, "Krxm Xysm", "选择输入客人姓名");
        row(kDepositPosting, "Xysm", "请输入必要的说明,如领导的姓名,票据的号码种类.");
        row(kRoomPosting, "Tsff Ffje Krxm", "选择输入特殊房间费用种类");
        row(kRoomPosting, "Ffje Krxm", "选择输入消费服务额");
        row(kRoomPosting, "Krxm Ffsm Fjh", "选择输入客人姓名");
        row(kFoodPosting, "Cymc Xfje Krxm", "选择输入餐饮、娱乐、其他费用种类");
        row(kFoodPosting, "Xfje Krxm", "选择输入消费服务额");
        row(kFoodPosting, "Krxm", "选择输入客人姓名");
        row(kBroadbandPosting, "Wlfymc Krxm", "选择输入宽带网络费用种类");
        row(kBroadbandPosting, "Krxm Wlfhj Wlfy", "选择输入客人姓名");
        row(kTelephonePosting, "Dxjsdd DxywMc Hjhf Krxm", "选择输入消费结算的地点");
        row(kTelephonePosting, "DxywMc Hjhf Krxm", "选择输入电信业务费用种类");
        row(kTelephonePosting, "Hjhf Krxm", "选择输入合计话费额");
        row(kTelephonePosting, "Krxm", "选择输入客人姓名");
        row(kServicePosting, "Fwlb Fwmx Fwje Krxm", "选择输入客房服务费用种类");
        row(kServicePosting, "Fwmx Fwje Krxm", "选择输入客房服务费用种类相应的明细类别,便于统计!");
        row(kServicePosting, "Fwje Krxm", "选择输入客房服务额");
        row(kServicePosting, "Krxm", "选择输入客人姓名");
        for (const PostingKind kind : kEnteredKinds)
            QCOMPARE(Objection(kind, Typed(kind)), QString());
        for (const QString& guarantee : {u"预付现金"_s, u"限额签单"_s}) {
            PostingValues values = Without(Typed(kDepositPosting), {u"Xysm"_s});
            values[u"Xyzl"] = guarantee;
            QCOMPARE(Objection(kDepositPosting, values), QString());
        }
        PostingValues blank = Typed(kRoomPosting);
        blank[u"Ffje"] = u" 　"_s;
        QCOMPARE(Objection(kRoomPosting, blank), u"缺少必须输入的项目: 选择输入消费服务额 @Ffje"_s);
    }

    void aCreditWithoutAnAmountIsProposedOne() {
        PostingValues values = Without(Typed(kDepositPosting), {u"Yje"_s, u"Krxm"_s});
        values[u"Xyzl"] = u"信用担保"_s;
        const auto objection = CheckPosting(kDepositPosting, values);
        QCOMPARE(objection->notice.title, u"请再次确认"_s);
        QCOMPARE(objection->notice.words, u"项目被自动确认为信用,默认值是15000.00,"
                                          "担保或信用必须输入一个上限,以控制风险!"_s);
        QCOMPARE(objection->control, u"Yje");
        QCOMPARE(objection->proposal, u"15000.00"_s);
        values[u"Yje"] = objection->proposal;
        QCOMPARE(Objection(kDepositPosting, values),
                 u"缺少必须输入的项目: 选择输入客人姓名 @Krxm"_s);
    }

    // What can't be read is told, rather than posted as something else.
    void whatCannotBeRead() {
        const auto row = [](PostingKind kind, QStringView control, const QString& typed,
                            const QString& begin) {
            PostingValues values = Typed(kind);
            values[control] = typed;
            const QString told = Objection(kind, values);
            Check(qUtf8Printable(typed.left(9)),
                  begin.isEmpty() ? told.isEmpty() : told.contains(begin), true);
        };
        row(kRoomPosting, u"Ffje", u"1..2"_s, u": 金额不能计算：3 : 字符小数点太多 @Ffje"_s);
        row(kRoomPosting, u"Ffje", QString(300, u'9'), u": 金额不能计算："_s);
        row(kRoomPosting, u"Ffje", u"-(2+3)*4"_s, {});
        row(kDepositPosting, u"Yje", u"五百"_s, u": 金额不能计算："_s);
        row(kTelephonePosting, u"Hfje", u"3×2"_s, u": 话费金额不能计算："_s);
        row(kBroadbandPosting, u"Wlrq", u"2026-02-30"_s, u": 日期输入错误：2026-02-30 @Wlrq"_s);
        row(kBroadbandPosting, u"Wlsj", u"25:00"_s, u": 时间输入错误：25:00 @Wlsj"_s);
        row(kBroadbandPosting, u"Wlrq", {}, {});
    }

    void folioNumbers() {
        const auto row = [](const char* typed, const QString& words) {
            Check(typed, Words(RefuseFolioNumber(QString::fromUtf8(typed))),
                  words.isEmpty() ? words : u"缺少必须输入的项目: "_s + words);
        };
        row("26030112000", u"结账号错误"_s);
        row("2603011200001", u"结账号错误"_s);
        row("", u"结账号错误"_s);
        row("26030112000A", u"结账号位数错误或含有数字以外的字符"_s);
        row("260301120000", {});
        row("000000000001", {});
    }

    void feesAreSummed() {
        const auto row = [](PostingKind kind, const PostingValues& values, const char* sum) {
            Check(sum, SumOfFees(*PostingKindOf(kind).feeSum, values), QString::fromUtf8(sum));
        };
        row(kTelephonePosting, {{u"Hfje", u"5.4"_s}, {u"Fwfje", u"0.54"_s}}, "5.94");
        row(kTelephonePosting, {{u"Hfje", u"2+"_s}, {u"Fwfje", u"-1"_s}}, "-1.00");
        row(kBroadbandPosting, {{u"Wlfy", u"3*5"_s}, {u"Hfje", u"9"_s}}, "15.00");
        row(kBroadbandPosting, {{u"Wlfwf", u"1"_s}}, "1.00");
        QCOMPARE(PostingKindOf(kTelephonePosting).feeSum->control, u"Hjhf");
        QCOMPARE(PostingKindOf(kBroadbandPosting).feeSum->control, u"Wlfhj");
    }

    void wordsOfTheLog() {
        const auto row = [](PostingKind kind, const char* added, const char* deleted) {
            Check(added, PostingKindOf(kind).log.added.toString(), QString::fromUtf8(added));
            Check(deleted, PostingKindOf(kind).log.deleted.toString(), QString::fromUtf8(deleted));
        };
        row(kDepositPosting, "信用押金增加操作", "信用押金删除操作");
        row(kRoomPosting, "特殊房费增加操作", "房费明细删除操作");
        row(kFoodPosting, "餐饮娱乐服务增加操作", "餐饮娱乐明细删除操作");
        row(kBroadbandPosting, "宽带网络费用增加操作", "宽带网络费用删除操作");
        row(kTelephonePosting, "电话费用服务增加操作", "电话费用明细删除操作");
        row(kServicePosting, "客房服务增加操作", "客房服务明细删除操作");
        QCOMPARE(PostingDetail(kFolio, u"<费用名称>早餐</费用名称>\r\n<金额>18.00</金额>"),
                 u"260301120000,早餐,18.00"_s);
    }

    void aListHasItsRunningColumns() {
        TestHotel hotel;
        QCOMPARE(Listed(kRoomPosting).dataRows(), 0);
        const auto post = [](PostingKind kind, const QString& record) {
            return SaveBills(kFolio, kind, record).status;
        };
        for (const QString& amount : {u"100.00"_s, u"-30.50"_s, u"0.01"_s})
            QCOMPARE(post(kRoomPosting, u"<金额>%1</金额><房间号>8101</房间号>"_s.arg(amount)), 0);
        TextTable list = Listed(kRoomPosting);
        QCOMPARE(
            list.row(2),
            QStringList({u"2"_s, {}, {}, u"8101"_s, {}, {}, u"-30.50"_s, u"69.50"_s, {}, {}, {}}));
        QCOMPARE(LastRunning(list, u"累计金额").text(), u"69.51"_s);
        AppendPosting(kRoomPosting, list, u"<金额>1.00</金额><序号>4</序号>");
        QCOMPARE(list.row(4).at(7), u"70.51"_s);
        list.addRow({u"合计"_s, {}, {}, {}, {}, {}, {}, u"9"_s}); // no posting
        QCOMPARE(LastRunning(list, u"累计金额").text(), u"70.51"_s);
        QCOMPARE(LastRunning(EmptyPostingList(kRoomPosting), u"累计金额").text(), u"0.00"_s);
        TextTable one = EmptyPostingList(kRoomPosting);
        AppendPosting(kRoomPosting, one, u"<金额>7.00</金额><序号>1</序号>");
        QCOMPARE(LastRunning(one, u"累计金额").text(), u"7.00"_s);

        QCOMPARE(post(kDepositPosting, u"<信用金额>15000.00</信用金额>"_s), 0);
        QCOMPARE(post(kDepositPosting, u"<实收金额>500.00</实收金额>"_s), 0);
        list = Listed(kDepositPosting);
        QCOMPARE(list.row(2).mid(6, 4), QStringList({{}, u"15000.00"_s, u"500.00"_s, u"500.00"_s}));
    }

    void aListIsInTheOrderOfNumbers() {
        TestHotel hotel;
        for (const char* key : {"2", "10", "1"})
            SaveRecord(kLedger, u"房费明细信息", QString::fromLatin1(key),
                       u"<金额>%1</金额><序号>%1</序号>"_s.arg(QLatin1StringView(key)));
        const TextTable list = Listed(kRoomPosting);
        QStringList rows;
        for (int row = 1; row < list.rows(); ++row)
            rows.append(list.text(row, 0) + u':' + list.text(row, 7));
        QCOMPARE(rows, QStringList({u"1:1.00"_s, u"2:3.00"_s, u"10:13.00"_s}));
        hotel.stopServer();
        QVERIFY(!LoadPostings(kFolio, kRoomPosting));
    }

    void onlyTheLastOwnRowMayBeDeleted() {
        TextTable list = EmptyPostingList(kRoomPosting);
        for (const QString& who : {u"李娜"_s, u"张伟"_s, u"李娜"_s})
            list.addRow({u"1"_s, {}, {}, {}, {}, {}, {}, {}, {}, u"前厅部"_s, who});
        QVERIFY(MayDelete(list, 3, u"前厅部", u"李娜"));
        QVERIFY(!MayDelete(list, 3, u"前厅部", u"张伟"));
        QVERIFY(!MayDelete(list, 3, u"财务部", u"李娜"));
        QVERIFY(!MayDelete(list, 1, u"前厅部", u"李娜"));
        QVERIFY(!MayDelete(list, 0, u"前厅部", u"李娜"));
        list.removeRow(3);
        QVERIFY(MayDelete(list, 2, u"前厅部", u"张伟"));
        QVERIFY(!MayDelete(EmptyPostingList(kRoomPosting), 0, {}, {}));
    }

    void aRowGoesBackAsItWasTyped() {
        for (const PostingKind kind : kEnteredKinds) {
            TextTable list = EmptyPostingList(kind);
            const QString record = BuildPostingRecord(kind, Typed(kind), kMoment);
            AppendPosting(kind, list, record);
            PostingValues back = ValuesOfRow(kind, list, 1);
            back.insert({{u"Krxm", u"王一"_s}, {u"Fjh", u"8101"_s}, {u"Jbdw", u"前厅部"_s}});
            back[u"Jsr"] = u"李娜"_s;
            QCOMPARE(Told(BuildPostingRecord(kind, back, kMoment)), Told(record));
        }
        TextTable credits = EmptyPostingList(kDepositPosting);
        AppendPosting(kDepositPosting, credits, u"<信用金额>15000.00</信用金额>");
        QCOMPARE(ValuesOfRow(kDepositPosting, credits, 1)[u"Yje"], u"15000.00"_s);
    }

    // Ahead of the first command: the server would answer with a record of any project.
    void aDeletionThatReadsNothingIsAFailedOne() {
        TestHotel hotel;
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind)
            QCOMPARE(SaveBills(kFolio, kind, u"<金额>18.00</金额>"_s).status, 0);
        CutLine line(hotel.port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        line.reset();
        QVERIFY(DelBills(kFolio, kServicePosting, u"1") != 0);
        QVERIFY(DelBills(kFolio, 7, u"1") != 0);
        QCOMPARE(line.requests(), 0);
        QVERIFY(DelBills(kFolio, kRoomPosting, u"2") != 0);
        QCOMPARE(line.writes(), 0);
        QCOMPARE(DelBills(kFolio, kTeamPosting, u"1"), 0);
        QCOMPARE(StoredRecords(kLedger, u"团队结算信息"_s), QStringList());
        hotel.desk().use();
        hotel.stopServer();
        QVERIFY(DelBills(kFolio, kRoomPosting, u"1") != 0);
    }

    void detailsOfServicesAreKept() {
        TestHotel hotel;
        const auto stored = [] { return ReadProject(kDetailsFile, u"客房服务明细信息"); };
        ServiceCatalogue first;
        first.load();
        QCOMPARE(first.details(u"洗衣服务"), QStringList());
        first.add(u"洗衣服务", u"衬衣");
        first.add(u"洗衣服务", u"西装");
        first.add(u"洗衣服务", u"衬衣");
        first.add(u"迷你吧", u"啤酒");
        QCOMPARE(first.details(u"洗衣服务"), QStringList({u"衬衣"_s, u"西装"_s}));
        QCOMPARE(stored(), QString()); // in memory until the screen closes
        QCOMPARE(first.writeBack(), 0);
        QCOMPARE(GetTag(GetTag(stored(), u"洗衣服务"), u"服务明细"),
                 u"<2-衬衣> </2-衬衣>\r\n<2-西装> </2-西装>"_s);

        // what the house has put at a detail stays; other desks' classes stay, too
        SaveRecord(kDetailsFile, u"客房服务明细信息", u"迷你吧",
                   u"<服务明细><2-啤酒>12</2-啤酒><可乐>6</可乐><2-可乐>8</2-可乐></服务明细>");
        ServiceCatalogue second;
        second.load();
        QCOMPARE(second.details(u"迷你吧"), QStringList({u"啤酒"_s, u"可乐"_s}));
        second.add(u"迷你吧", u"啤酒");
        QCOMPARE(second.writeBack(), 0);
        QCOMPARE(GetTag(stored(), u"2-啤酒"), u"12"_s);
        second.add(u"迷你吧", u"矿泉水");
        second.add(u"迷你吧", u"误输");
        second.takeBack(u"迷你吧", u"误输");
        second.takeBack(u"迷你吧", u"啤酒"); // the house's own
        first.load();
        first.add(u"洗衣服务", u"领带");
        QCOMPARE(first.writeBack(), 0);
        QCOMPARE(second.writeBack(), 0);
        second.load();
        QCOMPARE(second.details(u"迷你吧"), QStringList({u"啤酒"_s, u"可乐"_s, u"矿泉水"_s}));
        QCOMPARE(second.details(u"洗衣服务"), QStringList({u"衬衣"_s, u"西装"_s, u"领带"_s}));

        hotel.stopServer();
        second.add(u"洗衣服务", u"大衣");
        QVERIFY(second.writeBack() != 0);
        second.load(); // nobody knows what it holds: it is left alone
        second.add(u"洗衣服务", u"大衣");
        QCOMPARE(second.writeBack(), 0);
    }
    void ninetyNineDetailsAreOffered() {
        TestHotel hotel;
        ServiceCatalogue catalogue;
        for (int n = 1; n <= 100; ++n)
            catalogue.add(u"洗衣服务", QString::number(n));
        QCOMPARE(catalogue.details(u"洗衣服务").size(), 99);
        QCOMPARE(catalogue.details(u"洗衣服务").last(), u"99"_s);
    }
};

HOTEL_TEST(PostingsTest)
#include "test_postings.moc"
