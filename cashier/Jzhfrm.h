#pragma once

// The open folios (账号管理), as a tree of their file: to look at one, or to pick one for another screen.
//
// A folio is found by typing: digits of its number, a room, a guest's name or its pinyin initials
// leave the folios that are meant; the arrow keys move among them without leaving the box, and Enter
// opens (or picks) the chosen one. Esc reads the tree anew, so that F10 closes the window; while the
// tree is being read, Esc stops that, and the window's close box aborts it.

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class RecordTree;

class Jzhfrm : public Screen {
    Q_OBJECT

public:
    enum class Use {
        Menu,     // Enter opens the folio's detail view
        Question, // Enter accepts
    };
    // `typed` is looked for at once.
    explicit Jzhfrm(Use use = Use::Menu, const QString& typed = {});

    void load(const QVariant& argument) override;

    // Number of the folio that is chosen; empty when none is.
    const QString& picked() const { return picked_; }

protected:
    bool closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void QVRTrVw_Click();
    void OkCmd_Click();
    void FreshCmd_Click();

    void LoadTree();
    void ShowMatches();
    QStringList FolioCells(const QString& number, const QString& record);

    Use use_;
    QString picked_;
    QHash<QString, QStringList> words_; // what a folio is found by

    QLineEdit* search_;
    RecordTree* QVRTrVw;
};

// Asks for an open folio, in front of `parent`; no value when the question is cancelled.
std::optional<QString> PickFolio(QWidget* parent, const QString& typed = {});

} // namespace hotel
