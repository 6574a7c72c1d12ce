#pragma once

// The only ways to speak to the user. A test installs a MessageRecorder, which keeps title and
// words of every message and answers the questions, so that no box ever pops up.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace hotel {

// Shows words under a title until the user confirms.
void MsgBox(const QString& words, const QString& title = {});

// A question answered by OK / Cancel or by Yes / No. Closing the box is Cancel or No.
bool AskOkCancel(const QString& words, const QString& title = {});
bool AskYesNo(const QString& words, const QString& title = {});

// A question answered by one of several words, each on a button, the first the one that Enter takes. No value
// when the user cancels.
std::optional<QString> AskChoice(const QString& words, const QString& title,
                                 const QStringList& choices);

// Asks for one line of text; no value when the user cancels.
std::optional<QString> InputBox(const QString& words, const QString& title = {},
                                const QString& proposed = {});

// Asks for a file to write or to read; `filter` as "(JPEG图片文件)|*.jpg|(所有文件)|*.*". Empty
// when the user cancels.
QString AskSaveFile(const QString& title, const QString& proposed, const QString& filter);
QString AskOpenFile(const QString& title, const QString& filter);

// A timed message: shown over the screens for so long, then gone by itself. Returns at once when
// `wait` is false; otherwise lets events through until the time is over.
void TimedMessage(const QString& words, const QString& title, int milliseconds, bool wait = false);

// The recorder of tests; while one exists, no box is shown. Recorders nest; the newest answers.
class MessageRecorder {
public:
    enum class Kind { Message, OkCancel, YesNo, Choice, Input, SaveFile, OpenFile, Timed };
    struct Entry {
        Kind kind;
        QString title;
        QString words;         // of file questions: what is proposed
        QString proposed = {}; // what stands in the box when it comes up
        QString filter = {};   // of file questions
    };

    MessageRecorder();
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    // Answers for the questions to come, in their order. A question without one is cancelled.
    // Questions take "ok"/"yes" or "cancel"/"no", those with words of their own that word; input and file questions take the text itself.
    void answerNext(const std::optional<QString>& answer);

    const QList<Entry>& entries() const { return entries_; }
    QStringList words() const;
    // Words of the last entry; empty when there is none.
    QString last() const;
    void clear() { entries_.clear(); }

private:
    friend std::optional<QString> Ask(const Entry& entry);
    QList<Entry> entries_;
    QList<std::optional<QString>> answers_;
};

} // namespace hotel
