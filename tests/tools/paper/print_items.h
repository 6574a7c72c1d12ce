#pragma once

// Page items and scripts as text, so that a test's table shows what a page holds.

#include <QStringList>

#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_script.h"

namespace hotel {

inline QString PlaceText(QPointF at) {
    return u"%1,%2"_s.arg(at.x()).arg(at.y());
}

// "text 100,200 黑体12 你好", "line 0,0-100,0 w1 #000000", "box 0,0-9,9 w1 #000000 fill #ff0000",
// "picture 0,0-9,9 a.jpg", "background a.jpg". A bold font ends in "B".
inline QString ItemText(const PrintItem& item) {
    if (auto text = std::get_if<PrintedText>(&item))
        return u"text %1 %2%3%4 %5"_s.arg(PlaceText(text->at), text->font.name)
            .arg(text->font.size)
            .arg(text->font.bold ? u"B"_s : QString(), text->text);
    if (auto line = std::get_if<PrintedLine>(&item))
        return u"line %1-%2 w%3 %4"_s.arg(PlaceText(line->line.p1()), PlaceText(line->line.p2()))
            .arg(line->width)
            .arg(line->colour.name());
    if (auto box = std::get_if<PrintedBox>(&item)) {
        QString words = u"box %1-%2 w%3"_s
                            .arg(PlaceText(box->area.topLeft()), PlaceText(box->area.bottomRight()))
                            .arg(box->width);
        if (box->outline)
            words += u' ' + box->outline->name();
        if (box->fill)
            words += u" fill "_s + box->fill->name();
        return words;
    }
    if (auto picture = std::get_if<PrintedPicture>(&item))
        return u"picture %1-%2 %3"_s.arg(PlaceText(picture->area.topLeft()),
                                         PlaceText(picture->area.bottomRight()), picture->file);
    return u"background "_s + std::get<PrintedBackground>(item).file;
}

inline QStringList ItemTexts(const PrintPage& page) {
    QStringList texts;
    for (const PrintItem& item : page)
        texts.append(ItemText(item));
    return texts;
}

inline QList<PrintedText> TextsOf(const PrintPage& page) {
    QList<PrintedText> texts;
    for (const PrintItem& item : page)
        if (auto text = std::get_if<PrintedText>(&item))
            texts.append(*text);
    return texts;
}

// A script from its lines, written in one text with "|" between them.
inline PrintScript ScriptOf(const QString& lines) {
    return PrintScript((lines.split(u'|').join(kCrLf) + kCrLf).toUtf8());
}

// The script of the open print job, as the preview would read it.
inline PrintScript ScriptOfJob() {
    return PrintScript::FromFile(PrintScriptFile());
}

} // namespace hotel
