// The cashier's screens by the side of the bare commands that they need, against a server in the same program.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "cashier/FyxxFrm.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/posting_kinds.h"
#include "link/records.h"
#include "record/literals.h"
#include "screen/open_screen.h"
#include "tests/test_hotel.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kPostings = 10000;
const QString kLong = u"260304200000"_s;
const QString kEmpty = u"260304200001"_s;

void Open(const QString& folio, int meals) {
    SaveRecord(OpenFolioFile(), folio_record::kProject, folio,
               u"<8101><床位01><客人姓名>王一</客人姓名></床位01></8101>");
    QString project;
    for (int n = 1; n <= meals; ++n)
        project += u"<%1><费用名称>早餐</费用名称>\r\n<结算地点>早餐厅</结算地点>\r\n<计量单位>份</"
                   u"计量单位>\r\n"
                   "<数量>1</数量>\r\n<房间号>8101</房间号>\r\n<客人>王一</"
                   "客人>\r\n<日期>2026-03-04</日期>\r\n"
                   "<时间>08:00:00</时间>\r\n<金额>38.00</金额>\r\n<经办单位>餐饮部</经办单位>\r\n"
                   "<经办人>李娜</经办人>\r\n<序号>%1</序号></%1>\r\n"_s.arg(n);
    SaveProject(LedgerFile(folio), PostingProject(kFoodPosting), project);
}

// What a folio's screen has to ask for.
int BareReads(const QString& folio) {
    LoadJzhQd();
    qsizetype read = FindOpenFolio(folio).value_or(QString()).size();
    for (const PostingKind kind : kEnteredKinds)
        read += ReadProjectToChange(LedgerFile(folio), PostingProject(kind)).value.size();
    return int(read);
}

void Opening() {
    const TestHotel hotel;
    Open(kLong, kPostings);
    FyxxFrm screen;
    screen.show();
    PrintRatio("open_folio_of_10000_postings",
               MedianRatio<15>(
                   [&] {
                       screen.run([&] { screen.load(kLong); });
                       return screen.busy();
                   },
                   [&] { return BareReads(kLong); }),
               1.5);
}

// A screen that posts a meal to its folio whenever it is asked.
class Desk {
public:
    explicit Desk(const QString& folio) {
        screen_.show();
        screen_.run([&] { screen_.load(folio); });
        screen_.findChild<QLineEdit*>(u"Krxm"_s)->setText(u"王一"_s);
        auto* Cymc = screen_.findChild<QComboBox*>(u"Cymc"_s);
        Cymc->addItem(u"早餐"_s);
        Cymc->setCurrentText(u"早餐"_s);
    }
    bool post() {
        screen_.findChild<QLineEdit*>(u"Xfje"_s)->setText(u"38.00"_s);
        screen_.command(u"XfAdd")->click();
        return screen_.busy();
    }

private:
    FyxxFrm screen_;
};

void Adding() {
    const TestHotel hotel;
    Open(kLong, kPostings);
    Open(kEmpty, 0);
    Desk long_(kLong);
    Desk empty(kEmpty);
    PrintRatio("add_to_10000_postings",
               MedianRatio<15>([&] { return long_.post(); }, [&] { return empty.post(); }), 1.2);
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    Opening();
    Adding();
}
