#include "tools/PrtForm.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/parameters.h"
#include "tools/PrtSubs.h"

namespace hotel {

namespace {

const QString kFormatFiles = u"*.qvr"_s;

// Where a node's field is found: project, record, and the fields inside it.
QStringList PathOf(const QTreeWidgetItem* node) {
    QStringList path;
    for (; node; node = node->parent())
        path.prepend(node->text(0));
    return path;
}

QStringList FormatFiles(const QString& folder) {
    QStringList files;
    for (int n = 1; n <= kFormatFileLimit; ++n) {
        const QString name = DbFileList(folder, kFormatFiles, n);
        if (name.isEmpty())
            break;
        files.append(folder + name);
    }
    return files;
}

// A block has cells, a form has blocks.
bool IsBlock(QStringView text) {
    FieldWalk walk(text);
    while (walk.next())
        if (walk.name() == u"00")
            return true;
    return false;
}

bool IsForm(QStringView text) {
    FieldWalk walk(text);
    while (walk.next())
        if (IsBlock(walk.value()))
            return true;
    return false;
}

void PrintForm(const QString& form) {
    double y = 0;
    FieldWalk walk(form);
    while (walk.next())
        y += PrintFormBlock(form, walk.name(), 0, y);
}

} // namespace

QString FieldAt(const QString& text, const QStringList& path) {
    QString value = text;
    for (const QString& name : path)
        value = GetTag(value, name);
    return value;
}

QString WithFieldAt(const QString& text, const QStringList& path, const QString& value) {
    if (path.isEmpty())
        return value;
    const QString inner = WithFieldAt(GetTag(text, path.first()), path.sliced(1), value);
    return SetTag(text, path.first(), inner);
}

PrtForm::PrtForm()
    : Screen(u"PrtForm"_s, u"打印格式设定"_s), FmtFile(new QComboBox), QVRTrVw(new QTreeWidget),
      FldName(new QLineEdit), FldValue(new QPlainTextEdit) {
    FmtFile->setObjectName(u"FmtFile"_s);
    QVRTrVw->setObjectName(u"QVRTrVw"_s);
    QVRTrVw->setColumnCount(2);
    QVRTrVw->setHeaderLabels({u"名称"_s, u"内容"_s});
    QVRTrVw->setColumnWidth(0, 220);
    FldName->setObjectName(u"FldName"_s);
    FldName->setReadOnly(true);
    FldValue->setObjectName(u"FldValue"_s);

    auto* fields = new QFormLayout;
    fields->addRow(u"格式文件"_s, FmtFile);
    fields->addRow(u"名称"_s, FldName);
    fields->addRow(u"内容"_s, FldValue);
    auto* right = new QWidget;
    right->setLayout(fields);
    auto* content = new QSplitter;
    content->addWidget(QVRTrVw);
    content->addWidget(right);
    content->setStretchFactor(0, 1);
    content->setStretchFactor(1, 1);
    setContent(content);

    addCommands({
        {u"Modify_field"_s, u"修改内容"_s, [this] { Modify_field_Click(); }, Qt::Key_F6},
        {u"Save_cmd"_s, u"保存"_s, [this] { Save_cmd_Click(); }, Qt::Key_F8},
        {u"Preview_cmd"_s, u"预览"_s, [this] { Preview_cmd_Click(); }, Qt::Key_F9},
        {u"Exit_cmd"_s, u"关闭"_s, [this] { close(); }},
    });
    on(FmtFile, &QComboBox::activated, [this] { FmtFile_Click(); });
    on(QVRTrVw, &QTreeWidget::currentItemChanged, [this] { ShowField(); });
    resize(1000, 700);
}

void PrtForm::load(const QVariant&) {
    if (!AskToSave())
        return;
    FmtFile->clear();
    FmtFile->addItems(FormatFiles(Param(u"XtgsLj")));
    FmtFile->addItems(FormatFiles(Param(u"DygsLj")));
    FmtFile->setCurrentIndex(-1);
    file_.clear();
    LoadTree();
}

void PrtForm::FmtFile_Click() {
    if (!AskToSave()) {
        FmtFile->setCurrentText(file_);
        return;
    }
    file_ = FmtFile->currentText();
    FmtFile->setEnabled(false);
    LoadTree();
    FmtFile->setEnabled(true);
}

void PrtForm::LoadTree() {
    projects_.clear();
    changed_.clear();
    QVRTrVw->clear();
    for (int n = 1; !file_.isEmpty() && stillOpen(); ++n) {
        const QString name = DbProjectList(file_, n);
        if (name.isEmpty())
            break;
        const QString text = DbReadRecord(file_, u"", name);
        if (IsError(text))
            continue;
        projects_.append({name, text});
        auto* node = new QTreeWidgetItem(QVRTrVw, {name});
        AddFields(node, text);
        node->setExpanded(true);
    }
    ShowField();
}

void PrtForm::AddFields(QTreeWidgetItem* node, const QString& text) {
    FieldWalk walk(text);
    while (walk.next()) {
        if (!walk.closed())
            continue;
        const QString value = walk.value().toString();
        auto* field = new QTreeWidgetItem(node, {walk.name().toString()});
        AddFields(field, value);
        if (field->childCount() == 0)
            field->setText(1, value.simplified());
    }
}

QString* PrtForm::ProjectText(const QString& name) {
    for (Project& project : projects_)
        if (project.name == name)
            return &project.text;
    return nullptr;
}

QString PrtForm::TextAt(const QStringList& path) {
    const QString* text = path.isEmpty() ? nullptr : ProjectText(path.first());
    return text ? FieldAt(*text, path.sliced(1)) : QString();
}

void PrtForm::ShowField() {
    const QStringList path = PathOf(QVRTrVw->currentItem());
    FldName->setText(path.isEmpty() ? QString() : path.last());
    FldValue->setPlainText(TextAt(path));
    setCommandEnabled(u"Modify_field", path.size() > 1);
    setCommandEnabled(u"Save_cmd", !changed_.isEmpty());
    setCommandEnabled(u"Preview_cmd", !path.isEmpty());
}

void PrtForm::Modify_field_Click() {
    QTreeWidgetItem* node = QVRTrVw->currentItem();
    const QStringList path = PathOf(node);
    if (path.size() < 2)
        return;
    QString* text = ProjectText(path.first());
    const QString value = FldValue->toPlainText().replace(u'\n', kCrLf);
    *text = WithFieldAt(*text, path.sliced(1), value);
    const RecordName record(path.at(0), path.at(1));
    if (!changed_.contains(record))
        changed_.append(record);

    qDeleteAll(node->takeChildren());
    AddFields(node, value);
    node->setText(1, node->childCount() == 0 ? value.simplified() : QString());
    ShowField();
}

void PrtForm::Save_cmd_Click() {
    if (SaveChanges())
        setStatus(u"打印格式已经保存"_s);
}

bool PrtForm::SaveChanges() {
    while (!changed_.isEmpty()) {
        const auto [project, record] = changed_.first();
        const QString value = TextAt({project, record});
        if (DbModifyRecord(file_, project, record, value) != 0 &&
            DbModifyRecord(file_, project, record, value) != 0) {
            MsgBox(u"打印格式没有保存成功，请稍候再试！"_s, u"注意"_s);
            break;
        }
        changed_.removeFirst();
    }
    ShowField();
    return changed_.isEmpty();
}

// False when the changes must not be lost.
bool PrtForm::AskToSave() {
    if (changed_.isEmpty() || !AskYesNo(u"打印格式已经修改，是否保存？"_s, u"请确认"_s))
        return true;
    return SaveChanges();
}

bool PrtForm::closing() {
    return AskToSave();
}

// Prints the form that holds the chosen field as it stands, saved or not.
void PrtForm::Preview_cmd_Click() {
    QStringList path = PathOf(QVRTrVw->currentItem());
    while (!path.isEmpty() && !IsForm(TextAt(path)))
        path.removeLast();
    if (path.isEmpty()) {
        MsgBox(u"所选的内容不是打印格式，无法预览！"_s, u"无法预览"_s);
        return;
    }
    QString paperText = TextAt({tag::kPaper.toString()});
    if (paperText.isEmpty())
        paperText = TextAt({path.first(), tag::kPaper.toString()});
    const PaperFormat paper = ReadPaperFormat(paperText);
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    StartPage();
    PrintForm(TextAt(path));
    EndPage();
    PreviewPrintJob();
}

} // namespace hotel
