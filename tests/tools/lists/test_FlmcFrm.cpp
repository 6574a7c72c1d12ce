#include <QComboBox>
#include <QPushButton>

#include "link/serv_api.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/aids/categories.h"
#include "tools/lists/FlmcFrm.h"

using namespace hotel;

class FlmcFrmTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        form_ = std::make_unique<FlmcFrm>();
        form_->show();
        form_->run([this] { form_->load({}); });
        list_ = form_->findChild<GridView*>(u"FlxxQd"_s);
        names_ = form_->findChild<QComboBox*>(u"FlmcQd"_s);
    }
    void cleanup() {
        form_.reset();
        messages_.reset();
        hotel_.reset();
    }

    void rowsOfSomeCategoriesAreFixed() {
        QVERIFY(!form_->command(u"CmdSave")->isEnabled());
        for (const QString& name : {u"房态"_s, u"信用保证种类"_s, u"客房类型"_s}) {
            Choose(names_, name);
            QVERIFY(list_->table().dataRows() > 3);
            QCOMPARE(form_->command(u"CmdAdd")->isEnabled(), name == u"客房类型");
            QCOMPARE(form_->command(u"cmdDel")->isEnabled(), name == u"客房类型");
        }
    }

    void addsTypesAndSaves() {
        Choose(names_, u"停留事由"_s);
        const int rows = list_->table().dataRows();
        press(u"CmdAdd"_s);
        press(u"CmdAdd"_s); // the last row is still empty
        QCOMPARE(list_->table().dataRows(), rows + 1);
        TypeText(list_, u" 采访 "_s);
        QTest::keyClick(list_, Qt::Key_Return);
        TypeText(list_, u"c1f"_s);
        press(u"CmdSave"_s);

        QCOMPARE(messages_->entries().last().title, u"操作正常"_s);
        QCOMPARE(messages_->last(), u"分类名称修改成功"_s);
        const QString row = GetTag(stored(u"停留事由"_s), CategoryRowTag(rows + 1));
        QCOMPARE(GetTag(row, tag::kEntry), u"采访"_s);
        QCOMPARE(GetTag(row, tag::kShortKey), u"CF"_s);
        QCOMPARE(CategoryEntries(stored(u"停留事由"_s)).size(), rows + 1);
        QVERIFY(!list_->isModified());

        QCOMPARE(hotel_->logged(operation_log::kOperation), u"修改分类名称定义"_s);
        QCOMPARE(hotel_->logged(operation_log::kRemark), u"停留事由"_s);
    }

    void deletesAllButTheLastRow() {
        Choose(names_, u"使用后房态"_s);
        list_->setCurrent(1);
        press(u"cmdDel"_s);
        QCOMPARE(list_->table().row(1), (QStringList{u"01"_s, u"空房"_s, u"KF"_s}));
        press(u"cmdDel"_s);
        press(u"cmdDel"_s);
        QCOMPARE(list_->table().dataRows(), 1);
        QCOMPARE(messages_->entries().last().title, u"非法操作"_s);
        QCOMPARE(messages_->last(), u"分类信息属于系统重要信息,不能全部删除!最后一行只能修改"_s);
        press(u"CmdSave"_s);
        QCOMPARE(CategoryEntries(stored(u"使用后房态"_s)), QStringList{u"维修"_s});
    }

    // What is chosen again is not read again: unsaved typing stays.
    void choosingTheSameKeepsWhatWasTyped() {
        Choose(names_, u"行业"_s);
        press(u"CmdSave"_s);
        QVERIFY(messages_->entries().isEmpty()); // nothing to save
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        Choose(names_, u"行业"_s);
        QVERIFY(list_->isModified());
        Choose(names_, u"信用等级"_s);
        QVERIFY(!list_->isModified());
    }

    // A category that could not be read is no empty one: nothing of it can be saved, and it can be chosen again.
    void aCategoryThatCouldNotBeReadIsNotSaved() {
        const QString before = stored(u"行业"_s);
        QVERIFY(before.size() > 100);
        hotel_->stopServer();
        Choose(names_, u"行业"_s);
        QCOMPARE(messages_->last(), u"分类名称读取失败,请稍候再选一次!"_s);
        QVERIFY(!form_->command(u"CmdAdd")->isEnabled());
        hotel_->startServer();
        DbServerDate(); // connects anew
        hotel_->desk().logIn(u"ADMIN"_s, u"admin888"_s);
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        press(u"CmdSave"_s);
        QCOMPARE(stored(u"行业"_s), before);
        Choose(names_, u"行业"_s);
        QCOMPARE(list_->table().text(1, 1), GetTag(GetTag(before, u"记录01"), u"内容"));
    }

    // Rows that are not saved yet: kept when the screen is asked for again, offered to be saved when it closes
    // or another category is chosen, and never lost to a save that fails.
    void offersToSave() {
        Choose(names_, u"行业"_s);
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        form_->run([this] { form_->load({}); });
        QVERIFY(list_->isModified() && names_->currentText() == u"行业");
        messages_->answerNext(u"yes"_s);
        Choose(names_, u"信用等级"_s);
        QCOMPARE(messages_->words(), QStringList({u"分类名称“行业”的修改还没有保存，要保存吗？"_s,
                                                  u"分类名称修改成功"_s}));
        QVERIFY(GetTag(GetTag(stored(u"行业"_s), u"记录01"), u"内容").endsWith(u'A'));
        list_->setCurrent(1, 1);
        TypeText(list_, u"B"_s);
        hotel_->stopServer();
        messages_->answerNext(u"yes"_s);
        form_->close();
        QVERIFY(form_->isVisible());
        QCOMPARE(list_->table().text(1, 1), u"优B"_s);
    }

    void tellsThatSavingFailed() {
        Choose(names_, u"行业"_s);
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        hotel_->stopServer();
        press(u"CmdSave"_s);
        QVERIFY(messages_->words().contains(u"记录修改失败"_s));
    }

    void writesTheListToAFile() {
        QTemporaryDir folder;
        SetParam(u"ScwjLj", folder.path() + u"\\Txt\\"_s);
        Choose(names_, u"信用等级"_s);
        messages_->answerNext(folder.path() + u"\\Txt\\信用等级260305.txt"_s);
        press(u"CmdFile"_s);
        QCOMPARE(messages_->entries().first().title, u"保存文件提示"_s);
        QVERIFY(
            FileText(folder.path() + u"/Txt/信用等级260305.txt"_s).contains(u"01    优        Y"));
    }

    void enterMovesThroughTheCells() {
        TextTable table({u"编号"_s, u"内容"_s, u"快捷键"_s});
        table.addRow({u"01"_s, u"甲"_s});
        table.addRow({u"02"_s, u"乙"_s});
        table.addRow({u"03"_s});
        table.addRow({u"04"_s});
        const auto row = [&](const char* name, GridCell from, GridCell to) {
            Check(name, NextCategoryCell(table, from).row, to.row);
            Check(name, NextCategoryCell(table, from).column, to.column);
        };
        row("to the next column", {1, 1}, {1, 2});
        row("to the next row", {1, 2}, {2, 1});
        row("up from rows not filled in", {2, 2}, {2, 1});
        row("up from an empty last row", {4, 1}, {2, 2});
    }

