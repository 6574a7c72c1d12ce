#include "tools/aids/record_tree.h"

#include <QHeaderView>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/screen.h"

namespace hotel {

namespace {

constexpr int kTextRole = Qt::UserRole;
constexpr int kNameWidth = 220;
constexpr int kContentWidth = 260;
constexpr int kRecordsPerProgress = 100;

const QString kAbort = u"Abort"_s;

// Copied: while a project is read, another screen may ask for the projects of another file.
QStringList ProjectsOf(const QString& file) {
    QStringList projects;
    for (int n = 1;; ++n) {
        const QString project = DbProjectList(file, n);
        if (project.isEmpty())
            return projects;
        projects.append(project);
    }
}

// A lost link, or one that came back without a login, looks like a file that isn't there; but the
// file of the users always is.
bool ServerAnswers() {
    return DbCheckFile(DbUserFileName(), kFileExists) != u"-1";
}

int CountFields(QStringView text) {
    int count = 0;
    for (FieldWalk field(text); field.next();)
        ++count;
    return count;
}

bool HoldsFields(QStringView text) {
    for (FieldWalk field(text); field.next();)
        if (field.closed())
            return true;
    return false;
}

QTreeWidgetItem* ChildNamed(const QTreeWidgetItem* parent, QStringView name) {
    for (int n = 0; n < parent->childCount(); ++n)
        if (parent->child(n)->text(0) == name)
            return parent->child(n);
    return nullptr;
}

} // namespace

RecordTree::RecordTree(const QString& name, Fields fields, QWidget* parent)
    : QTreeWidget(parent), fields_(fields) {
    setObjectName(name);
    setHeaderLabels({u"名称"_s, u"内容"_s});
    setColumnWidth(0, kNameWidth);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    if (fields_ == Fields::WhenOpened)
        connect(this, &QTreeWidget::itemExpanded, this, &RecordTree::addFields);
}

void RecordTree::setRecordCells(const QList<Column>& furtherColumns, RecordCells cells) {
    furtherColumns_ = furtherColumns;
    recordCells_ = std::move(cells);
    QStringList titles{u"名称"_s, u"内容"_s};
    for (const Column& column : furtherColumns_)
        titles.append(column.title);
    setHeaderLabels(titles);
    setColumnWidth(1, kContentWidth);
    for (int column = 0; column < furtherColumns_.size(); ++column)
        if (furtherColumns_[column].isAmount)
            headerItem()->setTextAlignment(column + 2, Qt::AlignRight | Qt::AlignVCenter);
}

RecordTree::Load RecordTree::load(Screen& screen, const QString& file) {
    clear();
    setProperty("Tag", {});
    if (file.isEmpty())
        return Load::Complete;
    const QStringList projects = ProjectsOf(file);
    if (projects.isEmpty())
        return ServerAnswers() ? Load::Complete : Load::Failed;
    for (const QString& project : projects) {
        if (stop(screen))
            return Load::Aborted;
        const RecordRead records = ReadProjectToChange(file, project);
        if (records.failed())
            return Load::Failed;
        auto* node = new QTreeWidgetItem(this, {project});
        node->setData(0, kTextRole, records.value);
        if (!addRecords(screen, node, records.value))
            return Load::Aborted;
    }
    return Load::Complete;
}

void RecordTree::abort() {
    setProperty("Tag", kAbort);
}

bool RecordTree::stop(Screen& screen) {
    if (!screen.stillOpen())
        abort();
    return property("Tag") == kAbort;
}

bool RecordTree::addRecords(Screen& screen, QTreeWidgetItem* project, QStringView records) {
    const int total = CountFields(records);
    FieldWalk record(records);
    for (int done = 0; record.next(); ++done) {
        if (!record.closed())
            continue;
        if (done % kRecordsPerProgress == 0)
            screen.progress(done, total, u"正在读取："_s + project->text(0));
        if (stop(screen))
            return false;
        addRecord(project, record.name().toString(), record.value().toString());
    }
    project->setText(1, u"%1 条"_s.arg(project->childCount()));
    return true;
}

void RecordTree::addRecord(QTreeWidgetItem* project, const QString& name, const QString& text) {
    auto* record = new QTreeWidgetItem({name});
    setNodeText(record, text);
    if (recordCells_) {
        const QStringList cells = recordCells_(project->text(0), name, text);
        for (int i = 0; i < cells.size(); ++i)
            record->setText(i + 1, cells[i]);
        for (int column = 2; column < columnCount(); ++column)
            record->setTextAlignment(column, Qt::Alignment(headerItem()->textAlignment(column)));
    }
    project->addChild(record);
}

void RecordTree::setNodeText(QTreeWidgetItem* node, const QString& text) {
    node->setData(0, kTextRole, text);
    const bool hasFields = HoldsFields(text);
    node->setText(1, hasFields ? QString() : text.simplified());
    qDeleteAll(node->takeChildren());
    if (!hasFields || fields_ == Fields::None)
        return;
    if (fields_ == Fields::AtOnce || node->isExpanded())
        addFields(node);
    else
        node->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
}

void RecordTree::addFields(QTreeWidgetItem* node) {
    if (node->childCount() > 0)
        return;
    const QString text = TextOf(node);
    for (FieldWalk field(text); field.next();) {
        if (!field.closed())
            continue;
        auto* child = new QTreeWidgetItem(node, {field.name().toString()});
        setNodeText(child, field.value().toString());
    }
}

QStringList RecordTree::PathOf(const QTreeWidgetItem* node) {
    QStringList path;
    for (; node; node = node->parent())
        path.prepend(node->text(0));
    return path;
}

bool RecordTree::IsRecord(const QTreeWidgetItem* node) {
    return node && node->parent() && !node->parent()->parent();
}

QString RecordTree::TextOf(const QTreeWidgetItem* node) {
    return node ? node->data(0, kTextRole).toString() : QString();
}

QTreeWidgetItem* RecordTree::find(QStringView project, QStringView record) const {
    QTreeWidgetItem* node = ChildNamed(invisibleRootItem(), project);
    return node && !record.isEmpty() ? ChildNamed(node, record) : node;
}

void RecordTree::setText(QTreeWidgetItem* node, const QString& text) {
    setNodeText(node, text);
    for (; QTreeWidgetItem* around = node->parent(); node = around)
        around->setData(0, kTextRole, SetTag(TextOf(around), node->text(0), TextOf(node)));
}

} // namespace hotel
