#include "app/demo/made_up_postings.h"

#include <algorithm>

namespace hotel {

QList<DemoPosting> PostingMaker::of(const DemoStay& stay) {
    made_.clear();
    const int chance = stay.custom->signs ? 16 : 34;
    for (QDate day = stay.arrives.date(); day < stay.leaves.date(); day = day.addDays(1)) {
        for (qsizetype room = 0; room < stay.party.rooms.size(); ++room) {
            while (dice_.chance(chance))
                postTo(stay, int(room), day);
        }
        if (stay.isSentBy(Sends::TourGroups))
            dinnerFor(stay, day);
    }
    if (stay.nights() >= 4 && !stay.custom->signs && stay.custom->status != u"免费")
        payMore(stay);
    return made_;
}

// Whoever stays over the day has lunch here, too; who has just come is not hungry at once.
QDateTime PostingMaker::mealtime(const DemoStay& stay, QDate day) {
    if (day > stay.arrives.date() && dice_.chance(35))
        return QDateTime(day, QTime(11, 45)).addSecs(60 * dice_.between(0, 110));
    const QDateTime evening = QDateTime(day, QTime(17, 30)).addSecs(60 * dice_.between(0, 270));
    const QDateTime settled = stay.arrives.addSecs(60 * dice_.between(25, 65));
    return std::max(evening, settled);
}

void PostingMaker::postTo(const DemoStay& stay, int room, QDate day) {
    const Drawn what = draw();
    made_.append(posting(stay, room, mealtime(stay, day), *what.article, what.number, what.price));
}

PostingMaker::Drawn PostingMaker::draw() {
    const DemoArticle& article =
        dice_.weigh(DemoArticles(), [](const DemoArticle& entry) { return entry.weight; });
    const int number = dice_.between(1, article.most);
    return {&article, number, dice_.between(article.leastYuan, article.mostYuan)};
}

DemoPosting PostingMaker::one(const DemoStay& stay, int room, const QDateTime& at) {
    const Drawn what = draw();
    return posting(stay, room, at, *what.article, what.number, what.price);
}

DemoPosting PostingMaker::posting(const DemoStay& stay, int room, const QDateTime& at,
                                  const DemoArticle& article, int number, int price,
                                  QStringView note) {
    QList<std::pair<QStringView, QStringView>> fields;
    const QStringView pieces = words_.keep(QString::number(number));
    const QStringView amount = words_.yuan(number * price);
    switch (article.kind) {
    case kTelephonePosting:
        fields = {{u"费用名称", article.name},
                  {u"结算地点", article.detail},
                  {u"时长", pieces},
                  {u"通达地区", stay.party.from},
                  {u"被叫号码", words_.keep(u"138%1"_s.arg(dice_.between(10'000'000, 99'999'999)))},
                  {u"话费金额", words_.tenths(number * price)},
                  {u"服务费", u"0.20"}};
        break;
    case kBroadbandPosting:
        fields = {{u"费用名称", article.name}, {u"基本金额", amount}, {u"服务费", u"0.00"}};
        break;
    case kServicePosting:
        fields = {{u"服务类别", article.name},
                  {u"服务明细", article.detail},
                  {u"计量单位", article.unit},
                  {u"数量", pieces},
                  {u"金额", amount}};
        break;
    case kFoodPosting:
        fields = {{u"费用名称", article.name}, {u"结算地点", article.detail},
                  {u"计量单位", article.unit}, {u"数量", pieces},
                  {u"金额", amount},           {u"备注", note}};
        break;
    default:
        fields = {{u"费用名称", article.name}, {u"金额", amount}};
        break;
    }
    const bool mistaken = article.kind == kFoodPosting && dice_.chance(3);
    return {words_.moment(at, openingDay_),
            stay.party.rooms[room].number,
            article.kind,
            fields,
            stay.party.rooms[room].guests.first().name,
            mistaken ? words_.yuan(number * price * 10) : QStringView()};
}

void PostingMaker::dinnerFor(const DemoStay& stay, QDate day) {
    const int tables = int(stay.party.rooms.size() * 2 + 7) / 8;
    const int price = 10 * dice_.between(58, 98);
    made_.append(posting(stay, 0, mealtime(stay, day),
                         {kFoodPosting, 0, u"宴席", u"宴会厅", u"桌", 0, 0, 0}, tables, price,
                         u"团餐"));
}

// A long stay pays in between.
void PostingMaker::payMore(const DemoStay& stay) {
    const QDateTime at(stay.arrives.date().addDays(2), QTime(18, dice_.between(0, 50)));
    made_.append({words_.moment(at, openingDay_),
                  stay.party.rooms.first().number,
                  kDepositPosting,
                  {{u"信用保证种类", u"实收补款"},
                   {u"支付方式", dice_.chance(50) ? u"微信支付" : u"银行卡"},
                   {u"实收金额", words_.yuan(100 * dice_.between(3, 9))},
                   {u"备注", u"续交"}},
                  stay.party.rooms.first().guests.first().name});
}

} // namespace hotel
