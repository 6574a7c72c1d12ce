#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <cmath>

#include "link/records.h"
#include "link/serv_api.h"
#include "personnel/staff/FrmYgxx.h"
#include "personnel/staff/employee_change.h"
#include "personnel/staff/frmBm.h"
#include "personnel/staff/frmManRecord.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"
#include "tools/aids/photo_frame.h"

using namespace hotel;

namespace {

const QString kFile = u"Ygxx\\Ygxx.QVR"_s;

void Hire(const QString& department, const QString& number, const QString& name,
          const QString& more = {}) {
    const SaveOutcome outcome = SaveEmployee(
        {},
        u"<编号>%1</编号><姓名>%2</姓名><所在部门>%3</所在部门>"_s.arg(number, name, department) +
            more,
        false);
    QCOMPARE(int(outcome.step), int(SaveStep::Written));
}

} // namespace

class StaffScreensTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;

    Screen* open(QStringView name, const QVariant& argument = {}) {
        OpenScreen(name, argument);
        Screen* screen = FindScreen(name);
        if (!screen || !QTest::qWaitForWindowActive(screen))
            qFatal("no %s", qPrintable(name.toString()));
        return screen;
    }
    template<class Widget>
    static Widget* in(Screen* screen, const QString& name) {
        auto* widget = screen->findChild<Widget*>(name);
        if (!widget)
            qFatal("no %s", qPrintable(name));
        return widget;
    }
    static void press(Screen* screen, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focus = screen->focusWidget() ? screen->focusWidget() : screen;
        QTest::keyClick(focus, key, modifiers);
    }
    static void type(Screen* screen, const QString& text) { TypeText(screen->focusWidget(), text); }
    static void enter(Screen* screen, const QStringList& texts) {
        for (const QString& text : texts) {
            type(screen, text);
            press(screen, Qt::Key_Return);
        }
    }
    void answer(const QStringList& answers) {
        for (const QString& text : answers)
            messages_->answerNext(text);
    }
    QString stored(const QString& department, const QString& number, QStringView field) {
        return EmployeeValue(hotel_->stored(kFile, department, number), field);
    }
    static QString noted(const QString& record) {
        QStringList words;
        for (const QString& entry : EmployeeEntries(record, u"工作经历"))
            words.append(GetTag(entry, u"经历说明"));
        return words.join(u';');
    }

