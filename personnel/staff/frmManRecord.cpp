#include "personnel/staff/frmManRecord.h"

#include <QHBoxLayout>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "link/serv_api.h"
#include "personnel/staff/employee_card.h"
#include "personnel/staff/employee_lists.h"
#include "personnel/staff/employee_print.h"
#include "personnel/staff/entries_widget.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "tools/aids/identity_number.h"
#include "tools/aids/photo_frame.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kSettled[] = {u"YgBm", u"JzBm1", u"JzBm2", u"Zt", u"Sfzh", u"Kh"};

// With Alt, by the number of the page.
constexpr QStringView kPageKeys = u"1234567890W";

// What the program knows of a new entry better than who types it.
QString Completed(QStringView list, QString entry) {
    const QString user = CurrentSession().userName;
    const auto fill = [&entry](QStringView field, const QString& value) {
        if (EmployeeValue(entry, field).isEmpty())
            entry = SetTag(entry, field, value);
    };
    if (list == kShiftPeriods)
        return SetTag(entry, shift_period::kWeekdays,
                      WeekdaySetting(EmployeeValue(entry, shift_period::kWeekdays)));
    if (list == kCareer)
        fill(u"录入员", user);
    if (list == kMaterials) {
        fill(u"领用日期", Clock::DateText());
        fill(u"领用经办", user);
    }
    return entry;
}

void Show(const Notice& notice) {
    MsgBox(notice.words, notice.title);
}

} // namespace

