#include "personnel/staff/entries_widget.h"

#include <QVBoxLayout>

#include "personnel/staff/employee_records.h"
#include "personnel/staff/staff_list.h"
#include "record/literals.h"
#include "screen/grid_view.h"

namespace hotel {

namespace {

constexpr int kColumns = 4;

} // namespace

EntriesWidget::EntriesWidget(const EntriesPage& page, QWidget* parent)
    : QWidget(parent), page_(page), list_(new GridView(page.list + u"清单"_s)),
      form_(new FieldForm(page.fields, kColumns)) {
    QStringList headers{kSerialTitle.toString()};
    for (const QStringView column : EmployeeListOf(page.list).columns)
        headers.append(column.toString());
    list_->table().setHeaders(headers);
    for (const FormField& field : page.fields) {
        if (field.editor == Editor::Amount)
            list_->setColumnAlignment(list_->table().column(field.tag),
                                      Qt::AlignRight | Qt::AlignVCenter);
    }
    auto* content = new QVBoxLayout(this);
    content->addWidget(list_, 1);
    content->addWidget(form_);
    connect(list_, &GridView::rowClicked, this, &EntriesWidget::showChosen);
    connect(list_, &GridView::currentMoved, this, &EntriesWidget::showChosen);
    startEntry();
}

void EntriesWidget::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

void EntriesWidget::setEntries(const QStringList& entries) {
    entries_ = entries;
    showEntries();
    startEntry();
}

QString EntriesWidget::typed(qsizetype place) const {
    return form_->store(entries_.value(place));
}

qsizetype EntriesWidget::chosen() const {
    return list_->currentRow() - 1;
}

void EntriesWidget::put(qsizetype place, const QString& entry) {
    const bool added = place >= entries_.size();
    if (added)
        entries_.append(entry);
    else
        entries_[place] = entry;
    showEntries();
    if (added)
        startEntry();
    else
        list_->setCurrent(int(place) + 1);
}

void EntriesWidget::removeLast() {
    entries_.removeLast();
    showEntries();
    startEntry();
}

void EntriesWidget::startEntry() {
    list_->setCurrent(0);
    form_->load(page_.proposed);
}

void EntriesWidget::showEntries() {
    TextTable& table = list_->table();
    table.clearRows();
    for (const QString& entry : entries_) {
        const int row = table.addRow();
        for (int column = 1; column < table.cols(); ++column)
            table.setText(row, column, EmployeeValue(entry, table.headers()[column]));
    }
    table.numberRows(0);
    list_->refresh();
    list_->autoFit();
}

void EntriesWidget::showChosen() {
    if (chosen() >= 0)
        form_->load(entries_.value(chosen()));
}

} // namespace hotel
