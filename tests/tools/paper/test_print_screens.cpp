#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPdfWriter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "platform/printers.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/paper/PrtForm.h"
#include "tools/paper/PrtPrev.h"
#include "tools/paper/PrtSet.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/printer_choice.h"

using namespace hotel;

namespace {

// Printers of a test: they count their sheets, and the broken one jams behind its first.
class TestPrinters : public Printers {
public:
    QStringList known{u"前台打印机"_s, u"坏打印机"_s, u"PDF文件"_s};
    mutable int sheets = 0;
    mutable QList<PrintTarget> targets;

    QStringList names() const override { return known; }
    QString defaultName() const override { return known.value(0); }
    std::unique_ptr<QPagedPaintDevice> open(const PrintTarget& target) const override {
        targets.append(target);
        sheets = 1;
        return std::make_unique<Sheets>(*this, target.printer == u"坏打印机");
    }

private:
    class Sheets : public QPdfWriter {
    public:
        Sheets(const TestPrinters& printers, bool broken)
            : QPdfWriter(u"sheets.pdf"_s), printers_(printers), broken_(broken) {}
        bool newPage() override {
            if (broken_)
                return false;
            ++printers_.sheets;
            return QPdfWriter::newPage();
        }

    private:
        const TestPrinters& printers_;
        bool broken_;
    };
};

void WriteJob(int pages) {
    OpenPrintJob(21, 28);
    SetPrintMargins(1.5, 1, 1.5, 1);
    for (int page = 1; page <= pages; ++page) {
        StartPage(u"云水宾馆"_s);
        PrintTextCentre(0, 2, u"第%1页的内容"_s.arg(page), {u"黑体"_s, 20, true}, 18.5);
        EndPage(u"第%1页"_s.arg(page));
    }
}

template<class Widget>
Widget* Find(QWidget* window, const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (!widget)
        qFatal("no %s", qPrintable(name));
    return widget;
}

} // namespace

class PrintScreensTest : public QObject {
    Q_OBJECT

private:
    Screen* preview(int pages) {
        WriteJob(pages);
        PreviewPrintJob();
        Screen* screen = FindScreen(u"PrtPrev");
        return screen && QTest::qWaitForWindowActive(screen) ? screen : nullptr;
    }
    static QString pageShown(Screen* screen) { return Find<QLabel>(screen, u"PagLbl"_s)->text(); }

    // The next modal screen to come up, once it stands.
    void onModal(std::function<void(Screen*)> act) {
        QTimer::singleShot(0, this, [this, act] {
            auto* screen = qobject_cast<Screen*>(QApplication::activeModalWidget());
            if (screen && screen->isVisible() && !screen->busy())
                act(screen);
            else
                onModal(act);
        });
    }

