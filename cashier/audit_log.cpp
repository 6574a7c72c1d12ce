#include "cashier/audit_log.h"

#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/parameters.h"
#include "tools/lists/list_export.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_script.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr double kUsualPitch = 5; // millimetres
constexpr double kMillimetresPerCm = 10;

struct LogStyle {
    PrintFont font = kDefaultPrintFont;
    double left = 0; // all in centimetres
    double top = 0;
    double pitch = 0;
};

LogStyle StyleOf(QStringView format) {
    const auto number = [format](QStringView tag) { return LeadingNumber(GetTag(format, tag)); };
    LogStyle style;
    if (const QString name = GetTag(format, u"字体"); !name.isEmpty())
        style.font.name = name;
    if (const double size = number(u"字号"); size > 0)
        style.font.size = size;
    style.font.bold = number(u"粗体") != 0;
    style.left = number(u"左边界");
    style.top = number(u"上边界");
    const double pitch = number(u"行距");
    style.pitch = (pitch == 0 ? kUsualPitch : pitch) / kMillimetresPerCm;
    return style;
}

QStringList PrintedLines(const QStringList& log, const LogStyle& style) {
    const double width = (PrintableWidthCm() - style.left) * kTwipsPerCm;
    QStringList lines;
    for (const QString& entry : log)
        lines += CutToWidth(QString(entry).remove(kCrLf), style.font, width);
    return lines;
}

void PrintLogPage(const QStringList& lines, const LogStyle& style, const QString& foot) {
    StartPage();
    double y = style.top;
    for (const QString& line : lines) {
        PrintTextLeft(style.left, y, line, style.font);
        y += style.pitch;
    }
    EndPage(foot);
}

} // namespace

void PrintAuditLog(const QStringList& log, const QString& auditor) {
    const QString file = Param(u"DygsLj") + Param(u"YsjlFmt");
    const PaperFormat paper = ReadPaperFormat(ReadProject(file, tag::kPaper));
    const LogStyle style = StyleOf(ReadRecord(file, u"正文", u"夜审记录清单"));
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);

    const QStringList lines = PrintedLines(log, style);
    const int fitting = int((PrintableHeightCm() - style.top) / style.pitch);
    const qsizetype linesAPage = std::max(1, fitting);
    const qsizetype pages = (lines.size() + linesAPage - 1) / linesAPage;
    for (qsizetype page = 1; page <= pages; ++page)
        PrintLogPage(lines.mid((page - 1) * linesAPage, linesAPage), style,
                     u"共%1页，第%2页　制表人：%3"_s.arg(pages).arg(page).arg(auditor));
    PreviewPrintJob();
}

QString ProposedAuditLogFile() {
    return Param(u"ScwjLj") + u"夜审纪录"_s + Clock::Today().toString(u"yyMMdd") + u".txt"_s;
}

bool SaveAuditLog(const QStringList& log) {
    const QString name =
        InputBox(u"本次夜审记录的存放文件名："_s, u"保存文件提示"_s, ProposedAuditLogFile())
            .value_or(QString());
    return !name.isEmpty() && WriteTextFile(name, log.join(kCrLf) + kCrLf);
}

} // namespace hotel
