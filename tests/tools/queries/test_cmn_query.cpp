#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "record/conditions.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/queries/CmnQuery.h"
#include "tools/queries/CmnSubQuery.h"

using namespace hotel;

namespace {

const QStringList kFields = {u"编号"_s, u"姓名"_s, u"生日"_s};

// A form and its controls by name.
struct Form {
    explicit Form(ConditionForm& shown) : screen(shown) {
        screen.show();
        activate();
        screen.load({});
        QTRY_COMPARE(QApplication::activeWindow(), &screen);
    }

    // Keys of commands reach an active window only.
    void activate() const {
        screen.activateWindow();
        if (!QTest::qWaitForWindowActive(&screen))
            qWarning("the form is not active");
    }

    QComboBox* list(const QString& name) const { return screen.findChild<QComboBox*>(name); }
    GridView* conditions() const { return screen.findChild<GridView*>(u"CondGrd"_s); }
    int listed() const {
        return int(screen.findChild<GridView*>(u"CondGrd"_s)->table().dataRows());
    }

    void add(const QString& relation, const QString& field, const QString& op,
             const QString& target) const {
        list(u"Rlt"_s)->setCurrentText(relation);
        list(u"Fld"_s)->setCurrentText(field);
        list(u"Cnd"_s)->setCurrentText(op);
        list(u"Vl"_s)->setEditText(target);
        list(u"Vl"_s)->setFocus();
        QTest::keyClick(list(u"Vl"_s), Qt::Key_Return);
    }
    void type(const QString& box, const QString& text) const {
        TypeText(list(box)->lineEdit(), text);
    }
    void search() const {
        QTRY_VERIFY(screen.command(u"Search_cmd")->isEnabled());
        screen.command(u"Search_cmd")->click();
    }
    QWidget* focus() const { return screen.focusWidget(); }

    ConditionForm& screen;
};

} // namespace

class CmnQueryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        recorder_ = std::make_unique<MessageRecorder>();
        query_ = std::make_unique<CmnQuery>(u"请输入员工信息查询组合条件"_s, kFields, u"编号"_s);
    }
    void cleanup() {
        query_.reset();
        recorder_.reset();
        hotel_.reset();
    }

    // A manager's query without the mouse: Enter opens, chooses, moves on, adds; F8 searches.
    void composedByKeys() {
        const Form form(*query_);
        const auto enter = [&] { QTest::keyClick(form.focus(), Qt::Key_Return); };
        const auto choose = [&](const QString& name, int downs) {
            QCOMPARE(form.focus(), form.list(name));
            enter();
            QWidget* popup = form.list(name)->view();
            QTRY_VERIFY(popup->isVisible());
            for (int n = 0; n < downs; ++n)
                QTest::keyClick(popup, Qt::Key_Down);
            QTest::keyClick(popup, Qt::Key_Return);
            QTRY_VERIFY(!popup->isVisible());
            form.activate(); // without a desktop a popup that closes keeps the activation
            QTRY_COMPARE(QApplication::activeWindow(), query_.get());
            enter();
        };
        choose(u"Fld"_s, 0);
        choose(u"Cnd"_s, 2);
        QCOMPARE(form.focus(), form.list(u"Vl"_s));
        form.type(u"Vl"_s, u"5"_s);
        enter();
        QCOMPARE(form.listed(), 1);
        QCOMPARE(form.focus(), form.list(u"Rlt"_s));
        enter(); // 并且 stands: on to the next condition
        QCOMPARE(form.focus(), form.list(u"Fld"_s));
        QTRY_VERIFY(query_->command(u"Search_cmd")->isEnabled());
        QTest::keyClick(form.focus(), Qt::Key_F8);
        QVERIFY(query_->accepted());
        const QList<Condition> read = ParseConditions(query_->conditionText());
        QCOMPARE(read.size(), 1);
        QCOMPARE(read[0].object, u"记录名"_s); // 编号 stands for it
        QCOMPARE(read[0].op, OperatorWords()[2]);
        QCOMPARE(read[0].target, u"5"_s);
    }

    void leavesTextAndLogsIt() {
        const Form form(*query_);
        form.add(u"或者"_s, u"姓名"_s, u"为空"_s, {});
        form.search();
        const QString text =
            u"<记录查询条件>\r\n<00>\r\n <关系>或者</关系>\r\n <对象>姓名</对象>\r\n"
            " <条件>为空</条件>\r\n</00>\r\n</记录查询条件>\r\n"_s;
        QCOMPARE(query_->conditionText(), text);
        QCOMPARE(form.listed(), 0);
        QCOMPARE(hotel_->logged(u"操作内容"), u"执行查询功能"_s);
        QCOMPARE(hotel_->logged(u"备注"), text);
    }

    void refusesTheHundredAndFirst() {
        const Form form(*query_);
        for (int n = 1; n <= 100; ++n)
            form.add(u"或者"_s, u"编号"_s, u"等于"_s, QString::number(n));
        QVERIFY(recorder_->entries().isEmpty());
        form.add(u"或者"_s, u"编号"_s, u"等于"_s, u"101"_s);
        QCOMPARE(form.listed(), 100);
        QCOMPARE(recorder_->last(), u"最多100个条件！"_s);
        QCOMPARE(recorder_->entries().last().title, u"注意"_s);
        QCOMPARE(form.list(u"Vl"_s)->currentText(), u"101"_s); // not thrown away
    }

    void refusesARepeatedCondition() {
        const Form form(*query_);
        form.add(u"并且"_s, u"姓名"_s, u"等于"_s, u"王"_s);
        form.add(u"或者"_s, u"姓名"_s, u"等于"_s, u"王"_s);
        form.add(u"并且"_s, u"姓名"_s, u"等于"_s, u"王"_s);
        QCOMPARE(form.listed(), 2);
        QCOMPARE(recorder_->last(), u"完全重复的条件！"_s);
        QVERIFY(form.list(u"Vl"_s)->findText(u"王"_s) >= 0); // history of the session
        // which offers, and turns nothing that is typed into what was typed before
        form.add(u"或者"_s, u"姓名"_s, u"等于"_s, u"wang"_s);
        form.activate();
        form.list(u"Vl"_s)->setFocus();
        form.list(u"Vl"_s)->setEditText({});
        form.type(u"Vl"_s, u"wa"_s);
        QTest::keyClick(form.list(u"Vl"_s)->lineEdit(), Qt::Key_Tab);
        QCOMPARE(form.list(u"Vl"_s)->currentText(), u"wa"_s);
        QTest::keyClick(query_.get(), Qt::Key_Escape);
        QVERIFY(!query_->accepted());
        QVERIFY(query_->conditionText().isEmpty());
    }

    void asksAboutDates() {
        const QString question = u"您输入的可能是不标准的日期/时间参数，需要规范为标准形式吗？"_s;
        const Form form(*query_);
        const auto row = [&](const char* name, const QString& typed, const QString& answer,
                             const QString& target) {
            recorder_->clear();
            recorder_->answerNext(answer);
            form.add(u"并且"_s, u"生日"_s, u"等于"_s, typed);
            const TextTable& listed = form.conditions()->table();
            Check(name, listed.text(listed.dataRows(), 3), target);
            Check(name, recorder_->words(),
                  answer.isEmpty() ? QStringList() : QStringList{question});
        };
        row("taken", u"2026.3.5"_s, u"ok"_s, u"2026-03-05"_s);
        row("declined", u"2026.3.5"_s, u"cancel"_s, u"2026.3.5"_s);
        row("not asked", u"2026.3."_s, {}, u"2026.3."_s);
        row("tag marks go", u"<1990>"_s, {}, u"1990"_s);
    }

    void takesConditionsOut() {
        const Form form(*query_);
        form.add(u"并且"_s, u"姓名"_s, u"等于"_s, u"甲"_s);
        form.add(u"并且"_s, u"姓名"_s, u"等于"_s, u"乙"_s);
        GridView* list = form.conditions();
        Q_EMIT list->rowDoubleClicked(1, 0);
        QCOMPARE(form.listed(), 1);
        QCOMPARE(list->table().text(1, 3), u"乙"_s);
        form.activate();
        list->setFocus();
        list->setCurrent(1);
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(form.listed(), 1); // the last row is emptied
        QCOMPARE(list->table().text(1, 1), QString());
        QTRY_VERIFY(!query_->command(u"Search_cmd")->isEnabled());
        form.add(u"并且"_s, u"姓名"_s, u"等于"_s, u"丙"_s); // and filled again
        QCOMPARE(list->table().text(1, 3), u"丙"_s);
    }

    void enablesWhatMayBePressed() {
        const Form form(*query_);
        const auto enabled = [&](QStringView name) { return query_->command(name)->isEnabled(); };
        auto* conditions = query_->findChild<QGroupBox*>(u"Zhcxtj"_s);
        auto* keywords = query_->findChild<QGroupBox*>(u"Kscxtj"_s);
        auto* dates = query_->findChild<QGroupBox*>(u"DateFrm"_s);
        QTest::qWait(150);
        QVERIFY(!enabled(u"Add_cmd") && !enabled(u"Search_cmd") && !enabled(u"Clear_cmd"));
        QVERIFY(!dates->isVisible());
        query_->useDates();
        QVERIFY(dates->isVisible());
        QCOMPARE(query_->StDay(), QDate(2026, 3, 1));
        QCOMPARE(query_->EndDay(), QDate(2026, 3, 5));

        form.list(u"Fld"_s)->setCurrentText(u"姓名"_s);
        form.list(u"Cnd"_s)->setCurrentText(u"等于"_s);
        QTest::qWait(150);
        QVERIFY(!enabled(u"Add_cmd")); // wants a value
        form.list(u"Cnd"_s)->setCurrentText(u"非空"_s);
        QTRY_VERIFY(enabled(u"Add_cmd"));
        query_->command(u"Add_cmd")->click();
        QTRY_VERIFY(enabled(u"Search_cmd") && enabled(u"Clear_cmd"));
        QVERIFY(conditions->isEnabled() && !keywords->isEnabled());
        query_->command(u"Clear_cmd")->click();
        QTRY_VERIFY(!enabled(u"Search_cmd"));
        form.type(u"RxTj"_s, u"散客"_s);
        QTRY_VERIFY(enabled(u"Search_cmd"));
        QVERIFY(!conditions->isEnabled() && keywords->isEnabled());
    }

    void searchesByKeywords() {
        const Form form(*query_);
        form.type(u"BxTj"_s, u"一，二,三,四,五,六,七,八,九,十"_s);
        form.type(u"PcTj"_s, u"1,2,3,4,5,6,7,8,9,10,11"_s);
        form.search();
        QVERIFY(!query_->accepted()); // eleven are too many
        QCOMPARE(recorder_->last(), u"每栏最多10个关键词！"_s);
        form.list(u"PcTj"_s)->setEditText(u"团队"_s);
        form.search();
        QCOMPARE(query_->conditionText(),
                 u"<记录查询条件>\r\n<必选条件>一,二,三,四,五,六,七,八,九,十</必选条件>\r\n"
                 "<排除条件>团队</排除条件>\r\n</记录查询条件>\r\n"_s);
        const CmnQuery next({}, kFields);
        QVERIFY(next.findChild<QComboBox*>(u"PcTj"_s)->findText(u"团队"_s) >= 0);
    }

    void refusesAWrongPeriod() {
        const Form form(*query_);
        query_->useDates();
        form.type(u"BxTj"_s, u"王"_s);
        query_->findChild<QLineEdit*>(u"EndDay"_s)->setText(u"2026-2-30"_s);
        form.search();
        QVERIFY(!query_->accepted());
        QCOMPARE(recorder_->words().size(), 1);
    }

    void subRecordForm() {
        CmnSubQuery query(u"履历"_s, {u"工作经历"_s, u"家庭成员"_s},
                          u"<工作经历><01><单位>一店</单位></01><02><单位>a</单位><年>2</年></02>"
                          "</工作经历><家庭成员><01><称谓>父</称谓></01></家庭成员>"_s);
        const Form form(query);
        QVERIFY(!query.findChild<QGroupBox*>(u"Zhcxtj"_s)->isEnabled());
        auto* part = form.list(u"FlmcQd"_s);
        Choose(part, u"工作经历"_s);
        QCOMPARE(query.fields(), (QStringList{u"单位"_s, u"年"_s}));
        form.add(u"并且"_s, u"单位"_s, u"等于"_s, u"一店"_s);
        QCOMPARE(form.list(u"Rlt"_s)->currentText(), QString());
        form.add({}, u"年"_s, u"为空"_s, {});
        form.search();
        QVERIFY(query.accepted());
        QVERIFY(query.conditionText().endsWith(u"</记录查询条件>\r\n"
                                               "<记录查询字段>工作经历</记录查询字段>\r\n"));
        QCOMPARE(ParseConditions(query.conditionText()).size(), 2);
        Choose(part, u"家庭成员"_s);
        QCOMPARE(query.fields(), QStringList{u"称谓"_s});
    }

    // A single part is chosen already; of its fields 999 are offered.
    void subRecordFormOfOnePart() {
        QString fields;
        for (int n = 1; n <= 1000; ++n)
            fields += u"<列%1>0</列%1>"_s.arg(n);
        CmnSubQuery query(u"履历"_s, {u"工作经历"_s},
                          u"<工作经历><01>"_s + fields + u"</01></工作经历>"_s);
        QCOMPARE(query.part(), u"工作经历"_s);
        QCOMPARE(query.fields().size(), 999);
        QCOMPARE(query.fields().last(), u"列999"_s);
    }

private:
    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> recorder_;
    std::unique_ptr<CmnQuery> query_;
};

HOTEL_TEST(CmnQueryTest)

#include "test_cmn_query.moc"
