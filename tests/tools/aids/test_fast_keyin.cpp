#include <QLineEdit>

#include "screen/grid_view.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"
#include "tools/aids/fast_keyin.h"
#include "tools/aids/pinyin.h"

using namespace hotel;

class FastKeyinTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        form_ = std::make_unique<fast_keyin>(
            u"选择单位"_s,
            QStringList{u"01,华联商贸,HLSM"_s, u"02,人民医院,RMYY"_s, u"03,红星学校,HXXX"_s});
        form_->show();
        list_ = form_->findChild<GridView*>(u"List1"_s);
    }
    void cleanup() { form_.reset(); }

    void typedTextSelects() {
        TypeText(form_->findChild<QLineEdit*>(u"key_in"_s), u"hx"_s);
        QCOMPARE(list_->currentRow(), 3);
        TypeText(form_->findChild<QLineEdit*>(u"Key_code"_s), u"人"_s);
        QCOMPARE(list_->currentRow(), 2);
    }

    // Typing in the list goes on where the field left off; what fits nothing leaves the selection.
    void typingInTheListGoesOn() {
        TypeText(list_, u"hx"_s);
        QCOMPARE(form_->findChild<QLineEdit*>(u"key_in"_s)->text(), u"HX"_s);
        QCOMPARE(list_->currentRow(), 3);
        TypeText(list_, u"9"_s);
        QCOMPARE(list_->currentRow(), 3);
    }

    void enterTakesTheEntry() {
        const auto row = [this](const QString& control, const QString& initials,
                                const QString& chosen) {
            init();
            auto* typed = form_->findChild<QWidget*>(control);
            typed->setFocus();
            TypeText(typed, initials);
            QTest::keyClick(typed, Qt::Key_Return);
            QCOMPARE(form_->accepted(), !chosen.isEmpty());
            QCOMPARE(form_->chosen(), chosen);
        };
        row(u"key_in"_s, u"R"_s, u"02,人民医院,RMYY"_s);
        row(u"List1"_s, u"R"_s, u"02,人民医院,RMYY"_s);
        row(u"key_in"_s, u"HL"_s, u"01,华联商贸,HLSM"_s);
        row(u"Key_code"_s, u""_s, u""_s);
    }

    void escapeTakesNone() {
        TypeText(list_, u"R"_s);
        QTest::keyClick(list_, Qt::Key_Escape);
        QVERIFY(!form_->accepted());
        QCOMPARE(form_->chosen(), QString());
    }

private:
    std::unique_ptr<fast_keyin> form_;
    GridView* list_ = nullptr;
};

HOTEL_TEST(FastKeyinTest)

class PinyinTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesInitials() {
        const auto row = [](const char* name, const QString& text, const QString& initials) {
            Check(name, PinyinInitials(text), initials);
        };
        row("first of each letter", u"啊芭擦搭蛾发噶哈击喀垃妈拿哦啪期然撒塌挖昔压匝"_s,
            u"ABCDEFGHJKLMNOPQRSTWXYZ"_s);
        row("last of each letter", u"澳怖错堕贰咐过祸骏阔络穆诺沤瀑群弱所唾误迅孕座"_s,
            u"ABCDEFGHJKLMNOPQRSTWXYZ"_s);
        row("words", u"散客合住"_s, u"SKHZ"_s);
        row("single bytes are kept", u"VIP客房-1号"_s, u"VIPKF-1H"_s);
        row("outside the table", u"鑫囧衢"_s, u"ZZZ"_s);
        row("double-byte signs", u"，１"_s, u"ZZ"_s);
        row("not in the code page", u"ö한"_s, u"ö한"_s);
        row("position without a character", u"盄"_s, u" "_s);
        row("empty", u""_s, u""_s);
    }

    void findsEntries() {
        const auto row = [](const char* name, const QString& code, const QString& initials,
                            int index) {
            const QStringList entries = {u"010"_s, u"010,北京,BJ"_s, u"021,上海,SH"_s,
                                         u"0755,深圳,SZ"_s};
            Check(name, int(FindListEntry(entries, code, initials)), index);
        };
        row("by initials", u""_s, u"BJ"_s, 1);
        row("small letters", u""_s, u"bj"_s, 1);
        row("the first of several", u""_s, u"S"_s, 2);
        row("by the second part", u"上"_s, u""_s, 2);
        row("either", u"上"_s, u"BJ"_s, 1);
        row("not by the first part", u"020"_s, u""_s, -1);
        row("none", u""_s, u"X"_s, -1);
        row("nothing typed", u""_s, u""_s, -1);
    }

    void matchesWhatIsTyped() {
        QVERIFY(MatchesTyped(u"标准大床房", u"bzd"));
        QVERIFY(MatchesTyped(u"标准大床房", u"标准"));
        QVERIFY(MatchesTyped(u"VIP房", u"vipf"));
        QVERIFY(!MatchesTyped(u"标准大床房", u"dcf"));
    }
};

HOTEL_TEST(PinyinTest)

#include "test_fast_keyin.moc"
