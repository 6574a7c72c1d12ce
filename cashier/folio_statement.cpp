#include "cashier/folio_statement.h"

#include <algorithm>

#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "session/parameters.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

// What a kind's list names by other words than the statement.
constexpr QStringView kNames[] = {u"费用名称", u"信用保证种类", u"服务类别"};
constexpr QStringView kNotes[] = {u"支付方式", u"服务明细", u"结算地点",
                                  u"通达地区", u"备注",     u"服务说明"};

struct Sums {
    Money charges;
    Money received;
    Money credit;

    Sums& operator+=(const Sums& more) {
        charges += more.charges;
        received += more.received;
        credit += more.credit;
        return *this;
    }
    QStringList cells() const { return {charges.text(), received.text(), credit.text()}; }
};

struct Line {
    QString date;
    QString time;
    QStringList words; // 项目 说明 客人 房间号
    Sums sums;
};

QString FirstOf(const TextTable& list, int row, std::span<const QStringView> columns) {
    for (const QStringView column : columns) {
        if (list.column(column) >= 0)
            return list.text(row, column);
    }
    return {};
}

QString AllOf(const TextTable& list, int row, std::span<const QStringView> columns) {
    QStringList words;
    for (const QStringView column : columns) {
        const QString word = list.text(row, column).trimmed();
        if (!word.isEmpty())
            words.append(word);
    }
    return words.join(u' ');
}

Line LineOf(const TextTable& list, int row) {
    const auto amount = [&](QStringView column) { return Money::FromText(list.text(row, column)); };
    return {list.text(row, posting::kDate),
            list.text(row, posting::kTime),
            {FirstOf(list, row, kNames), AllOf(list, row, kNotes), list.text(row, posting::kGuest),
             list.text(row, posting::kRoom)},
            {amount(posting::kAmount), amount(posting::kReceived), amount(posting::kCredit)}};
}

QList<Line> LinesOf(const QList<PostingsOfKind>& postings) {
    QList<Line> lines;
    for (const PostingsOfKind& kind : postings) {
        for (int row = 1; row < kind.list.rows(); ++row)
            lines.append(LineOf(kind.list, row));
    }
    std::ranges::stable_sort(lines, {},
                             [](const Line& line) { return line.date + u' ' + line.time; });
    return lines;
}

QStringList SumRow(const QString& words, const Sums& sums) {
    return QStringList{{}, {}, words, {}, {}, {}} + sums.cells();
}

// An amount that is nothing is left out, but for the charge of a posting that has no other.
QStringList RowOf(const Line& line) {
    QStringList amounts = line.sums.cells();
    const bool isNothing = amounts.count(u"0.00"_s) == amounts.size();
    std::ranges::replace(amounts, u"0.00"_s, QString());
    if (isNothing)
        amounts.first() = u"0.00"_s;
    return QStringList{line.date, line.time} + line.words + amounts;
}

} // namespace

TextTable FolioStatement(const QList<PostingsOfKind>& postings) {
    TextTable statement({u"日期"_s, u"时间"_s, u"项目"_s, u"说明"_s, u"客人"_s, u"房间号"_s,
                         u"消费"_s, u"实收"_s, u"信用"_s});
    const QList<Line> lines = LinesOf(postings);
    Sums all;
    Sums day;
    for (int n = 0; n < lines.size(); ++n) {
        statement.addRow(RowOf(lines[n]));
        day += lines[n].sums;
        if (n + 1 < lines.size() && lines[n + 1].date == lines[n].date)
            continue;
        statement.addRow(SumRow(lines[n].date + u" 小计"_s, day));
        all += day;
        day = {};
    }
    statement.addRow(SumRow(u"合计"_s, all));
    statement.addRow({{},
                      {},
                      u"余额"_s,
                      u"实收 + 信用 - 消费"_s,
                      {},
                      {},
                      {},
                      {},
                      (all.received + all.credit - all.charges).text()});
    return statement;
}

void PrintFolioStatement(const QString& folio, const QString& guest,
                         const QList<PostingsOfKind>& postings) {
    ListPrintSettings settings;
    settings.titleFont = {u"黑体"_s, 14, false};
    settings.table.bodyFont = {u"宋体"_s, 9, false};
    settings.foot = u"客人签名：＿＿＿＿＿＿＿＿　　"_s;
    settings.table.alignments = {{}, {}, {}, {}, {}, {}, u"->"_s, u"->"_s, u"->"_s};
    settings.head =
        Param(u"Yhdwmc") + u",打印时间："_s + Clock::Now().toString(u"yyyy-MM-dd HH:mm");
    PrintList(FolioStatement(postings),
              u"宾客账单　结账号："_s + folio +
                  (guest.isEmpty() ? QString() : u"　客人："_s + guest),
              settings);
}

} // namespace hotel
