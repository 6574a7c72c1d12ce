#include "personnel/staff/employee_print.h"

#include "link/records.h"
#include "personnel/staff/employee_records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kFormFile = u"员工信息打印格式.qvr";
constexpr QStringView kForm = u"员工信息";

// Signs of Code 39 with their nine elements, five bars and the four gaps between them.
struct Sign {
    QStringView sign;
    QStringView elements;
};
constexpr Sign kSigns[] = {
    {u"0", u"nnnwwnwnn"}, {u"1", u"wnnwnnnnw"}, {u"2", u"nnwwnnnnw"}, {u"3", u"wnwwnnnnn"},
    {u"4", u"nnnwwnnnw"}, {u"5", u"wnnwwnnnn"}, {u"6", u"nnwwwnnnn"}, {u"7", u"nnnwnnwnw"},
    {u"8", u"wnnwnnwnn"}, {u"9", u"nnwwnnwnn"}, {u"A", u"wnnnnwnnw"}, {u"B", u"nnwnnwnnw"},
    {u"C", u"wnwnnwnnn"}, {u"D", u"nnnnwwnnw"}, {u"E", u"wnnnwwnnn"}, {u"F", u"nnwnwwnnn"},
    {u"G", u"nnnnnwwnw"}, {u"H", u"wnnnnwwnn"}, {u"I", u"nnwnnwwnn"}, {u"J", u"nnnnwwwnn"},
    {u"K", u"wnnnnnnww"}, {u"L", u"nnwnnnnww"}, {u"M", u"wnwnnnnwn"}, {u"N", u"nnnnwnnww"},
    {u"O", u"wnnnwnnwn"}, {u"P", u"nnwnwnnwn"}, {u"Q", u"nnnnnnwww"}, {u"R", u"wnnnnnwwn"},
    {u"S", u"nnwnnnwwn"}, {u"T", u"nnnnwnwwn"}, {u"U", u"wwnnnnnnw"}, {u"V", u"nwwnnnnnw"},
    {u"W", u"wwwnnnnnn"}, {u"X", u"nwnnwnnnw"}, {u"Y", u"wwnnwnnnn"}, {u"Z", u"nwwnwnnnn"},
    {u"-", u"nwnnnnwnw"}, {u".", u"wwnnnnwnn"}, {u" ", u"nwwnnnwnn"}, {u"*", u"nwnnwnwnn"},
};

// The card, in centimetres.
constexpr double kCardWidth = 8.56;
constexpr double kCardHeight = 5.4;
constexpr double kMargin = 0.4;
constexpr double kNarrow = 0.033;
constexpr double kWide = 2.5 * kNarrow;
constexpr double kBarsTop = 2.6;
constexpr double kBarsHeight = 1.2;
constexpr int kBlack = 0;

QStringView ElementsOf(QChar sign) {
    for (const Sign& known : kSigns) {
        if (known.sign.front() == sign.toUpper())
            return known.elements;
    }
    return {};
}

double WidthOf(const QString& elements) {
    return kNarrow * double(elements.count(u'n')) + kWide * double(elements.count(u'w'));
}

void PrintBars(const QString& elements, double x, double y) {
    bool bar = true;
    for (const QChar element : elements) {
        const double width = element == u'w' ? kWide : kNarrow;
        if (bar)
            PrintFilledBox(x, y, x + width, y + kBarsHeight, kBlack);
        x += width;
        bar = !bar;
    }
}

// The blocks of the form one under another, on a further page where one doesn't fit any more.
class Sheets {
public:
    explicit Sheets(const QString& format) : format_(format) { StartPage(); }
    ~Sheets() { EndPage(); }
    Sheets(const Sheets&) = delete;
    Sheets& operator=(const Sheets&) = delete;

    void add(QStringView block, QStringView values) {
        if (y_ > 0 && y_ + FormBlockHeight(format_, block) > PrintableHeightCm()) {
            EndPage();
            StartPage();
            y_ = 0;
        }
        y_ += PrintFormBlockWithData(format_, block, 0, y_,
                                     CellsByField(GetTag(format_, block), values));
    }

private:
    QString format_;
    double y_ = 0;
};

