#include "personnel/attendance/FrmKq.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

#include "house/rooms/working_days.h"
#include "link/serv_api.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/staff_walk.h"
#include "platform/camera.h"
#include "platform/clock.h"
#include "platform/sound.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tools/aids/photo_frame.h"

namespace hotel {

namespace {

constexpr int kTick = 1000;
constexpr int kTicksToSetClock = 3000;
constexpr int kFewestTicksToRefresh = 2000;
constexpr int kMostTicksToRefresh = 3000;
constexpr int kTicksToTryServer = 3;
constexpr int kNoticeMilliseconds = 3000;
constexpr int kRowsInView = 11;
constexpr int kRowsAbove = 5;

constexpr double kClockPoints = 46;
constexpr double kEntryPoints = 34;
constexpr double kResultPoints = 44;
constexpr double kMorePoints = 24;
constexpr double kPersonPoints = 22;

constexpr QStringView kAwayWords = u"服务器不通，现在不能考勤！";
constexpr QStringView kAwayMore = u"刚才没有登记的人员，请等恢复后重新登记";
constexpr QStringView kReadyWords = u"请输入编号或刷卡";
constexpr QStringView kNotSaved = u"没有登记";

QLabel* Large(const QString& name, double points, bool bold = false) {
    auto* label = new QLabel;
    label->setObjectName(name);
    QFont font = label->font();
    font.setPointSizeF(points);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QComboBox* Choice(const QString& name, const QStringList& entries) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->addItem({});
    box->addItems(entries);
    box->setFocusPolicy(Qt::ClickFocus);
    return box;
}

QLineEdit* ByTheWay(const QString& name) {
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setFocusPolicy(Qt::ClickFocus);
    return field;
}

// Drawn at random, so that desks don't refresh together.
int TicksToRefresh() {
    return QRandomGenerator::global()->bounded(kFewestTicksToRefresh, kMostTicksToRefresh + 1);
}

QString WeekdayName(QDate day) {
    return Weekdays()[day.dayOfWeek() % Weekdays().size()];
}

} // namespace

FrmKq::FrmKq()
    : Screen(u"FrmKq"_s, u"员工考勤"_s), Kqqd(new GridView(u"Kqqd"_s)), KqBuf(new QListWidget),
      Zp(new PhotoFrame(u"Zp"_s, u"没有照片"_s)), Timer1(every(kTick, [this] { Timer1_Timer(); })) {
    Timer1->stop();
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setProperty("Tag", 0);
    KqBuf->setObjectName(u"KqBuf"_s);
    KqBuf->setFocusPolicy(Qt::NoFocus);
    KqBuf->setMaximumHeight(110);
    Kqqd->setFocusPolicy(Qt::ClickFocus);
    Kqqd->table().setHeaders(DeskColumns());
    Kqqd->setColours([this](int row, int) {
        return Kqqd->table().text(row, kRecordKey) == kNotSaved
                   ? CellColours{.text = QColor(0xb3, 0x26, 0x1e)}
                   : CellColours{};
    });

    Result = Large(u"Result"_s, kResultPoints, true);
    ResultMore = Large(u"ResultMore"_s, kMorePoints);
    resultPanel_ = new QWidget;
    resultPanel_->setObjectName(u"resultPanel"_s);
    resultPanel_->setAttribute(Qt::WA_StyledBackground);
    auto* result = new QVBoxLayout(resultPanel_);
    for (QLabel* label : {Result, ResultMore}) {
        label->setAlignment(Qt::AlignCenter);
        label->setMinimumWidth(0);
        result->addWidget(label);
    }

    auto* top = new QHBoxLayout;
    top->addWidget(makeClock());
    top->addWidget(makeEntry(), 1);
    auto* side = new QVBoxLayout;
    side->addWidget(new QLabel(u"等待登记"_s));
    side->addWidget(KqBuf);
    side->addWidget(Zp);
    side->addStretch(1);
    auto* below = new QHBoxLayout;
    below->addWidget(Kqqd, 1);
    below->addLayout(side);
    auto* content = new QVBoxLayout;
    content->addLayout(top);
    content->addWidget(resultPanel_);
    content->addLayout(below, 1);
    setContent(content);
    addCommands({
        {u"CmdShb"_s, u"登记"_s, [this] { CmdShb_Press(); }, Qt::Key_F8, CommandKind::Default},
        {u"FreshCmd"_s, u"刷新清单"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5},
        {u"ExitCmd"_s, u"结束考勤"_s, [this] { close(); }, {}, CommandKind::Plain, u"end"_s},
    });
    // Enter reaches the handler even while another one waits: it is what fills the buffer.
    connect(ComBh, &QLineEdit::returnPressed, this, &FrmKq::ComBh_Return);
    onEnter(ComBh, [] {});
    connect(&Link(), &Wck_comm::loginLost, this, [this] { setAway(true); });
    resize(1180, 800);
}

FrmKq::~FrmKq() {
    if (camera_)
        Camera::Installed().CamDisConnect();
}

QWidget* FrmKq::makeClock() {
    Sj = Large(u"Sj"_s, kClockPoints, true);
    Rq = Large(u"Rq"_s, kPersonPoints);
    DevPos = ByTheWay(u"DevPos"_s);
    auto* clock = new QWidget;
    auto* layout = new QVBoxLayout(clock);
    layout->addWidget(Sj);
    layout->addWidget(Rq);
    layout->addStretch(1);
    auto* place = new QHBoxLayout;
    place->addWidget(new QLabel(u"地点"_s));
    place->addWidget(DevPos, 1);
    layout->addLayout(place);
    return clock;
}

QWidget* FrmKq::makeEntry() {
    ComBh = new QLineEdit;
    ComBh->setObjectName(u"ComBh"_s);
    ComBh->setMaxLength(64);
    QFont font = ComBh->font();
    font.setPointSizeF(kEntryPoints);
    ComBh->setFont(font);
    ComBm = Choice(u"ComBm"_s, {});
    Ygbh = Large(u"Ygbh"_s, kPersonPoints);
    Ygxm = Large(u"Ygxm"_s, kPersonPoints, true);
    Ygzw = Large(u"Ygzw"_s, kPersonPoints);
    Kqgn = Choice(u"Kqgn"_s, {punch_word::kArrival.toString(), punch_word::kDeparture.toString()});
    Kqzt = Choice(u"Kqzt"_s, QStringList{punch_word::kNormal.toString()} + AbsenceCategories());
    Kqsm = ByTheWay(u"Kqsm"_s);

    auto* person = new QHBoxLayout;
    for (QLabel* label : {Ygbh, Ygxm, Ygzw})
        person->addWidget(label, 1);
    auto* more = new QHBoxLayout;
    const std::pair<QString, QWidget*> fields[] = {
        {u"部门"_s, ComBm}, {u"考勤功能"_s, Kqgn}, {u"状态"_s, Kqzt}, {u"考勤说明"_s, Kqsm}};
    for (const auto& [label, field] : fields) {
        more->addWidget(new QLabel(label));
        more->addWidget(field, 1);
    }
    auto* entry = new QWidget;
    auto* layout = new QVBoxLayout(entry);
    auto* number = new QHBoxLayout;
    number->addWidget(Large({}, kPersonPoints));
    qobject_cast<QLabel*>(number->itemAt(0)->widget())->setText(u"编号或刷卡"_s);
    number->addWidget(ComBh, 1);
    layout->addLayout(number);
    layout->addLayout(person);
    layout->addLayout(more);
    return entry;
}

void FrmKq::load(const QVariant&) {
    if (login_)
        return;
    login_ = std::make_unique<DeskLogin>();
    ComBm->addItems(StaffDepartments());
    DevPos->setText(CurrentSession().userName);
    refreshIn_ = TicksToRefresh();
    camera_ = Camera::Installed().CamConnect(Param(u"CamDev"));
    Zp->setVisible(camera_);
    FreshCmd_Click();
    clearPerson();
    told(kReadyWords.toString(), {}, Tone::Ready);
    showTime();
    ComBh->setFocus();
    Timer1->start();
}

bool FrmKq::closing() {
    return AskYesNo(u"结束考勤后，员工不能在本机登记，确实要结束吗?"_s, u"请确认"_s);
}

void FrmKq::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !ComBh->text().isEmpty())
        ComBh->clear();
    else
        Screen::keyPressEvent(event);
}

