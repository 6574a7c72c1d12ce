#pragma once

// Printing, as the screens know it. A screen opens a job, starts a page, calls the drawing operations,
// ends the page, and shows the finished job in the preview, from which the user prints:
//
//     const QString format = DbReadRecord(formatFile, u"", u"客人换房通知单"_s);
//     const PaperFormat paper = ReadPaperFormat(DbReadRecord(formatFile, u"", u"纸张"_s));
//     OpenPrintJob(paper.width, paper.height);
//     SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
//     StartPage();
//     double y = PrintFormBlock(format, tag::kFormTitle, 0, 0);
//     y += PrintFormBlockWithData(format, tag::kFormHead, 0, y, {{3, room}, {5, guest}});
//     EndPage();
//     PreviewPrintJob();
//
// The operations don't draw; they write the print script (print_script.h), _$$_TEMP.TMP in a temporary
// folder of this process: two workstations on one machine don't mix their jobs. There is one job at a time:
// opening one ends the one before.
//
// All lengths are centimetres, measured from the top left corner of the area inside the margins. An
// empty font name or a size of 0 stands for the default of the job. A text that would begin outside
// the paper is dropped, which the user is told once a job.

#include <QImage>
#include <QString>

#include "tools/paper/print_font.h"
#include "tools/paper/print_form.h"
#include "tools/paper/print_grid.h"
#include "tools/paper/print_macros.h"

namespace hotel {

// Lines of one text follow each other at this many line heights; so do the characters of a vertical
// text.
inline constexpr double kLinePitch = 1.05;

// Begins a job with an empty script: no margins, 黑体 12. Scripts left over in the folder are deleted.
// Width and height of the paper are taken when above 0; else those of the job before stand.
void OpenPrintJob(double widthCm, double heightCm);

// Sets the margins that aren't negative.
void SetPrintMargins(double left, double right, double top, double bottom);

// Font for the texts that name none.
void SetDefaultPrintFont(const QString& name, double size);

// Where the script of the jobs stands; empty when no folder can be written.
QString PrintScriptFile();

// Shows the job in the preview, or says 没有可以打印的内容! when it has no page. Closing the preview
// closes the job.
void PreviewPrintJob();

// Deletes the script and closes the preview.
void ClosePrintJob();

// For the preview: the open job with all that was written so far, and the end of it.
struct FinishedPrintJob;
FinishedPrintJob ReadPrintJob();
void PreviewClosed(const FinishedPrintJob& job);

// Writes one line of the script; for what the operations below don't offer, a picture for instance.
void AddScriptLine(QStringView text);

// Width and height of the paper between the margins.
double PrintableWidthCm();
double PrintableHeightCm();

// Begins and ends a page. `head` is printed above the top margin, `foot` below the bottom margin, in
// 黑体 8, with a rule towards the page; without a text there is neither. The head's parts, separated by
// ",", go to the left edge and the right edge by turns, from outside to inside; the foot is centred.
void StartPage(const QString& head = {});
void EndPage(const QString& foot = {});

// Prints one line with its top at y: from x on, ending at x + width, or in the middle between them.
// With a width given, a left text that is too wide is cut into lines of that width.
void PrintTextLeft(double x, double y, const QString& text, const PrintFont& font,
                   double width = 0);
void PrintTextRight(double x, double y, const QString& text, const PrintFont& font, double width);
void PrintTextCentre(double x, double y, const QString& text, const PrintFont& font, double width);

// Spreads the characters evenly from x to x + width; a single one is centred.
void PrintTextSpread(double x, double y, const QString& text, const PrintFont& font, double width);

// One character under another, each in the middle of `width`, placed in `height`.
enum class VerticalPlacing { Top, Bottom, Centre, Spread };
void PrintTextVertical(double x, double y, const QString& text, const PrintFont& font,
                       VerticalPlacing placing, double width, double height);

// A box between two corners, its outline in black; a line width of 0 keeps the width last used.
void PrintBox(double x1, double y1, double x2, double y2, double lineWidth = 0);
// The same with a second box kFrameGapCm inside it.
void PrintFrame(double x1, double y1, double x2, double y2, double lineWidth = 0);
void PrintFilledBox(double x1, double y1, double x2, double y2, int colour);
inline constexpr double kFrameGapCm = 0.1;

void PrintLine(double x1, double y1, double x2, double y2, double lineWidth, int colour);

// Prints a picture that is no file; it lies beside the script as long as the job stands. False when it can't be
// put there, and the page goes without it.
bool PrintPicture(double x, double y, double width, double height, const QImage& picture);

// Measures of a text in centimetres. Lines: how many PrintTextLeft cuts it into.
double TextWidthCm(const QString& text, const PrintFont& font);
double TextHeightCm(const PrintFont& font);
int TextLineCount(const QString& text, const PrintFont& font, double width);

} // namespace hotel
