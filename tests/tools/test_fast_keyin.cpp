#include <QLineEdit>

#include "screen/grid_view.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"
#include "tools/fast_keyin.h"

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
        for (const QString& control : {u"key_in"_s, u"List1"_s}) {
            init();
            auto* typed = form_->findChild<QWidget*>(control);
            typed->setFocus();
            TypeText(typed, u"R"_s);
            QTest::keyClick(typed, Qt::Key_Return);
            QVERIFY(form_->accepted());
            QCOMPARE(form_->chosen(), u"02,人民医院,RMYY"_s);
        }
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

#include "test_fast_keyin.moc"