// --- a punch ---

// The box is emptied at once: the next in the queue types already.
void FrmKq::ComBh_Return() {
    const QString entered = ComBh->text();
    ComBh->clear();
    if (!busy())
        run([this, entered] { takeEntry(entered); });
    else if (!TrimWhite(entered).isEmpty())
        KqBuf->addItem(entered);
}

// Behind the choice of what could not be decided, or with the mouse in place of Enter.
void FrmKq::CmdShb_Press() {
    const QString entered = ComBh->text();
    ComBh->clear();
    if (entered.isEmpty() && !punch_.person.name.isEmpty())
        CmdShb_Click();
    else
        takeEntry(entered, punch_means::kMouse.toString());
    ComBh->setFocus();
}

void FrmKq::takeEntry(const QString& entered, const QString& means, const QString& place) {
    clearPerson();
    if (!serverIsThere())
        return refuse({kAwayWords.toString(), TrimWhite(entered) + u" 没有登记"_s});
    punch_ = PreparePunch(directory_, entered);
    // The connection may turn out to be gone only now: what was read without a login decides nothing.
    if (!login_->stands() && serverIsThere())
        punch_ = PreparePunch(directory_, entered);
    if (!means.isEmpty() && punch_.means == punch_means::kKeyboard)
        punch_.means = means;
    punch_.note = Kqsm->text();
    punch_.operatorName = CurrentSession().userName;
    punch_.place = place.isEmpty() ? DevPos->text() : place;
    if (!punch_.served) {
        setAway(!login_->stands());
        return refuse({kAwayWords.toString(), TrimWhite(entered) + u" 没有登记"_s});
    }
    showPerson();
    CmdShb_Click();
}

