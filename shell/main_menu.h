#pragma once

// The main menu as data: a line of words for each entry instead of a handler for each.
//
// A group is offered when the user holds its right; an entry inside a shown group when the user holds
// the entry's right. An entry without a right is always offered. The same right may name two entries.

#include <functional>
#include <span>

#include <QString>
#include <QStringView>

namespace hotel {

struct MenuEntry {
    QStringView control; // object name of the button
    QStringView right;   // empty: no right tests it
    QStringView caption;
    QStringView screen;         // the name under which app/ knows the screen
    QStringView operation = {}; // line of the operation log on opening; empty: none is written
    QStringView remark = {};
};

struct MenuGroup {
    QStringView control;
    QStringView right; // its caption as well
    int functionKey;   // n of Fn; F5 reads the day anew, as it reads lists anew in all screens
    std::span<const MenuEntry> entries;
};

std::span<const MenuGroup> MainMenu();

// The entry of that button if the user holds its right and its group's, else null.
const MenuEntry* OfferedEntry(QStringView control);

// Opens what an entry names; false when there is no such screen (yet). The shell knows no subsystem,
// so app/ installs this at the start of the program. The argument is what the screen is to show, as a folio;
// none where an entry of the menu opens it.
using EntryOpener = std::function<bool(QStringView screen, const QString& argument)>;
void SetEntryOpener(EntryOpener opener);

// Opens a screen by that way, or tells the user in a timed message that it is not there yet.
void OpenEntry(QStringView screen, QStringView caption, const QString& argument = {});

// The night audit is done at night: true from 22:00:00 up to 06:59:59, by the first two characters of
// the time text (HH:mm:ss).
bool NightAuditMayOpen(QStringView timeText);

} // namespace hotel
