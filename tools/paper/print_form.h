#pragma once

// Print formats: forms that are described by records instead of code.
//
// A format file holds two kinds of records. The paper record 纸张, all in centimetres, every field
// optional:
//
//     纸宽 纸高 左边界 右边界 上边界 下边界
//
// A form record holds one field per block of the form, most often 标题, 表头, 表芯, 表芯1 and 表底,
// which are printed one under another:
//
//     高度                 height of the block in centimetres: the distance to the next one
//     默认字体 默认字号    what its first cell takes when the whole block is painted as it stands
//     00, 01, ... 99       its cells, up to the first number that is missing
//
// A cell:
//
//     字体 字号 粗体       font, size in points, bold 0 or 1        } absent: as in the cell before
//     左边界 上边界        left and top edge inside the block, cm   }
//     单元宽 单元高        width and height, cm                     } absent: 0
//     方式                 how the text is placed, see below        } absent: 左对齐
//     线宽                 line width of the frame, 0 is no frame   }
//     填充色               colour behind the text, 0 is none        }
//     文本                 the text, with the codes of print_macros.h
//
//     方式: 左对齐 右对齐 居中 匀齐              one line (左对齐: more when it is too long), set in
//                                                the middle of the cell's height
//           上对齐 下对齐 垂直居中 垂直匀齐      one character under another
//           直线                                 no text: a line from the cell's top left to its
//                                                bottom right, 填充色 is its colour
//
// A text of more than kFormatTextLimit characters holds no fields.

#include <QList>
#include <QMap>
#include <QString>
#include <QStringView>

#include "tools/paper/print_font.h"

namespace hotel {

inline constexpr qsizetype kFormatTextLimit = 128000;
inline constexpr int kFormCellLimit = 100;

namespace tag {
inline constexpr QStringView kPaper = u"纸张";
inline constexpr QStringView kFormTitle = u"标题";
inline constexpr QStringView kFormHead = u"表头";
inline constexpr QStringView kFormBody = u"表芯";
inline constexpr QStringView kFormBody1 = u"表芯1";
inline constexpr QStringView kFormFoot = u"表底";
} // namespace tag

struct PaperFormat {
    double width = 21;
    double height = 29.7;
    double left = 1.5;
    double right = 1.5;
    double top = 1.5;
    double bottom = 1.5;

    bool operator==(const PaperFormat&) const = default;
};

struct FormCell {
    PrintFont font;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    QString placing;
    double lineWidth = 0;
    int fill = 0;
    QString text;
};

// The paper record over the caller's default; a field that isn't above zero changes nothing.
PaperFormat ReadPaperFormat(QStringView text, const PaperFormat& standing = {});

// The cells of a block. `font` is what the first cell takes where it names none.
QList<FormCell> ReadFormCells(QStringView blockText, const PrintFont& font);

// Prints one cell of the block that stands at (x, y), in centimetres.
void PrintCell(const FormCell& cell, double x, double y);

// The height of a block in centimetres, ahead of printing it.
double FormBlockHeight(QStringView formatText, QStringView block);

// Prints every cell of a block as it stands; gives the block's height.
double PrintFormBlock(QStringView formatText, QStringView block, double x, double y);

// The same with the values of a screen: the value of a cell's number takes the place of its text,
// unless the value is empty. Values are printed as they come, formatted by the screen. The defaults of
// the block are not used: the first cell takes those of the print job.
double PrintFormBlockWithData(QStringView formatText, QStringView block, double x, double y,
                              const QMap<int, QString>& data);

} // namespace hotel