private:
    void press(const QString& command) { form_->command(command)->click(); }
    QString stored(const QString& name) { return hotel_->stored(CategoryFile(), {}, name); }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<FlmcFrm> form_;
    GridView* list_ = nullptr;
    QComboBox* names_ = nullptr;
};

HOTEL_TEST(FlmcFrmTest)

namespace {

QString Row(int number, const QString& entry, const QString& key = u" "_s) {
    const QString name = CategoryRowTag(number);
    return u'<' + name + u"><内容>"_s + entry + u"</内容><快捷键>"_s + key + u"</快捷键></"_s +
           name + u'>';
}

QString Rows(int count) {
    QStringList rows;
    for (int n = 1; n <= count; ++n)
        rows.append(Row(n, u"第%1项"_s.arg(n)));
    return rows.join(kCrLf);
}

} // namespace

class CategoriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEntries() {
        const auto row = [](const char* name, const QString& text, const QStringList& entries) {
            Check(name, CategoryEntries(text), entries);
        };
        row("as they stand", Row(1, u"护照"_s) + Row(2, u" 身份证 "_s) + Row(3, u"护照"_s),
            {u"护照"_s, u" 身份证 "_s, u"护照"_s});
        row("ends at a missing row", Row(1, u"护照"_s) + Row(3, u"身份证"_s), {u"护照"_s});
        row("by number, not by place", Row(2, u"护照"_s) + Row(1, u"身份证"_s),
            {u"身份证"_s, u"护照"_s});
        row("refused", u"<ERROR>没有该记录</ERROR>"_s, {});
    }

    // Room types: every tag of any row is a column, in the order in which it is met.
    void gathersColumns() {
        const QString text =
            u"<记录01><内容>标准间</内容><房价>288</房价></记录01>\r\n"
            "<记录02><内容>套房</内容><快捷键>TF</快捷键><前台价>988</前台价></记录02>"_s;
        const TextTable table = CategoryTable(text);
        QCOMPARE(table.headers(),
                 (QStringList{u"编号"_s, u"内容"_s, u"快捷键"_s, u"房价"_s, u"前台价"_s}));
        QCOMPARE(table.row(1), (QStringList{u"01"_s, u"标准间"_s, QString(), u"288"_s, QString()}));
        QCOMPARE(table.row(2), (QStringList{u"02"_s, u"套房"_s, u"TF"_s, QString(), u"988"_s}));
        QCOMPARE(CategoryText(table),
                 u"<记录01><内容>标准间</内容>\r\n<快捷键> </快捷键>\r\n<房价>288</房价>\r\n"
                 "<前台价> </前台价></记录01>\r\n"
                 "<记录02><内容>套房</内容>\r\n<快捷键>TF</快捷键>\r\n<房价> </房价>\r\n"
                 "<前台价>988</前台价></记录02>"_s);
    }

    void emptyCategoryHasOneEmptyRow() {
        const TextTable table = CategoryTable({});
        QCOMPARE(table.rows(), 2);
        QCOMPARE(table.row(1), (QStringList{u"01"_s, QString(), QString()}));
        QCOMPARE(CategoryText(table), QString());
    }

    void writesUpToTheFirstEmptyRow() {
        TextTable table = CategoryTable(Rows(120));
        QCOMPARE(CategoryEntries(CategoryText(table)).size(), 120);
        table.setText(101, tag::kEntry, {});
        QCOMPARE(CategoryEntries(CategoryText(table)).size(), 100);
        QVERIFY(CategoryText(table).contains(u"</记录99>\r\n<记录100>"));
    }
};

HOTEL_TEST(CategoriesTest)

#include "test_FlmcFrm.moc"
