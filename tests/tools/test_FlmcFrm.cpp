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
#include "tools/FlmcFrm.h"
#include "tools/categories.h"

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
            choose(name);
            QVERIFY(list_->table().dataRows() > 3);
            QCOMPARE(form_->command(u"CmdAdd")->isEnabled(), name == u"客房类型");
            QCOMPARE(form_->command(u"cmdDel")->isEnabled(), name == u"客房类型");
        }
    }

    void addsTypesAndSaves() {
        choose(u"停留事由"_s);
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
        choose(u"使用后房态"_s);
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
        choose(u"行业"_s);
        press(u"CmdSave"_s);
        QVERIFY(messages_->entries().isEmpty()); // nothing to save
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        choose(u"行业"_s);
        QVERIFY(list_->isModified());
        choose(u"信用等级"_s);
        QVERIFY(!list_->isModified());
    }

    void tellsThatSavingFailed() {
        choose(u"行业"_s);
        list_->setCurrent(1, 1);
        TypeText(list_, u"A"_s);
        hotel_->stopServer();
        press(u"CmdSave"_s);
        QVERIFY(messages_->words().contains(u"记录修改失败"_s));
    }

    void writesTheListToAFile() {
        QTemporaryDir folder;
        SetParam(u"ScwjLj", folder.path() + u"\\Txt\\"_s);
        choose(u"信用等级"_s);
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
    void choose(const QString& name) {
        names_->setCurrentText(name);
        Q_EMIT names_->activated(names_->currentIndex());
    }
    void press(const QString& command) { form_->command(command)->click(); }
    QString stored(const QString& name) { return hotel_->stored(CategoryFile(), {}, name); }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<FlmcFrm> form_;
    GridView* list_ = nullptr;
    QComboBox* names_ = nullptr;
};

HOTEL_TEST(FlmcFrmTest)

#include "test_FlmcFrm.moc"
