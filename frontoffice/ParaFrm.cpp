#include "frontoffice/ParaFrm.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "house/rooms/working_days.h"
#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/date_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/parameters.h"

namespace hotel {

namespace {

// The parameters as the tabs show them: each group goes on up to the first parameter of the next.
struct Group {
    QStringView caption;
    QStringView first;
};
constexpr Group kGroups[] = {
    {u"宾馆与数据库", u"Yhdwmc"},
    {u"人事与考勤", u"YgxxPath"},
    {u"打印格式", u"ZsdjFmt"},
    {u"结账与提醒", u"AutoFy"},
};
constexpr int kColumns = 4;

// What the time limits of the room charge and the rounding of a settlement do.
struct Explanation {
    QStringView parameter;
    QStringView words;
};
constexpr Explanation kExplanations[] = {
    {u"JeGs", u"实际上决定结账时数据取舍,减少零钱带来的麻烦和统计误差"},
    {u"XYtks", u"早上在这个时间以前的客人算昨天，房费计算全天，在此时间以后的客人，到中午算半天。"},
    {u"Bjsx1", u"早上入住的客人，在此时间之前结算算半天。超过后算一天。"},
    {u"Bjsx2", u"中午以后入住的客人，到此时间之前结账，算半天；延时结账的客人也算半天。"},
    {u"Yjbj", u"夜间入住的客人，在此时间之后入住,当天中午结算,按半天收费。超过后算一天。"},
};

bool IsTime(QStringView parameter) {
    const auto found = std::ranges::find(Parameters(), parameter, &Parameter::name);
    return found->kind == ParameterKind::Time;
}

std::span<const Parameter> ParametersOf(qsizetype group) {
    const auto indexOf = [](QStringView name) {
        const auto all = Parameters();
        return size_t(std::ranges::find(all, name, &Parameter::name) - all.begin());
    };
    const size_t first = indexOf(kGroups[group].first);
    const bool isLast = group + 1 == std::ssize(kGroups);
    const size_t end = isLast ? Parameters().size() : indexOf(kGroups[group + 1].first);
    return Parameters().subspan(first, end - first);
}

FormField FieldOf(const Parameter& parameter) {
    constexpr int kWidth = 16;
    if (parameter.kind == ParameterKind::Switch)
        return {{}, parameter.name, parameter.label, Editor::Check};
    const Editor editor = IsTime(parameter.name) ? Editor::ShortTime : Editor::Text;
    return {{}, parameter.name, parameter.label, editor, {}, kWidth};
}

QLabel* Explain(const Parameter& parameter) {
    const auto explanation =
        std::ranges::find(kExplanations, parameter.name, &Explanation::parameter);
    if (explanation == std::end(kExplanations))
        return nullptr;
    auto* label = new QLabel(parameter.label + u"："_s + explanation->words);
    label->setWordWrap(true);
    return label;
}

using namespace working_day;

const QList<FormField> kDayFields = {
    {kRemark, u"Gzrsm", u"说明", Editor::Text, {}, 24},
    {kDate, u"Rq", u"日期", Editor::Date},
    {kWeekday, u"Hsxq", u"换算星期", Editor::Category, {}, 10},
};

} // namespace

ParaFrm::ParaFrm() : Screen(u"ParaFrm"_s, u"宾馆系统基本参数"_s) {
    auto* tabs = new QTabWidget;
    tabs->setObjectName(u"tabs"_s);
    for (qsizetype group = 0; group < std::ssize(kGroups); ++group)
        tabs->addTab(makeParameters(group), kGroups[group].caption.toString());
    tabs->addTab(makeWorkingDays(), u"特殊工作日"_s);
    setContent(tabs);
    addCommands({{u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape}});
    resize(1180, 690);
}

QWidget* ParaFrm::makeParameters(qsizetype group) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    QList<FormField> fields;
    for (const Parameter& parameter : ParametersOf(group))
        fields.append(FieldOf(parameter));
    auto* form = new FieldForm(fields, kColumns);
    parameters_.append(form);
    layout->addWidget(form);
    layout->addSpacing(12);
    for (const Parameter& parameter : ParametersOf(group)) {
        if (QLabel* label = Explain(parameter))
            layout->addWidget(label);
    }
    layout->addStretch();
    on(form, &FieldForm::left, [this, form](const QString& name) { Parameter_Change(form, name); });
    on(form, &FieldForm::edited, [this, form](const QString& name) {
        if (qobject_cast<QCheckBox*>(form->editor(name)))
            Parameter_Change(form, name);
    });
    return page;
}