// An entry of a list in one line: its items as they are filled in.
QString InOneLine(const EmployeeListLayout& list, const QString& entry) {
    QStringList items;
    for (const QStringView column : list.columns) {
        if (const QString value = EmployeeValue(entry, column); !value.isEmpty())
            items.append(column + u"："_s + value);
    }
    return items.join(u"，"_s);
}

} // namespace

QMap<int, QString> CellsByField(QStringView block, QStringView values) {
    QMap<int, QString> cells;
    const QList<FormCell> form = ReadFormCells(block, {});
    for (int n = 0; n < form.size(); ++n) {
        const QStringView text = form[n].text;
        if (text.size() < 3 || !text.startsWith(u'[') || !text.endsWith(u']'))
            continue;
        const QString value = EmployeeValue(values, text.sliced(1, text.size() - 2));
        cells.insert(n, value.isEmpty() ? u" "_s : value);
    }
    return cells;
}

void PrintEmployee(const QString& record) {
    const QString file = Param(u"DygsLj") + kFormFile;
    const PaperFormat paper = ReadPaperFormat(ReadProject(file, tag::kPaper));
    const QString format = ReadProject(file, kForm);
    if (format.isEmpty())
        return MsgBox(u"没有找到打印格式："_s + file, u"请注意"_s);
    const QString values =
        record + u"<单位>%1</单位><日期>%2</日期><操作员>%3</操作员>"_s.arg(
                     Param(u"Yhdwmc"), Clock::DateText(), CurrentSession().userName);
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    {
        Sheets sheets(format);
        for (const QStringView block : {tag::kFormTitle, tag::kFormHead, tag::kFormBody})
            sheets.add(block, values);
        for (const EmployeeListLayout& list : EmployeeLists()) {
            for (const QString& entry : EmployeeEntries(record, list.field))
                sheets.add(tag::kFormBody1, u"<清单>%1</清单><内容>%2</内容>"_s.arg(
                                                list.field, InOneLine(list, entry)));
        }
        sheets.add(tag::kFormFoot, values);
    }
    PreviewPrintJob();
}

QString Code39(QStringView text) {
    QString elements;
    for (const QChar sign : u'*' + text.toString() + u'*') {
        const QStringView own = ElementsOf(sign);
        if (own.isEmpty() || (sign == u'*' && text.contains(u'*')))
            return {};
        if (!elements.isEmpty())
            elements += u'n';
        elements += own;
    }
    return elements;
}

void PrintBarCodeCard(const QString& record) {
    const QString number = EmployeeValue(record, kNumber);
    const QString elements = Code39(number);
    if (elements.isEmpty() || WidthOf(elements) > kCardWidth - 2 * kMargin)
        return MsgBox(u"编号只能是字母、数字，并且不能太长，才能打印条码！"_s, u"请注意"_s);
    OpenPrintJob(kCardWidth, kCardHeight);
    SetPrintMargins(kMargin, kMargin, kMargin, kMargin);
    StartPage();
    const double width = PrintableWidthCm();
    PrintTextCentre(0, 0, Param(u"Yhdwmc"), {u"黑体"_s, 11, true}, width);
    PrintTextCentre(0, 0.8, EmployeeValue(record, kName), {u"黑体"_s, 16, true}, width);
    PrintTextCentre(0, 1.7,
                    EmployeeValue(record, kDepartment) + u"  "_s + EmployeeValue(record, kPost),
                    {u"宋体"_s, 10, false}, width);
    PrintBars(elements, (width - WidthOf(elements)) / 2, kBarsTop);
    PrintTextCentre(0, kBarsTop + kBarsHeight + 0.1, number, {u"黑体"_s, 10, false}, width);
    EndPage();
    PreviewPrintJob();
}

} // namespace hotel
