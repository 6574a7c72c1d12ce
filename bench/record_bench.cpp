// The record layer by the side of plain passes over the same text.

#include "bench/ratio.h"

#include "record/code_page.h"
#include "record/conditions.h"
#include "record/record_text.h"
#include "record/text_table.h"
#include "tests/select_records.h"

#include <algorithm>
#include <vector>

using namespace hotel;
using namespace hotel::bench;

namespace {

// A list of guests as the server sends it: one field a line, records in the fields.
QString GuestList(int guests) {
    QString text;
    for (int i = 1; i <= guests; ++i)
        text += u"<%1><姓名>王小明</姓名><房间号>%2</房间号><金额>%3.50</金额></%1>\r\n"_s.arg(i)
                    .arg(100 + i % 900)
                    .arg(i * 7 % 1000);
    return text;
}

QString RepeatedFields(int fields) {
    QString text;
    for (int i = 1; i <= fields; ++i)
        text += u"<记录>第%1条</记录>\r\n"_s.arg(i);
    return text;
}

void TagAtEnd() {
    QString text = GuestList(30000);
    text.truncate(1'900'000 - 20);
    text = SetTag(text, u"合计金额", u"1234.50");
    const QString closing = u"</合计金额>"_s;
    PrintRatio("get_tag_at_end",
               ProcessorRatio([&] { return GetTag(text, u"合计金额"); },
                              [&] { return text.indexOf(closing); }),
               2.0);
    PrintRatio("get_tag_absent",
               ProcessorRatio([&] { return GetTag(text, u"折扣"); },
                              [&] { return text.indexOf(u"</折扣>"_s); }),
               2.0);
}

// Cost a field of a walk over 30000 of them by that of one over 300.
template<typename Step>
void Walk(const char* name, const QString& longText, const QString& shortText, Step step) {
    const auto walk = [step](const QString& text) {
        qint16 n = 1;
        while (!step(text, n).isEmpty())
            ++n;
        return n;
    };
    PrintRatio(
        name,
        ProcessorRatio([&] { return walk(longText); }, [&] { return walk(shortText); }, 30000, 300),
        1.3);
}

void Walks() {
    const QString longText = RepeatedFields(30000);
    const QString shortText = RepeatedFields(300);
    Walk("walk_get_tag_n", longText, shortText,
         [](const QString& text, qint16 n) { return GetTagN(text, u"记录", n); });
    Walk("walk_tag_name", longText, shortText,
         [](const QString& text, qint16 n) { return TagName(text, n); });
    Walk("walk_get_line", longText, shortText,
         [](const QString& text, qint16 n) { return GetLine(text, n); });
}

void Wire() {
    const QString text = GuestList(20000);
    const QByteArray utf8 = text.toUtf8();
    const QByteArray wire = EncodeForWire(text);
    PrintRatio("encode_for_wire_by_utf8",
               ProcessorRatio([&] { return EncodeForWire(text); }, [&] { return text.toUtf8(); }),
               2.0);
    PrintRatio("wire_decoder_by_utf8",
               ProcessorRatio([&] { return WireDecoder().decode(wire); },
                              [&] { return QString::fromUtf8(utf8); }),
               2.0);
    PrintRatio("decode_request_by_utf8",
               ProcessorRatio([&] { return DecodeRequest(wire); },
                              [&] { return QString::fromUtf8(utf8); }),
               2.0);
}

// Searches among records by the side of one pass for a text that isn't there.
void Selections() {
    const QString project = GuestList(20000);
    const auto ratio = [&project](QStringView object, QStringView op, QStringView target) {
        QString conditions;
        int number = 0;
        AddQueryCondition(conditions, u"", object, op, target, number);
        return ProcessorRatio([&] { return SelectRecords(project, conditions); },
                              [&] { return project.indexOf(u"</房间号 />"_s); });
    };
    PrintRatio("select_greatest_name", ratio(tag::kRecordName, u"数值最大", u""), 10.0);
    PrintRatio("select_by_field", ratio(u"房间号", u"等于", u"505"), 10.0);
}

// Sorting a list of 30000 rows by the side of sorting the bare texts of the column.
void Sorting() {
    TextTable table(QStringList(20, u"列"_s));
    std::vector<QString> cells;
    for (int i = 0; i < 30000; ++i) {
        cells.push_back(QString::number(i * 7919 % 30011));
        table.addRow(QStringList(20, cells.back()));
    }
    const auto sortBare = [&cells] {
        std::vector<QString> copy = cells;
        std::stable_sort(copy.begin(), copy.end());
        return copy.size();
    };
    const auto sortTable = [&table](TextTable::Order order) {
        return [&table, order] {
            TextTable copy = table;
            copy.sort(0, order);
            return copy.rows();
        };
    };
    PrintRatio("sort_text", ProcessorRatio(sortTable(TextTable::Order::Text), sortBare), 3.0);
    PrintRatio("sort_natural", ProcessorRatio(sortTable(TextTable::Order::Natural), sortBare), 3.0);
}

} // namespace

int main() {
    TagAtEnd();
    Walks();
    Wire();
    Selections();
    Sorting();
}
