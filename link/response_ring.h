#pragma once

// Where answers come together: the received text, cut into slots, and the table of finished
// answers.
//
// The server sends `<CmdID:nnn>`, the answer's text and `</CmdID:nnn>`, in any number of pieces and
// several answers in one piece. A head begins a new slot; a slot that has grown to 20001 characters
// is followed by a new one, which takes the beginning of a mark along that stands at the end of the full
// one: so a mark always stands whole in one slot, and is looked for in each.
//
// Every character is looked at once however often collect() is called: each slot keeps the places
// of the end marks in it.

#include <array>

#include <QList>
#include <QString>
#include <QStringView>

namespace hotel {

class ResponseRing {
public:
    static constexpr int kSlots = 256; // also the command numbers: 0 to 255
    static constexpr qsizetype kFullSlot = 20001;

    // Takes the next piece of the stream, as one arrival brought it.
    void receive(QStringView text);

    // Moves the answer that begins in `slot` to the table when its end mark is in; what stands
    // behind the end mark stays in the slot of the mark. Gives true when an answer was moved.
    bool collect(int slot);

    // False when nothing was received or moved since the last time that all slots were collected
    // without result, so that another scan would be for nothing.
    bool hasNews() const { return news_; }
    void noteScan() { news_ = false; }

    // All slots with text stand from the oldest to the newest one, round the ring.
    int oldest();
    int newest() const { return writeIndex_; }
    bool isEmpty(int slot) const { return slots_[slot].text.isEmpty(); }

    // The finished answer of a command, empty while there is none. An answer with an empty body is
    // deliberately no answer: its command ends by time-out.
    const QString& answer(int number) const { return answers_[number]; }
    QString takeAnswer(int number) { return std::exchange(answers_[number], {}); }
    void clearAnswer(int number) { answers_[number].clear(); }

    // Forgets all that is not finished: what a lost connection left can't be continued by the next.
    void dropUnfinished();

private:
    struct Slot {
        QString text;
        QList<qsizetype> endMarks; // where "</CmdID:" stands in text
        qsizetype searched = 0;    // so far the end marks are known

        void append(QStringView piece);
        void cut(qsizetype count); // drops the first `count` characters
        QString takeBegunMark();   // the beginning of a mark at the end, which goes from here
        // Place of `endMark`, which begins with "</CmdID:", or -1.
        qsizetype find(QStringView endMark) const;
    };

    QString join(int first, int last, qsizetype end);

    std::array<Slot, kSlots> slots_;
    std::array<QString, kSlots> answers_;
    int oldest_ = 0; // no slot with text stands ahead of it
    int writeIndex_ = 0;
    bool news_ = false;
};

} // namespace hotel
