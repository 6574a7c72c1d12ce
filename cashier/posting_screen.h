#pragma once

// What the screens of postings have in common: a folio in the box Jzh, who is on it, and a page for each kind
// of posting.
//
// A folio that is typed whole is shown at once; Enter on a part of its number, on a room or a name searches.
// The name in Krxm and the room in Fjh go into every posting. They are taken from the folio's first room charge;
// Enter in Krxm takes those of the guest chosen in JzhmxQd (the arrow keys choose).
//
// Posting needs the right 签单记账 and an open folio. A retired folio is shown with its commands greyed.

#include <QList>
#include <QString>

#include "house/folios/posting_entry.h"
#include "record/numbers.h"
#include "screen/screen.h"

class QLabel;
class QLineEdit;
class QTabWidget;

namespace hotel {

class FieldForm;
class FolioBox;
class GridView;
class PostingPage;

// A page as its screen names it.
struct PostingPageCommands {
    PostingKind kind;
    QStringView add;
    QStringView remove;
    QStringView print;
    QStringView printFlag = {};
    PostingLog log; // words of the operation log
    QStringView printed;
};

class PostingScreen : public Screen {
    Q_OBJECT

public:
    void load(const QVariant& folio) override;

protected:
    PostingScreen(const QString& name, const QString& caption,
                  const QList<PostingPageCommands>& pages, const QList<ScreenCommand>& deposits);

    // A box for a sum of the folio, in the head of the screen.
    QLineEdit* addTotal(const QString& name, const QString& label, const QString& hint = {});

    virtual bool mayView() const { return true; }
    virtual void showTotals() = 0;
    // Behind a good posting.
    virtual void posted(const PostingPage&, const PostingValues&) {}

    QString folio() const; // the one shown; empty without
    PostingPage* page(PostingKind kind) const;
    // The last running amount of the charges of all pages.
    Money charges() const;
    PostingValues sharedValues() const;
    QString telephone() const; // of the room in Fjh

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeHead();
    QWidget* makeCommands(const PostingPageCommands& names, const QList<ScreenCommand>& further);

    void Jzh_Change();
    void Jzh_Enter();
    void PickCmd_Click();
    void FreshFyxx();
    void Krxm_Enter();
    void Fjh_Change();

    void add(PostingPage* page, const PostingPageCommands& names);
    void remove(PostingPage* page, const PostingPageCommands& names);
    void print(PostingPage* page, const PostingPageCommands& names);

    void showFolio(const QString& folio);
    void fillGuest();
    void setGuest(const QString& name, const QString& room);
    void enableCommands();
    PostingPage* currentPage() const;
    QWidget* editorOf(const PostingPage& page, QStringView control) const;

    QList<PostingPageCommands> commands_;
    QList<PostingPage*> pages_;
    QString shown_;         // number of the folio that is shown
    bool isWhole_ = true;   // all its lists could be read
    QString telephoneRoom_; // the room that Fjdh is of

    FolioBox* Jzh;
    QLabel* state_; // shows the tag of Jzh
    FieldForm* shared_;
    GridView* JzhmxQd; // the rooms and guests of the folio
    QTabWidget* tabs_;
    QWidget* totals_;
};

} // namespace hotel
