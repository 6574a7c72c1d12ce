#include "screen/messages.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "record/literals.h"
#include "screen/wait_frm.h"

namespace hotel {

namespace {

QList<MessageRecorder*> recorders;

// Dialogs live on the heap: the window below may vanish while one is up, and takes it along.
template<class Dialog>
class Shown {
public:
    explicit Shown(const QString& title) : dialog_(new Dialog(QApplication::activeWindow())) {
        dialog_->setWindowTitle(title);
    }
    ~Shown() { delete dialog_; }
    Dialog* operator->() const { return dialog_; }

    // Waits for the user; false when the dialog was cancelled or has vanished.
    bool answered() { return dialog_->exec() == QDialog::Accepted && dialog_; }

private:
    QPointer<Dialog> dialog_;
};

struct Answers {
    QString positive;
    QString negative; // empty: nothing but the confirmation
};

bool ShowBox(QMessageBox::Icon icon, const QString& words, const QString& title,
             const Answers& answers) {
    QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
    box->setIcon(icon);
    box->setWindowTitle(title.isEmpty() ? u"提示"_s : title);
    box->setTextFormat(Qt::PlainText);
    box->setText(words);
    const QPushButton* positive = box->addButton(answers.positive, QMessageBox::YesRole);
    if (!answers.negative.isEmpty())
        box->setEscapeButton(box->addButton(answers.negative, QMessageBox::NoRole));
    box->exec();
    const bool confirmed = box && box->clickedButton() == positive;
    delete box;
    return confirmed;
}

bool IsConsent(const std::optional<QString>& answer) {
    return answer == u"ok"_s || answer == u"yes"_s;
}

// "(文本文档)|*.txt|(所有文件)|*.*" in the form of the toolkit's file dialog.
QStringList DialogFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters += u"%1 (%2)"_s.arg(parts[i], QString(parts[i + 1]).replace(u';', u' '));
    return filters;
}

QString ShowFileDialog(QFileDialog::AcceptMode mode, const QString& title, const QString& proposed,
                       const QString& filter) {
    Shown<QFileDialog> dialog(title);
    dialog->setAcceptMode(mode);
    dialog->setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                        : QFileDialog::ExistingFile);
    dialog->setNameFilters(DialogFilters(filter));
    const QString pattern = filter.section(u'|', 1, 1);
    if (pattern.startsWith(u"*.") && pattern != u"*.*")
        dialog->setDefaultSuffix(pattern.mid(2));
    if (!proposed.isEmpty()) // its folder comes from a parameter, which has backslashes
        dialog->selectFile(QString(proposed).replace(u'\\', u'/'));
    return dialog.answered() ? dialog->selectedFiles().value(0) : QString();
}

} // namespace

// Hands a message to the newest recorder; an answer for those kinds that ask for one.
std::optional<QString> Ask(const MessageRecorder::Entry& entry) {
    using Kind = MessageRecorder::Kind;
    MessageRecorder& recorder = *recorders.last();
    recorder.entries_.append(entry);
    const bool asks = entry.kind != Kind::Message && entry.kind != Kind::Timed;
    return asks && !recorder.answers_.isEmpty() ? recorder.answers_.takeFirst() : std::nullopt;
}

void MsgBox(const QString& words, const QString& title) {
    if (!recorders.isEmpty())
        Ask({MessageRecorder::Kind::Message, title, words});
    else
        ShowBox(QMessageBox::Information, words, title, {u"确定(&O)"_s, {}});
}

bool AskOkCancel(const QString& words, const QString& title) {
    if (!recorders.isEmpty())
        return IsConsent(Ask({MessageRecorder::Kind::OkCancel, title, words}));
    return ShowBox(QMessageBox::Question, words, title, {u"确定(&O)"_s, u"取消(&C)"_s});
}

bool AskYesNo(const QString& words, const QString& title) {
    if (!recorders.isEmpty())
        return IsConsent(Ask({MessageRecorder::Kind::YesNo, title, words}));
    return ShowBox(QMessageBox::Question, words, title, {u"是(&Y)"_s, u"否(&N)"_s});
}

std::optional<QString> AskChoice(const QString& words, const QString& title,
                                 const QStringList& choices) {
    if (!recorders.isEmpty())
        return Ask({MessageRecorder::Kind::Choice, title, words});
    QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
    box->setIcon(QMessageBox::Question);
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(words);
    for (const QString& choice : choices)
        box->addButton(choice, QMessageBox::YesRole);
    box->setEscapeButton(box->addButton(u"取消(&C)"_s, QMessageBox::NoRole));
    box->setDefaultButton(qobject_cast<QPushButton*>(box->buttons().first()));
    box->exec();
    const QString answer = box && box->clickedButton() ? box->clickedButton()->text() : QString();
    delete box;
    return choices.contains(answer) ? std::optional(answer) : std::nullopt;
}

std::optional<QString> InputBox(const QString& words, const QString& title,
                                const QString& proposed) {
    if (!recorders.isEmpty())
        return Ask({MessageRecorder::Kind::Input, title, words, proposed});
    Shown<QInputDialog> dialog(title);
    dialog->setLabelText(words);
    dialog->setTextValue(proposed);
    dialog->setOkButtonText(u"确定"_s);
    dialog->setCancelButtonText(u"取消"_s);
    dialog->resize(480, dialog->sizeHint().height());
    if (!dialog.answered())
        return std::nullopt;
    return dialog->textValue();
}

QString AskSaveFile(const QString& title, const QString& proposed, const QString& filter) {
    if (!recorders.isEmpty())
        return Ask({MessageRecorder::Kind::SaveFile, title, proposed, proposed, filter})
            .value_or(QString());
    return ShowFileDialog(QFileDialog::AcceptSave, title, proposed, filter);
}

QString AskOpenFile(const QString& title, const QString& filter) {
    if (!recorders.isEmpty())
        return Ask({MessageRecorder::Kind::OpenFile, title, {}, {}, filter}).value_or(QString());
    return ShowFileDialog(QFileDialog::AcceptOpen, title, {}, filter);
}

void TimedMessage(const QString& words, const QString& title, int milliseconds, bool wait) {
    if (!recorders.isEmpty()) {
        Ask({MessageRecorder::Kind::Timed, title, words});
        return;
    }
    static QPointer<WaitFrm> box;
    if (!box || !box->isVisible())
        box = new WaitFrm;
    box->showFor(words, title, milliseconds);
    if (!wait)
        return;
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    QObject::connect(box, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

MessageRecorder::MessageRecorder() {
    recorders.append(this);
}

MessageRecorder::~MessageRecorder() {
    recorders.removeOne(this);
}

void MessageRecorder::answerNext(const std::optional<QString>& answer) {
    answers_.append(answer);
}

QStringList MessageRecorder::words() const {
    QStringList words;
    for (const Entry& entry : entries_)
        words += entry.words;
    return words;
}

QString MessageRecorder::last() const {
    return entries_.isEmpty() ? QString() : entries_.last().words;
}

} // namespace hotel
