#include "tools/lists/FlmcFrm.h"

#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "tools/aids/categories.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace hotel {

namespace {

constexpr int kFirstColumn = 1; // column 0 numbers the rows
constexpr int kTimerMilliseconds = 500;

} // namespace

bool CategoryMayGrow(QStringView category) {
    return category != category::kRoomStates && category != category::kGuarantees;
}

GridCell NextCategoryCell(const TextTable& table, GridCell from) {
    GridCell next{from.row, from.column + 1};
    if (next.column >= table.cols())
        next = {from.row + 1, kFirstColumn};
    next.row = std::min(next.row, table.dataRows());
    while (next.row > 1 && table.text(next.row, tag::kEntry).isEmpty())
        --next.row;
    return next;
}

FlmcFrm::FlmcFrm() : Screen(u"FlmcFrm"_s, u"分类定义信息管理"_s) {
    FlmcQd = new QComboBox;
    FlmcQd->setObjectName(u"FlmcQd"_s);
    FlxxQd = new GridView(u"FlxxQd"_s);
    FlxxQd->setEnterMove([this](GridCell from) { return NextCategoryCell(FlxxQd->table(), from); });

    auto* choice = new QFormLayout;
    choice->addRow(u"分类名称"_s, FlmcQd);
    auto* layout = new QVBoxLayout;
    layout->addLayout(choice);
    layout->addWidget(FlxxQd, 1);
    setContent(layout);
    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F2},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F3},
        {u"CmdSave"_s, u"保存"_s, [this] { CmdSave_Click(); }, Qt::Key_F8, CommandKind::Default},
        {u"CmdPrint"_s, u"打印"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9},
        {u"CmdFile"_s, u"存文件"_s, [this] { CmdFile_Click(); }, Qt::Key_F10},
    });

    on(FlmcQd, &QComboBox::activated, [this] { FlmcQd_Click(); });
    on(FlxxQd, &GridView::rowClicked, [this](int row, int column) {
        if (column < kFirstColumn)
            FlxxQd->setCurrent(row, kFirstColumn);
    });
    on(FlxxQd, &GridView::cellEdited, [this] { Timer1_Timer(); });
    every(kTimerMilliseconds, [this] { Timer1_Timer(); });
    resize(900, 640);
}

void FlmcFrm::load(const QVariant&) {
    if (hasUnsavedRows()) // asked for again: what was typed stays
        return;
    shown_.clear();
    FlmcQd->clear();
    FlmcQd->addItems(LoadCategoryNames());
    FlmcQd->setCurrentIndex(-1);
    showRows(CategoryTable({}));
}

void FlmcFrm::showRows(const TextTable& table) {
    FlxxQd->setTable(table);
    FlxxQd->setReadOnly();
    for (int column = kFirstColumn; column < table.cols(); ++column) {
        const bool isKey = table.headers()[column] == tag::kShortKey;
        FlxxQd->setEditable(column, {isKey ? KeyFilter::Letters : KeyFilter::Any});
    }
    FlxxQd->autoFit();
    FlxxQd->setCurrent(1, kFirstColumn);
    FlxxQd->setModified(false);
    const bool mayGrow = !shown_.isEmpty() && CategoryMayGrow(shown_);
    setCommandEnabled(u"CmdAdd", mayGrow);
    setCommandEnabled(u"cmdDel", mayGrow);
    Timer1_Timer();
}

void FlmcFrm::FlmcQd_Click() {
    const QString chosen = FlmcQd->currentText();
    if (chosen.isEmpty() || chosen == shown_)
        return;
    if (!offerToSave()) {
        FlmcQd->setCurrentText(shown_);
        return;
    }
    const RecordRead category = ReadProjectToChange(CategoryFile(), chosen);
    shown_ = category.failed() ? QString() : chosen;
    showRows(CategoryTable(category.value));
    if (category.failed()) {
        FlmcQd->setCurrentIndex(-1); // choosing it again reads it again
        MsgBox(u"分类名称读取失败,请稍候再选一次!"_s, u"数据库错误"_s);
    }
}

void FlmcFrm::CmdAdd_Click() {
    TextTable& table = FlxxQd->table();
    if (!table.text(table.dataRows(), tag::kEntry).isEmpty()) {
        table.addRow();
        table.numberRows(0, kCategoryNumberFormat);
        FlxxQd->rowsAdded();
        FlxxQd->setModified(true);
        Timer1_Timer();
    }
    FlxxQd->setCurrent(table.dataRows(), table.column(tag::kEntry));
    FlxxQd->setFocus();
}

void FlmcFrm::cmdDel_Click() {
    TextTable& table = FlxxQd->table();
    if (table.dataRows() == 1) {
        MsgBox(u"分类信息属于系统重要信息,不能全部删除!最后一行只能修改"_s, u"非法操作"_s);
        return;
    }
    const int row = FlxxQd->currentRow();
    if (row == 0)
        return;
    table.removeRow(row);
    table.numberRows(0, kCategoryNumberFormat);
    FlxxQd->refresh();
    FlxxQd->setCurrent(std::min(row, table.dataRows()));
    FlxxQd->setModified(true);
    Timer1_Timer();
}

void FlmcFrm::CmdSave_Click() {
    FlxxQd->finishCell();
    if (!FlxxQd->isModified() || shown_.isEmpty())
        return;
    saveShown();
}

bool FlmcFrm::saveShown() {
    const bool saved = save(CategoryText(FlxxQd->table()));
    if (saved)
        MsgBox(u"分类名称修改成功"_s, u"操作正常"_s);
    else
        MsgBox(u"记录修改失败"_s, u"数据库错误"_s);
    FlxxQd->setModified(false);
    Timer1_Timer();
    SaveLogRec(u"修改分类名称定义"_s, shown_);
    return saved;
}

bool FlmcFrm::save(const QString& text) {
    const QString file = CategoryFile();
    if (text.isEmpty())
        return DbCreateProject(file, shown_) == 0;
    return DbModifyRecord(file, {}, shown_, text) == 0 ||
           DbModifyRecord(file, {}, shown_, text) == 0;
}

bool FlmcFrm::hasUnsavedRows() const {
    return !shown_.isEmpty() && FlxxQd->isModified();
}

bool FlmcFrm::offerToSave() {
    FlxxQd->finishCell();
    const bool save =
        hasUnsavedRows() &&
        AskYesNo(u"分类名称“%1”的修改还没有保存，要保存吗？"_s.arg(shown_), u"提示"_s);
    return !save || saveShown();
}

bool FlmcFrm::closing() {
    return offerToSave();
}

void FlmcFrm::CmdPrint_Click() {
    SaveLogRec(u"执行分类名称打印功能"_s, shown_);
    PrintGrid(*FlxxQd, u"分类名称："_s + shown_);
}

void FlmcFrm::CmdFile_Click() {
    SaveGridToText(FlxxQd->table(), u"本查询结果"_s,
                   Param(u"ScwjLj") + shown_ + Clock::Today().toString(u"yyMMdd") + u".txt"_s);
}

void FlmcFrm::Timer1_Timer() {
    const bool hasRows = FlxxQd->table().dataRows() > 0;
    setCommandEnabled(u"CmdPrint", hasRows);
    setCommandEnabled(u"CmdFile", hasRows);
    setCommandEnabled(u"CmdSave", !shown_.isEmpty() && FlxxQd->isModified());
}

} // namespace hotel
