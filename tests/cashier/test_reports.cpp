// The business reports by their families, without a window.

#include <QTest>

#include <random>

#include "cashier/reports/period_walk.h"
#include "cashier/reports/report_charts.h"
#include "cashier/reports/reports.h"
#include "house/common/paths.h"
#include "house/folios/folio_posting.h"
#include "house/guests/departures.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tools/lists/list_totals.h"

using namespace hotel;

namespace {

const QString kFolio = u"260304200000"_s;
const QDate kToday(2026, 3, 5);

QString Row(const TextTable& list, int row) {
    return list.row(row).join(u'|');
}

QString Rows(const Report& made) {
    QStringList rows;
    for (int row = 1; row < made.list.rows(); ++row)
        rows.append(Row(made.list, row));
    return rows.join(u'\n');
}

Report Make(const QString& name, QDate first = kToday, QDate last = kToday,
            const WalkProgress& progress = {}) {
    return MakeReport(ReportOf(name), {first, last}, progress);
}

// A chart in words: its title, and label=value of each series.
QString Figures(const Chart& chart) {
    QStringList series;
    for (const ChartSeries& one : chart.series) {
        QStringList figures;
        for (qsizetype n = 0; n < chart.labels.size(); ++n)
            figures.append(chart.labels[n] + u'=' + ChartFigure(chart, one.values.value(n)));
        series.append(one.name + u' ' + figures.join(u' '));
    }
    return chart.title + u": "_s + series.join(u" / "_s);
}

QString Field(QStringView tag, const QString& value) {
    return value.isEmpty() ? QString() : u"<%1>%2</%1>"_s.arg(tag, value);
}

// A journal's record as the house writes it, as far as the reports look.
QString Posting(const QString& name, const QString& amount, const QString& more = {}) {
    return Field(u"费用名称", name) + Field(u"金额", amount) + more;
}

void WriteJournal(PostingKind kind, QDate day, const QStringList& postings) {
    QString records;
    for (qsizetype n = 0; n < postings.size(); ++n)
        records += u"<%1>%2</%1>\r\n"_s.arg(n + 1).arg(postings[n]);
    const QString project = PostingProject(kind);
    QCOMPARE(SaveProject(JournalFile(project, day), project, records), 0);
}

QString CountedRow(const QString& key, const QString& name, int rooms, int beds,
                   const QString& sold, int bedsSold) {
    return Field(key, name) +
           u"<总房间数>%1</总房间数><总床位数>%2</总床位数>"_s.arg(rooms).arg(beds) +
           u"<售出房间数>%1</售出房间数><售出床位数>%2</售出床位数>"_s.arg(sold).arg(bedsSold);
}

void WriteSnapshot(QDate day, const QString& text, const QString& project = u"客房销售日报信息"_s) {
    QCOMPARE(SaveProject(SnapshotFile(day), project, text), 0);
}

// Ten thousandths, half away from zero at the second decimal.
QString Cents(qint64 units) {
    const qint64 cents = (std::abs(units) + 50) / 100;
    const QString text = u"%1.%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
    return units < 0 && cents > 0 ? u'-' + text : text;
}

} // namespace

class ReportsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;