QWidget* ParaFrm::makeWorkingDays() {
    GzrQd = new GridView(u"GzrQd"_s);
    day_ = new FieldForm(kDayFields, int(kDayFields.size()));
    day_->setChoices(u"Hsxq", Weekdays());
    day_->editor(u"Hsxq")->installEventFilter(this);

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(GzrQd, 1);
    layout->addWidget(day_);
    layout->addWidget(commandPanel({
        {u"AddRq"_s, u"增加"_s, [this] { AddRq_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"DelRq"_s, u"删除"_s, [this] { DelRq_Click(); }, Qt::Key_F7},
        {u"SaveRq"_s, u"保存"_s, [this] { SaveRq_Click(); }, Qt::Key_F8},
    }));
    on(day_, &FieldForm::left, [this](const QString& control) {
        if (control == u"Rq")
            Rq_LostFocus();
    });
    return page;
}

void ParaFrm::load(const QVariant&) {
    for (FieldForm* form : parameters_) {
        for (const FormField& field : form->fields())
            form->setText(field.control, Param(field.control));
    }
    if (!daysChanged_)
        readDays();
}

// Saving replaces all that is stored, so a list that could not be read is not to be changed.
void ParaFrm::readDays() {
    const auto days = LoadWorkingDays();
    GzrQd->setTable(days.value_or(TextTable()));
    day_->clear();
    day_->setText(u"Rq", Clock::DateText());
    showDays(false);
    setCommandEnabled(u"AddRq", days.has_value());
    setCommandEnabled(u"DelRq", days.has_value());
    setStatus(days ? u"参数修改后立即有效，程序结束后恢复原来的设定"_s
                   : u"没有读到特殊工作日，暂时不能修改；连接恢复后请再次打开系统参数"_s);
}

// --- parameters ---

// A time that is none is not taken: it stays on the screen to be mended.
void ParaFrm::Parameter_Change(FieldForm* form, const QString& name) {
    const QString value = form->text(name);
    if (!IsTime(name) || !TimeFromTyped(value).isEmpty())
        SetParam(name, value);
}

// --- special working days ---

void ParaFrm::Rq_LostFocus() {
    dateIsGood();
}

bool ParaFrm::dateIsGood() {
    const QDate day = QDate::fromString(day_->text(u"Rq"), Qt::ISODate);
    const auto refusal = day.isValid() ? CheckWorkingDay(day, Clock::Today())
                                       : Notice{u"错误"_s, u"日期错误，必须输入！"_s};
    if (!refusal)
        return true;
    MsgBox(refusal->words, refusal->title);
    day_->setText(u"Rq", Clock::DateText());
    return false;
}

void ParaFrm::AddRq_Click() {
    if (!dateIsGood())
        return;
    const WorkingDayChange change =
        AddWorkingDay(GzrQd->table(), day_->text(u"Gzrsm"), day_->text(u"Rq"), day_->text(u"Hsxq"));
    if (change.refusal)
        MsgBox(change.refusal->words, change.refusal->title);
    if (!change.changed)
        return;
    showDays(true);
    GzrQd->setCurrent(GzrQd->table().rows() - 1);
    auto* remark = day_->editor<QLineEdit>(u"Gzrsm");
    remark->setFocus();
    remark->selectAll();
}

void ParaFrm::DelRq_Click() {
    const int row = GzrQd->currentRow();
    if (row == 0)
        return;
    for (const FormField& field : kDayFields)
        day_->setText(field.control, GzrQd->table().text(row, field.tag));
    RemoveWorkingDay(GzrQd->table(), row);
    showDays(true);
}

bool ParaFrm::SaveRq_Click() {
    const auto failure = SaveWorkingDays(GzrQd->table());
    if (failure) {
        MsgBox(failure->words, failure->title);
        return false;
    }
    showDays(false);
    return true;
}

void ParaFrm::showDays(bool changed) {
    daysChanged_ = changed;
    GzrQd->refresh();
    GzrQd->autoFit();
    setCommandEnabled(u"SaveRq", changed);
}

bool ParaFrm::closing() {
    for (FieldForm* form : parameters_) {
        for (const FormField& field : form->fields())
            Parameter_Change(form, field.control.toString());
    }
    const bool save =
        daysChanged_ && AskYesNo(u"特殊工作日的修改还没有保存，要保存吗？"_s, u"提示"_s);
    return !save || SaveRq_Click();
}

bool ParaFrm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const QString weekday = WeekdayOfKey(static_cast<QKeyEvent*>(event)->text());
        if (!weekday.isEmpty()) {
            day_->setText(u"Hsxq", weekday);
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

} // namespace hotel
