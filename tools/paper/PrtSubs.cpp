#include "tools/paper/PrtSubs.h"

#include <memory>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "record/literals.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/screen.h"
#include "tools/paper/print_pass.h"

namespace hotel {

namespace {

const QString kScriptFile = u"_$$_TEMP.TMP"_s;
const QString kPictureFile = u"_$$_%1.TMP"_s;
const QString kScriptFiles = u"_$$_*.TMP"_s; // pictures among them

constexpr QStringView kPreview = u"PrtPrev";

struct PrintJob {
    double width = 0;
    double height = 0;
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
    PrintFont font = kDefaultPrintFont;
    ScriptWriter script;
    int number = 0;
    int pictures = 0; // that lie beside the script
    bool toldOfBadPlace = false;
};

PrintJob& Job() {
    static PrintJob job;
    return job;
}

// Empty when no folder can be made. One that a clean-up of the machine has taken is made anew.
QString ScriptFolder() {
    static std::unique_ptr<QTemporaryDir> folder;
    if (!folder || !QFileInfo(folder->path()).isDir())
        folder = std::make_unique<QTemporaryDir>();
    return folder->isValid() ? folder->path() : QString();
}

void DeleteScripts() {
    QDir folder(ScriptFolder());
    if (folder.isRelative())
        return;
    const QStringList scripts = folder.entryList({kScriptFiles}, QDir::Files | QDir::Hidden);
    for (const QString& script : scripts)
        folder.remove(script);
}

PrintFont FontOrDefault(const PrintFont& font) {
    const PrintFont& standing = Job().font;
    return {font.name.isEmpty() ? standing.name : font.name,
            font.size > 0 ? font.size : standing.size, font.bold};
}

double WidthCm(QStringView text, const PrintFont& font) {
    return TextWidthTwips(text, font) / kTwipsPerCm;
}

double HeightCm(const PrintFont& font) {
    return LineHeightTwips(font) / kTwipsPerCm;
}

// Whole twips from the paper's edge, cut off, not rounded.
QString ScriptLength(double margin, double length) {
    constexpr double kFarOff = 1e6;
    return QString::number(qint64(qBound(-kFarOff, (margin + length) * kTwipsPerCm, kFarOff)));
}

void AddCorners(double x1, double y1, double x2, double y2) {
    const PrintJob& job = Job();
    AddScriptLine(ScriptLength(job.left, x1));
    AddScriptLine(ScriptLength(job.top, y1));
    AddScriptLine(ScriptLength(job.left, x2));
    AddScriptLine(ScriptLength(job.top, y2));
}

void AddDirective(QStringView directive, QStringView argument) {
    AddScriptLine(directive);
    AddScriptLine(argument);
}

void AddLineWidth(double lineWidth) {
    if (lineWidth > 0)
        AddDirective(script::kDrawWidth, QString::number(lineWidth));
}

bool OnPaper(double x, double y) {
    const PrintJob& job = Job();
    return job.left + x >= 0 && job.left + x <= job.width && job.top + y >= 0 &&
           job.top + y <= job.height;
}

// Once a job: a form made for other paper would ask for a click with every text.
void TellOfBadPlace() {
    if (Job().toldOfBadPlace)
        return;
    Job().toldOfBadPlace = true;
    MsgBox(u"坐标系统错误，可能没有设定合理的纸张大小，请调用初始化"_s, u"PrintInCen"_s);
}

// Writes one line of text; `font` is complete.
void AddText(double x, double y, const QString& text, const PrintFont& font) {
    if (text.isEmpty())
        return;
    if (!OnPaper(x, y)) {
        TellOfBadPlace();
        return;
    }
    AddDirective(script::kFontName, font.name);
    AddDirective(script::kFontSize, QString::number(font.size));
    AddDirective(script::kFontBold, font.bold ? u"1" : u"0");
    AddDirective(script::kY, ScriptLength(Job().top, y));
    AddDirective(script::kX, ScriptLength(Job().left, x));
    AddDirective(script::kText, text);
}

const PrintFont kMarginFont{u"黑体"_s, 8, false};
constexpr double kMarginGapCm = 0.1;

void PrintHead(const QString& head) {
    const double y = -HeightCm(kMarginFont) - kMarginGapCm;
    const double space = WidthCm(u"国", kMarginFont);
    double left = 0;
    double right = PrintableWidthCm();
    bool atLeft = true;
    for (const QString& part : head.split(u',')) {
        const double width = WidthCm(part, kMarginFont);
        AddText(atLeft ? left : right - width, y, part, kMarginFont);
        (atLeft ? left : right) += (atLeft ? 1 : -1) * (width + space);
        atLeft = !atLeft;
    }
    PrintLine(0, -kMarginGapCm / 2, PrintableWidthCm(), -kMarginGapCm / 2, 1, 0);
}

void PrintFoot(const QString& foot) {
    const double bottom = PrintableHeightCm();
    PrintLine(0, bottom + kMarginGapCm / 2, PrintableWidthCm(), bottom + kMarginGapCm / 2, 1, 0);
    PrintTextCentre(0, bottom + kMarginGapCm, foot, kMarginFont, PrintableWidthCm());
}

} // namespace

QString PrintScriptFile() {
    const QString folder = ScriptFolder();
    return folder.isEmpty() ? QString() : folder + u'/' + kScriptFile;
}

void OpenPrintJob(double widthCm, double heightCm) {
    ClosePrintJob();
    PrintJob job;
    job.number = Job().number;
    job.width = widthCm > 0 ? widthCm : Job().width;
    job.height = heightCm > 0 ? heightCm : Job().height;
    job.script.start(PrintScriptFile());
    Job() = job;
}

void SetPrintMargins(double left, double right, double top, double bottom) {
    const auto take = [](double& margin, double length) {
        if (length >= 0)
            margin = length;
    };
    take(Job().left, left);
    take(Job().right, right);
    take(Job().top, top);
    take(Job().bottom, bottom);
}

void SetDefaultPrintFont(const QString& name, double size) {
    Job().font.name = name;
    Job().font.size = size;
}

void PreviewPrintJob() {
    OpenScreen(kPreview);
}

void ClosePrintJob() {
    ++Job().number; // a preview that closes later doesn't take the script of the next job along
    DeleteScripts();
    if (Screen* preview = FindScreen(kPreview))
        preview->close();
}

FinishedPrintJob ReadPrintJob() {
    PrintJob& job = Job();
    job.script.flush();
    return {PrintScript::FromFile(job.script.fileName()), QSizeF(job.width, job.height), job.number,
            !job.script.failed()};
}

void PreviewClosed(const FinishedPrintJob& job) {
    if (job.number == Job().number)
        DeleteScripts();
}

void AddScriptLine(QStringView text) {
    Job().script.add(text);
}

double PrintableWidthCm() {
    return Job().width - Job().left - Job().right;
}

double PrintableHeightCm() {
    return Job().height - Job().top - Job().bottom;
}

void StartPage(const QString& head) {
    AddScriptLine(script::kStartPage);
    if (!head.isEmpty())
        PrintHead(head);
}

void EndPage(const QString& foot) {
    if (!foot.isEmpty())
        PrintFoot(foot);
    AddScriptLine(script::kBufferFresh);
    AddScriptLine(script::kEndPage);
}

void PrintTextLeft(double x, double y, const QString& text, const PrintFont& font, double width) {
    const PrintFont complete = FontOrDefault(font);
    if (width <= 0) {
        AddText(x, y, text, complete);
        return;
    }
    for (const QString& line : CutToWidth(text, complete, width * kTwipsPerCm)) {
        AddText(x, y, line, complete);
        y += HeightCm(complete) * kLinePitch;
    }
}

void PrintTextRight(double x, double y, const QString& text, const PrintFont& font, double width) {
    const PrintFont complete = FontOrDefault(font);
    AddText(x + width - WidthCm(text, complete), y, text, complete);
}

void PrintTextCentre(double x, double y, const QString& text, const PrintFont& font, double width) {
    const PrintFont complete = FontOrDefault(font);
    AddText(x + (width - WidthCm(text, complete)) / 2, y, text, complete);
}

void PrintTextSpread(double x, double y, const QString& text, const PrintFont& font, double width) {
    const PrintFont complete = FontOrDefault(font);
    const QStringList characters = Characters(text);
    if (characters.size() < 2) {
        PrintTextCentre(x, y, text, complete, width);
        return;
    }
    const double gap =
        (width - WidthCm(characters.last(), complete)) / double(characters.size() - 1);
    for (qsizetype n = 0; n < characters.size(); ++n)
        AddText(x + double(n) * gap, y, characters.at(n), complete);
}

void PrintTextVertical(double x, double y, const QString& text, const PrintFont& font,
                       VerticalPlacing placing, double width, double height) {
    const PrintFont complete = FontOrDefault(font);
    const QStringList characters = Characters(text);
    const double between = double(characters.size() - 1);
    const double characterHeight = HeightCm(complete);
    double pitch = characterHeight * kLinePitch;
    if (placing == VerticalPlacing::Spread && between > 0)
        pitch = (height - characterHeight) / between;
    const double run = pitch * between + characterHeight;
    if (placing == VerticalPlacing::Bottom)
        y += height - run;
    else if (placing != VerticalPlacing::Top)
        y += (height - run) / 2;
    for (const QString& character : characters) {
        PrintTextCentre(x, y, character, complete, width);
        y += pitch;
    }
}

void PrintBox(double x1, double y1, double x2, double y2, double lineWidth) {
    AddDirective(script::kFill, u"1");
    AddDirective(script::kColour, u"0");
    AddLineWidth(lineWidth);
    AddScriptLine(script::kBox);
    AddCorners(x1, y1, x2, y2);
    AddScriptLine(u"0");
    AddScriptLine(u"B");
}

void PrintFrame(double x1, double y1, double x2, double y2, double lineWidth) {
    PrintBox(x1, y1, x2, y2, lineWidth);
    PrintBox(x1 + kFrameGapCm, y1 + kFrameGapCm, x2 - kFrameGapCm, y2 - kFrameGapCm, lineWidth);
}

void PrintFilledBox(double x1, double y1, double x2, double y2, int colour) {
    AddScriptLine(script::kBox);
    AddCorners(x1, y1, x2, y2);
    AddScriptLine(QString::number(colour));
    AddScriptLine(u"BF");
}

void PrintLine(double x1, double y1, double x2, double y2, double lineWidth, int colour) {
    AddLineWidth(lineWidth);
    AddDirective(script::kColour, QString::number(colour));
    AddScriptLine(script::kLine);
    AddCorners(x1, y1, x2, y2);
}

bool PrintPicture(double x, double y, double width, double height, const QImage& picture) {
    PrintJob& job = Job();
    const QString file = ScriptFolder() + u'/' + kPictureFile.arg(++job.pictures);
    if (ScriptFolder().isEmpty() || !picture.save(file, "PNG"))
        return false;
    AddScriptLine(script::kPicture);
    AddScriptLine(file);
    for (const auto& [margin, length] :
         {std::pair{job.left, x}, {job.top, y}, {0.0, width}, {0.0, height}})
        AddScriptLine(ScriptLength(margin, length));
    return true;
}

double TextWidthCm(const QString& text, const PrintFont& font) {
    return WidthCm(text, FontOrDefault(font));
}

double TextHeightCm(const PrintFont& font) {
    return HeightCm(FontOrDefault(font));
}

int TextLineCount(const QString& text, const PrintFont& font, double width) {
    if (width <= 0)
        return 1;
    return int(CutToWidth(text, FontOrDefault(font), width * kTwipsPerCm).size());
}

} // namespace hotel
