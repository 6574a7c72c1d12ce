#include "screen/field_form.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <utility>

#include "platform/clock.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/category_box.h"
#include "screen/date_text.h"
#include "screen/key_filter.h"

namespace hotel {

namespace {

std::function<std::optional<double>(const QString&)> amountReader = [](const QString& text) {
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
};

constexpr int kEditorPadding = 24;
constexpr int kColumnGap = 12;

int DefaultWidth(Editor editor) {
    switch (editor) {
    case Editor::Number:
    case Editor::ShortTime:
        return 8;
    case Editor::Time:
        return 10;
    case Editor::Amount:
    case Editor::Date:
        return 12;
    case Editor::MultiLine:
        return 40;
    default:
        return 16;
    }
}

KeyFilter FilterOf(Editor editor) {
    if (editor == Editor::Number)
        return KeyFilter::Digits;
    return editor == Editor::Amount ? KeyFilter::Expression : KeyFilter::Any;
}

// The value in its form; empty when it has none (which leaves the text as it is typed).
QString Normalised(Editor editor, const QString& typed) {
    switch (editor) {
    case Editor::Date:
        return DateFromTyped(typed, Clock::Today());
    case Editor::Time:
        return TimeFromTyped(typed);
    case Editor::ShortTime:
        return TimeFromTyped(typed).left(5);
    case Editor::Amount:
        if (const auto amount = TrimWhite(typed).isEmpty() ? std::nullopt : amountReader(typed))
            return FormatNumber(*amount, u"#0.00");
        return {};
    default:
        return typed;
    }
}

void SetTextColour(QWidget* editor, bool bad) {
    QPalette palette = editor->palette();
    palette.setBrush(QPalette::Text, bad ? QBrush(QColor(0xB0, 0x12, 0x12)) : QBrush());
    editor->setPalette(bad ? palette : QPalette());
}

// What can't be typed into is passed by on the way through the fields; its text can still be copied.
void MakeReadOnly(QWidget* editor, bool readOnly) {
    editor->setFocusPolicy(readOnly ? Qt::ClickFocus : Qt::StrongFocus);
    if (auto* line = qobject_cast<QLineEdit*>(editor))
        line->setReadOnly(readOnly);
    else if (auto* lines = qobject_cast<QPlainTextEdit*>(editor))
        lines->setReadOnly(readOnly);
    else
        editor->setEnabled(!readOnly);
}

} // namespace

void SetAmountReader(std::function<std::optional<double>(const QString&)> reader) {
    amountReader = std::move(reader);
}

FieldForm::FieldForm(const QList<FormField>& fields, int columns, QWidget* parent)
    : QWidget(parent), fields_(fields) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(2 * columns, 1);

    int place = 0;
    for (const FormField& field : fields_) {
        const bool ownRow = field.editor == Editor::MultiLine;
        if (ownRow && place % columns != 0)
            place += columns - place % columns;
        const int row = place / columns;
        const int column = 2 * (place % columns);
        place += ownRow ? columns : 1;

        QWidget* editor = makeEditor(field);
        editors_.insert(field.control.toString(), editor);
        grid->addWidget(editor, row, column + 1, 1, ownRow ? 2 * columns - 1 : 1);
        if (!ownRow)
            grid->setColumnMinimumWidth(
                column + 1, qMax(grid->columnMinimumWidth(column + 1), editor->minimumWidth()));
        if (field.editor == Editor::Check)
            continue; // carries its label itself
        auto* label = new QLabel(field.label.toString());
        label->setBuddy(editor);
        label->setContentsMargins(column > 0 ? kColumnGap : 0, 0, 0, 0);
        grid->addWidget(label, row, column,
                        Qt::AlignRight | (ownRow ? Qt::AlignTop : Qt::AlignVCenter));
    }
}

