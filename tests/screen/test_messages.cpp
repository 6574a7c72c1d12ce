// The recorder, and the real boxes behind it.

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "screen/messages.h"
#include "screen/wait_frm.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

namespace {

// Does `act` with the next box as soon as it is up.
template<class Dialog>
void WithNextBox(std::function<void(Dialog*)> act) {
    auto* poll = new QTimer(qApp);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, act] {
        if (auto* box = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
            poll->deleteLater();
            poll->stop();
            act(box);
        }
    });
    poll->start(5);
}

WaitFrm* TimedBox() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* box = qobject_cast<WaitFrm*>(widget); box && box->isVisible())
            return box;
    }
    return nullptr;
}

} // namespace

class MessagesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // What a box proposes, and what a file dialog offers, is kept beside the words.
    void recorderKeepsProposals() {
        MessageRecorder recorder;
        recorder.answerNext(u"b"_s);
        QCOMPARE(InputBox(u"文件名："_s, u"保存"_s, u"夜审纪录.txt"_s), u"b"_s);
        QCOMPARE(recorder.entries().last().words, u"文件名："_s);
        QCOMPARE(recorder.entries().last().proposed, u"夜审纪录.txt"_s);
        QCOMPARE(AskSaveFile(u"保存"_s, u"Txt\\a.txt"_s, u"(文本文档)|*.txt"_s), QString());
        QCOMPARE(recorder.entries().last().proposed, u"Txt\\a.txt"_s);
        QCOMPARE(recorder.entries().last().filter, u"(文本文档)|*.txt"_s);
        AskOpenFile(u"照片"_s, u"(图片)|*.jpg"_s);
        QCOMPARE(recorder.entries().last().filter, u"(图片)|*.jpg"_s);
    }

    void realQuestions() {
        const auto row = [](const char* name, bool yesNo, Qt::Key key, bool agreed) {
            QString title;
            WithNextBox<QMessageBox>([&](QMessageBox* box) {
                title = box->windowTitle();
                QTest::keyClick(box, key);
            });
            Check(name,
                  yesNo ? AskYesNo(u"只结清部分房间床位?"_s, u"请确认"_s)
                        : AskOkCancel(u"确认要删除客房吗？"_s, u"请确认"_s),
                  agreed);
            Check(name, title, u"请确认"_s);
        };
        row("Enter on OK/Cancel", false, Qt::Key_Return, true);
        row("Esc on OK/Cancel", false, Qt::Key_Escape, false);
        row("Y", true, Qt::Key_Y, true);
        row("N", true, Qt::Key_N, false);
        row("Esc on Yes/No", true, Qt::Key_Escape, false);
    }

    void realInput() {
        WithNextBox<QInputDialog>([](QInputDialog* box) {
            auto* line = box->findChild<QLineEdit*>();
            TypeText(line, u"350"_s); // replaces the proposal, which is selected
            QTest::keyClick(line, Qt::Key_Return);
        });
        QCOMPARE(InputBox(u"下限"_s, u"请输入"_s, u"100"_s), std::optional(u"350"_s));
        WithNextBox<QInputDialog>([](QInputDialog* box) { box->reject(); });
        QCOMPARE(InputBox(u"下限"_s), std::optional<QString>());
    }

    void fileDialogTakesFilterAndProposal() {
        QStringList filters;
        QString suffix;
        WithNextBox<QFileDialog>([&](QFileDialog* dialog) {
            filters = dialog->nameFilters();
            suffix = dialog->defaultSuffix();
            dialog->reject();
        });
        QCOMPARE(AskSaveFile(u"保存"_s, u"060302清单.txt"_s, u"(文本文档)|*.txt|(所有文件)|*.*"_s),
                 QString());
        QCOMPARE(filters, QStringList({u"(文本文档) (*.txt)"_s, u"(所有文件) (*.*)"_s}));
        QCOMPARE(suffix, u"txt"_s);
    }

    void aBoxSurvivesTheWindowBelow() {
        QPointer<QWidget> below = new QWidget;
        ShowActive(below);
        WithNextBox<QMessageBox>([&](QMessageBox*) { delete below; });
        QVERIFY(!AskOkCancel(u"a"_s));
    }

    void timedMessageGoesByItselfAndLeavesTheFocus() {
        QLineEdit typing;
        ShowActive(&typing);
        TimedMessage(u"最多100个条件！"_s, u"注意"_s, 30);
        QVERIFY(TimedBox());
        TypeText(QApplication::focusWidget(), u"8101"_s);
        QCOMPARE(typing.text(), u"8101"_s);
        QTRY_VERIFY(!TimedBox());
    }

    void timedMessageIsTakenOverAndWaitedFor() {
        TimedMessage(u"a"_s, u"注意"_s, 100000);
        WaitFrm* first = TimedBox();
        QVERIFY(first);
        bool ticked = false;
        QTimer::singleShot(0, this, [&] { ticked = TimedBox() != nullptr; });
        TimedMessage(u"b"_s, u"注意"_s, 30, true);
        QVERIFY(ticked); // events went on during the wait
        QTRY_VERIFY(!TimedBox());
        TimedMessage(u"c"_s, u"注意"_s, 100000);
        QTest::mouseClick(TimedBox(), Qt::LeftButton);
        QVERIFY(!TimedBox());
    }
};

HOTEL_TEST(MessagesTest)

#include "test_messages.moc"
