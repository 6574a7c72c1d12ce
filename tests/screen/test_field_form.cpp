// The entry panel and record text.

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTimer>

#include "example_screen.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

class FieldFormTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ExampleScreen> screen_;
    FieldForm* form_ = nullptr;
    QStringList read_; // categories, in the order of reading

    void type(QStringView control, const QString& text) {
        form_->editor(control)->setFocus();
        TypeText(form_->editor(control), text);
    }

private Q_SLOTS:
    void init() {
        read_.clear();
        SetCategoryLoader([this](QStringView category) -> QStringList {
            read_ += category.toString();
            if (category == u"证件名称")
                return {u"身份证"_s, u"护照"_s, u"军官证"_s, u"港澳通行证"_s, u"护士证"_s};
            return {u"成都"_s, u"北京"_s};
        });
        screen_ = std::make_unique<ExampleScreen>();
        form_ = screen_->form;
        ShowActive(screen_.get());
    }
    void cleanup() { screen_.reset(); }

    void everyKindGoesThroughRecordText() {
        const QString record =
            u"<客人姓名>欧阳慧</客人姓名>\r\n<旧字段>留</旧字段>\r\n<房间号>8101</房间号>\r\n"
            u"<性别>女</性别>\r\n<证件种类>暂住证</证件种类>\r\n<证件号码>5101</证件号码>\r\n"
            u"<年龄>30</年龄>\r\n<入住日期>2006-03-02</入住日期>\r\n<入住时间>14:05</入住时间>\r\n"
            u"<确认房价>280.00</确认房价>\r\n<自何处来>拉萨</自何处来>\r\n<付费客人>1</"
            u"付费客人>\r\n"
            u"<特殊说明>加床\r\n早餐</特殊说明>"_s;
        form_->load(record);
        QCOMPARE(form_->text(u"Zjzl"), u"暂住证"_s); // not in the list
        QVERIFY(form_->editor<QCheckBox>(u"Ffkr")->isChecked());
        QCOMPARE(form_->editor<QPlainTextEdit>(u"Tssm")->blockCount(), 2);
        QCOMPARE(form_->store(record), record);
        QVERIFY(read_.isEmpty());

        form_->clear();
        QCOMPARE(TrimWhite(form_->store(record)),
                 u"<旧字段>留</旧字段>\r\n<付费客人>0</付费客人>"_s);
        form_->load(u"<客人姓名>李</客人姓名>");
        QCOMPARE(form_->store({}), u"<客人姓名>李</客人姓名>\r\n<付费客人>0</付费客人>"_s);
    }

    void storesInTheOrderOfTheTable() {
        form_->setText(u"Qrfj", u"1"_s);
        form_->setText(u"Krxm", u"王"_s);
        QVERIFY(form_->store({}).startsWith(u"<客人姓名>王</客人姓名>\r\n<确认房价>1"));
    }

    void typedTextIsNormalised() {
        const auto row = [this](const char* name, QStringView control, const QString& typed,
                                const QString& text, bool good) {
            QSignalSpy left(form_, &FieldForm::left);
            type(control, typed);
            Check(name, form_->text(control), text); // before the field is left, too
            screen_->moveOn();
            auto* editor = form_->editor<QLineEdit>(control);
            const auto colour = [editor] { return editor->palette().color(QPalette::Text); };
            const QColor usual = form_->palette().color(QPalette::Text);
            Check(name, editor->text(), text);
            Check(name, colour() == usual, good);
            Check(name, left.last().first().toString(), control.toString());
            form_->setText(control, {});
            Check(name, colour(), usual);
        };
        row("date", u"Rzrq", u"2026.3.5"_s, u"2026-03-05"_s, true);
        row("bad date", u"Rzrq", u"2026.2.30"_s, u"2026.2.30"_s, false);
        row("time without seconds", u"Rzsj", u"9：5"_s, u"09:05"_s, true);
        row("number", u"Krnl", u"３a4"_s, u"34"_s, true);
        row("number beyond its bytes", u"Krnl", u"1234"_s, u"123"_s, true);
        row("amount", u"Qrfj", u"１２８。5"_s, u"128.50"_s, true);
        row("minus", u"Qrfj", u"-20"_s, u"-20.00"_s, true);
        row("sum without a reader", u"Qrfj", u"1+2"_s, u"1+2"_s, false);
        row("text beyond its bytes", u"Krxm", u"一二三四五六七八九十百"_s,
            u"一二三四五六七八九十"_s, true);
    }

    void amountsAreReckonedByTheReader() {
        SetAmountReader([](const QString& text) -> std::optional<double> {
            return text == u"1+2" ? std::optional(3.0) : std::nullopt;
        });
        type(u"Qrfj", u"1+2"_s);
        screen_->moveOn();
        QCOMPARE(form_->text(u"Qrfj"), u"3.00"_s);
    }

    void aCategoryIsReadOnceWhenWanted() {
        form_->setText(u"Zjzl", u"护照"_s);
        type(u"Zjzl", {});
        QVERIFY(read_.isEmpty());
        form_->editor<QComboBox>(u"Zjzl")->showPopup();
        form_->editor<QComboBox>(u"Zjzl")->hidePopup();
        form_->editor<QComboBox>(u"Zjzl")->showPopup();
        form_->editor<QComboBox>(u"Zjzl")->hidePopup();
        QCOMPARE(read_, QStringList{u"证件名称"_s});
        QCOMPARE(form_->text(u"Zjzl"), u"护照"_s); // still chosen
        form_->loadCategories();
        QCOMPARE(read_.count(u"证件名称"_s), 1);
        QCOMPARE(read_.count(u"省市名称"_s), 1);
        QCOMPARE(form_->text(u"Zhcl"), QString());
    }

    void lettersChooseAnEntry() {
        QSignalSpy edited(form_, &FieldForm::edited);
        type(u"Zjzl", u"护"_s);
        QCOMPARE(form_->text(u"Zjzl"), u"护照"_s);
        TypeText(form_->editor(u"Zjzl"), u"护"_s); // once more: the next one
        QCOMPARE(form_->text(u"Zjzl"), u"护士证"_s);
        QCOMPARE(edited.size(), 2);

        SetCategoryMatch([](QStringView entry, QStringView typed) {
            return entry == u"军官证" && QStringView(u"JGZ").startsWith(typed, Qt::CaseInsensitive);
        });
        form_->setText(u"Zjzl", {});
        QTest::qWait(QApplication::keyboardInputInterval() * 2 + 50);
        type(u"Zjzl", u"jgz"_s);
        QCOMPARE(form_->text(u"Zjzl"), u"军官证"_s);
    }

    void aListMayBeFreelyTypedOver() {
        type(u"Zhcl", u"林芝"_s);
        QCOMPARE(form_->text(u"Zhcl"), u"林芝"_s);
        QTest::keyClick(form_->editor(u"Zhcl"), Qt::Key_Down);
        QCOMPARE(form_->text(u"Zhcl"), u"成都"_s);
        QCOMPARE(read_, QStringList{u"省市名称"_s});
    }

    // A list that could not be read is asked for again when it is wanted again; one that was read isn't.
    void aListThatCouldNotBeRead() {
        bool serverAnswers = false;
        int reads = 0;
        SetCategoryLoader([&](QStringView) -> std::optional<QStringList> {
            ++reads;
            return serverAnswers ? std::optional(QStringList{u"身份证"_s}) : std::nullopt;
        });
        auto* list = form_->editor<QComboBox>(u"Zjzl");
        list->showPopup();
        list->hidePopup();
        QCOMPARE(list->count(), 0);
        serverAnswers = true;
        for (int again = 0; again < 2; ++again) {
            list->showPopup();
            list->hidePopup();
            QCOMPARE(list->count(), 1);
        }
        QCOMPARE(reads, 2);
    }

    void aCategoryThatWaitsKeepsTheScreenStanding() {
        const QPointer<Screen> screen = screen_.get();
        SetCategoryLoader([&](QStringView) -> QStringList {
            QEventLoop wait;
            QTimer::singleShot(0, &wait, [&] {
                QVERIFY(!screen->close());
                wait.quit();
            });
            wait.exec();
            return {u"身份证"_s};
        });
        form_->editor<QComboBox>(u"Zjzl")->showPopup();
        QVERIFY(screen);
        QVERIFY(!screen->isVisible()); // closed once the reading was over
    }

    void editedTellsOfTheUserOnly() {
        QSignalSpy edited(form_, &FieldForm::edited);
        form_->load(u"<客人姓名>李</客人姓名><特殊说明>a</特殊说明><付费客人>1</付费客人>");
        form_->setText(u"Zhcl", u"成都"_s);
        form_->loadCategories();
        QCOMPARE(edited.size(), 0);
        type(u"Krxm", u"a"_s);
        type(u"Tssm", u"a"_s);
        type(u"Zhcl", u"a"_s);
        QTest::keyClick(form_->editor(u"Ffkr"), Qt::Key_Space);
        QCOMPARE(edited.size(), 4);
    }
};

HOTEL_TEST(FieldFormTest)

#include "test_field_form.moc"