QWidget* FieldForm::makeEditor(const FormField& field) {
    QWidget* editor = nullptr;
    const QString control = field.control.toString();
    const auto tellEdited = [this, control] {
        if (!quiet_)
            Q_EMIT edited(control);
    };
    switch (field.editor) {
    case Editor::Category:
    case Editor::CategoryText: {
        auto* box =
            new CategoryBox(field.category.toString(), field.editor == Editor::CategoryText);
        connect(box, &QComboBox::activated, this, tellEdited);
        if (box->lineEdit()) {
            SetKeyFilter(box->lineEdit(), KeyFilter::Any, field.maxBytes);
            connect(box->lineEdit(), &QLineEdit::textEdited, this, tellEdited);
        }
        editor = box;
        break;
    }
    case Editor::Check: {
        auto* box = new QCheckBox(field.label.toString());
        connect(box, &QCheckBox::clicked, this, tellEdited);
        editor = box;
        break;
    }
    case Editor::MultiLine: {
        auto* box = new QPlainTextEdit;
        box->setTabChangesFocus(true);
        box->setFixedHeight(box->fontMetrics().lineSpacing() * 3 + 16);
        connect(box, &QPlainTextEdit::textChanged, this, tellEdited);
        editor = box;
        break;
    }
    default: {
        auto* box = new QLineEdit;
        if (field.editor == Editor::Password) // every sign counts
            box->setEchoMode(QLineEdit::Password);
        else
            SetKeyFilter(box, FilterOf(field.editor), field.maxBytes);
        if (field.editor == Editor::Amount)
            box->setAlignment(Qt::AlignRight);
        connect(box, &QLineEdit::textEdited, this, tellEdited);
        editor = box;
    }
    }
    const int width = field.width > 0 ? field.width : DefaultWidth(field.editor);
    editor->setObjectName(control);
    const int wide = fontMetrics().horizontalAdvance(u'0') * width + kEditorPadding;
    const bool carriesLabel = field.editor == Editor::Check; // which is not to be cut
    editor->setMinimumWidth(carriesLabel ? qMax(wide, editor->sizeHint().width()) : wide);
    // The editors of a column are as wide as its widest one.
    editor->setSizePolicy(QSizePolicy::Ignored, editor->sizePolicy().verticalPolicy());
    editor->installEventFilter(this);
    if (field.editor == Editor::ReadOnly)
        MakeReadOnly(editor, true);
    return editor;
}

const FormField& FieldForm::field(QStringView control) const {
    for (const FormField& field : fields_) {
        if (field.control == control)
            return field;
    }
    qFatal("a form has no control %s", qPrintable(control.toString()));
}

QWidget* FieldForm::editor(QStringView control) const {
    return editors_.value(field(control).control.toString());
}

// --- values ---

QString FieldForm::typedText(QStringView control) const {
    QWidget* widget = editor(control);
    if (const auto* box = qobject_cast<QLineEdit*>(widget))
        return box->text();
    if (const auto* box = qobject_cast<QComboBox*>(widget))
        return box->currentText();
    if (const auto* box = qobject_cast<QCheckBox*>(widget))
        return box->isChecked() ? u"1"_s : u"0"_s;
    return WithoutMarks(qobject_cast<QPlainTextEdit*>(widget)->toPlainText().replace(u'\n', kCrLf));
}

QString FieldForm::text(QStringView control) const {
    const QString typed = typedText(control);
    const QString normalised = Normalised(field(control).editor, typed);
    return normalised.isEmpty() ? typed : normalised;
}

void FieldForm::setText(QStringView control, const QString& text) {
    const QScopedValueRollback quiet(quiet_, true);
    QWidget* widget = editor(control);
    SetTextColour(widget, false);
    if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        line->setText(text);
        line->setCursorPosition(0);
    } else if (auto* choice = qobject_cast<CategoryBox*>(widget)) {
        choice->setValue(text);
    } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
        check->setChecked(LeadingNumber(text) != 0);
    } else if (auto* lines = qobject_cast<QPlainTextEdit*>(widget)) {
        lines->setPlainText(text);
    }
}

void FieldForm::load(QStringView record) {
    for (const FormField& field : fields_) {
        if (!field.tag.isEmpty())
            setText(field.control, GetTag(record, field.tag));
    }
}

QString FieldForm::store(const QString& record) const {
    QString stored = record;
    for (const FormField& field : fields_) {
        if (!field.tag.isEmpty())
            stored = SetTag(stored, field.tag, text(field.control));
    }
    return stored;
}

void FieldForm::clear() {
    for (const FormField& field : fields_)
        setText(field.control, {});
}

void FieldForm::setChoices(QStringView control, const QStringList& entries) {
    editor<CategoryBox>(control)->setChoices(entries);
}

void FieldForm::loadCategories() {
    for (auto* box : findChildren<CategoryBox*>())
        box->fill();
}

void FieldForm::setReadOnly(QStringView control, bool readOnly) {
    MakeReadOnly(editor(control), readOnly);
}

// --- leaving an editor ---

bool FieldForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            leave(field(watched->objectName()));
    } else if (event->type() == QEvent::KeyPress && qobject_cast<QPlainTextEdit*>(watched)) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter && key->modifiers() == Qt::ControlModifier) {
            event->ignore(); // so that it comes to the screen, which moves on
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FieldForm::leave(const FormField& field) {
    const QString typed = typedText(field.control);
    const QString normalised = Normalised(field.editor, typed);
    if (!normalised.isEmpty() && normalised != typed)
        setText(field.control, normalised);
    // What is no date, time or amount stays, in red, to be mended.
    SetTextColour(editor(field.control), normalised.isEmpty() && !typed.isEmpty());
    Q_EMIT left(field.control.toString());
}

} // namespace hotel
