#include "cashier/Jzhfrm.h"

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

#include "cashier/folio_search.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_view.h"
#include "record/literals.h"
#include "screen/key_filter.h"
#include "screen/open_screen.h"
#include "tools/aids/record_tree.h"

namespace hotel {

namespace {

constexpr int kWidths[] = {220, 140, 80}; // of all columns but the last

bool MovesInTree(const QKeyEvent& key) {
    return key.key() == Qt::Key_Up || key.key() == Qt::Key_Down || key.key() == Qt::Key_PageUp ||
           key.key() == Qt::Key_PageDown;
}

QString RoomsText(const QStringList& rooms) {
    const QString list = rooms.join(u' ');
    return rooms.size() > 1 ? u"%1 间：%2"_s.arg(rooms.size()).arg(list) : list;
}

} // namespace

Jzhfrm::Jzhfrm(Use use, const QString& typed)
    : Screen(u"Jzhfrm"_s, use == Use::Menu ? u"账号管理"_s : u"选择结账号"_s), use_(use),
      search_(new QLineEdit(typed)),
      QVRTrVw(new RecordTree(u"QVRTrVw"_s, RecordTree::Fields::None)) {
    search_->setObjectName(u"Search"_s);
    search_->setPlaceholderText(u"账号中的数字、房号、客人姓名或拼音首字母"_s);
    SetKeyFilter(search_, KeyFilter::Capitals);
    QVRTrVw->setRecordCells({{u"住客数"_s, true}, {u"客房"_s}},
                            [this](QStringView, const QString& number, const QString& record) {
                                return FolioCells(number, record);
                            });
    QVRTrVw->headerItem()->setText(0, u"结账号"_s);
    QVRTrVw->headerItem()->setText(1, u"客人"_s);
    for (int column = 0; column < int(std::size(kWidths)); ++column)
        QVRTrVw->setColumnWidth(column, kWidths[column]);
    for (QObject* control : {static_cast<QObject*>(search_), static_cast<QObject*>(QVRTrVw)})
        control->installEventFilter(this);

    auto* form = new QFormLayout;
    form->addRow(u"查找"_s, search_);
    auto* content = new QVBoxLayout;
    content->addLayout(form);
    content->addWidget(QVRTrVw, 1);
    setContent(content);

    addCommands({
        {u"OkCmd"_s,
         use == Use::Menu ? u"查看账号"_s : u"选定"_s,
         [this] { OkCmd_Click(); },
         {},
         CommandKind::Default},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_Escape},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_F10, CommandKind::Plain, u"end"_s},
    });
    // While the tree is being read, too: what is typed meanwhile must not get lost.
    connect(search_, &QLineEdit::textChanged, this, &Jzhfrm::ShowMatches);
    on(QVRTrVw, &QTreeWidget::currentItemChanged, [this] { QVRTrVw_Click(); });
    on(QVRTrVw, &QTreeWidget::itemDoubleClicked, [this] { OkCmd_Click(); });
    onEnter(search_, [this] { OkCmd_Click(); });
    onEnter(QVRTrVw, [this] { OkCmd_Click(); });
    resize(960, 680);
}

void Jzhfrm::load(const QVariant&) {
    LoadTree();
    search_->setFocus();
}

bool Jzhfrm::closing() {
    QVRTrVw->abort();
    return true;
}

void Jzhfrm::QVRTrVw_Click() {
    const QTreeWidgetItem* node = QVRTrVw->currentItem();
    picked_ = node && node->childCount() == 0 ? FolioOfNode(RecordTree::KeyOf(node)) : QString();
    setCommandEnabled(u"OkCmd", !picked_.isEmpty());
}

void Jzhfrm::OkCmd_Click() {
    if (picked_.isEmpty())
        return;
    if (use_ == Use::Menu)
        OpenScreen(u"JzhxxFrm", picked_);
    else
        accept();
}

void Jzhfrm::FreshCmd_Click() {
    search_->clear();
    LoadTree();
}

void Jzhfrm::LoadTree() {
    const QString before = picked_;
    words_.clear();
    const RecordTree::Load load = QVRTrVw->load(*this, OpenFolioFile());
    QVRTrVw->expandAll();
    QVRTrVw->setCurrentItem(QVRTrVw->find(folio_record::kProject, before));
    ShowMatches();
    QVRTrVw_Click();
    if (load != RecordTree::Load::Complete)
        setStatus(u"账号清单没有读完，按 Esc 再读"_s);
}

// Leaves the folios that are meant on display, one of them chosen.
void Jzhfrm::ShowMatches() {
    const QTreeWidgetItem* project = QVRTrVw->find(folio_record::kProject);
    QTreeWidgetItem* chosen = nullptr;
    int matches = 0;
    for (int n = 0; project && n < project->childCount(); ++n) {
        QTreeWidgetItem* folio = project->child(n);
        const QString number = folio->text(0);
        const bool matching = MatchesFolio(number, words_[number], search_->text());
        folio->setHidden(!matching);
        matches += matching;
        if (matching && (!chosen || folio == QVRTrVw->currentItem()))
            chosen = folio;
    }
    QVRTrVw->setCurrentItem(chosen);
    setStatus(u"%1 个账号"_s.arg(matches));
}

QStringList Jzhfrm::FolioCells(const QString& number, const QString& record) {
    const FolioSummary folio = SummaryOf(record);
    words_.insert(number, SearchWords(folio));
    return {folio.payer, QString::number(folio.guests.size()), RoomsText(folio.rooms)};
}

// The box and the tree work as one: what is typed in the tree goes to the box, and the keys that move
// go from the box to the tree. Esc doesn't empty the box, it always is the screen's.
bool Jzhfrm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return Screen::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (watched == search_ && key->key() == Qt::Key_Escape) {
        QApplication::sendEvent(this, event);
        return true;
    }
    if (watched == search_ && MovesInTree(*key)) {
        QApplication::sendEvent(QVRTrVw, event);
        return true;
    }
    if (watched == QVRTrVw && !TypedText(*key).isEmpty()) {
        search_->setFocus();
        QApplication::sendEvent(search_, event);
        return true;
    }
    return Screen::eventFilter(watched, event);
}

std::optional<QString> PickFolio(QWidget* parent, const QString& typed) {
    ModalScreen<Jzhfrm> question(parent, Jzhfrm::Use::Question, typed);
    if (!question.show())
        return {};
    return question->picked();
}

} // namespace hotel