private Q_SLOTS:
    void initTestCase() {
        SetUpForms();
        RegisterScreen(u"frmBm", [] { return new frmBm; });
        RegisterScreen(u"FrmYgxx", [] { return new FrmYgxx; });
        RegisterScreen(u"frmManRecord", [] { return new frmManRecord(u"frmManRecord"_s); });
        RegisterScreen(u"frmYgEdit", [] { return new frmManRecord(u"frmYgEdit"_s); });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::processEvents();
        messages_.reset();
        hotel_.reset();
    }

    void departmentsByKeys() {
        Screen* screen = open(u"frmBm");
        press(screen, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"请选择要删除的记录！"_s);
        messages_->clear();
        enter(screen, {u"前厅部"_s, u"前厅部"_s, u"工程部"_s});
        QCOMPARE(messages_->words(),
                 QStringList({u"成功增加部门：前厅部"_s,
                              u"不能增加部门：前厅部，请检查部门名称是否有重复或错误!代码:0"_s,
                              u"成功增加部门：工程部"_s}));
        auto* list = in<GridView>(screen, u"BmQd"_s);
        QCOMPARE(list->currentRow(), 2); // the new one
        messages_->clear();
        press(screen, Qt::Key_F7); // not confirmed
        QCOMPARE(messages_->words(), QStringList{u"确认要删除部门：工程部 吗？"_s});
        QCOMPARE(list->table().dataRows(), 2);
        answer({u"ok"_s});
        press(screen, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"成功删除部门：工程部"_s);
        QCOMPARE(list->table().dataRows(), 1);
    }

    // From the list with nothing but keys; every question of the way is asked once.
    void hiredByKeys() {
        Screen* list = open(u"FrmYgxx");
        Choose(in<QComboBox>(list, u"ComBm"_s), u"前厅部"_s);
        answer({u"卡片"_s});
        press(list, Qt::Key_F4);
        Screen* card = FindScreen(u"frmManRecord");
        QVERIFY(card && QTest::qWaitForWindowActive(card));
        QCOMPARE(in<QLineEdit>(card, u"Bh"_s)->text(), u"0001"_s);
        QCOMPARE(card->focusWidget()->objectName(), u"Xm"_s);
        enter(card, {u"王一"_s, {}, {}, u"前台接待员"_s}); // name, badge, department, post
        QCOMPARE(card->focusWidget()->objectName(), u"Zt"_s);
        QCOMPARE(in<QComboBox>(card, u"Zt"_s)->currentText(), u"试用期"_s);
        answer({u"yes"_s});
        press(card, Qt::Key_Return);
        QCOMPARE(messages_->last(), u"是否要记录员工：王一 进入任职状态 试用期?"_s);
        enter(card, {u"11010119980307001X"_s});
        QCOMPARE(in<QLineEdit>(card, u"Sr"_s)->text(), u"1998-03-07"_s);
        QCOMPARE(in<QComboBox>(card, u"Xb"_s)->currentText(), u"男"_s);

        answer({u" C77 "_s, u"C78"_s, u"C77 "_s, u" C77"_s});
        press(card, Qt::Key_F2);
        QCOMPARE(messages_->last(), u"两次刷卡不一致,必要时重新再试一次！"_s);
        press(card, Qt::Key_F2);
        QCOMPARE(messages_->last(), u"该员工可以使用这张磁卡考勤了！"_s);
        QCOMPARE(in<QLineEdit>(card, u"Kh"_s)->text(), u"C77"_s);

        QTest::keyClick(card, Qt::Key_4, Qt::AltModifier);
        QTRY_COMPARE(card->focusWidget()->objectName(), u"SdBcmc"_s);
        enter(card, {u"夜班"_s, u"db"_s, u"2230"_s, u"6.30"_s, {}, {}, {}, {}});
        QCOMPARE(card->focusWidget()->objectName(), u"SdBcmc"_s);
        enter(card, {u"夜班"_s, {}, u"8"_s, u"17"_s, {}, {}, {}, {}});
        QCOMPARE(messages_->last(), u"班次名称不能相同！"_s);
        press(card, Qt::Key_F8);
        press(card, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(messages_->entries().size(), 9); // no further question
        QCOMPARE(stored(u"前厅部"_s, u"0001"_s, u"识别卡号"), u"C77"_s);
        const QString period =
            EmployeeEntries(hotel_->stored(kFile, u"前厅部"_s, u"0001"_s), u"考勤时段").value(0);
        QCOMPARE(GetTag(period, u"开始时间"), u"22:30:00"_s);
        QCOMPARE(GetTag(period, u"结束时间"), u"06:30:00"_s);
        QCOMPARE(GetTag(period, u"考勤方式"), u"倒班"_s);
        QCOMPARE(GetTag(period, u"星期设定"), u"1111100"_s);
        QTRY_COMPARE(in<GridView>(list, u"YgQd"_s)->table().text(1, u"姓名"), u"王一"_s);
    }

    // A card that is opened and kept keeps all that it doesn't show typed: lists, and fields of other programs.
    void keptWhole() {
        const QString lists =
            u"<考勤时段><00><班次名称>早班</班次名称><开始时间>07:00:00</开始时间></00>\r\n"
            "<01><班次名称>夜班</班次名称><开始时间>23:00:00</开始时间></01></考勤时段>"
            "<家庭情况><00><亲属姓名>王父</亲属姓名></00></家庭情况>"_s;
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s,
             u"<血型>O</血型><宿舍>3号楼</宿舍><合同截止>2027-12-31</合同截止>"_s + lists);
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        QCOMPARE(in<GridView>(card, u"考勤时段清单"_s)->table().dataRows(), 2);
        in<QLineEdit>(card, u"Xm"_s)->setText(u" 王大 "_s);
        press(card, Qt::Key_F8);
        press(card, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(messages_->words(), QStringList());
        const QString record = hotel_->stored(kFile, u"前厅部"_s, u"001"_s);
        for (const auto& [field, value] :
             {std::pair(u"姓名"_s, u"王大"_s), std::pair(u"血型"_s, u"O"_s),
              std::pair(u"宿舍"_s, u"3号楼"_s), std::pair(u"合同截止"_s, u"2027-12-31"_s)})
            QCOMPARE(EmployeeValue(record, field), value);
        const QStringList shifts = EmployeeEntries(record, u"考勤时段");
        QCOMPARE(shifts.size(), 2);
        QCOMPARE(GetTag(shifts[1], u"班次名称") + GetTag(shifts[1], u"开始时间"),
                 u"夜班23:00:00"_s);
        QCOMPARE(GetTag(EmployeeEntries(record, u"家庭情况").value(0), u"亲属姓名"), u"王父"_s);
    }

    // A card for somebody on file holds at once: nothing is left to be kept.
    void aCardForSomebodyOnFile() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s, u"<识别卡号>C2</识别卡号>"_s);
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        answer({u"C2"_s, u"C2"_s});
        press(card, Qt::Key_F2);
        QCOMPARE(messages_->last(), u"部门:前厅部 的员工:李二 已经包含或使用了这一张卡或标志!"_s);
        QCOMPARE(in<QLineEdit>(card, u"Kh"_s)->text(), QString());
        answer({u"C9"_s, u"C9"_s});
        press(card, Qt::Key_F2);
        QCOMPARE(in<QLineEdit>(card, u"Kh"_s)->text(), u"C9"_s);
        QCOMPARE(stored(u"前厅部"_s, u"001"_s, u"识别卡号"), u"C9"_s);
        const qsizetype said = messages_->entries().size();
        press(card, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(messages_->entries().size(), said);
    }

    // On paper: a bar code only where the card has room for it, and a long life on several sheets.
    void onPaper() {
        SetParam(u"Yhdwmc", u"测试酒店"_s);
        QString years;
        for (int n = 0; n < 60; ++n)
            years += u"<%1><相关单位>单位%2</相关单位></%1>"_s.arg(n, 2, 10, QChar(u'0')).arg(n);
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s,
             u"<职务>领班</职务><个人简历>%1</个人简历>"_s.arg(years));
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        press(card, Qt::Key_F3);
        QStringList texts;
        for (const PrintedText& text : TextsOf(ScriptOfJob().previewPage(1)))
            texts.append(text.text);
        QCOMPARE(texts, QStringList({u"测试酒店"_s, u"王一"_s, u"前厅部  领班"_s, u"001"_s}));
        // Five signs of 0.4785 cm each, the gap behind the last not counted, in the middle of 7.76.
        double first = 0;
        double last = 0;
        for (const PrintItem& item : ScriptOfJob().previewPage(1)) {
            if (const auto* box = std::get_if<PrintedBox>(&item)) {
                first = first == 0 ? box->area.left() : first;
                last = box->area.right();
            }
        }
        constexpr double kTwipsACm = 1440 / 2.54;
        const double width = 5 * 0.4785 - 0.033;
        QVERIFY(std::abs(first - (0.4 + (7.76 - width) / 2) * kTwipsACm) < 2);
        QVERIFY(std::abs(last - first - width * kTwipsACm) < 4);
        press(card, Qt::Key_F9);
        PrintScript sheets = ScriptOfJob();
        // Of the 26.7 cm of a sheet the form takes 14.15; an entry takes one, in two cells.
        QCOMPARE(sheets.pageCount(), 3);
        QCOMPARE(TextsOf(sheets.previewPage(2)).size(), 2 * 26);
        for (const auto& [number, told] :
             {std::pair(u"ABCDEF12345678"_s, false), std::pair(u"ABCDEF123456789"_s, true)}) {
            in<QLineEdit>(card, u"Bh"_s)->setText(number);
            messages_->clear();
            press(card, Qt::Key_F3);
            QCOMPARE(messages_->words().contains(
                         u"编号只能是字母、数字，并且不能太长，才能打印条码！"_s),
                     told);
        }
        answer({u"no"_s});
    }

    // F8 in the field itself: what leaving it asks is asked then. A refused transfer leaves him where he was.
    void transferred() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<状态>正式</状态><宿舍>3号楼</宿舍>"_s);
        Screen* card = open(u"frmYgEdit", QStringList{u"前厅部"_s, u"001"_s});
        auto* department = in<QComboBox>(card, u"YgBm"_s);
        department->setFocus();
        Choose(department, u"工程部"_s);
        answer({u"no"_s});
        press(card, Qt::Key_F8);
        QCOMPARE(messages_->words(), QStringList{u"是否要将员工：王一 从 前厅部 调往 工程部?"_s});
        QCOMPARE(department->currentText(), u"前厅部"_s);
        Choose(department, u"工程部"_s);
        Choose(in<QComboBox>(card, u"JzBm1"_s), u"保安部"_s);
        Choose(in<QComboBox>(card, u"Zt"_s), u"停职"_s);
        answer({u"yes"_s, u"yes"_s, u"no"_s});
        press(card, Qt::Key_F8);
        QCOMPARE(messages_->words().mid(1, 3),
                 QStringList({u"是否要将员工：王一 从 前厅部 调往 工程部?"_s,
                              u"是否调整员工的兼职岗位：王一 从 无 改为 保安部?"_s,
                              u"是否要记录员工：王一 任职状态从 正式 变化到 停职?"_s}));
        const QString record = hotel_->stored(kFile, u"工程部"_s, u"001"_s);
        QCOMPARE(noted(record), u"工作内部调动;兼职岗位调整"_s);
        QCOMPARE(EmployeeValue(record, u"状态"), u"停职"_s);
        QCOMPARE(EmployeeValue(record, u"宿舍"), u"3号楼"_s);
        QCOMPARE(hotel_->stored(kFile, u"前厅部"_s, u"001"_s), QString());
        const qsizetype said = messages_->entries().size();
        press(card, Qt::Key_F8); // once more, without a change
        QCOMPARE(messages_->entries().size(), said);
        QCOMPARE(noted(hotel_->stored(kFile, u"工程部"_s, u"001"_s)),
                 u"工作内部调动;兼职岗位调整"_s);
    }

    void renumbered() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s);
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        auto* number = in<QLineEdit>(card, u"Bh"_s);
        number->setText(u"002"_s);
        answer({u"yes"_s});
        press(card, Qt::Key_F8);
        QCOMPARE(messages_->words().mid(0, 2),
                 QStringList({u"这个员工编号已经改变，是否删除原有的员工信息:001 王一"_s,
                              u"这个员工编号已经使用,不能增加,采用自动生成的号码:003"_s}));
        QCOMPARE(number->text(), u"003"_s);
        QVERIFY(messages_->last().contains(u"员工原有详细信息删除成功!"));
        QCOMPARE(stored(u"前厅部"_s, u"003"_s, u"姓名"), u"王一"_s);
        QCOMPARE(stored(u"前厅部"_s, u"002"_s, u"姓名"), u"李二"_s);
        QCOMPARE(stored(u"前厅部"_s, u"001"_s, u"姓名"), QString());
    }

    // Closed with something typed: kept, thrown away, or, where it can't be kept, left open.
    void closedUnsaved() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<识别卡号>C1</识别卡号>"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s);
        const auto edit = [&](const QString& name, const QString& reply) {
            Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"002"_s});
            in<QLineEdit>(card, u"Xm"_s)->setText(name);
            answer({reply});
            press(card, Qt::Key_Escape);
            QCOMPARE(messages_->entries().last().words, u"保存当前记录可能发生的变化吗？"_s);
            QCOMPARE(messages_->entries().last().title, u"确认"_s);
        };
        edit(u"李三"_s, u"no"_s);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(stored(u"前厅部"_s, u"002"_s, u"姓名"), u"李二"_s);
        edit(u"李四"_s, u"yes"_s);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(stored(u"前厅部"_s, u"002"_s, u"姓名"), u"李四"_s);

        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"002"_s});
        in<QLineEdit>(card, u"Kh"_s)->setText(u" C1"_s);
        answer({u"yes"_s});
        press(card, Qt::Key_Escape);
        QCOMPARE(messages_->last(), u"部门:前厅部 的员工:王一 已经包含或使用了这一张卡或标志!"_s);
        QVERIFY(FindScreen(u"frmManRecord"));
        hotel_->stopServer();
        in<QLineEdit>(card, u"Kh"_s)->setText(u"C2"_s);
        answer({u"yes"_s});
        press(card, Qt::Key_Escape);
        QCOMPARE(messages_->entries().last().title, u"没有保存"_s);
        QVERIFY(FindScreen(u"frmManRecord"));
        hotel_->startServer();
        answer({u"no"_s});
        card->close();
    }

    void listsByKeys() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<编号>001</编号>"_s);
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        auto* pages = in<QTabWidget>(card, u"Pages"_s);
        QTest::keyClick(card, Qt::Key_W, Qt::AltModifier);
        QCOMPARE(pages->currentIndex(), 10);
        press(card, Qt::Key_F5);
        QCOMPARE(messages_->last(), u"主要信息（物资品名，领用状态,号码型号）不能有空白！"_s);
        in<QLineEdit>(card, u"WzPz"_s)->setFocus();
        enter(card, {u"工服"_s, u"L"_s});
        press(card, Qt::Key_F5);
        QCOMPARE(hotel_->logged(u"操作内容"), u"增加员工领用物资"_s);
        QCOMPARE(hotel_->logged(u"备注"), u"物资：工服，型号：L，数量：1"_s);
        enter(card, {u"钥匙"_s, u"7号"_s});
        press(card, Qt::Key_F5);
        auto* list = in<GridView>(card, u"物资领用清单"_s);
        QCOMPARE(list->table().dataRows(), 2);
        QCOMPARE(list->table().text(1, u"领用经办"), u"系统管理员"_s);
        QCOMPARE(list->table().text(1, u"领用日期"), u"2026-03-05"_s);
        list->setCurrent(1);
        press(card, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"请从最后一条开始删除"_s);
        in<QLineEdit>(card, u"WzJsje"_s)->setText(u"50"_s);
        Clock::Advance(1000);
        answer({u"yes"_s});
        press(card, Qt::Key_F6);
        QCOMPARE(messages_->last(), u"要修改该行信息吗?"_s);
        QCOMPARE(list->table().text(1, u"结算金额"), u"50.00"_s);
        QCOMPARE(hotel_->logged(u"操作内容", u"100001"_s), u"修改员工领用物资结算信息"_s);
        Clock::Advance(1000);
        list->setCurrent(2);
        press(card, Qt::Key_F7);
        QCOMPARE(list->table().dataRows(), 1);
        QCOMPARE(hotel_->logged(u"操作内容", u"100002"_s), u"删除员工领用物资"_s);
        press(card, Qt::Key_F8);
        const QStringList kept =
            EmployeeEntries(hotel_->stored(kFile, u"前厅部"_s, u"001"_s), u"物资领用");
        QCOMPARE(kept.size(), 1);
        QCOMPARE(GetTag(kept.first(), u"结算金额"), u"50.00"_s);
    }

    void photograph() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s);
        const QTemporaryDir folder;
        const QString face = folder.filePath(u"face.jpg"_s);
        QImage picture(30, 40, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        QVERIFY(picture.save(face));
        Screen* card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        answer({face});
        press(card, Qt::Key_F11);
        QCOMPARE(messages_->entries().last().filter, u"图片文件(*.JPG)|*.JPG"_s);
        const qsizetype said = messages_->entries().size();
        press(card, Qt::Key_Escape); // it holds at once
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        QCOMPARE(messages_->entries().size(), said);
        // The photograph goes along with a new number.
        card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"001"_s});
        in<QLineEdit>(card, u"Bh"_s)->setText(u"007"_s);
        answer({u"yes"_s});
        press(card, Qt::Key_F8);
        press(card, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"007"_s});
        QCOMPARE(in<PhotoFrame>(card, u"ImgZp"_s)->photo().size(), QSize(30, 40));
        // Who is hired next has none of it, and keeps the one chosen for him with his record.
        press(card, Qt::Key_F4);
        QVERIFY(in<PhotoFrame>(card, u"ImgZp"_s)->photo().isNull());
        enter(card, {u"李二"_s});
        in<QComboBox>(card, u"YgBm"_s)->setCurrentText(u"前厅部"_s);
        answer({face});
        QTest::mouseClick(in<PhotoFrame>(card, u"ImgZp"_s), Qt::LeftButton);
        QCOMPARE(DbDownloadFile(u"Ygxx\\Ygzp\\008.jpg", folder.filePath(u"back.jpg"_s)) == 0,
                 false);
        press(card, Qt::Key_F8);
        QCOMPARE(DbDownloadFile(u"Ygxx\\Ygzp\\008.jpg", folder.filePath(u"back.jpg"_s)), 0);
        press(card, Qt::Key_Escape);
        QTRY_VERIFY(!FindScreen(u"frmManRecord"));
        card = open(u"frmManRecord", QStringList{u"前厅部"_s, u"007"_s});
        answer({WriteBytes(folder.filePath(u"none.jpg"_s), "none")});
        press(card, Qt::Key_F11);
        QCOMPARE(messages_->last(), u"这个文件不是JPEG图片，请重新选择！"_s);
        QCOMPARE(in<PhotoFrame>(card, u"ImgZp"_s)->photo().size(), QSize(30, 40));
    }

    void letGoFromTheList() {
        Hire(u"前厅部"_s, u"001"_s, u"王一"_s, u"<兼职部门1>客房部</兼职部门1>"_s);
        Hire(u"前厅部"_s, u"002"_s, u"李二"_s);
        Hire(u"保安部"_s, u"003"_s, u"李三"_s);
        Hire(u"保安部"_s, u"004"_s, u"李四"_s);
        Screen* list = open(u"FrmYgxx");
        auto* staff = in<GridView>(list, u"YgQd"_s);
        press(list, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"请先选择具体部门，再删除相应的员工信息，减少误操作！"_s);
        in<QLineEdit>(list, u"Search"_s)->setFocus();
        type(list, u"l"_s);
        QString found;
        for (int again = 0; again < 4; ++again) {
            press(list, Qt::Key_Return);
            found += staff->table().text(staff->currentRow(), u"姓名");
        }
        QCOMPARE(found, u"李二李三李四李二"_s);
        type(list, u"wy"_s); // in the place of what was looked for
        press(list, Qt::Key_Return);
        QCOMPARE(staff->table().text(staff->currentRow(), u"姓名"), u"王一"_s);
        Choose(in<QComboBox>(list, u"ComBm"_s), u"客房部"_s);
        QCOMPARE(staff->table().dataRows(), 1);
        QCOMPARE(staff->currentRow(), 1); // he is in this list, too
        staff->setCurrent(0);
        press(list, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"请选择要删除的记录！"_s);
        staff->setCurrent(1);
        press(list, Qt::Key_F6);
        QCOMPARE(messages_->last(), u"这是该员工的兼职岗位，或员工信息读取错误,不能修改?"_s);
        in<QComboBox>(list, u"ComBm"_s)->setFocus();
        enter(list, {u"qt"_s, u"le"_s}); // department, then somebody in it
        QCOMPARE(in<QComboBox>(list, u"ComBm"_s)->currentText(), u"前厅部"_s);
        staff->sortBy(staff->table().column(u"姓名"));
        QCOMPARE(staff->table().text(1, u"序号") + staff->table().text(1, u"姓名") +
                     staff->table().text(2, u"序号") + staff->table().text(2, u"姓名"),
                 u"1李二2王一"_s);
        QCOMPARE(staff->table().text(staff->currentRow(), u"姓名"), u"李二"_s);
        press(list, Qt::Key_F7); // the clerk shrinks from it
        QCOMPARE(messages_->last(), u"确认要删除员工:李二 的所有信息吗？"_s);
        QCOMPARE(staff->table().dataRows(), 2);
        answer({u"ok"_s});
        press(list, Qt::Key_F7);
        QCOMPARE(staff->table().dataRows(), 1);
        QCOMPARE(stored(u"前厅部"_s, u"002"_s, u"姓名"), QString());
    }
};

HOTEL_TEST(StaffScreensTest)
#include "test_staff_screens.moc"