void FrmKq::CmdShb_Click() {
    if (Kqgn->isEnabled())
        punch_.decision.function = Kqgn->currentText();
    if (Kqzt->isEnabled())
        punch_.decision.state = Kqzt->currentText();
    if (const auto refusal = CheckPunch(punch_))
        return refuse(*refusal);
    TextTable& list = Kqqd->table();
    const int row = AddDeskRow(list, punch_);
    Kqqd->rowsAdded();
    if (list.rows() <= kRowsInView)
        Kqqd->autoFit();
    Kqqd->scrollToEnd();
    if (list.rows() > kRowsInView)
        Kqqd->scrollTo(Kqqd->model()->index(list.rows() - kRowsAbove - 1, 0),
                       QAbstractItemView::PositionAtTop);
    const QString photograph = takePhotograph();
    const auto key = file_.save(punch_);
    list.setText(row, kRecordKey, key.value_or(kNotSaved.toString()));
    Kqqd->rowChanged(row);
    if (!key) {
        QApplication::beep();
        setAway(!login_->stands());
        refuse({u"提示"_s, u"信息保存失败，请重新登记！"_s});
        return clearPerson();
    }
    const PunchDecision& decision = punch_.decision;
    const bool overtime = decision.mode == punch_word::kOvertime;
    told(punch_.person.name + u"　"_s +
             (overtime ? decision.mode : decision.function + u"　"_s + decision.state),
         punch_.moment.toString(u"HH:mm:ss　") + punch_.person.department + u"　"_s +
             decision.shift,
         decision.state == punch_word::kNormal && !overtime ? Tone::Good : Tone::Attention);
    Loudspeaker::Installed().play(Param(u"KqCg"));
    if (punch_.isBirthday())
        greet();
    if (!photograph.isEmpty())
        keepPhotograph(photograph, *key);
    if (ParamOn(u"KqQdSx"))
        FreshCmd_Click();
    clearPerson();
}

void FrmKq::greet() {
    Loudspeaker::Installed().play(Param(u"Ygsr"));
    ResultMore->setText(punch_.person.name + u"，今天是您的生日，祝您生日快乐！"_s);
    TimedMessage(punch_.person.name + u"，祝您生日快乐！"_s, u"生日快乐"_s, kNoticeMilliseconds);
}

void FrmKq::showPerson() {
    ComBm->setCurrentText(punch_.person.department);
    Ygbh->setText(punch_.person.number);
    Ygxm->setText(punch_.person.name);
    Ygzw->setText(punch_.person.post);
    Kqgn->setCurrentText(punch_.decision.function);
    Kqzt->setCurrentText(punch_.decision.state);
    Kqgn->setEnabled(punch_.decision.function.isEmpty());
    Kqzt->setEnabled(punch_.decision.state.isEmpty());
}

void FrmKq::clearPerson() {
    punch_ = {};
    Kqsm->clear();
    ComBm->setCurrentIndex(0);
    for (QLabel* label : {Ygbh, Ygxm, Ygzw})
        label->clear();
    for (QComboBox* box : {Kqgn, Kqzt}) {
        box->setCurrentIndex(0);
        box->setEnabled(false);
    }
}