    WorkingFolder folder_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<TestPrinters> printers_;

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(
            u"PrtPrev", [] { return new PrtPrev; }, Instances::Many);
        RegisterScreen(u"PrtForm", [] { return new PrtForm; });
    }

    void init() {
        messages_ = std::make_unique<MessageRecorder>();
        printers_ = std::make_unique<TestPrinters>();
        Printers::Install(printers_.get());
        ChoosePrinter({});
    }
    void cleanup() {
        CloseAllScreens();
        ClosePrintJob();
        Printers::Install(nullptr);
    }

    void findsTheZoom() {
        const auto row = [](const char* name, const QString& text, double zoom) {
            Check(name, ZoomOf(text, QSizeF(1000, 2000), QSizeF(800, 1000)), zoom);
        };
        row("percentage", u"150"_s, 150.0);
        row("too small", u"24"_s, 25.0);
        row("too large", u"9000"_s, 500.0);
        row("no number", u"大"_s, 100.0);
        row("height", u"页高"_s, 50.0);
        row("width", u"页宽"_s, 80.0);
        row("both", u"整页"_s, 50.0);
        QCOMPARE(ZoomOf(u"整页"_s, QSizeF(), QSizeF(800, 1000)), 100.0);
        QCOMPARE(ZoomOf(u"整页"_s, QSizeF(1000, 2000), QSizeF(10, 10)), 25.0);
    }

    void refusesAJobWithoutPages() {
        QVERIFY(!preview(0));
        QCOMPARE(messages_->entries().size(), 1);
        QCOMPARE(messages_->entries().first().title, u"无法预览"_s);
        QCOMPARE(messages_->last(), u"没有可以打印的内容!"_s);
        QVERIFY(!QFile::exists(PrintScriptFile()));
    }

    // Where no folder can be written, that is what is told.
    void tellsThatTheScriptCouldNotBeWritten() {
        QDir(QFileInfo(PrintScriptFile()).path()).removeRecursively();
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", "/dev/null"); // no folder
        QVERIFY(!preview(1));
        QCOMPARE(messages_->words(),
                 QStringList{u"打印文件无法写入临时文件夹,请检查磁盘空间和权限!"_s});
        qputenv("TMPDIR", before);
        QVERIFY(preview(1)); // the second try, with the folder back
    }

    // What is typed into the box is the zoom, whatever entry it begins.
    void typedZoom() {
        Screen* screen = preview(1);
        auto* zoom = Find<QComboBox>(screen, u"zVal"_s);
        zoom->setFocus();
        zoom->lineEdit()->selectAll();
        QTest::keyClicks(zoom->lineEdit(), u"10"_s);
        QCOMPARE(zoom->currentText(), u"10"_s);
        QTest::keyClick(zoom->lineEdit(), Qt::Key_Return);
        QCOMPARE(Find<QLabel>(screen, u"ZoomLbl"_s)->text(), u"%25"_s); // the smallest
    }

    void turnsPagesByKeys() {
        Screen* screen = preview(4);
        QVERIFY(screen);
        QTRY_COMPARE(pageShown(screen), u"第1页，共4页"_s);
        QTest::keyClick(screen, Qt::Key_PageDown);
        QTest::keyClick(screen, Qt::Key_PageDown);
        QCOMPARE(pageShown(screen), u"第3页，共4页"_s);
        QTest::keyClick(screen, Qt::Key_PageUp);
        QCOMPARE(pageShown(screen), u"第2页，共4页"_s);
        screen->command(u"LastCmd")->click();
        QTest::keyClick(screen, Qt::Key_PageDown);
        QCOMPARE(pageShown(screen), u"第4页，共4页"_s);
        screen->command(u"FirstCmd")->click();
        QTest::keyClick(screen, Qt::Key_PageUp);
        QCOMPARE(pageShown(screen), u"第1页，共4页"_s);
        auto* ePag = Find<QComboBox>(screen, u"ePag"_s);
        QCOMPARE(ePag->count(), 4);
        Choose(ePag, ePag->itemText(2));
        QCOMPARE(pageShown(screen), u"第3页，共4页"_s);
        QTest::keyClick(screen, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"PrtPrev"));
        QVERIFY(!QFile::exists(PrintScriptFile()));
    }

    // The last page may be asked for before the script was looked through.
    void jumpsToTheEndOfALongJob() {
        Screen* screen = preview(3000);
        screen->command(u"LastCmd")->click();
        QCOMPARE(pageShown(screen), u"第3000页，共3000页"_s);
    }

    void zoomsByKeys() {
        Screen* screen = preview(1);
        auto* zoom = Find<QLabel>(screen, u"ZoomLbl"_s);
        Choose(Find<QComboBox>(screen, u"zVal"_s), u"100"_s);
        QCOMPARE(zoom->text(), u"%100"_s);
        QTest::keyClick(screen, Qt::Key_Plus);
        QCOMPARE(zoom->text(), u"%125"_s);
        for (int press = 0; press < 8; ++press)
            QTest::keyClick(screen, Qt::Key_Minus);
        QCOMPARE(zoom->text(), u"%25"_s);
    }

    // A job that is opened while the preview of another one stands takes its place.
    void givesWayToTheNextJob() {
        Screen* first = preview(1);
        QVERIFY(first);
        Screen* second = preview(2);
        QVERIFY(second);
        QTRY_COMPARE(pageShown(second), u"第1页，共2页"_s);
        QVERIFY(QFile::exists(PrintScriptFile()));
    }

    void printsThePagesChosen() {
        Screen* screen = preview(5);
        const auto row = [&](const char* name, int first, int last, int sheets) {
            onModal([&](Screen* settings) {
                QCOMPARE(Find<QLabel>(settings, u"tPag"_s)->text(), u"5"_s);
                Find<QComboBox>(settings, u"sPag"_s)->setCurrentIndex(first - 1);
                Find<QComboBox>(settings, u"ePag"_s)->setCurrentIndex(last - 1);
                settings->command(u"Command1")->click();
            });
            screen->command(u"PrintCmd")->click();
            Check(name, printers_->sheets, sheets);
        };
        row("all", 1, 5, 5);
        row("one in the middle", 2, 2, 1);
        row("the end follows the start", 4, 3, 1);
        QCOMPARE(printers_->targets.first().printer, u"前台打印机"_s);
        QCOMPARE(printers_->targets.first().paper, QSizeF(21, 28));
        QCOMPARE(messages_->words(), QStringList());
    }

    void printsOnlyThePageViewed() {
        Screen* screen = preview(5);
        screen->command(u"NextCmd")->click();
        onModal([&](Screen* settings) {
            settings->command(u"Command4")->click();
            QCOMPARE(Find<QComboBox>(settings, u"sPag"_s)->currentText(), u"2"_s);
            QCOMPARE(Find<QComboBox>(settings, u"ePag"_s)->currentText(), u"2"_s);
            settings->close();
        });
        screen->command(u"PrintCmd")->click();
        QCOMPARE(printers_->targets.size(), 0);
    }

    void asksForThePrinter() {
        Screen* screen = preview(1);
        onModal([&](Screen* choice) {
            auto* list = Find<QListWidget>(choice, u"DyjQd"_s);
            QCOMPARE(list->currentItem()->text(), u"前台打印机"_s);
            list->setCurrentRow(2);
            choice->command(u"QdCmd")->click();
        });
        screen->command(u"PrinterCmd")->click();
        QCOMPARE(ChosenPrinter(), u"PDF文件"_s);
        printers_->known.removeLast(); // it was taken away
        QCOMPARE(ChosenPrinter(), u"前台打印机"_s);
    }

    // What can go wrong is said, and the script stays to be printed once more.
    void tellsOfTrouble() {
        WriteJob(3);
        FinishedPrintJob job = ReadPrintJob();
        const auto goOn = [](int, int) { return true; };

        ChoosePrinter(u"坏打印机"_s);
        QVERIFY(!PrintPages(job, 1, 3, goOn));
        QCOMPARE(printers_->sheets, 1);
        QCOMPARE(messages_->entries().size(), 1);

        ChoosePrinter(u"前台打印机"_s);
        QVERIFY(!PrintPages(job, 1, 3, [](int page, int) { return page < 2; }));
        QCOMPARE(messages_->entries().size(), 1);

        ChoosePrinter(u"PDF文件"_s);
        QVERIFY(!PrintPages(job, 1, 3, goOn)); // asked for the file and cancelled
        QCOMPARE(messages_->entries().size(), 2);
        messages_->answerNext(u"a.pdf"_s);
        QVERIFY(PrintPages(job, 1, 3, goOn));
        QCOMPARE(printers_->targets.last().pdfFile, u"a.pdf"_s);

        printers_->known.clear();
        QVERIFY(!PrintPages(job, 1, 3, goOn));
        QCOMPARE(messages_->entries().last().title, u"注意"_s);
        QCOMPARE(messages_->last(), u"没有可以使用的打印机!"_s);
        QVERIFY(PrintScript::FromFile(PrintScriptFile()).hasPage(3));
    }

    // The real thing, into a file: every desk has that choice.
    void writesAPdfFile() {
        Printers::Install(nullptr);
        const QString pdf = Printers::Installed().names().last();
        QVERIFY(Printers::Installed().writesFile(pdf));
        ChoosePrinter(pdf);
        WriteJob(3);
        FinishedPrintJob job = ReadPrintJob();
        const auto goOn = [](int, int) { return true; };
        messages_->answerNext(folder_.filePath(u"a.pdf"_s));
        QVERIFY(PrintPages(job, 2, 3, goOn));
        const QByteArray content = FileBytes(folder_.filePath(u"a.pdf"_s));
        QCOMPARE(content.count("/Type /Page\n"), 2);
        QVERIFY(content.contains("/MediaBox [0 0 595")); // 21 cm

        messages_->answerNext(folder_.filePath(u"none/a.pdf"_s));
        QVERIFY(!PrintPages(job, 2, 3, goOn));
    }

    void editsAFormat() {
        TestHotel hotel;
        QVERIFY(OpenScreen(u"PrtForm"));
        auto* form = qobject_cast<PrtForm*>(FindScreen(u"PrtForm"));
        Choose(Find<QComboBox>(form, u"FmtFile"_s), u"dygs\\bkyjpz.QVR"_s);
        auto* tree = Find<QTreeWidget>(form, u"QVRTrVw"_s);
        const auto choose = [&](const QStringList& path) {
            QTreeWidgetItem* node = tree->invisibleRootItem();
            for (const QString& name : path) {
                QTreeWidgetItem* inner = nullptr;
                for (int n = 0; n < node->childCount() && !inner; ++n)
                    if (node->child(n)->text(0) == name)
                        inner = node->child(n);
                if (!inner)
                    qFatal("no %s", qPrintable(name));
                node = inner;
            }
            tree->setCurrentItem(node);
        };
        auto* value = Find<QPlainTextEdit>(form, u"FldValue"_s);
        choose({u"纸张"_s, u"纸宽"_s});
        QCOMPARE(value->toPlainText(), u"21"_s);
        choose({u"宾客押金凭证"_s, u"标题"_s, u"01"_s, u"文本"_s});
        QCOMPARE(Find<QLineEdit>(form, u"FldName"_s)->text(), u"文本"_s);
        QCOMPARE(value->toPlainText(), u"宾客押金凭证"_s);
        value->setPlainText(u"押金收据"_s);
        form->command(u"Modify_field")->click();
        choose({u"宾客押金凭证"_s, u"表底"_s, u"高度"_s});
        value->setPlainText(u"3"_s);
        form->command(u"Modify_field")->click();

        // not stored yet; closing asks, and saves when told so
        const QString stored = hotel.stored(u"dygs\\bkyjpz.QVR"_s, u"宾客押金凭证"_s, u"标题"_s);
        QVERIFY(stored.contains(u"<文本>宾客押金凭证</文本>"));
        messages_->answerNext(u"yes"_s);
        form->close();
        QTRY_VERIFY(!FindScreen(u"PrtForm"));
        QString expected = stored;
        QCOMPARE(hotel.stored(u"dygs\\bkyjpz.QVR"_s, u"宾客押金凭证"_s, u"标题"_s),
                 expected.replace(u"宾客押金凭证"_s, u"押金收据"_s));
        QCOMPARE(GetTag(hotel.stored(u"dygs\\bkyjpz.QVR"_s, u"宾客押金凭证"_s, u"表底"_s), u"高度"),
                 u"3"_s);
    }

    void previewsAFormat() {
        TestHotel hotel;
        QVERIFY(OpenScreen(u"PrtForm"));
        Screen* form = FindScreen(u"PrtForm");
        Choose(Find<QComboBox>(form, u"FmtFile"_s), u"dygs\\lkzsdjb.QVR"_s);
        auto* tree = Find<QTreeWidget>(form, u"QVRTrVw"_s);
        for (int n = 0; n < tree->topLevelItemCount(); ++n) {
            tree->setCurrentItem(tree->topLevelItem(n));
            form->command(u"Preview_cmd")->click();
        }
        // the paper is no form
        QCOMPARE(messages_->entries().size(), 1);
        QVERIFY(FindScreen(u"PrtPrev"));
        PrintScript script = ScriptOfJob();
        QVERIFY(script.hasPage(1));
        QVERIFY(TextsOf(script.previewPage(1)).size() > 20);
    }
};

HOTEL_TEST(PrintScreensTest)

#include "test_print_screens.moc"
