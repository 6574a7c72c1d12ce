#include "tools/paper/PrtForm.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/parameters.h"
#include "tools/aids/record_tree.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

const QString kFormatFiles = u"*.qvr"_s;

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

PrtForm::PrtForm()
    : Screen(u"PrtForm"_s, u"打印格式设定"_s), FmtFile(new QComboBox),
      QVRTrVw(new RecordTree(u"QVRTrVw"_s, RecordTree::Fields::AtOnce)), FldName(new QLineEdit),
      FldValue(new QPlainTextEdit) {
    FmtFile->setObjectName(u"FmtFile"_s);
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
    changed_.clear();
    const RecordTree::Load load = QVRTrVw->load(*this, file_);
    for (int n = 0; n < QVRTrVw->topLevelItemCount(); ++n)
        QVRTrVw->topLevelItem(n)->setExpanded(true);
    setStatus(load == RecordTree::Load::Complete ? QString() : u"格式文件没有读完"_s);
    ShowField();
}

void PrtForm::ShowField() {
    const QTreeWidgetItem* node = QVRTrVw->currentItem();
    FldName->setText(node ? node->text(0) : QString());
    FldValue->setPlainText(RecordTree::TextOf(node));
    setCommandEnabled(u"Modify_field", node && node->parent());
    setCommandEnabled(u"Save_cmd", !changed_.isEmpty());
    setCommandEnabled(u"Preview_cmd", node);
}

void PrtForm::Modify_field_Click() {
    QTreeWidgetItem* node = QVRTrVw->currentItem();
    if (!node || !node->parent())
        return;
    QVRTrVw->setText(node, FldValue->toPlainText().replace(u'\n', kCrLf));
    while (!RecordTree::IsRecord(node))
        node = node->parent();
    if (!changed_.contains(node))
        changed_.append(node);
    ShowField();
}

void PrtForm::Save_cmd_Click() {
    if (SaveChanges())
        setStatus(u"打印格式已经保存"_s);
}

bool PrtForm::SaveChanges() {
    while (!changed_.isEmpty()) {
        const QString project = changed_.first()->parent()->text(0);
        const QString record = changed_.first()->text(0);
        const QString value = RecordTree::TextOf(changed_.first());
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
    const QTreeWidgetItem* node = QVRTrVw->currentItem();
    while (node && !IsForm(RecordTree::TextOf(node)))
        node = node->parent();
    if (!node) {
        MsgBox(u"所选的内容不是打印格式，无法预览！"_s, u"无法预览"_s);
        return;
    }
    QString paperText = RecordTree::TextOf(QVRTrVw->find(tag::kPaper));
    if (paperText.isEmpty())
        paperText =
            RecordTree::TextOf(QVRTrVw->find(RecordTree::PathOf(node).first(), tag::kPaper));
    const PaperFormat paper = ReadPaperFormat(paperText);
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    StartPage();
    PrintForm(RecordTree::TextOf(node));
    EndPage();
    PreviewPrintJob();
}

} // namespace hotel
