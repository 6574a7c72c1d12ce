#pragma once

// The print script: the small text language between the screens and the paper. A screen's print calls
// write it to a file; the preview and the print pass read it back page by page.
//
// Text in UTF-8, lines ended by CR LF. A directive stands alone on its line, its arguments follow, one
// a line, whatever these lines hold. Lines that are no directive where one is expected are passed
// over, so is a directive whose arguments are cut off by the end of the script.
//
// Lengths are twips (567 to the centimetre) from the top left corner of the paper. A number may be
// written with "," or "." as its decimal mark; a text that is no number counts 0.
//
//     directive      arguments                 what it does
//     #startpage                               begins a page; the number of these is that of pages
//     #endpage                                 ends the page
//     #fontname      name                      font of the texts to come
//     #fontsize      points                    their size; 0 and less are passed over
//     #fontbold      0 or any other text       0 is not bold, all else is
//     #x             twips                     where the next texts begin
//     #y             twips                     and their top
//     #txt           text                      writes one line of text there, in black; the position
//                                              stays
//     #color         colour                    colour of lines and of the filling of outlined boxes
//     #fill          style                     filling of outlined boxes: 0 solid, all else none
//     #drawwidth     width                     line width, 1 is half a point; below 1 passed over
//     #line          x1 y1 x2 y2               a straight line
//     #box           x1 y1 x2 y2 colour kind   kind B: outlined; BF: filled; empty: the four sides as
//                                              separate lines; any other kind: as B
//     #img           file x y width height     a picture; left out when it can't be read
//     #background    file                      a picture under the whole page, on the screen only
//     #bufferfresh                             for the writer: everything so far goes to the file
//
// A colour is one number: red + 256 * green + 65536 * blue.
//
// What is carried from page to page differs by reader. The preview takes font and colour only from the
// page that it shows, which starts in 黑体 12, black; position, filling and line width come from
// everything ahead of the page, too. The print pass carries all of them, and what stands between two
// pages is drawn on the sheet that lies under the pen.

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringView>
#include <functional>
#include <memory>

#include "record/literals.h"
#include "tools/paper/print_page.h"

namespace hotel {

namespace script {
inline constexpr QStringView kStartPage = u"#startpage";
inline constexpr QStringView kEndPage = u"#endpage";
inline constexpr QStringView kFontName = u"#fontname";
inline constexpr QStringView kFontSize = u"#fontsize";
inline constexpr QStringView kFontBold = u"#fontbold";
inline constexpr QStringView kX = u"#x";
inline constexpr QStringView kY = u"#y";
inline constexpr QStringView kText = u"#txt";
inline constexpr QStringView kColour = u"#color";
inline constexpr QStringView kFill = u"#fill";
inline constexpr QStringView kDrawWidth = u"#drawwidth";
inline constexpr QStringView kLine = u"#line";
inline constexpr QStringView kBox = u"#box";
inline constexpr QStringView kPicture = u"#img";
inline constexpr QStringView kBackground = u"#background";
inline constexpr QStringView kBufferFresh = u"#bufferfresh";
} // namespace script

// Font and size where nothing else is said.
inline const PrintFont kDefaultPrintFont{u"黑体"_s, 12, false};

// Writes a script. Lines wait in memory and go to the file in one piece: when more than
// kLinesWaiting of them wait, and on #bufferfresh, which itself doesn't reach the file.
class ScriptWriter {
public:
    static constexpr int kLinesWaiting = 1990;

    // Starts an empty script in `fileName`; lines of an earlier one that still wait are forgotten.
    // False when the file can't be made.
    bool start(const QString& fileName);

    // A line break inside `line` is written as a blank: a text must not turn into directives.
    void add(QStringView line);

    // False when the file couldn't take the waiting lines; they are gone then.
    bool flush();

    const QString& fileName() const { return fileName_; }

    // Something has been lost since the start: the file can't be made, or could not take all lines.
    bool failed() const { return failed_; }

private:
    QString fileName_;
    bool failed_ = false;
    QByteArray waiting_; // as it will stand in the file
    int linesWaiting_ = 0;
};

// What the lines of a script have set so far.
struct ScriptState {
    PrintFont font = kDefaultPrintFont;
    double x = 0;
    double y = 0;
    QColor colour = Qt::black;
    bool solidFill = false;
    double lineWidth = 1;
};

// Reads a script. The place of each page, and what is carried into it, is noted while the script is
// walked through once, no further than asked: page 1 costs the same in a script of 2 pages and of 200.
class PrintScript {
public:
    PrintScript() = default;
    explicit PrintScript(const QByteArray& text) : text_(text) {}

    // The script in a file, which stays open as long as this object or a copy of it lives. A file that
    // can't be read is a script without pages.
    static PrintScript FromFile(const QString& fileName);

    // True when the script has that page (from 1); walks on to it if need be.
    bool hasPage(int page);

    // Walks on over about so many bytes; false when the end was reached.
    bool walkOn(qsizetype bytes);

    // Pages found so far, and pages of the whole script.
    int pagesFound() const { return int(pages_.size()); }
    int pageCount();

    // The page as the preview shows it; empty when there is no such page.
    PrintPage previewPage(int page);

    // The pages from `first` to `last` as a printer gets them, one sheet after the other. `sheet` tells
    // whether to go on.
    void printPages(int first, int last, const std::function<bool(const PrintPage&)>& sheet);

private:
    struct PageStart {
        qsizetype offset;    // behind the line #startpage
        ScriptState carried; // what was set ahead of it
    };

    void walkTo(const std::function<bool()>& farEnough);

    std::shared_ptr<QFile> file_; // keeps the mapping of text_ alive
    QByteArray text_;
    QList<PageStart> pages_;
    qsizetype walked_ = 0;
    ScriptState state_;
};

} // namespace hotel
