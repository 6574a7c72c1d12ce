#include "tools/aids/fast_keyin.h"

#include "screen/grid_view.h"
#include "tools/aids/pinyin.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace hotel {

namespace {

TextTable ListOf(const QStringList& entries) {
    TextTable table({u"代码"_s, u"名称"_s, u"拼音"_s});
    for (const QString& text : entries) {
        const ListEntry entry = SplitListEntry(text);
        table.addRow({entry.code, entry.name, entry.pinyin});
    }
    return table;
}

bool IsLetterOrDigit(const QString& typed) {
    return typed.size() == 1 && typed.front().unicode() < 128 && typed.front().isLetterOrNumber();
}

} // namespace

fast_keyin::fast_keyin(const QString& caption, const QStringList& entries)
    : Screen(u"fast_keyin"_s, caption), entries_(entries) {
    Key_code = new QLineEdit;
    Key_code->setObjectName(u"Key_code"_s);
    key_in = new QLineEdit;
    key_in->setObjectName(u"key_in"_s);
    List1 = new GridView(u"List1"_s);
    List1->setTable(ListOf(entries));
    List1->autoFit();
    List1->installEventFilter(this);

    auto* typed = new QFormLayout;
    typed->addRow(u"名称"_s, Key_code);
    typed->addRow(u"拼音"_s, key_in);
    auto* layout = new QVBoxLayout;
    layout->addLayout(typed);
    layout->addWidget(List1, 1);
    setContent(layout);
    addCommands({{u"QrCmd"_s, u"确定"_s, [this] { QrCmd_Click(); }, {}, CommandKind::Default}});

    on(Key_code, &QLineEdit::textChanged, [this] { selectTyped(); });
    on(key_in, &QLineEdit::textChanged, [this] { selectTyped(); });
    onEnter(Key_code, [this] { QrCmd_Click(); });
    onEnter(key_in, [this] { QrCmd_Click(); });
    on(List1, &GridView::rowActivated, [this] { QrCmd_Click(); });
    resize(560, 480);
}

void fast_keyin::selectTyped() {
    const qsizetype found = FindListEntry(entries_, Key_code->text(), key_in->text());
    if (found >= 0)
        List1->setCurrent(int(found) + 1);
}

void fast_keyin::QrCmd_Click() {
    const int row = List1->currentRow();
    if (row == 0) {
        moveOn();
        return;
    }
    chosen_ = entries_[row - 1];
    accept();
}

// Letters and digits typed in the list go on with the initials.
bool fast_keyin::eventFilter(QObject* watched, QEvent* event) {
    if (watched == List1 && event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (IsLetterOrDigit(typed)) {
            key_in->setText(key_in->text() + typed.toUpper());
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

} // namespace hotel
