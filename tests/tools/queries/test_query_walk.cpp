#include <QPointer>
#include <QTimer>

#include "link/serv_api.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/lists/CmnGrd.h"
#include "tools/queries/query_text.h"
#include "tools/queries/query_walk.h"

using namespace hotel;

namespace {

const QString kFile = u"test\\walk.qvr"_s;
const QString kProject = u"清单"_s;
const QString kAll = ConditionText({{{}, u"记录名"_s, u"非空"_s, {}}}, {});

// Writes a project whole.
void Fill(const QString& file, int records, const QString& value = u"<姓名>王</姓名>"_s) {
    QString text;
    for (int n = 1; n <= records; ++n)
        text += u"<%1>%2</%1>\r\n"_s.arg(n).arg(value);
    QCOMPARE(DbCreateFile(file), 0);
    QCOMPARE(DbCreateProject(file, kProject), 0);
    QCOMPARE(DbModifyRecord(file, u"", kProject, text), 0);
}

// A screen with a grid that it fills itself.
class LargeScreen : public Screen {
public:
    LargeScreen() : Screen(u"LargeScreen"_s, {}), grid(new GridView(u"grid"_s)) {
        grid->setTable(TextTable({u"号"_s, u"姓名"_s}));
        setContent(grid);
    }
    GridView* grid;
};

} // namespace

class QueryWalkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        list_ = new CmnGrd(u"清单"_s, {u"号"_s, u"姓名"_s, u"备注"_s});
        ShowScreen(list_);
    }
    void cleanup() {
        delete list_;
        hotel_.reset();
    }

    void showsWhatIsFound() {
        Fill(kFile, 0);
        DbModifyRecord(kFile, kProject, u"1", u"<姓名> 王伟\r\n</姓名>\r\n<备注>a\r\nb　</备注>");
        DbModifyRecord(kFile, kProject, u"2", u"<姓名>李东</姓名>");
        DbModifyRecord(kFile, kProject, u"3", u"<姓名>王东</姓名>");
        const auto row = [&](const char* name, const QString& text, const QString& found) {
            list_->Grd().clearRows();
            QVERIFY2(QueryToGrid(kFile, kProject, text, 0, *list_) == WalkEnd::Finished, name);
            QStringList names;
            for (int n = 1; n < list_->Grd().rows(); ++n)
                names.append(list_->Grd().text(n, 0));
            Check(name, names.join(u' '), found);
        };
        const QString noX = ConditionText({{{}, u"姓名"_s, u"等于"_s, u"x"_s}}, {});
        row("by keywords", KeywordText({u"王"_s, u"东,西"_s, u"伟"_s}), u"3"_s);
        row("by both: the conditions are not sent", KeywordText({u"李"_s, {}, {}}) + noX, u"2"_s);
        row("the greatest", ConditionText({{{}, u"记录名"_s, u"数值最大"_s, {}}}, {}), u"3"_s);
        row("none", noX, u""_s);
        row("cut off", kAll.left(30), u"1 2 3"_s);
        row("by a condition", ConditionText({{{}, u"姓名"_s, u"包含"_s, u"王"_s}}, {}), u"1 3"_s);
        QCOMPARE(list_->Grd().row(1), (QStringList{u"1"_s, u"王伟"_s, u"a b"_s}));
    }

    void nothingToSearch() {
        QCOMPARE(QueryToGrid(u"no.qvr"_s, kProject, kAll, 0, *list_), WalkEnd::Finished);
        QCOMPARE(QueryToGrid(u"no.qvr"_s, kProject, KeywordText({u"a"_s, {}, {}}), 0, *list_),
                 WalkEnd::Finished);
        QCOMPARE(QueryToGrid(u"..\\x"_s, kProject, kAll, 0, *list_), WalkEnd::Finished);
        QCOMPARE(list_->Grd().dataRows(), 0);
    }

    void passesItsLimitByOne() {
        MessageRecorder recorder;
        Fill(kFile, kWalkLimit);
        QCOMPARE(QueryToGrid(kFile, kProject, kAll, 0, *list_), WalkEnd::Finished);
        QCOMPARE(list_->Grd().dataRows(), kWalkLimit);
        QVERIFY(recorder.entries().isEmpty());
        // Rows add up: the next file's first one is too many, and no further file is asked.
        Fill(u"test\\b.qvr"_s, 3);
        QCOMPARE(QueryFilesToGrid({u"test\\b.qvr"_s, u"test\\b.qvr"_s}, kProject, kAll, 0, *list_),
                 WalkEnd::TooMany);
        QCOMPARE(list_->Grd().dataRows(), kWalkLimit + 1);
        QCOMPARE(recorder.words(), QStringList{u"清单太多，多于5000条，请重新设定条件再查询！"_s});
        QCOMPARE(recorder.entries().first().title, u"无法继续查询"_s);
    }

    void largeWalk() {
        MessageRecorder recorder;
        Fill(kFile, kWalkLimit + 2, u"<姓名>王</姓名>"_s);
        LargeScreen screen;
        screen.show();
        // Rows that stand already count: only the last few come from the server.
        for (int n = 0; n < kLargeWalkLimit - kWalkLimit; ++n)
            screen.grid->table().addRow({QString::number(n)});
        WalkEnd end = WalkEnd::Finished;
        screen.run([&] { end = QueryToGridLarge(kFile, kProject, kAll, 0, *screen.grid, screen); });
        QCOMPARE(end, WalkEnd::TooMany);
        QCOMPARE(screen.grid->table().dataRows(), kLargeWalkLimit + 1);
        QCOMPARE(recorder.last(), u"清单太多，多于30000条，请重新设定条件再查询！"_s);
        QTRY_COMPARE(screen.grid->model()->rowCount(), kLargeWalkLimit + 1);
        screen.grid->table().clearRows();
        screen.hide();
        screen.run([&] { end = QueryToGridLarge(kFile, kProject, kAll, 0, *screen.grid, screen); });
        QCOMPARE(end, WalkEnd::Stopped); // no longer shown
        QCOMPARE(screen.grid->table().dataRows(), 1);
    }

    void stopsAndCloses() {
        Fill(kFile, kWalkLimit);
        for (const bool closes : {false, true}) {
            list_->Grd().clearRows();
            QPointer<CmnGrd> list = list_;
            bool hidden = false;
            QTimer::singleShot(0, list, [&] {
                hidden = !list->GrdView()->isVisible();
                if (closes)
                    list->close();
                else
                    list->command(u"CmdStop")->click();
            });
            WalkEnd end = WalkEnd::Finished;
            {
                const Screen::Running searching(*list);
                end = QueryFilesToGrid({kFile, kFile}, kProject, kAll, 0, *list);
                QVERIFY(list); // stands until its caller is done with it
                QVERIFY(list->Grd().dataRows() < kWalkLimit);
            }
            QCOMPARE(end, WalkEnd::Stopped);
            QVERIFY(hidden);
            if (closes) {
                QTRY_VERIFY(!list);
            } else {
                QTRY_VERIFY(list->GrdView()->isVisible());
            }
        }
    }

    // The screen that asked is to close: what it has asked for stops too.
    void stopsWithTheAskingScreen() {
        Fill(kFile, kWalkLimit);
        LargeScreen asker;
        asker.show();
        list_->stopWith(&asker);
        QTimer::singleShot(0, &asker, [&] { asker.close(); });
        WalkEnd end = WalkEnd::Finished;
        asker.run([&] { end = QueryToGrid(kFile, kProject, kAll, 0, *list_); });
        QCOMPARE(end, WalkEnd::Stopped);
        QVERIFY(!asker.isVisible());
    }

    void subRecords() {
        MessageRecorder recorder;
        Fill(kFile, 0);
        DbModifyRecord(kFile, kProject, u"王",
                       u"<经历><01><姓名>一</姓名><年>1</年></01>"
                       "<02><姓名>二</姓名></02></经历>");
        DbModifyRecord(kFile, kProject, u"李", u"<经历></经历>");
        DbModifyRecord(kFile, kProject, u"张", u"<经历><03><姓名>三</姓名></03></经历>");
        const QString noYear =
            WithSubField(ConditionText({{{}, u"年"_s, u"为空"_s, {}}}, {}), u"经历");
        QCOMPARE(QuerySubRecordsToGrid(kFile, kProject, noYear, 0, *list_), WalkEnd::Finished);
        QCOMPARE(list_->Grd().dataRows(), 2);
        QCOMPARE(list_->Grd().row(1), (QStringList{u"02"_s, u"二"_s, u""_s}));
        QCOMPARE(list_->Grd().row(2), (QStringList{u"03"_s, u"三"_s, u""_s}));

        QString many = u"<经历>"_s;
        for (int n = 1; n <= kSubWalkMatchLimit + 5; ++n)
            many += u"<s%1>x</s%1>"_s.arg(n);
        many += u"</经历>"_s;
        Fill(kFile, 6, many);
        list_->Grd().clearRows();
        const QString all =
            WithSubField(ConditionText({{{}, u"记录名"_s, u"非空"_s, {}}}, {}), u"经历");
        QCOMPARE(QuerySubRecordsToGrid(kFile, kProject, all, 0, *list_), WalkEnd::TooMany);
        QCOMPARE(list_->Grd().dataRows(), kWalkLimit + 1); // 1000 of each record
        QCOMPARE(list_->Grd().text(kWalkLimit + 1, 0), u"s1"_s);
        QCOMPARE(recorder.words().size(), 1);
    }

    void datedFiles() {
        for (const QString& name :
             {u"060412.qvr"_s, u"000101.qvr"_s, u"ab0101.qvr"_s, u"26.qvr"_s, u"xx\\060413.qvr"_s})
            Fill(u"dated\\"_s + name, 1);
        QCOMPARE(DatedFiles(u"dated\\"_s),
                 (QStringList{u"dated\\060412.qvr"_s, u"dated\\26.qvr"_s}));
        QCOMPARE(DatedFiles(u"nowhere\\"_s), QStringList());
        QCOMPARE(QueryFilesToGrid(DatedFiles(u"dated\\"_s), kProject, kAll, 0, *list_),
                 WalkEnd::Finished);
        QCOMPARE(list_->Grd().dataRows(), 2);
        QTRY_COMPARE(list_->GrdView()->table().dataRows(), 2); // shown at the end
    }

    void filesOfAPeriod() {
        const auto row = [](const char* name, QDate first, QDate last, const QString& days,
                            const QString& months) {
            const auto day = [](QDate date) { return date.toString(u"yyMMdd"); };
            const auto month = [](QDate date) { return date.toString(u"yyMM"); };
            Check(name, DayFiles(first, last, day).join(u' '), days);
            Check(name, MonthFiles(first, last, month).join(u' '), months);
        };
        row("over a month's end", QDate(2024, 2, 28), QDate(2024, 3, 1), u"240228 240229 240301"_s,
            u"2402 2403"_s);
        row("one day", QDate(2026, 1, 1), QDate(2026, 1, 1), u"260101"_s, u"2601"_s);
        row("over a year's end", QDate(2025, 12, 31), QDate(2026, 1, 1), u"251231 260101"_s,
            u"2512 2601"_s);
        row("turned round", QDate(2026, 2, 1), QDate(2026, 1, 1), u""_s, u""_s);
        row("no dates", {}, {}, u""_s, u""_s);
    }

private:
    std::unique_ptr<TestHotel> hotel_;
    QPointer<CmnGrd> list_;
};

HOTEL_TEST(QueryWalkTest)

#include "test_query_walk.moc"
