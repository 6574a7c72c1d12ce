#include "frontoffice/RzdjFrm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "frontoffice/photo_capture.h"
#include "house/folios/folio.h"
#include "house/folios/folio_summary.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/date_text.h"
#include "screen/field_form.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "session/session.h"
#include "tools/aids/identity_number.h"
#include "tools/aids/photo_frame.h"

namespace hotel {

namespace {

using namespace guest_text;

// In the order in which a clerk asks: who, with which document, from where to where, until when, on
// which terms, on whose account; the rest is rarely touched.
const QList<FormField> kFields = {
    {kRoom, u"Fh", u"房间号", Editor::ReadOnly},
    {kBed, u"Cwh", u"床位", Editor::ReadOnly},
    {kRoomType, u"Kflx", u"客房类型", Editor::ReadOnly, {}, 24},
    {kName, u"Krxm", u"客人姓名", Editor::Text, {}, 24, 40},
    {kDocumentNumber, u"Zjhm", u"证件号码", Editor::Text, {}, 24, 30},
    {{}, u"Hmws", u"号码位数", Editor::ReadOnly},
    {kDocumentKind, u"Zjzl", u"证件种类", Editor::Category, u"证件名称"},
    {kSex, u"Krxb", u"性别", Editor::Category},
    {kAge, u"Krnl", u"年龄", Editor::Number, {}, 8, 3},
    {kAddress, u"Hkszd", u"户口所在地", Editor::Text, {}, 20, 100},
    {kComingFrom, u"Zhcl", u"自何处来", Editor::CategoryText, u"省市名称"},
    {kGoingTo, u"Whcq", u"往何处去", Editor::CategoryText, u"省市名称"},
    {kReason, u"Tlsy", u"停留事由", Editor::CategoryText, u"停留事由"},
    {kDeparture, u"Yjld", u"预计离店", Editor::Date},
    {kStatus, u"Ft", u"房态", Editor::Category, u"入住房态"},
    {kSharesRoom, u"Skhz", u"散客合住", Editor::Check},
    {kRateKind, u"Fjzl", u"房价种类", Editor::Category},
    {kPrice, u"Qrfj", u"确认房价", Editor::Amount},
    {kPays, u"Ffkr", u"结账付费客人", Editor::Check},
    {kFolio, u"Jzh", u"结账号", Editor::CategoryText},
    {kEmployer, u"Gzdw", u"工作单位", Editor::Text, {}, 20, 60},
    {kReceivedBy, u"Jddw", u"接待单位", Editor::Text, {}, 20, 60},
    {kJobTitle, u"Gzzw", u"职务", Editor::CategoryText, u"职务职称"},
    {kArrivalDate, u"Rzrq", u"入住日期", Editor::Date},
    {kArrivalTime, u"Rzsj", u"入住时间", Editor::Text},
    {kReceptionist, u"Jd", u"接待", Editor::Text, {}, 20, 20},
    {kRemark, u"Tssm", u"特殊说明", Editor::CategoryText, u"注释选择", 20, 100},
};
constexpr int kColumns = 3;

// An open folio as the clerk picks it: its number, then what it is known by.
QString FolioChoice(const QString& number, const FolioSummary& folio) {
    constexpr int kShownRooms = 3;
    const qsizetype rooms = folio.rooms.size();
    QStringList words{number, folio.payer};
    words += folio.rooms.mid(0, kShownRooms);
    if (rooms > kShownRooms)
        words.append(u"共%1间"_s.arg(rooms));
    return words.join(u' ');
}

// What can be lacking, by the flags of the test.
struct Lack {
    GuestLack flag;
    QStringView control;
    QStringView words;
};
constexpr Lack kLacks[] = {
    {kLacksName, u"Krxm", u"客人姓名"},           {kLacksDocumentKind, u"Zjzl", u"证件种类"},
    {kLacksDocumentNumber, u"Zjhm", u"证件号码"}, {kLacksStatus, u"Ft", u"房态"},
    {kLacksPrice, u"Qrfj", u"确认房价"},          {kLacksFolio, u"Jzh", u"结账号"},
};

} // namespace

RzdjFrm::RzdjFrm(const QString& workingSet, const QList<ChosenRoom>& rooms, Use use)
    : Screen(u"RzdjFrm"_s, u"住客信息"_s), set_(workingSet), rooms_(rooms), banner_(new QLabel),
      form_(new FieldForm(kFields, kColumns)), portrait_(new PhotoFrame(u"Rxzp"_s, u"人像照片"_s)),
      document_(new PhotoFrame(u"Zjzp"_s, u"证件照片"_s)) {
    banner_->setObjectName(u"banner"_s);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    banner_->setFont(large);

    form_->setChoices(u"Krxb", {u"男"_s, u"女"_s});
    SetKeyFilter(form_->editor<QLineEdit>(u"Zjhm"), KeyFilter::Capitals);
    SetKeyFilter(form_->editor<QComboBox>(u"Jzh")->lineEdit(), KeyFilter::Capitals);
    form_->editor(u"Zjhm")->installEventFilter(this);
    onEnter(form_->editor(u"Zjhm"), [this] { Zjhm_KeyPress(); });
    on(form_, &FieldForm::edited, [this](const QString& control) { Field_Edited(control); });
    on(form_, &FieldForm::left, [this](const QString& control) { Field_Left(control); });

    auto* photographs = new QVBoxLayout;
    photographs->addWidget(portrait_, 1);
    photographs->addWidget(
        commandPanel({{u"Rxpz"_s, u"人像拍照"_s, [this] { Rxpz_Click(); }, Qt::Key_F6}}));
    photographs->addWidget(document_, 1);
    photographs->addWidget(
        commandPanel({{u"Zjpz"_s, u"证件拍照"_s, [this] { Zjpz_Click(); }, Qt::Key_F5}}));
    auto* sides = new QHBoxLayout;
    sides->addWidget(form_, 4, Qt::AlignTop);
    sides->addSpacing(16);
    sides->addLayout(photographs, 1);
    auto* content = new QVBoxLayout;
    content->addWidget(banner_);
    content->addLayout(sides, 1);
    setContent(content);

    const auto moves = [this](FormMove step) { return [this, step] { move(step); }; };
    addCommands({
        {u"LastC"_s, u"上一位"_s, moves(FormMove::LastGuest), Qt::Key_PageUp},
        {u"NextC"_s, u"下一位"_s, moves(FormMove::NextGuest), Qt::Key_PageDown},
        {u"LastR"_s, u"上一房间"_s, moves(FormMove::LastRoom), Qt::CTRL | Qt::Key_PageUp},
        {u"NextR"_s, u"下一房间"_s, moves(FormMove::NextRoom), Qt::CTRL | Qt::Key_PageDown},
        {u"CopyKr"_s, u"复制"_s, [this] { CopyKr_Click(); }, Qt::Key_F3, CommandKind::Plain,
         u"copy"_s},
        {u"PasteKr"_s, u"粘贴"_s, [this] { PasteKr_Click(); }, Qt::Key_F4, CommandKind::Plain,
         u"copy"_s},
        {u"KsCmd"_s, u"快速登记"_s, [this] { KsCmd_Click(); }, Qt::Key_F7, CommandKind::Plain,
         u"end"_s},
        {u"ExitCmd"_s, u"完成登记"_s, [this] { close(); }, Qt::Key_F8, CommandKind::Default,
         u"end"_s},
    });
    for (const QStringView name : {u"NextR", u"LastR"})
        setCommandEnabled(name, rooms_.size() >= 2);
    setCommandEnabled(u"PasteKr", false);
    if (use == Use::RoomChange) {
        for (const QStringView name : {u"NextR", u"LastR", u"KsCmd"}) {
            command(name)->hide();
            setCommandEnabled(name, false);
        }
    }
    resize(1220, 640);
}

void RzdjFrm::load(const QVariant&) {
    form_->loadCategories();
    const auto* statuses = form_->editor<QComboBox>(u"Ft");
    for (int i = 0; i < statuses->count(); ++i)
        statuses_.append(statuses->itemText(i));
    folios_ = LoadJzhQd();
    const QHash<QString, FolioSummary> summaries = LoadFolioSummaries();
    QStringList choices;
    for (const QString& folio : folios_)
        choices.append(FolioChoice(folio, summaries.value(folio)));
    form_->setChoices(u"Jzh", choices);
    form_->load(SetTag(NewGuestForm(Clock::Now()), kReceptionist, CurrentSession().userName));
    SetForm(1, 1);
}

// --- where the form is ---

QString RzdjFrm::room() const {
    return rooms_.value(place_.room - 1).number;
}

QStringList RzdjFrm::beds() const {
    return BedsOfSet(set_, room());
}

QString RzdjFrm::bed() const {
    return beds().value(place_.guest - 1);
}

void RzdjFrm::SetForm(int roomIndex, int guestIndex) {
    place_ = {roomIndex, guestIndex};
    const QString guest =
        GuestForForm(GuestOfSet(set_, room(), bed()), form_->store({}), folioMoment());
    // A house without statuses for a stay can't register anybody.
    fillForm(statuses_.isEmpty() ? SetTag(guest, kStatus, {}) : guest);
    showPlace();
    form_->editor(u"Krxm")->setFocus();
    form_->editor<QLineEdit>(u"Krxm")->selectAll();
}

void RzdjFrm::fillForm(const QString& guest) {
    form_->load(guest);
    showRates(GetTag(guest, kRoomType));
    Field_Edited(u"Zjhm"_s);
    portraitFile_ = GetTag(guest, kPortrait);
    documentFile_ = GetTag(guest, kDocumentPhotograph);
    showPhotographs();
}

void RzdjFrm::showPlace() {
    QString words =
        u"%1 房   第 %2 床   %3"_s.arg(room(), form_->text(u"Cwh"), form_->text(u"Kflx"));
    if (rooms_.size() > 1)
        words += u"   （第 %1 间，共 %2 间）"_s.arg(place_.room).arg(rooms_.size());
    banner_->setText(words);
    setStatus(u"本房间第 %1 位，可登记 %2 位"_s.arg(place_.guest).arg(beds().size()));
}

void RzdjFrm::showRates(const QString& roomType) {
    if (roomType != ratesOf_) {
        ratesOf_ = roomType;
        rates_ = RatesOfType(RatesInUse(), roomType);
        form_->setChoices(u"Fjzl", rates_.kinds);
        if (rates_.notice)
            MsgBox(rates_.notice->words, rates_.notice->title);
    }
    form_->setReadOnly(u"Qrfj", !IsNegotiable(form_->text(u"Fjzl")));
}

void RzdjFrm::showPhotographs() {
    SetPhoto(portrait_, portraitFile_);
    SetPhoto(document_, documentFile_);
}

void RzdjFrm::showLack(int lack) {
    QStringList words;
    QStringView first;
    for (const Lack& one : kLacks) {
        if ((lack & one.flag) == 0)
            continue;
        words.append(one.words.toString());
        if (first.isEmpty())
            first =
                one.flag == kLacksPrice && form_->text(u"Fjzl").isEmpty() ? u"Fjzl" : one.control;
    }
    setStatus(u"还缺："_s + words.join(u"、"_s));
    if (!first.isEmpty())
        form_->editor(first)->setFocus();
}

// --- the guest on the form ---

QString RzdjFrm::formRecord() const {
    QString record = form_->store(GuestOfSet(set_, room(), bed()));
    for (const QStringView tag : {kName, kDocumentNumber})
        record = SetTag(record, tag, TrimWhite(GetTag(record, tag)));
    if (const QString price = GetTag(record, kPrice); Money::FromText(price).text() != price)
        record = SetTag(record, kPrice, {}); // what can't be reckoned
    record = SetTag(record, kPortrait, portraitFile_);
    record = SetTag(record, kDocumentPhotograph, documentFile_);
    return InWritingOrder(record);
}

void RzdjFrm::UpdateRec() {
    set_ = WithGuest(set_, room(), bed(), formRecord());
}

int RzdjFrm::testKrJbxxFail() {
    if (!IsFolioNumber(form_->text(u"Jzh")))
        form_->setText(u"Jzh", {});
    const QString number = TrimWhite(form_->text(u"Zjhm"));
    const bool fills = form_->text(u"Zjzl") == kIdentityCard && form_->text(u"Hkszd").isEmpty();
    if (fills && HasIdentityLength(number)) {
        if (const auto identity = AnalyseIdentityNumber(number))
            takeIdentity(*identity);
    }
    return TestKrRecFail(formRecord());
}

// A moment whose folio number nobody has yet: two payers within a second would share one account.
QDateTime RzdjFrm::folioMoment() const {
    QDateTime moment = Clock::Now();
    const auto isTaken = [this](const QString& number) {
        return set_.contains(number) || folios_.contains(number) || form_->text(u"Jzh") == number;
    };
    while (isTaken(NewFolioNumber(moment)))
        moment = moment.addSecs(1);
    return moment;
}

void RzdjFrm::Field_Edited(const QString& control) {
    if (control == u"Zjhm")
        form_->setText(u"Hmws", FormatNumber(form_->text(u"Zjhm").size(), u"#0"));
    else if (control == u"Ft")
        Ft_Change();
    else if (control == u"Skhz")
        Skhz_Click();
    else if (control == u"Ffkr")
        Ffkr_Click();
    else if (control == u"Fjzl")
        Fjzl_Click();
    else if (control == u"Jzh")
        Jzh_Click();
}

void RzdjFrm::Field_Left(const QString& control) {
    if (control == u"Krnl")
        Krnl_LostFocus();
    else if (control == u"Rzsj")
        Rzsj_LostFocus();
    else if (control == u"Yjld")
        Yjld_LostFocus();
}

// A command's key leaves no field: what its leaving would do is done ahead of the command, and not once
// more when the command moves the focus on.
void RzdjFrm::finishField() {
    if (const QWidget* field = focusWidget())
        Field_Left(field->objectName());
    const QSignalBlocker done(form_);
    form_->editor(u"Krxm")->setFocus(Qt::TabFocusReason);
}

void RzdjFrm::takeIdentity(const IdentityNumber& identity) {
    form_->setText(u"Hkszd", identity.address());
    form_->setText(u"Krnl", identity.age);
    form_->setText(u"Krxb", identity.sex);
}

void RzdjFrm::Zjhm_KeyPress() {
    const QString number = TrimWhite(form_->text(u"Zjhm"));
    if (!HasIdentityLength(number)) {
        form_->editor(u"Zjzl")->setFocus();
        return;
    }
    if (const auto identity = AnalyseIdentityNumber(number)) {
        form_->setText(u"Zjzl", kIdentityCard.toString());
        takeIdentity(*identity);
        form_->setText(u"Tssm",
                       WithBirthday(form_->text(u"Tssm"), identity->birthDate, Clock::Today()));
        setStatus(u"%1，%2 岁，%3"_s.arg(identity->sex, identity->age, identity->address()));
    } else {
        setStatus(u"证件号码不是有效的身份证号码，请核对"_s);
    }
    form_->editor(u"Zhcl")->setFocus();
}

void RzdjFrm::Krnl_LostFocus() {
    const AgeCheck check = CheckAge(form_->text(u"Krnl"));
    form_->setText(u"Krnl", check.age);
    if (check.notice)
        MsgBox(check.notice->words, check.notice->title);
}

void RzdjFrm::Rzsj_LostFocus() {
    const QString typed = form_->text(u"Rzsj");
    const QString time = typed.size() >= 3 ? TimeFromTyped(typed).left(5) : QString();
    form_->setText(u"Rzsj", time.isEmpty() ? ArrivalTime(typed, Clock::Time()) : time);
}

void RzdjFrm::Yjld_LostFocus() {
    const QString typed = PlainForm(form_->text(u"Yjld"));
    const QDate arrival = QDate::fromString(form_->text(u"Rzrq"), Qt::ISODate);
    const QString departure = DepartureDate(typed, arrival);
    if (departure != typed) // what is no date stays, in red
        form_->setText(u"Yjld", departure);
}

// --- terms ---

void RzdjFrm::Ft_Change() {
    form_->setText(u"Skhz", IsShared(form_->text(u"Ft")) ? u"1"_s : u"0"_s);
}

// The status and the tick go together, whichever is changed.
void RzdjFrm::Skhz_Click() {
    const QString shared = SharedStatusAmong(statuses_);
    const bool shares = form_->text(u"Skhz") == u"1";
    if (shares && !shared.isEmpty())
        form_->setText(u"Ft", shared);
    else if (!shares && IsShared(form_->text(u"Ft")))
        form_->setText(u"Ft", kWholeRoom.toString());
    Ft_Change();
}

void RzdjFrm::Ffkr_Click() {
    if (form_->text(u"Ffkr") == u"1")
        form_->setText(u"Jzh", NewFolioNumber(folioMoment()));
}

// Of a choice only the number stays; who joins an open folio doesn't pay it.
void RzdjFrm::Jzh_Click() {
    const QString chosen = form_->text(u"Jzh");
    const QString number = chosen.left(kFolioLength);
    if (!folios_.contains(number))
        return;
    form_->setText(u"Jzh", number);
    form_->setText(u"Ffkr", u"0"_s);
    setStatus(u"记入结账号 "_s + chosen);
}

void RzdjFrm::Fjzl_Click() {
    const QString kind = form_->text(u"Fjzl");
    form_->setText(u"Qrfj", rates_.price(kind));
    form_->setReadOnly(u"Qrfj", !IsNegotiable(kind));
}

// --- from guest to guest ---

void RzdjFrm::move(FormMove step) {
    finishField();
    const int lack = testKrJbxxFail();
    const FormStep decided =
        DecideFormStep(step, place_, int(rooms_.size()), int(beds().size()), lack == 0);
    if (decided.refusal) {
        MsgBox(decided.refusal->words, decided.refusal->title);
        showLack(lack);
        return;
    }
    if (decided.store)
        UpdateRec();
    if (decided.to == place_)
        showPlace(); // nowhere to go: whoever is half typed stays
    else
        SetForm(decided.to.room, decided.to.guest);
}

void RzdjFrm::KsCmd_Click() {
    finishField();
    testKrJbxxFail();
    UpdateRec();
    SetForm(1, 1);
    const int lack = testKrJbxxFail();
    const QuickRegistration quick = RegisterQuickly(set_);
    if (quick.refusal) {
        MsgBox(quick.refusal->words, quick.refusal->title);
        showLack(lack);
        return;
    }
    set_ = quick.set;
    close();
}

void RzdjFrm::CopyKr_Click() {
    copied_ = CopyKr(formRecord());
    setCommandEnabled(u"PasteKr", true);
    setStatus(u"已复制 "_s + GetTag(copied_, kName));
}

void RzdjFrm::PasteKr_Click() {
    fillForm(PasteKr(formRecord(), copied_));
}

// --- photographs ---

void RzdjFrm::Zjpz_Click() {
    const QString name = DocumentPhotographName(TrimWhite(form_->text(u"Zjhm")));
    if (name.isEmpty()) {
        MsgBox(u"请先输入证件号码，再拍摄证件照片！"_s, u"提示"_s);
        form_->editor(u"Zjhm")->setFocus();
        return;
    }
    if (const QString file = TakePhotograph(this, name); !file.isEmpty())
        documentFile_ = file;
    showPhotographs();
}

void RzdjFrm::Rxpz_Click() {
    const QString name = PortraitName(TrimWhite(form_->text(u"Krxm")), Clock::Now());
    if (name.isEmpty()) {
        MsgBox(u"请先输入客人姓名，再拍摄人像照片！"_s, u"提示"_s);
        form_->editor(u"Krxm")->setFocus();
        return;
    }
    if (const QString file = TakePhotograph(this, name); !file.isEmpty())
        portraitFile_ = file;
    showPhotographs();
}

// --- leaving ---

// Whoever isn't complete is not registered; if somebody who has been typed would be lost, the clerk is
// asked first.
bool RzdjFrm::closing() {
    finishField();
    const int lack = testKrJbxxFail();
    if (lack == 0) {
        UpdateRec();
        return true;
    }
    const bool isFirst = place_ == FormPlace{};
    const bool isTyped = !form_->text(u"Krxm").isEmpty() || !form_->text(u"Zjhm").isEmpty() ||
                         (isFirst && ValidGuestsOfSet(set_) > 0);
    const QString words = isFirst ? u"第一位客人的主要信息不全，离开将清除本次登记，要离开吗？"_s
                                  : u"这位客人的主要信息不全，离开后不登记这位客人，要离开吗？"_s;
    if (isTyped && !AskYesNo(words, u"请检查"_s)) {
        showLack(lack);
        return false;
    }
    if (isFirst)
        set_.clear();
    return true;
}

bool RzdjFrm::eventFilter(QObject* watched, QEvent* event) {
    const bool isTab =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab;
    if (!isTab)
        return Screen::eventFilter(watched, event);
    run([this] { Zjhm_KeyPress(); });
    return true;
}

} // namespace hotel