private Q_SLOTS:
    void init() { hotel_ = std::make_unique<TestHotel>(); }
    void cleanup() { hotel_.reset(); }

    // The table as it was agreed on, written out.
    void offersAllReportsInTheirOrder() {
        const QString guests = u"房间号 床位 客人姓名 性别 年龄 结账号 证件号码 证件种类 特殊说明 "
                               u"户口所在地 工作单位 接待单位 "
                               "入住时间 入住日期 预计离店 自何处来 往何处去 停留事由 职务 房态 "
                               "客房类型 房价种类 确认房价 "
                               "接待 散住 付费客人 证件照片 人像照片"_s;
        const QString counts =
            u" 总房间数 总床位数 售出房间数 售出床位数 客房住宿率 床位住宿率 备注"_s;
        const QList<std::pair<QString, QString>> expected = {
            {u"在住客人清单"_s, guests},
            {u"当日抵店客人清单"_s, guests},
            {u"当日离店客人清单"_s, guests + u" 结账房费 结账日期 结账时间"_s},
            {u"楼层销售日报表"_s, u"楼层号"_s + counts},
            {u"楼层销售统计表"_s, u"楼层号"_s + counts},
            {u"客房住宿率日报表"_s, u"房间类型"_s + counts},
            {u"信用押金收款明细单"_s,
             u"信用保证种类 支付方式 客人 日期 时间 信用金额 实收金额 备注 经办单位 经办人"_s},
            {u"客房状态明细单"_s, u"房间号 房态 楼层号 客房类型 床位数 住客数 住客姓名"_s},
            {u"客房住宿率统计表"_s, u"房间类型"_s + counts},
            {u"房费收入明细单"_s, u"费用名称 客人 房间号 日期 时间 金额 备注 经办单位 经办人"_s},
            {u"餐饮娱乐收入明细单"_s, u"费用名称 客人 房间号 日期 时间 结算地点 计量单位 数量 金额 "
                                      "经办单位 经办人 备注"_s},
            {u"宽带网络收入明细单"_s,
             u"费用名称 网络端口 客人 房间号 日期 时间 时长 基本金额 服务费 金额 经办单位 经办人 "
             "计费流量 备注"_s},
            {u"电话计费收入明细单"_s,
             u"费用名称 主叫电话 客人 房间号 日期 时间 时长 通达地区 被叫号码 话费金额 服务费 金额 "
             "结算地点 经办单位 经办人 备注"_s},
            {u"团队结算收入明细单"_s,
             u"团队编号 单位名称 客人 日期 时间 金额 备注 经办单位 经办人"_s},
            {u"客房服务收入明细单"_s, u"服务类别 客人 房间号 日期 时间 服务明细 计量单位 数量 金额 "
                                      "经办单位 经办人 服务说明 服务单号"_s},
            {u"房费收入统计表"_s, u"费用名称 金额"_s},
            {u"餐饮娱乐收入统计表"_s, u"费用名称 金额"_s},
            {u"信用押金收款统计表"_s, u"信用保证种类 实收金额 信用金额"_s},
            {u"宽带网络收入统计表"_s, u"费用名称 金额"_s},
            {u"电话计费收入统计表"_s, u"费用名称 金额"_s},
            {u"团队结算收入统计表"_s, u"团队编号 金额"_s},
            {u"客房服务收入统计表"_s, u"服务明细 金额"_s},
            {u"团队结算统计清单"_s, u"团队编号 单位名称 结算单数 结算金额 实收金额 应收金额"_s}};
        QCOMPARE(Reports().size(), size_t(23));
        for (size_t n = 0; n < 23; ++n) {
            QCOMPARE(Reports()[n].name, expected[qsizetype(n)].first);
            QCOMPARE(ReportTitles(Reports()[n]).join(u' '),
                     u"序号 "_s + expected[qsizetype(n)].second);
        }
    }

    void refusesAPeriodThatIsNone() {
        const auto row = [](const QString& name, QDate first, QDate last, const QString& words) {
            const Report made = Make(name, first, last);
            Check(qPrintable(name), Words(made.notice), words);
            Check(qPrintable(name), made.list.dataRows() == 0 || words.isEmpty(), true);
        };
        const QString wrong = u"时段错误: 统计报表起始日期不能大于终止日期"_s;
        const QString noDate = u"日期错误: 请输入正确的日期，如：2026-03-05"_s;
        for (const QString& name :
             {u"房费收入统计表"_s, u"客房住宿率统计表"_s, u"团队结算统计清单"_s}) {
            row(name, kToday, kToday.addDays(-1), wrong);
            row(name, kToday, kToday, {});
            row(name, QDate(), kToday, noDate);
            row(name, kToday, QDate(), noDate);
        }
        row(u"房费收入明细单"_s, kToday, kToday.addDays(-1),
            {}); // one day: the other isn't looked at
        row(u"房费收入明细单"_s, QDate(), kToday, noDate);
        row(u"在住客人清单"_s, QDate(), QDate(), {});
    }

    void listsGuests() {
        FillRooms({{u"101"_s, u"包房"_s, 1}, {u"102"_s, u"空房"_s}});
        SaveRmRec(u"101", u"<客人03><客人姓名>王三</客人姓名><房间号>101</房间号></客人03>"
                          "<客人01><客人姓名>王一</客人姓名><确认房价>258.00</确认房价></客人01>"
                          "<客人11><客人姓名>多余</客人姓名></客人11>");
        SaveRmRec(u"102", u"<客人10><客人姓名>李十</客人姓名></客人10>");
        int asked = 0;
        const Report made = Make(u"在住客人清单"_s, kToday, kToday, [&](int, int) {
            ++asked;
            return true;
        });
        QCOMPARE(made.caption, u"在住客人清单(2026-03-05 10:00)"_s);
        QCOMPARE(made.remark, QString());
        QVERIFY(asked >= 3); // the two rooms, and the room database beside them
        const int bed = made.list.column(u"客人姓名");
        QStringList guests;
        for (int row = 1; row < made.list.rows(); ++row)
            guests.append(made.list.text(row, 0) + made.list.text(row, bed));
        QVERIFY(guests.join(u' ').startsWith(u"1王一 2王三 3李十"_s));
        QCOMPARE(made.list.text(1, u"确认房价"), u"258.00"_s);
        const Report part = Make(u"在住客人清单"_s, kToday, kToday, [](int, int) { return false; });
        QCOMPARE(part.list.dataRows(), 0);
        QCOMPARE(part.remark, u"没有做完，只列出一部分"_s);

        SaveRecord(u"kszl\\rzjl\\260304.QVR", stay_register::kProject, u"1",
                   u"<客人姓名>昨日</客人姓名><入住日期>2026-03-04</入住日期>");
        SaveRecord(DepartureFile(u"2026-03-04"), departures::kProject, u"7",
                   u"<客人姓名>离人</客人姓名><结账时间>11:30</结账时间>");
        const Report came = Make(u"当日抵店客人清单"_s, kToday.addDays(-1));
        QCOMPARE(came.caption, u"当日抵店客人清单(2026-03-04)"_s);
        QVERIFY(Rows(came).startsWith(u"1|||昨日|"_s));
        const Report left = Make(u"当日离店客人清单"_s, kToday.addDays(-1));
        QVERIFY(Rows(left).startsWith(u"7|||离人|"_s));
        QVERIFY(Rows(left).endsWith(u"|11:30"_s));
        QCOMPARE(Make(u"当日离店客人清单"_s, kToday.addDays(-2)).list.dataRows(), 0);
    }

    void listsAJournalWithItsTotal() {
        Posting({}, {});
        SaveBills(kFolio, kDepositPosting,
                  u"<信用保证种类>现金押金</信用保证种类><支付方式>现金</支付方式>"
                  "<实收金额>1000.00</实收金额><客人>王一</客人>"_s);
        SaveBills(kFolio, kDepositPosting,
                  u"<信用保证种类>结账折扣</信用保证种类><支付方式>刷卡</支付方式>"
                  "<信用金额>0.50</信用金额>"_s);
        SaveBills(kFolio, kDepositPosting,
                  u"<信用保证种类>结账实收</信用保证种类><支付方式>刷卡</支付方式>"
                  "<实收金额>-200.25</实收金额>"_s);
        const Report deposits = Make(u"信用押金收款明细单"_s);
        QCOMPARE(deposits.caption, u"信用押金收款明细单(2026-03-05)"_s);
        QCOMPARE(Rows(deposits), u"1|现金押金|现金|王一||||1000.00|||\n"
                                 "2|结账折扣|刷卡||||0.50||||\n"
                                 "3|结账实收|刷卡|||||-200.25|||\n"
                                 "总计||||||0.50|799.75|||"_s);
        QCOMPARE(Figures(deposits.charts.value(0)),
                 u"各支付方式实收: 实收金额 现金=1000.00 刷卡=-200.25"_s);

        // Taken back: the day's list shows both, its total what is left.
        const Posted wrong = SaveBills(kFolio, kRoomPosting, Posting(u"加床"_s, u"80.00"_s));
        SaveBills(kFolio, kRoomPosting, Posting(u"2026-03-05房费"_s, u"258.00"_s));
        QCOMPARE(DelBills(kFolio, kRoomPosting, wrong.key), 0);
        const Report charges = Make(u"房费收入明细单"_s);
        QCOMPARE(charges.list.dataRows(), 4);
        QCOMPARE(charges.list.text(3, u"金额"), u"-80.00"_s);
        QCOMPARE(Row(charges.list, 4), u"总计|||||| 258.00|||"_s.remove(u' '));
        QCOMPARE(Figures(charges.charts.value(0)), u"各类金额: 金额 房费=258.00 加床=0.00"_s);
        QCOMPARE(Rows(Make(u"房费收入明细单"_s, kToday.addDays(-1))), u"总计||||||0.00|||"_s);
    }

    void keepsTodaysFiguresAndShowsThoseOfOtherDays() {
        FillRooms({{u"101"_s, u"包房"_s, 2},
                   {u"102"_s, {}},
                   {u"201"_s, u"散客"_s, 2, 4, u"2"_s, u"四人间"_s},
                   {u"202"_s, u"散客"_s, 0, 4, u"2"_s, u"四人间"_s},
                   {u"203"_s, u"空房"_s, 2, 2, u"2"_s}}); // a stale count
        SaveRmRec(u"101", u"<客人01><客人姓名>王一</客人姓名></客人01>");
        const Report types = Make(u"客房住宿率日报表"_s);
        QCOMPARE(types.caption, u"客房住宿率日报表(2026-03-05 10:00)"_s);
        QCOMPARE(Rows(types), u"1|标准双床房|3|6|1|2|33.3|33.3|\n2|四人间|2|8|0.5|2|25.0|25.0|\n"
                              "总计||5.0|14|1.5|4|30.0|28.6|"_s);
        QCOMPARE(Figures(types.charts.value(0)),
                 u"各房型售出房间: 总房间数 标准双床房=3.0 四人间=2.0 / 售出房间数 标准双床房=1.0 "
                 "四人间=0.5"_s);
        QCOMPARE(
            Figures(types.charts.value(1)),
            u"各房型住宿率: 客房住宿率 标准双床房=33.3 四人间=25.0 / 床位住宿率 标准双床房=33.3 "
            "四人间=25.0"_s);
        const Report floors = Make(u"楼层销售日报表"_s);
        QCOMPARE(Row(floors.list, 2), u"2|2|3|10|0.5|2|16.7|20.0|"_s);
        QVERIFY(floors.charts.value(0).title == u"各楼层售出房间");
        const Report rooms = Make(u"客房状态明细单"_s);
        QCOMPARE(Row(rooms.list, 1), u"1|101|包房|1|标准双床房|2|2|王一"_s);
        QCOMPARE(Row(rooms.list, 6), u"总计|||||14|4|"_s);
        QCOMPARE(Figures(rooms.charts.value(0)), u"各房态房间:  空房=2 散客=2 包房=1"_s);

        // Tomorrow it is what was kept; a report that was stopped, or could not be read, keeps nothing.
        FillRooms({{u"101"_s, u"空房"_s}, {u"102"_s, u"包房"_s, 1}});
        const auto stop = [](int, int) { return false; };
        QCOMPARE(Make(u"客房状态明细单"_s, kToday, kToday, stop).remark, u"没有做完，没有保存"_s);
        DbDeleteProject(RoomDatabaseFile(), room_record::kProject);
        QCOMPARE(Words(Make(u"客房住宿率日报表"_s).notice),
                 u"没有保存: 当日统计数据没有保存，请稍候再试！"_s);
        Clock::Advance(24 * 3600 * 1000LL);
        const Report later = Make(u"客房住宿率日报表"_s);
        QCOMPARE(later.caption, u"客房住宿率日报表(2026-03-05)"_s);
        QCOMPARE(Rows(later), Rows(types));
        QCOMPARE(Figures(later.charts.value(1)), Figures(types.charts.value(1)));
        QCOMPARE(Rows(Make(u"客房状态明细单"_s)), Rows(rooms));
        const Report never = Make(u"楼层销售日报表"_s, kToday.addDays(-1));
        QCOMPARE(never.list.dataRows(), 0);
        QCOMPARE(never.remark, u"当日没有做过日报"_s);
    }

    void addsUpSnapshotsOfAPeriod() {
        const QString total = u"<总计><总房间数>99</总房间数></总计>"_s;
        const QString key = u"房间类型"_s;
        WriteSnapshot(kToday.addDays(-3),
                      u"<1>"_s + CountedRow(key, u"双床"_s, 2, 4, u"1.5"_s, 3) + u"</1><2>"_s +
                          CountedRow(key, u"套房"_s, 1, 2, u"0"_s, 0) + u"</2>"_s + total);
        WriteSnapshot(kToday.addDays(-1),
                      u"<1>"_s + CountedRow(key, u"套房"_s, 1, 2, u"1"_s, 2) + u"</1><2>"_s +
                          CountedRow(key, u"双床"_s, 2, 4, u"0.3333"_s, 1) + u"</2>"_s + total);
        // Cut off in its second row, total and all: what is whole counts.
        WriteSnapshot(kToday, u"<1>"_s + CountedRow(key, u"双床"_s, 2, 4, u"2"_s, 4) +
                                  u"</1><2><房间类型>套房</房间类型><总房间"_s);
        QStringList days;
        const Report made =
            Make(u"客房住宿率统计表"_s, kToday.addDays(-3), kToday, [&](int n, int all) {
                days.append(u"%1/%2"_s.arg(n).arg(all));
                return true;
            });
        QCOMPARE(days.join(u' '), u"0/4 1/4 2/4 3/4"_s);
        QCOMPARE(made.caption, u"客房住宿率统计表(2026-03-02到2026-03-05)"_s);
        QCOMPARE(Rows(made), u"1|双床|6|12|3.8333|8|63.9|66.7|\n2|套房|2|4|1|2|50.0|50.0|\n"
                             "总计||8.0|16|4.8|10|60.0|62.5|"_s);
        QCOMPARE(made.remark, u"1 天没有日报，1 天日报不完整"_s);
        QCOMPARE(
            Figures(made.charts.value(0)),
            u"按日住宿率: 客房住宿率 03-02=50.0 03-04=44.4 03-05=100.0 / 床位住宿率 03-02=50.0 "
            "03-04=50.0 03-05=100.0"_s);
        QCOMPARE(made.charts.value(1).title, u"各房型售出间夜"_s);

        const Report part = Make(u"客房住宿率统计表"_s, kToday.addDays(-3), kToday,
                                 [](int n, int) { return n < 1; });
        QCOMPARE(part.caption, u"客房住宿率统计表(处理2026-03-03)"_s);
        QCOMPARE(Row(part.list, 3), u"总计||3.0|6|1.5|3|50.0|50.0|"_s);
        QCOMPARE(part.remark, u"没有做完，只统计到 2026-03-03 之前"_s);
        QCOMPARE(Rows(Make(u"楼层销售统计表"_s)), u"总计||0.0|0|0.0|0|||"_s);
    }

    void addsUpJournalsOfAPeriod() {
        WriteJournal(kFoodPosting, kToday.addDays(-2),
                     {Posting(u"早餐"_s, u"20.00"_s), Posting(u"午餐"_s, u"36.105"_s),
                      Posting({}, u"500"_s), Posting(u"早餐"_s, u"0.005"_s)});
        WriteJournal(kFoodPosting, kToday,
                     {Posting(u"午餐"_s, u"-36.10"_s), Posting(u"早餐"_s, {})});
        const Report food = Make(u"餐饮娱乐收入统计表"_s, kToday.addDays(-2), kToday);
        QCOMPARE(Rows(food), u"1|早餐|20.01\n2|午餐|0.01\n总计||20.02"_s);
        QCOMPARE(Figures(food.charts.value(0)),
                 u"按日金额: 早餐 03-03=20.01 03-04=0.00 03-05=0.00 / 午餐 03-03=36.11 03-04=0.00 "
                 "03-05=-36.10"_s);
        QCOMPARE(Figures(food.charts.value(1)), u"各类金额: 金额 早餐=20.01 午餐=0.01"_s);

        const auto deposit = [](const QString& kind, const QString& way, const QString& amounts) {
            return Field(u"信用保证种类", kind) + Field(u"支付方式", way) + amounts;
        };
        WriteJournal(kDepositPosting, kToday,
                     {deposit(u"现金押金"_s, u"现金"_s, u"<实收金额>500</实收金额>"_s),
                      deposit(u"限额担保"_s, u"刷卡"_s, u"<信用金额>3000</信用金额>"_s),
                      deposit(u"现金押金"_s, u"刷卡"_s, u"<实收金额>70.50</实收金额>"_s)});
        const Report deposits = Make(u"信用押金收款统计表"_s);
        QCOMPARE(Rows(deposits),
                 u"1|现金押金|570.50|0.00\n2|限额担保|0.00|3000.00\n总计||570.50|3000.00"_s);
        QCOMPARE(Figures(deposits.charts.value(0)),
                 u"各支付方式实收: 实收金额 现金=500.00 刷卡=70.50"_s);
        QVERIFY(deposits.charts.value(0).kind == ChartKind::Pie);

        const auto team = [](const QString& number, const QString& name, const QString& amount) {
            return Field(u"团队编号", number) + Field(u"单位名称", name) + Field(u"金额", amount);
        };
        WriteJournal(kTeamPosting, kToday.addDays(-1),
                     {team(u"00000007"_s, u"远方旅行社"_s, u"1200"_s),
                      team(u"00000008"_s, u"城南公司"_s, u"300.40"_s),
                      team(u"00000007"_s, u"改名旅行社"_s, u"800.10"_s)});
        const Report teams = Make(u"团队结算统计清单"_s, kToday.addDays(-1), kToday);
        QCOMPARE(Rows(teams), u"1|00000007|远方旅行社|2|2000.10|0.00|0.00\n"
                              "2|00000008|城南公司|1|300.40|0.00|0.00\n"
                              "总计|||3|2300.50|0.00|0.00"_s);
        QCOMPARE(Figures(teams.charts.value(1)),
                 u"各类金额: 结算金额 远方旅行社=2000.10 城南公司=300.40"_s);
        QCOMPARE(Rows(Make(u"团队结算收入统计表"_s, kToday.addDays(-1), kToday)),
                 u"1|00000007|2000.10\n2|00000008|300.40\n总计||2300.50"_s);
        WriteJournal(
            kServicePosting, kToday,
            {Field(u"服务类别", u"洗衣"_s) + Field(u"服务明细", u"衬衫"_s) + Posting({}, u"15"_s)});
        QCOMPARE(Rows(Make(u"客房服务收入统计表"_s)), u"1|衬衫|15.00\n总计||15.00"_s);
    }

    // Beyond six classes a day is shown by its greatest five and what is left.
    void putsSmallClassesTogether() {
        QStringList postings;
        for (int n = 1; n <= 14; ++n)
            postings.append(Posting(u"费用%1"_s.arg(n, 2, 10, QChar(u'0')), QString::number(n)));
        WriteJournal(kRoomPosting, kToday, postings);
        const Report made = Make(u"房费收入统计表"_s);
        const Chart byDay = made.charts.value(0);
        QCOMPARE(byDay.series.size(), 6);
        QCOMPARE(byDay.series[0].name, u"费用14"_s);
        QCOMPARE(byDay.series[5].name, u"其余9项"_s);
        QCOMPARE(byDay.series[5].values, QList<qint64>{4500});
        const Chart byClass = made.charts.value(1);
        QCOMPARE(byClass.labels.size(), 12);
        QCOMPARE(byClass.labels.last(), u"其余3项"_s);
        QCOMPARE(byClass.series[0].values.last(), 600);
    }

    // Reckoned once more with plain whole numbers, over random journals and snapshots.
    void sumsOfRandomPeriods() {
        std::mt19937 chance(5);
        for (int round = 0; round < 40; ++round) {
            const int days = 1 + int(chance() % 5);
            const QDate first = kToday.addDays(-5 - round * 6);
            QMap<QString, qint64> fees;
            QMap<QString, std::array<qint64, 4>> types;
            std::array<qint64, 4> all{};
            qint64 whole = 0;
            for (int day = 0; day < days; ++day) {
                QStringList postings;
                for (int n = int(chance() % 30); n > 0; --n) {
                    const QString name = chance() % 9 ? u"费%1"_s.arg(chance() % 7) : QString();
                    const qint64 units = qint64(chance() % 2000000) - 700000;
                    postings.append(
                        Posting(name, u"%1%2.%3"_s.arg(units < 0 ? u"-"_s : QString())
                                          .arg(std::abs(units) / 10000)
                                          .arg(std::abs(units) % 10000, 4, 10, QChar(u'0'))));
                    if (!name.isEmpty()) {
                        fees[name] += units;
                        whole += units;
                    }
                }
                WriteJournal(kRoomPosting, first.addDays(day), postings);
                QString snapshot;
                for (int n = 0; n < 4; ++n) {
                    const QString name = u"型%1"_s.arg(n);
                    const int rooms = int(chance() % 40);
                    const int halves = rooms == 0 ? 0 : int(chance() % (2 * rooms + 1));
                    const int beds = rooms * int(chance() % 3);
                    const int sold = beds == 0 ? 0 : int(chance() % (beds + 1));
                    const QString soldText =
                        halves % 2 ? u"%1.5"_s.arg(halves / 2) : QString::number(halves / 2);
                    snapshot += u"<%1>%2</%1>"_s.arg(n + 1).arg(
                        CountedRow(u"房间类型"_s, name, rooms, beds, soldText, sold));
                    const std::array<qint64, 4> counts = {2 * rooms, beds, halves, sold};
                    for (size_t i = 0; i < 4; ++i) {
                        types[name][i] += counts[i];
                        all[i] += counts[i];
                    }
                }
                WriteSnapshot(first.addDays(day), snapshot + u"<总计></总计>"_s);
            }
            const auto rate = [](qint64 sold, qint64 of) {
                const qint64 tenths = of == 0 ? 0 : (sold * 2000 + of) / (2 * of);
                return of == 0 ? QString() : u"%1.%2"_s.arg(tenths / 10).arg(tenths % 10);
            };
            const Report sums = Make(u"房费收入统计表"_s, first, first.addDays(days - 1));
            QCOMPARE(sums.list.dataRows(), fees.size() + 1);
            for (int row = 1; row < sums.list.rows() - 1; ++row)
                QCOMPARE(sums.list.text(row, 2), Cents(fees.value(sums.list.text(row, 1))));
            // The total is that of the rows as they stand, to the cent.
            qint64 shown = 0;
            for (const qint64 fee : fees)
                shown += qRound64(Cents(fee).toDouble() * 100);
            QCOMPARE(sums.list.text(sums.list.rows() - 1, 2), Cents(shown * 100));
            QVERIFY(std::abs(shown * 100 - whole) <= 50 * fees.size());

            const Report house = Make(u"客房住宿率统计表"_s, first, first.addDays(days - 1));
            for (int row = 1; row <= 4; ++row) {
                const auto counts = types.value(house.list.text(row, 1));
                QCOMPARE(house.list.text(row, u"客房住宿率"), rate(counts[2], counts[0]));
                QCOMPARE(house.list.text(row, u"床位住宿率"), rate(counts[3], counts[1]));
                QCOMPARE(house.list.text(row, u"总房间数"), QString::number(counts[0] / 2));
            }
            QCOMPARE(house.list.text(5, u"客房住宿率"), rate(all[2], all[0]));
            QCOMPARE(house.list.text(5, u"床位住宿率"), rate(all[3], all[1]));
        }
    }

    // Ten years by months; a year by days; each label once.
    void stepsOfAPeriod() {
        const auto row = [](const char* name, QDate first, QDate last, int count,
                            const QString& ends) {
            const PeriodSteps steps({first, last});
            Check(name, int(steps.count()), count);
            Check(name, steps.labels().first() + u' ' + steps.labels().last(), ends);
            Check(name, int(steps.stepOf(first)), 0);
            Check(name, int(steps.stepOf(last)), count - 1);
        };
        row("a day", kToday, kToday, 1, u"03-05 03-05"_s);
        row("a leap year", {2024, 1, 1}, {2024, 12, 31}, 366, u"01-01 12-31"_s);
        row("a day more", {2024, 1, 1}, {2025, 1, 1}, 13, u"2024-01 2025-01"_s);
        row("ten years", {2016, 3, 31}, {2026, 3, 1}, 121, u"2016-03 2026-03"_s);
        WriteJournal(kFoodPosting, {2019, 2, 28}, {Posting(u"早餐"_s, u"7"_s)});
        const Report made = Make(u"餐饮娱乐收入统计表"_s, {2016, 3, 31}, {2026, 3, 1});
        QCOMPARE(Rows(made), u"1|早餐|7.00\n总计||7.00"_s);
        QCOMPARE(made.charts.value(0).series.value(0).values.indexOf(700), 35);
        QCOMPARE(FeeClass(u"2026-03-05房费"_s), u"房费"_s);
        for (const QString& name : {u"2026-13-05房费"_s, u"2026-03-05"_s, u"结账房费"_s})
            QCOMPARE(FeeClass(name), name);
    }

    void takesSoManyPostingsOfADay() {
        QString records;
        for (int n = 1; n <= kJournalRecordLimit + 1; ++n)
            records += u"<%1><费用名称>早餐</费用名称><金额>1.00</金额></%1>\r\n"_s.arg(n);
        const QString project = PostingProject(kFoodPosting);
        QCOMPARE(SaveProject(JournalFile(project, kToday), project, records), 0);
        QCOMPARE(Rows(Make(u"餐饮娱乐收入统计表"_s)), u"1|早餐|20000.00\n总计||20000.00"_s);
        const Report list = Make(u"餐饮娱乐收入明细单"_s);
        QCOMPARE(list.list.dataRows(), 10001);
        QCOMPARE(list.remark, u"只列出前 10000 条"_s);
        QCOMPARE(list.list.text(10001, u"金额"), u"10000.00"_s);
        int told = 0;
        const Report part =
            Make(u"餐饮娱乐收入明细单"_s, kToday, kToday, [&](int, int) { return ++told < 3; });
        QCOMPARE(part.list.dataRows(), 61);
        QCOMPARE(part.remark, u"没有做完，只列出一部分"_s);
    }

    void tellsWhatCouldNotBeRead() {
        WriteJournal(kFoodPosting, kToday, {Posting(u"早餐"_s, u"7"_s)});
        hotel_->stopServer();
        QCOMPARE(Make(u"餐饮娱乐收入统计表"_s, kToday.addDays(-1), kToday).remark,
                 u"2 天读取失败"_s);
        QCOMPARE(Make(u"客房住宿率统计表"_s).remark, u"1 天读取失败"_s);
        for (const QString& name : {u"餐饮娱乐收入明细单"_s, u"当日抵店客人清单"_s})
            QCOMPARE(Make(name).remark, u"读取失败，请稍候再试"_s);
        QCOMPARE(Make(u"楼层销售日报表"_s, kToday.addDays(-1)).remark, u"读取失败，请稍候再试"_s);
        QVERIFY(Make(u"楼层销售日报表"_s).notice.has_value());
    }
};

HOTEL_TEST(ReportsTest)

#include "test_reports.moc"
