#include "cashier/posting_page.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

// A list that is longer keeps its columns as they are when a row is added.
constexpr int kFittedRows = 100;

constexpr int kUprightColumns = 13; // that a sheet of paper takes as it is
constexpr int kFormColumns = 4;
constexpr int kNoteWidth = 20;
constexpr QStringView kNumberColumns[] = {u"信用金额", u"累计信用", u"实收金额", u"累计实收",
                                          u"金额",     u"累计金额", u"基本金额", u"话费金额",
                                          u"服务费",   u"时长",     u"数量"};

bool IsOneOf(QStringView word, std::span<const QStringView> words) {
    return std::ranges::find(words, word) != words.end();
}

Editor EditorOf(PostingInput input) {
    switch (input) {
    case PostingInput::Choice:
        return Editor::Category;
    case PostingInput::ChoiceOrText:
        return Editor::CategoryText;
    case PostingInput::Digits:
        return Editor::Number;
    case PostingInput::Amount:
    case PostingInput::Guarantee:
        return Editor::Amount;
    case PostingInput::Date:
        return Editor::Date;
    case PostingInput::ShortTime:
        return Editor::ShortTime;
    default:
        return Editor::Text;
    }
}

bool IsTypedHere(const PostingField& field) {
    return !field.control.isEmpty() && field.input != PostingInput::Shared;
}

bool IsMoment(const PostingField& field) {
    return field.input == PostingInput::Date || field.input == PostingInput::ShortTime;
}

bool IsOfOnePosting(const PostingField& field) {
    return field.input == PostingInput::Amount || field.input == PostingInput::Guarantee ||
           field.input == PostingInput::Note;
}

QList<FormField> FormFields(const PostingKindEntry& entry) {
    QList<FormField> fields;
    for (const PostingField& field : entry.fields) {
        if (IsTypedHere(field))
            fields.append({field.tag, field.control, field.label, EditorOf(field.input),
                           field.category, field.input == PostingInput::Note ? kNoteWidth : 0});
    }
    return fields;
}

} // namespace

PostingPage::PostingPage(PostingKind kind, QWidget* parent)
    : QWidget(parent), kind_(kind), list_(new GridView(entry().list.toString())),
      form_(new FieldForm(FormFields(entry()), kFormColumns)) {
    list_->setTable(EmptyPostingList(kind));
    for (int column = 0; column < list_->table().cols(); ++column) {
        if (IsOneOf(list_->table().text(0, column), kNumberColumns))
            list_->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    for (const PostingField& field : entry().fields) {
        if (IsMoment(field))
            form_->editor<QLineEdit>(field.control)->setPlaceholderText(u"现在"_s);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addWidget(form_);
    // As it is typed, also while the server is waited for.
    connect(form_, &FieldForm::edited, this, &PostingPage::followFees);
}

QWidget* PostingPage::firstField() const {
    return form_->editor(form_->fields().first().control);
}

void PostingPage::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

bool PostingPage::load(const QString& folio) {
    const auto list = folio.isEmpty() ? EmptyPostingList(kind_) : LoadPostings(folio, kind_);
    showList(list.value_or(EmptyPostingList(kind_)));
    return list.has_value();
}

PostingValues PostingPage::values() const {
    PostingValues values;
    for (const FormField& field : form_->fields())
        values.insert(field.control, form_->text(field.control));
    return values;
}

void PostingPage::setValues(const PostingValues& values) {
    for (const FormField& field : form_->fields())
        form_->setText(field.control, values.value(field.control));
}

void PostingPage::showAdded(QStringView record) {
    AppendPosting(kind_, list_->table(), record);
    list_->rowsAdded();
    if (list_->table().dataRows() <= kFittedRows)
        list_->autoFit();
    list_->setCurrent(list_->table().dataRows());
    for (const PostingField& field : entry().fields) {
        if (IsOfOnePosting(field))
            form_->setText(field.control, {});
    }
}

void PostingPage::showDeleted() {
    const int last = list_->table().dataRows();
    list_->table().removeRow(last);
    list_->refresh();
    list_->setCurrent(last - 1);
}

void PostingPage::print(const QString& title) const {
    const QStringList headers = entry().headers();
    ListPrintSettings settings;
    if (headers.size() > kUprightColumns)
        std::swap(settings.paperWidth, settings.paperHeight);
    settings.table.fitFont = true;
    for (const QString& header : headers)
        settings.table.alignments.append(IsOneOf(header, kNumberColumns) ? u"->"_s : QString());
    PrintList(list_->table(), title, settings);
}

void PostingPage::followFees(const QString& control) {
    const auto& feeSum = entry().feeSum;
    if (feeSum && IsOneOf(control, feeSum->fees))
        form_->setText(feeSum->control, SumOfFees(*feeSum, values()));
}

void PostingPage::showList(const TextTable& list) {
    list_->setTable(list);
    list_->autoFit();
    list_->setCurrent(list.dataRows());
}

} // namespace hotel