frmManRecord::frmManRecord(const QString& name)
    : Screen(name, u"员工信息"_s), pages_(new QTabWidget),
      ImgZp(new PhotoFrame(u"ImgZp"_s, u"没有照片"_s)) {
    ImgZp->setFixedSize(132, 168);
    makePages();
    auto* head = new QHBoxLayout;
    head->addWidget(forms_.first(), 1);
    head->addWidget(ImgZp);
    auto* content = new QVBoxLayout;
    content->addLayout(head);
    content->addWidget(pages_, 1);
    setContent(content);

    addCommands({
        {u"CmdSave"_s, u"保存"_s, [this] { CmdSave_Click(); }, Qt::Key_F8, CommandKind::Default},
        {u"CmdNew"_s, u"新员工"_s, [this] { CmdNew_Click(); }, Qt::Key_F4},
        {u"CmdKaH"_s, u"考勤卡"_s, [this] { CmdKaH_Click(); }, Qt::Key_F2, CommandKind::Plain,
         u"aids"_s},
        {u"CmdBarCode"_s, u"条码卡"_s, [this] { CmdBarCode_Click(); }, Qt::Key_F3,
         CommandKind::Plain, u"aids"_s},
        {u"CmdZp"_s, u"照片"_s, [this] { ImgZp_Click(); }, Qt::Key_F11, CommandKind::Plain,
         u"aids"_s},
        {u"CmdPrint"_s, u"打印"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"aids"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    formOf(u"Zt")->editor(u"Zt")->installEventFilter(this);
    ImgZp->installEventFilter(this);
    resize(1180, 700);
}

void frmManRecord::makePages() {
    pages_->setObjectName(u"Pages"_s);
    forms_.append(new FieldForm(HeadFields(), kHeadColumns));
    for (const FieldsPage& page : FieldsPages()) {
        auto* form = new FieldForm(page.fields, kPageColumns);
        auto* sheet = new QWidget;
        auto* content = new QVBoxLayout(sheet);
        content->addWidget(form);
        content->addStretch(1);
        pages_->addTab(sheet, u"%1(&%2)"_s.arg(page.caption).arg(kPageKeys[pages_->count()]));
        forms_.append(form);
    }
    for (const EntriesPage& page : EntriesPages())
        addEntriesPage(page);
    // Who turns to a list wants to type an entry.
    connect(pages_, &QTabWidget::currentChanged, this, [this](int page) {
        if (auto* list = qobject_cast<EntriesWidget*>(pages_->widget(page)))
            list->form()->editor(list->page().fields.first().control)->setFocus();
    });
    for (FieldForm* form : forms_)
        on(form, &FieldForm::left, [this](const QString& control) { fieldLeft(control); });

    formOf(u"Zt")->setChoices(u"Zt", EmployeeStatuses());
    formOf(u"Xb")->setChoices(u"Xb", {u"男"_s, u"女"_s});
    formOf(u"Hyzt")->setChoices(u"Hyzt", {u"未婚"_s, u"已婚"_s, u"离异"_s, u"丧偶"_s});
    formOf(u"Xlxw")->setChoices(
        u"Xlxw", {u"初中"_s, u"高中"_s, u"中专"_s, u"大专"_s, u"本科"_s, u"硕士"_s, u"博士"_s});
    FieldForm* shifts = lists_.first()->form();
    shifts->setChoices(u"SdBcmc", {u"早班"_s, u"中班"_s, u"夜班"_s, u"行政班"_s});
    shifts->setChoices(u"SdKqfs", {u"常规"_s, u"时间"_s, u"倒班"_s, u"登记"_s});
    shifts->editor(u"SdXqsd")->setToolTip(u"七位，从星期一开始：1 上班，0 休息"_s);
    lists_.last()->form()->setChoices(u"WzZt", {u"领用"_s, u"归还"_s, u"遗失"_s, u"损坏"_s});
}

void frmManRecord::addEntriesPage(const EntriesPage& page) {
    auto* list = new EntriesWidget(page);
    list->setCommands(commandPanel({
        {page.add, u"增加"_s, [this, list] { AddEntry(list); }, Qt::Key_F5},
        {page.modify, u"修改"_s, [this, list] { ModEntry(list); }, Qt::Key_F6},
        {page.remove, u"删除"_s, [this, list] { DelEntry(list); }, Qt::Key_F7},
    }));
    // Behind the last field that is typed the entry is complete.
    const auto last =
        std::find_if(page.fields.rbegin(), page.fields.rend(),
                     [](const FormField& field) { return field.editor != Editor::ReadOnly; });
    onEnter(list->form()->editor(last->control), [this, list] { AddEntry(list); });
    pages_->addTab(list, u"%1(&%2)"_s.arg(page.caption).arg(kPageKeys[pages_->count()]));
    lists_.append(list);
}

// --- opening ---

void frmManRecord::load(const QVariant& argument) {
    if (!unchanged_.isEmpty() && !offerToSave())
        return;
    const QStringList who = argument.toStringList();
    open({who.value(0), who.value(1)});
}

void frmManRecord::open(const EmployeeKey& key) {
    const QStringList departments = OfferedDepartments();
    formOf(u"YgBm")->setChoices(u"YgBm", departments);
    for (const QStringView second : {u"JzBm1", u"JzBm2"})
        formOf(second)->setChoices(second, QStringList{QString()} + departments);
    QString record;
    if (key.isNew()) {
        record = SetTag(SetTag({}, kNumber, NextEmployeeNumber()), kDepartment, key.department);
    } else {
        const RecordRead read = ReadToChange(EmployeeFile(), key.department, key.number);
        if (read.outcome != Reading::Present) {
            MsgBox(u"不能读取这个员工的信息："_s + key.number, u"请注意"_s);
            return close(), void();
        }
        record = read.value;
    }
    before_ = key;
    show(record);
    showPhotograph();
    goTo(formOf(u"Xm")->editor(u"Xm"));
}

void frmManRecord::show(const QString& record) {
    stored_ = record;
    QString fields; // the single ones: a form would look into the lists as well
    for (const QStringView field : EmployeeFields())
        fields = SetTag(fields, field, EmployeeValue(record, field));
    for (FieldForm* form : forms_)
        form->load(fields);
    for (EntriesWidget* list : lists_)
        list->setEntries(EmployeeEntries(record, list->page().list));
    for (const QStringView control : kSettled)
        settled_.insert(control.toString(), text(control));
    unchanged_ = composed();
    setWindowTitle(before_.isNew() ? u"员工信息 - 新员工"_s : u"员工信息 - "_s + text(u"Xm"));
    setStatus({});
}

void frmManRecord::showPhotograph() {
    photograph_.clear();
    photographToSend_ = false;
    const QString local = photographs_.filePath(u"photograph.jpg"_s);
    if (!before_.isNew() && DbDownloadFile(EmployeePhotographFile(before_.number), local) == 0)
        photograph_ = local;
    SetPhoto(ImgZp, photograph_);
}

// --- the fields ---

FieldForm* frmManRecord::formOf(QStringView control) const {
    for (FieldForm* form : forms_) {
        for (const FormField& field : form->fields()) {
            if (field.control == control)
                return form;
        }
    }
    qFatal("the card has no control %s", qPrintable(control.toString()));
}

QString frmManRecord::text(QStringView control) const {
    return formOf(control)->text(control);
}

void frmManRecord::setText(QStringView control, const QString& text) {
    formOf(control)->setText(control, text);
}

QString frmManRecord::composed() const {
    QString fields;
    for (const FieldForm* form : forms_)
        fields = form->store(fields);
    for (const QStringView trimmed : {kNumber, kName, kCard})
        fields = SetTag(fields, trimmed, TrimWhite(EmployeeValue(fields, trimmed)));
    QString lists;
    for (const EntriesWidget* list : lists_)
        lists += u"<%1>%2</%1>"_s.arg(list->page().list, EntriesText(list->entries()));
    return ComposeEmployee(fields, lists, stored_);
}

bool frmManRecord::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ImgZp && event->type() == QEvent::MouseButtonRelease)
        run([this] { ImgZp_Click(); });
    if (watched->objectName() == u"Zt" && event->type() == QEvent::FocusIn && text(u"Zt").isEmpty())
        setText(u"Zt", kTrialStatus.toString());
    return Screen::eventFilter(watched, event);
}

void frmManRecord::fieldLeft(const QString& control) {
    static const QHash<QString, void (frmManRecord::*)()> handlers = {
        {u"YgBm"_s, &frmManRecord::YgBm_LostFocus},   {u"JzBm1"_s, &frmManRecord::JzBm1_LostFocus},
        {u"JzBm2"_s, &frmManRecord::JzBm2_LostFocus}, {u"Zt"_s, &frmManRecord::Zt_Click},
        {u"Sfzh"_s, &frmManRecord::Sfzh_LostFocus},
    };
    if (const auto handler = handlers.value(control))
        (this->*handler)();
}

void frmManRecord::settle() {
    Sfzh_LostFocus();
    YgBm_LostFocus();
    JzBm1_LostFocus();
    JzBm2_LostFocus();
    Zt_Click();
}

// Asks whether the change is to be noted, and notes it.
bool frmManRecord::note(const CareerChange& change, const QString& departmentBefore) {
    if (!AskYesNo(change.question, u"请确认"_s))
        return false;
    for (EntriesWidget* list : lists_) {
        if (list->page().list == kCareer && list->entries().size() < kEmployeeListLimit)
            list->put(list->entries().size(), CareerEntry(composed(), departmentBefore, change));
    }
    return true;
}

void frmManRecord::YgBm_LostFocus() {
    const QString from = settled_[u"YgBm"_s];
    const QString to = text(u"YgBm");
    if (to == from)
        return;
    settled_[u"YgBm"_s] = to;
    const bool transferred =
        before_.isNew() ||
        (!to.isEmpty() && note(TransferChange(text(u"Xm"), from, to, text(u"Zw")), from));
    if (!transferred) {
        setText(u"YgBm", from);
        settled_[u"YgBm"_s] = from;
    }
}

void frmManRecord::secondJobLeft(QStringView department, QStringView post) {
    const QString control = department.toString();
    const QString from = settled_[control];
    const QString to = text(department);
    if (to == from || text(u"Xm").isEmpty())
        return;
    settled_[control] = to;
    if (!note(SecondJobChange(text(u"Xm"), from, to, text(post)), text(u"YgBm"))) {
        setText(department, from);
        settled_[control] = from;
    }
}

void frmManRecord::Zt_Click() {
    const QString from = settled_[u"Zt"_s];
    const QString to = text(u"Zt");
    if (to == from || to.isEmpty() || text(u"Xm").isEmpty())
        return;
    settled_[u"Zt"_s] = to;
    note(EmployeeStatusChange(text(u"Xm"), from, to), text(u"YgBm"));
}

void frmManRecord::Sfzh_LostFocus() {
    const QString number = ToHalfWidth(text(u"Sfzh"));
    if (number.isEmpty() || number == settled_[u"Sfzh"_s])
        return;
    settled_[u"Sfzh"_s] = number;
    setText(u"Sfzh", number);
    const auto identity = AnalyseIdentityNumber(number);
    if (!identity)
        return MsgBox(u"身份证号码有错误"_s, u"请认真核对"_s);
    setText(u"Sr", identity->birthDate);
    setText(u"Xb", identity->sex);
}

// --- the lists ---

void frmManRecord::AddEntry(EntriesWidget* list) {
    const qsizetype place = list->entries().size();
    const QString entry = Completed(list->page().list, list->typed(place));
    if (const auto refused = RefuseEntry(list->page().list, entry, list->entries(), place))
        return Show(*refused);
    list->put(place, entry);
    if (list->page().list == kMaterials)
        SaveLogRec(u"增加员工领用物资"_s, MaterialRemark(entry));
    goTo(list->form()->editor(list->page().fields.first().control));
}

void frmManRecord::ModEntry(EntriesWidget* list) {
    const qsizetype place = list->chosen();
    if (place < 0)
        return MsgBox(u"请选择要修改的记录！"_s, u"请注意"_s);
    const QString entry = Completed(list->page().list, list->typed(place));
    if (const auto refused = RefuseEntry(list->page().list, entry, list->entries(), place))
        return Show(*refused);
    if (!AskYesNo(u"要修改该行信息吗?"_s, u"请确认"_s))
        return;
    list->put(place, entry);
    if (list->page().list == kMaterials)
        SaveLogRec(u"修改员工领用物资结算信息"_s, MaterialRemark(entry));
}

void frmManRecord::DelEntry(EntriesWidget* list) {
    const qsizetype place = list->chosen();
    if (const auto refused = RefuseEntryDeletion(list->entries(), place))
        return Show(*refused);
    const QString entry = list->entries()[place];
    list->removeLast();
    if (list->page().list == kMaterials)
        SaveLogRec(u"删除员工领用物资"_s, MaterialRemark(entry));
}

// --- card and photograph ---

void frmManRecord::CmdKaH_Click() {
    const auto first = InputBox(u"请用今后用于考勤的磁卡刷卡一次..."_s, u"确定新的考勤用卡"_s);
    const QString card = CardText(first.value_or(QString()));
    if (card.isEmpty())
        return;
    const auto second = InputBox(u"请用今后用于考勤的磁卡再刷卡一次..."_s, u"确认新的考勤用卡"_s);
    if (CardText(second.value_or(QString())) != card)
        return MsgBox(u"两次刷卡不一致,必要时重新再试一次！"_s, u"刷卡错误"_s);
    if (const auto refused = RefuseCard(card, before_))
        return Show(*refused);
    if (!before_.isNew()) {
        const CardOutcome outcome = GiveCard(before_, card);
        if (!outcome.done)
            return Show(outcome.notice);
        unchanged_ = WithEmployeeValue(unchanged_, kCard, card);
    }
    setText(u"Kh", card);
    settled_[u"Kh"_s] = card;
    Show(CardGiven());
}

void frmManRecord::CmdBarCode_Click() {
    if (const auto refused = RefuseEmployee(composed()))
        return Show(*refused);
    PrintBarCodeCard(composed());
}

void frmManRecord::ImgZp_Click() {
    const QString file = AskOpenFile(u"选择员工照片"_s, u"图片文件(*.JPG)|*.JPG"_s);
    if (file.isEmpty())
        return;
    if (const auto refused = RefusePhotograph(file))
        return Show(*refused);
    photograph_ = file;
    photographToSend_ = true;
    SetPhoto(ImgZp, file);
    if (!before_.isNew())
        keepPhotograph();
}

bool frmManRecord::keepPhotograph() {
    if (UploadFile(photograph_, EmployeePhotographFile(before_.number)) != 0) {
        MsgBox(u"照片没有保存，请稍候再试！"_s, u"请注意"_s);
        return false;
    }
    photographToSend_ = false;
    return true;
}

// --- keeping what was typed ---

void frmManRecord::CmdSave_Click() {
    save();
}

void frmManRecord::CmdNew_Click() {
    if (offerToSave())
        open({text(u"YgBm"), {}});
}

void frmManRecord::CmdPrint_Click() {
    PrintEmployee(composed());
}

bool frmManRecord::refuseTypedCard() {
    const QString card = CardText(text(u"Kh"));
    if (card.isEmpty() || card == settled_[u"Kh"_s])
        return false;
    const auto refused = RefuseCard(card, before_);
    if (refused)
        Show(*refused);
    return refused.has_value();
}

SaveOutcome frmManRecord::write(const QString& record, bool removeOld) {
    SaveOutcome outcome = SaveEmployee(before_, record, removeOld);
    while (outcome.step == SaveStep::NumberTaken) {
        MsgBox(u"这个员工编号已经使用,不能增加,采用自动生成的号码:"_s + outcome.number,
               u"请注意"_s);
        setText(u"Bh", outcome.number);
        outcome = SaveEmployee(before_, composed(), removeOld);
    }
    return outcome;
}

bool frmManRecord::save() {
    settle();
    if (refuseTypedCard())
        return false;
    const QString number = TrimWhite(text(u"Bh"));
    const bool renumbered = !before_.isNew() && !number.isEmpty() && number != before_.number;
    const bool removeOld =
        renumbered && AskYesNo(u"这个员工编号已经改变，是否删除原有的员工信息:"_s + before_.number +
                                   u' ' + text(u"Xm"),
                               u"请确认"_s);
    const SaveOutcome outcome = write(composed(), removeOld);
    if (outcome.notice) {
        Show(*outcome.notice);
        return false;
    }
    const bool oldOnesWent = outcome.lines.size() > 2;
    if (outcome.step == SaveStep::Failed || oldOnesWent)
        MsgBox(outcome.lines.join(kCrLf), u"提示"_s);
    if (outcome.step == SaveStep::Failed)
        return false;
    before_ = {text(u"YgBm"), outcome.number};
    show(composed());
    setStatus(outcome.lines.join(u' '));
    if (photographToSend_ || (renumbered && !photograph_.isEmpty()))
        return keepPhotograph();
    return true;
}

bool frmManRecord::offerToSave() {
    if (composed() == unchanged_ && !photographToSend_)
        return true;
    const QString words =
        before_.isNew() ? u"保存当前新员工记录吗？"_s : u"保存当前记录可能发生的变化吗？"_s;
    return !AskYesNo(words, u"确认"_s) || save();
}

bool frmManRecord::closing() {
    return unchanged_.isEmpty() || offerToSave();
}

} // namespace hotel