// --- what everybody sees and hears ---

void FrmKq::refuse(const Notice& notice) {
    Loudspeaker::Installed().play(Param(u"KqSb"));
    if (away_)
        told(kAwayWords.toString(), notice.words, Tone::Failure);
    else
        told(notice.title == kPunchRefused ? notice.title : kNotSaved.toString(), notice.words,
             Tone::Failure);
    if (ParamOn(u"ErrPause"))
        MsgBox(notice.words, notice.title);
    else
        TimedMessage(notice.words, notice.title, kNoticeMilliseconds);
}

void FrmKq::told(const QString& words, const QString& small, Tone tone) {
    static const QHash<Tone, QString> kColours = {{Tone::Ready, u"#dfe6ee; color: #1d2b3a"_s},
                                                  {Tone::Good, u"#1b6e3c; color: white"_s},
                                                  {Tone::Attention, u"#f2b705; color: black"_s},
                                                  {Tone::Failure, u"#b3261e; color: white"_s}};
    resultPanel_->setStyleSheet(u"QWidget { background: %1; }"_s.arg(kColours.value(tone)));
    Result->setText(words);
    ResultMore->setText(small);
}

void FrmKq::setAway(bool away) {
    if (away == away_)
        return;
    away_ = away;
    if (away)
        told(kAwayWords.toString(), kAwayMore.toString(), Tone::Failure);
    else
        told(u"服务器已经恢复，请登记"_s, {}, Tone::Ready);
}

bool FrmKq::serverIsThere() {
    setAway(!login_->regain());
    return !away_;
}

void FrmKq::showTime() {
    Sj->setText(Clock::TimeText());
    Rq->setText(Clock::Today().toString(u"yyyy年MM月dd日　") + WeekdayName(Clock::Today()));
}

// --- photographs ---

// Into a file of this program's own, which goes with it.
QString FrmKq::takePhotograph() {
    static const QTemporaryDir folder;
    const QString file = folder.filePath(PunchPhotographName(PunchKey(punch_.moment)));
    if (!camera_ || !Camera::Installed().TakePhoto(file))
        return {};
    SetPhoto(Zp, file);
    return file;
}

void FrmKq::keepPhotograph(const QString& localFile, const QString& key) {
    if (UploadFile(localFile, PunchPhotographFile(PunchPhotographName(key))) != 0)
        setStatus(u"照片没有保存"_s);
    QFile::remove(localFile);
}

// --- list, clock and buffer ---

void FrmKq::FreshCmd_Click() {
    TextTable list(DeskColumns());
    const Reading outcome = LoadProjectAsList(
        AttendanceFile(Clock::Today()), punch_record::kProject, list, list.column(kRecordKey));
    if (outcome == Reading::Failed)
        return setStatus(u"清单没有刷新，服务器没有回答"_s);
    list.sort(list.column(kRecordKey), TextTable::Order::Text);
    list.numberRows(0);
    Kqqd->setTable(list);
    Kqqd->autoFit();
    if (list.dataRows() > 0)
        Kqqd->scrollToBottom();
}

void FrmKq::Timer1_Timer() {
    showTime();
    int ticks = Timer1->property("Tag").toInt() + 1;
    if (away_ && ticks % kTicksToTryServer == 0)
        serverIsThere();
    if (ticks > kTicksToSetClock) {
        ticks = 0;
        if (const auto moment = ServerMoment()) {
            Clock::SetTime(moment->toString(u"HH:mm:ss"));
            Clock::SetDate(moment->toString(u"yyyy-MM-dd"));
        }
    }
    Timer1->setProperty("Tag", ticks);
    if (--refreshIn_ <= 0 && ComBh->text().isEmpty() && ParamOn(u"KqQdSx")) {
        refreshIn_ = TicksToRefresh();
        FreshCmd_Click();
    }
    if (KqBuf->count() > 0) {
        Timer1->stop();
        const std::unique_ptr<QListWidgetItem> first(KqBuf->takeItem(0));
        const BufferedPunch buffered = ReadBufferedPunch(first->text());
        takeEntry(buffered.number, punch_means::kBuffer.toString(), buffered.place);
        Timer1->start();
    }
}

} // namespace hotel
