#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_summary.h"
#include "house/folios/folio_view.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260301120000"_s;
const QDate kToday(2026, 3, 5);

QString Charge(const QString& amount) {
    return u"<费用名称>早餐</费用名称>\r\n<金额>%1</金额>"_s.arg(amount);
}

QString StayRecord(const QString& room, const QStringList& guests) {
    QString stay;
    for (qsizetype i = 0; i < guests.size(); ++i)
        stay += u"<客人%1><房间号>%2</房间号>%3</客人%1>\r\n"_s.arg(i + 1, 2, 10, QChar(u'0'))
                    .arg(room, guests[i]);
    return stay;
}

QString PayerOf(const QString& folio) {
    return GetTag(GetTag(FindOpenFolio(folio).value_or(QString()), folio_record::kPayer),
                  u"客人姓名");
}

// "101: 床位01 床位02, 102: 床位01"
QString RoomsOf(const QString& folio) {
    QStringList rooms;
    const QString record = FindOpenFolio(folio).value_or(QString());
    for (FieldWalk field(record); field.next();) {
        if (field.name() == folio_record::kPayer)
            continue;
        QStringList beds;
        for (FieldWalk bed(field.value()); bed.next();)
            beds.append(bed.name().toString());
        rooms.append(field.name() + u": "_s + beds.join(u' '));
    }
    return rooms.join(u", "_s);
}

} // namespace

class FolioTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void paths() {
        TestHotel hotel;
        QCOMPARE(LedgerFile(kFolio), u"kzxx\\26\\03\\01\\260301120000.QVR"_s);
        QCOMPARE(JournalFile(u"房费明细信息", kToday), u"kzxx\\房费明细信息\\26\\03\\260305.QVR"_s);
        QCOMPARE(RetiredFolioFile(kToday), u"kzxx\\jzhls\\260305.QVR"_s);
        QCOMPARE(StayRegisterFile(u"2006-03-02", kToday), u"kszl\\rzjl\\060302.qvr"_s);
        QCOMPARE(StayRegisterFile(u"", kToday), u"kszl\\rzjl\\260305.qvr"_s);
        QCOMPARE(PersonalFile(u"QT01"), u"QVR\\QT01\\Personal.qvr"_s);
    }

    void aPostingIsInLedgerAndJournalOnceEach() {
        const auto row = [](const char* name, int kind) {
            TestHotel hotel;
            const QString project = QString::fromUtf8(name);
            const QString journal = JournalFile(project, kToday);
            QCOMPARE(SaveBills(u"260302120000", kind, Charge(u"10.00"_s)).status, 0);
            const Posted first = SaveBills(kFolio, kind, Charge(u"18.00"_s));
            const Posted second = SaveBills(kFolio, kind, Charge(u"20.00"_s));
            QCOMPARE(first.status, 0);
            QCOMPARE(first.key, u"1"_s);
            QCOMPARE(second.key, u"2"_s);
            QCOMPARE(StoredRecords(LedgerFile(kFolio), project),
                     QStringList({Charge(u"18.00"_s) + u"\r\n<序号>1</序号>"_s,
                                  Charge(u"20.00"_s) + u"\r\n<序号>2</序号>"_s}));
            QCOMPARE(StoredRecords(journal, project).size(), 3);
            Check(name, StoredRecords(journal, project).at(1),
                  Charge(u"18.00"_s) + u"\r\n<序号>2</序号>\r\n<结账号>"_s + kFolio +
                      u"</结账号>"_s);
        };
        row("信用押金信息", 0);
        row("房费明细信息", 1);
        row("餐饮娱乐费用", 2);
        row("宽带网络费用", 3);
        row("电话计费信息", 4);
        row("团队结算信息", 5);
        row("客房服务费用", 6);
    }

    void aDeletionIsAnsweredOnItsOwnDay() {
        TestHotel hotel;
        const QString project = PostingProject(kRoomPosting);
        const QString key = SaveBills(kFolio, kRoomPosting, Charge(u"18.50"_s)).key;
        Clock::Advance(24 * 3600 * 1000);
        QCOMPARE(DelBills(kFolio, kRoomPosting, key), 0);
        QCOMPARE(StoredRecords(LedgerFile(kFolio), project), QStringList());
        QCOMPARE(StoredRecords(JournalFile(project, kToday), project).size(), 1);
        const QStringList answers = StoredRecords(JournalFile(project, kToday.addDays(1)), project);
        QCOMPARE(answers.size(), 1);
        QCOMPARE(GetTag(answers[0], u"金额"), u"-18.50"_s);
        QCOMPARE(GetTag(answers[0], u"序号"), u"1"_s);
        QCOMPARE(GetTag(answers[0], u"结账号"), kFolio);
        QVERIFY(DelBills(kFolio, kRoomPosting, key) != 0); // gone already: nothing is written
        QCOMPARE(StoredRecords(JournalFile(project, kToday.addDays(1)), project).size(), 1);
    }

    void theReversalOfADepositKeepsItsAmount() {
        TestHotel hotel;
        const QString project = PostingProject(kDepositPosting);
        const QString key =
            SaveBills(kFolio, kDepositPosting, u"<实收金额>500.00</实收金额>"_s).key;
        QCOMPARE(DelBills(kFolio, kDepositPosting, key), 0);
        const QString answer = StoredRecords(JournalFile(project, kToday), project).last();
        QCOMPARE(GetTag(answer, u"金额"), u"0.00"_s);
        QCOMPARE(GetTag(answer, u"实收金额"), u"500.00"_s);
    }

    void aRefusedWriteIsTriedOnceMore() {
        TestHotel hotel;
        CutLine line(hotel.port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        line.reset();
        line.spoilWrite(2); // behind the making of the project
        QCOMPARE(SaveBills(kFolio, kRoomPosting, Charge(u"18.00"_s)).status, 0);
        QCOMPARE(line.writes(), 5);
        const QString project = PostingProject(kRoomPosting);
        QCOMPARE(StoredRecords(LedgerFile(kFolio), project).size(), 1);
        hotel.desk().use();
        hotel.stopServer();
        QVERIFY(SaveBills(kFolio, kRoomPosting, Charge(u"18.00"_s)).status != 0);
    }

    void guestsAreEnteredInTheirFolios() {
        TestHotel hotel;
        const QString other = u"260301120001"_s;
        const auto guest = [](const QString& name, const QString& folio, bool pays) {
            return ValidGuest(name, folio, u"散客"_s,
                              pays ? u"<付费客人>1</付费客人>"_s : QString());
        };
        const QString stay =
            StayRecord(u"101"_s, {guest(u"王一"_s, kFolio, false), guest(u"李二"_s, other, true),
                                  guest(u"张三"_s, kFolio, true), guest(u"无号"_s, {}, true)});
        QCOMPARE(UpdateJzhByRmRec(stay), 0);
        QCOMPARE(RoomsOf(kFolio), u"101: 床位01 床位03"_s);
        QCOMPARE(RoomsOf(other), u"101: 床位02"_s);
        QCOMPARE(PayerOf(kFolio), u"张三"_s);
        QCOMPARE(UpdateJzhByRmRec(StayRecord(u"102"_s, {guest(u"赵四"_s, kFolio, true)})), 0);
        QCOMPARE(RoomsOf(kFolio), u"101: 床位01 床位03, 102: 床位01"_s);
        QCOMPARE(PayerOf(kFolio), u"张三"_s); // the first one stays
        QCOMPARE(LoadJzhQd(), QStringList({kFolio, other}));
        const QString entry = GetTag(GetTag(*FindOpenFolio(kFolio), u"102"), u"床位01");
        QCOMPARE(GetTag(entry, u"证件号码"), u"P"_s + kFolio);
        QCOMPARE(GetTag(entry, u"房态"), QString());
    }

    void roomsAndBedsLeave() {
        TestHotel hotel;
        const QString open = u"<基本信息><客人姓名>王一</客人姓名></基本信息>"
                             "<101><床位01><散住>1</散住></床位01><床位02><散住>1</散住></床位02>"
                             "</101><102><床位01><散住>1</散住></床位01></102>"_s;
        SaveRecord(OpenFolioFile(), folio_record::kProject, kFolio, open);
        QCOMPARE(DelKrFromJzh(kFolio, u"101", 1), 0);
        QCOMPARE(RoomsOf(kFolio), u"101: 床位02, 102: 床位01"_s);
        QCOMPARE(DelKrFromJzh(kFolio, u"102", 3), 0); // not entered: the whole room goes
        QCOMPARE(RoomsOf(kFolio), u"101: 床位02"_s);
        Jzhjc();
        QVERIFY(FindOpenFolio(kFolio));
        QCOMPARE(DelRmFromJzh(kFolio, u"101"), 0);
        QCOMPARE(RoomsOf(kFolio), QString());
        const QStringList history =
            StoredRecords(LedgerFile(kFolio), folio_record::kHistoryProject.toString());
        QCOMPARE(history.size(), 3);
        QVERIFY(history[0].startsWith(open));
        QCOMPARE(GetTag(history[2], folio_record::kMoment), u"2026-03-05 10:00"_s);
        QCOMPARE(DelRmFromJzh(u"269999999999", u"101"), 0);
        QVERIFY(!FindOpenFolio(u"269999999999"));
    }

    // What can't be read is left as it is, and nobody takes it for a folio that isn't open.
    void anUnreadFolioIsNoClosedOne() {
        TestHotel hotel;
        hotel.stopServer();
        QVERIFY(DelRmFromJzh(kFolio, u"101") != 0);
        QVERIFY(DelKrFromJzh(kFolio, u"101", 1) != 0);
        QVERIFY(DelJzh(kFolio) != 0);
    }

    void theAuditRetiresFoliosWithoutRooms() {
        const auto row = [](const char* name, const QString& record, bool retired) {
            TestHotel hotel;
            SaveRecord(OpenFolioFile(), folio_record::kProject, kFolio, record);
            Jzhjc();
            Check(name, !FindOpenFolio(kFolio), retired);
            const QStringList gone =
                StoredRecords(RetiredFolioFile(kToday), folio_record::kProject.toString());
            Check(name, gone, retired ? QStringList{record} : QStringList());
        };
        row("payer only", u"<基本信息><散住>0</散住></基本信息>"_s, true);
        row("a room", u"<101><床位01><散住>0</散住></床位01></101>"_s, false);
        row("a room named by letters", u"<A1><床位01>1</床位01></A1>"_s, true);
        row("nothing at all", {}, true);
    }

    void ledgerRecordsOfAFoliosEnd() {
        TestHotel hotel;
        QCOMPARE(SaveJzhJzRec(kFolio, u"<客人>王一</客人>"_s), 0);
        QCOMPARE(SaveRmLsToJzh(kFolio, u"101", u"<客人01><年龄>30</年龄></客人01>"_s), 0);
        QCOMPARE(LoadJzhLastRec(kFolio, folio_record::kSettlementProject),
                 u"<客人>王一</客人>\r\n<序号>1</序号>\r\n<日期时间>2026-03-05 10:00</日期时间>"_s);
        QCOMPARE(GetTag(LoadJzhLastRec(kFolio, folio_record::kStayProject), u"房间号"), u"101"_s);
        QCOMPARE(LoadJzhLastRec(u"269999999999", folio_record::kStayProject), QString());
    }

    void view() {
        TestHotel hotel;
        QCOMPARE(LoadJzhToGrid(kFolio).notice->words, u"没有这个结账号，请核对！"_s);
        const QString open =
            u"<101><床位01><客人姓名>王一</客人姓名><证件号码>P1</证件号码></床位01>"
            "<床位02></床位02><床位03><客人姓名>王二</客人姓名></床位03></101>"
            "<基本信息><客人姓名>李二</客人姓名><备注>常客</备注></基本信息>"_s;
        SaveRecord(OpenFolioFile(), folio_record::kProject, kFolio, open);
        const FolioView view = LoadJzhToGrid(kFolio);
        QVERIFY(view.isOpen && !view.notice);
        QCOMPARE(view.rows.dataRows(), 3);
        QCOMPARE(view.rows.row(3).first(2), QStringList({u"101"_s, u"王二"_s}));
        QCOMPARE(view.rows.text(1, u"客人姓名"), u"李二"_s);
        QCOMPARE(view.rows.text(1, u"备注"), u"常客"_s);
        QCOMPARE(view.rows.text(2, u"客人姓名"), u"王一"_s);
        QCOMPARE(view.rows.text(2, u"房间号"), u"101"_s);
        QCOMPARE(DelJzh(kFolio), 0);
        const FolioView past = LoadJzhToGrid(kFolio);
        QCOMPARE(past.notice->words, u"该结账号已经过期或结清！"_s);
        QCOMPARE(past.rows.dataRows(), 3);
    }
    void whatADeskKnowsAFolioBy() {
        const auto row = [](const char* name, const QString& record, const QString& told) {
            const FolioSummary folio = SummaryOf(record);
            Check(name,
                  folio.payer + u'|' + folio.rooms.join(u' ') + u'|' + folio.guests.join(u' '),
                  told);
        };
        const QString rooms = u"<101><床位01><客人姓名>王一</客人姓名></床位01>"
                              "<床位02><客人姓名>王二</客人姓名></床位02></101><102></102>"
                              "<103><床位01><散住>1</散住></床位01></103>"_s;
        row("a payer", u"<基本信息><客人姓名>李二</客人姓名></基本信息>"_s + rooms,
            u"李二|101 103|王一 王二"_s);
        row("none", rooms, u"王一|101 103|王一 王二"_s);
        row("empty", {}, u"||"_s);
    }
    void pickedNode() {
        QCOMPARE(FolioOfNode(u"结账号 260301120000"), kFolio);
        QCOMPARE(FolioOfNode(u"260301120000"), QString());
        QCOMPARE(FolioOfNode(u"结账号 26030112000"), QString());
    }
};

HOTEL_TEST(FolioTest)
#include "test_folio.moc"
