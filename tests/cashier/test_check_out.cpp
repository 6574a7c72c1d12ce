#include <QRandomGenerator>
#include <QTest>

#include "cashier/check_out.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const QString kLedger = u"kzxx\\26\\03\\05\\260305100000.QVR"_s;
const QString kDepositJournal = u"kzxx\\信用押金信息\\26\\03\\260305.QVR"_s;
const QString kRoomJournal = u"kzxx\\房费明细信息\\26\\03\\260305.QVR"_s;
const QString kOfficer = u"<证件种类>军官证</证件种类><证件号码>南12345</证件号码>"
                         "<入住时间>09:00</入住时间>"_s;

// Checks guests in, one a room from 8101 on, or all of them into the beds of 8101.
void CheckIn(const QStringList& guests, bool oneRoom = false) {
    QList<RoomSpec> rooms;
    QList<ChosenRoom> chosen;
    for (int n = 0; n < (oneRoom ? 1 : guests.size()); ++n) {
        rooms.append({QString::number(8101 + n), oneRoom ? u"散客"_s : QString(), -1, 4});
        chosen.append(Chosen(rooms.last()));
    }
    FillRooms(rooms);
    QVERIFY(ConfirmCheckIn(TypedSet(chosen, guests, oneRoom ? int(guests.size()) : 1), chosen)
                .confirmed);
}

QString Member(const QString& name, const QString& folio = kFolio,
               const QString& status = u"团队"_s) {
    const QString shares = status == u"散客" ? u"1"_s : u"0"_s;
    return ValidGuest(name, folio, status, kOfficer + u"<散住>"_s + shares + u"</散住>"_s);
}

QString Charged(const QString& amount) {
    return u"<费用名称>晚餐</费用名称><金额>"_s + amount + u"</金额>"_s;
}

TextTable ListOf(const QString& folio = kFolio, const QString& charge = u"129.00"_s) {
    TextTable list = LoadSettlementFolio(folio).list;
    for (int row = 1; row < list.rows(); ++row)
        list.setText(row, 7, charge);
    return list;
}

// A cashier who answers as told, and remembers what was asked.
struct Cashier {
    std::optional<Payment> pays = {};
    bool meansPart = true;
    QStringList asked = {};
    int steps = 0;

    CheckOutOutcome confirm(const TextTable& list, const QString& folio = kFolio) {
        return ConfirmCheckOut({folio, list, u"脏房"_s},
                               {[this](const Notice& question) {
                                    asked.append(Words(question));
                                    return meansPart;
                                },
                                [this](const SettlementSums& sums) {
                                    asked.append(u"pay "_s + sums.due().text());
                                    return pays;
                                },
                                [this](int done, int total) {
                                    QCOMPARE(done, ++steps);
                                    QVERIFY(done <= total);
                                }});
    }
};

QStringList AllWords(const QList<Notice>& notices) {
    QStringList words;
    for (const Notice& notice : notices)
        words.append(Words(notice));
    return words;
}

Payment Cash(const QString& due, const QString& discount, const QString& received) {
    return {due, discount, received, u"0.00"_s, u"现金"_s, {}, {}};
}

QStringList Ledger(const QString& project) {
    return StoredRecords(kLedger, project);
}

const QString kPaid = u"处理完成: 账务已经结清"_s;
const QString kUnsaved = u"意外失误: 保存结账信息失败，请退出后重新登录再试！"_s;

// The record of one line, without line ends.
QString Line(QString record) {
    return record.remove(u"\r\n"_s);
}

} // namespace

class CheckOutTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        CurrentSession().userName = u"王丽娟"_s;
        CurrentSession().userDept = u"收银"_s;
    }
    void cleanup() { hotel_.reset(); }

    void listOfAFolio() {
        CheckIn({Member(u"王一"_s), Member(u"李二"_s), Member(u"别人"_s, kOther)});
        SaveBills(kFolio, kFoodPosting, Charged(u"100.00"_s));
        SaveBills(kFolio, kDepositPosting, u"<实收金额>500.00</实收金额>"_s);
        const SettlementFolio loaded = LoadSettlementFolio(kFolio);
        QCOMPARE(loaded.list.headers().join(u' '),
                 u"结账 房间号 客人姓名 房态 客房类型 房价种类 确认房价 结账房费 特殊说明 入住日期 "
                 "入住时间 结算日期 散住 付费客人 床位 证件种类 证件号码 楼层号 电话号码 结账日期 "
                 "结账时间"_s);
        QCOMPARE(loaded.list.dataRows(), 2);
        QCOMPARE(loaded.list.row(1).join(u'|'),
                 u" |8101|王一|团队|标准双床房||258.00|||2026-03-05|09:00||0||1|军官证|南12345|1||"
                 "2026-03-05|10:00"_s);
        QCOMPARE(loaded.list.text(2, 1), u"8102"_s);
        const SettlementSums sums = SumsOf(ListOf(), *loaded.totals);
        QCOMPARE(sums.due().text(), u"-142.00"_s); // 258 + 100 - 500
        QCOMPARE(FirstGuest(loaded.list), u"王一"_s);

        QCOMPARE(Words(LoadSettlementFolio(u"260305100009"_s).notice),
                 u"注意: 结账号：260305100009"_s);
        hotel_->stopServer();
        QCOMPARE(LoadSettlementFolio(kFolio).list.dataRows(), 0);
    }

    // Of a shared room each bed is a row, of another one the first guest of the folio.
    void bedsOfARoom() {
        CheckIn({Member(u"王一"_s, kFolio, u"散客"_s), Member(u"别人"_s, kOther, u"散客"_s),
                 Member(u"李二"_s, kFolio, u"散客"_s)},
                true);
        const TextTable list = ListOf();
        QCOMPARE(list.dataRows(), 2);
        QCOMPARE(list.text(1, 14) + list.text(2, 14), u"13"_s);
        const auto rowsWith = [](const QString& status, const QString& sharing) {
            QString stay;
            for (const int bed : {1, 2})
                stay = SetTag(stay, GuestTag(bed), ValidGuest(u"王一"_s, kFolio, status, sharing));
            SaveRmRec(u"8101", stay);
            return ListOf().dataRows();
        };
        QCOMPARE(rowsWith(u"包房"_s, {}), 1);
        QCOMPARE(rowsWith(u"包房"_s, u"<散住客人>0</散住客人>"_s), 1);
        QCOMPARE(rowsWith(u"包房"_s, u"<散住客人>1</散住客人>"_s), 2);
        // nobody's file: the folio has nothing to list, and nothing to confirm
        SaveRmRec(u"8101", {});
        QCOMPARE(ListOf().dataRows(), 0);
    }

    void aGuestTextCutAnywhere() {
        CheckIn({Member(u"王一"_s)});
        const QString stay = GetKfrzxx(u"8101");
        for (qsizetype length = 0; length <= stay.size(); length += 3) {
            SaveRmRec(u"8101", stay.left(length));
            QVERIFY(ListOf().dataRows() <= 1);
        }
    }

    void refusals() {
        CheckIn({Member(u"王一"_s), Member(u"李二"_s)});
        CutLine line(hotel_->port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        line.reset();
        const auto refused = [](const TextTable& list, const QString& folio = kFolio) {
            Cashier cashier;
            const CheckOutOutcome outcome = cashier.confirm(list, folio);
            return AllWords(outcome.notices).join(u'|') + (outcome.done ? u" done"_s : u""_s) +
                   (outcome.undecidedRow ? u" row %1"_s.arg(outcome.undecidedRow) : u""_s);
        };
        TextTable list = ListOf();
        list.setText(2, 7, {});
        QCOMPARE(refused(list),
                 u"请正确操作: 某个或某些房间的结账房价还没有确定,费用无法结清! row 2"_s);
        SetChosen(list, 1, false);
        SetChosen(list, 2, false);
        QCOMPARE(refused(list), u"请正确操作: 没有任何房间或床位要结账!?"_s);
        QCOMPARE(refused(ListOf(), kOther), u"注意: 结账号：260305100001"_s);

        Cashier hesitating{.pays = {}, .meansPart = false};
        list = ListOf();
        SetChosen(list, 1, false);
        QVERIFY(!hesitating.confirm(list).done);
        QCOMPARE(hesitating.asked,
                 QStringList(u"请确认: 只结清部分房间床位,保留其余账务,以后处理?"_s));
        Cashier cancelling;
        const CheckOutOutcome outcome = cancelling.confirm(ListOf());
        QVERIFY(!outcome.done && outcome.notices.isEmpty());
        QCOMPARE(outcome.list.dataRows(), 2);
        QCOMPARE(cancelling.asked, QStringList(u"pay 258.00"_s));
        QCOMPARE(line.writes(), 0);

        list = ListOf();
        hotel_->desk().use();
        hotel_->stopServer();
        QCOMPARE(refused(list), u"注意: 结账号：260305100000"_s);
    }

    void wholeAndOrdinary() {
        CheckIn({Member(u"王一"_s), Member(u"李二"_s)});
        SaveBills(kFolio, kFoodPosting, Charged(u"100.56"_s));
        Cashier cashier{.pays = Cash(u"358.56"_s, u"0.5+0.06"_s, u"358+2"_s)};
        cashier.pays->change = u"2.00"_s;
        cashier.pays->note = u"谢谢"_s;
        const CheckOutOutcome outcome = cashier.confirm(ListOf());
        QCOMPARE(AllWords(outcome.notices), QStringList(kPaid));
        QCOMPARE(cashier.asked, QStringList(u"pay 358.56"_s));
        QVERIFY(outcome.done && outcome.retired);
        QCOMPARE(outcome.list.dataRows(), 1);
        QCOMPARE(outcome.list.row(1).join(QString()), QString());
        QCOMPARE(cashier.steps, 8);

        const QString by = u"<经办单位>收银</经办单位><经办人>王丽娟</经办人>"_s;
        const QString when = u"<日期>2026-03-05</日期><时间>10:00:00</时间>"_s;
        QCOMPARE(
            Line(Ledger(u"结账信息"_s).value(0)),
            u"<客人>王一</客人>"_s + when +
                u"<支付方式>现金</支付方式><应收金额>358.56</应收金额><折扣金额>0.5+0.06</折扣金额>"
                "<实收金额>360.00</实收金额><找赎金额>2.00</找赎金额><备注>谢谢</备注>"_s +
                by + u"<序号>1</序号><日期时间>2026-03-05 10:00</日期时间>"_s);
        const QStringList lines = Ledger(u"信用押金信息"_s);
        QCOMPARE(lines.size(), 2);
        const QString head = u"<支付方式>现金</支付方式><客人>王一</客人>"_s + when;
        QCOMPARE(Line(lines[0]), u"<信用保证种类>结账实收</信用保证种类>"_s + head +
                                     u"<实收金额>358.00</实收金额><备注>谢谢</备注>"_s + by +
                                     u"<序号>1</序号>"_s);
        QCOMPARE(Line(lines[1]), u"<信用保证种类>结账折扣</信用保证种类>"_s + head +
                                     u"<信用金额>0.56</信用金额><备注>谢谢</备注>"_s + by +
                                     u"<序号>2</序号>"_s);
        QCOMPARE(Ledger(u"团队结算信息"_s), QStringList());
        QCOMPARE(
            Line(Ledger(u"房费明细信息"_s).value(1)),
            u"<费用名称>结账房费</费用名称><房间号>8102</房间号><客人>李二</客人>"
            "<日期>2026-03-05</日期><时间>10:00</时间><金额>129.00</金额><备注>最终结算</备注>"_s +
                by + u"<序号>2</序号>"_s);
        QCOMPARE(LoadFolioTotals(kFolio)->balance(), Money());

        QVERIFY(!FindOpenFolio(kFolio));
        QCOMPARE(StoredRecords(u"kzxx\\jzhls\\260305.QVR"_s, u"结账号信息"_s).size(), 1);
        for (const QString& room : {u"8101"_s, u"8102"_s}) {
            QCOMPARE(StoredNames(room), QStringList());
            QCOMPARE(StoredRoom(room, u"房态") + StoredRoom(room, u"住客数"), u"脏房"_s);
        }
        QCOMPARE(StoredRecords(u"kszl\\ldjl\\260305.QVR"_s, u"离店客人记录"_s).size(), 2);
        QCOMPARE(hotel_->logged(u"操作内容"), u"260305100000 结账退房"_s);
        QCOMPARE(hotel_->logged(u"备注"),
                 u"费用:100.56, 已收:0.00, 结账房费:258.00, 实收:360.00"_s);
        // both guests show the same document, so the second is its second stay
        const QString history =
            StoredRecords(u"kszl\\军官证\\南1\\南12345.QVR"_s, u"客史资料信息"_s).value(0);
        QCOMPARE(GetTag(history, u"姓名"), u"李二"_s);
        QCOMPARE(GetTag(GetTag(history, u"结账号清单"), u"002"), kFolio);
    }

    void teamSettlement() {
        CheckIn({Member(u"王一"_s)});
        Payment payment = Cash(u"129.50"_s, u"0.50"_s, u"129"_s);
        payment.note = u"江城旅行社"_s;
        payment.team = u"00000007"_s;
        Cashier cashier{.pays = payment};
        QCOMPARE(AllWords(cashier.confirm(ListOf(kFolio, u"129.50"_s)).notices),
                 QStringList({kPaid, u"处理完成: 团队账务已经保存"_s}));
        const QStringList lines = Ledger(u"信用押金信息"_s);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(GetTag(lines[0], u"信用保证种类") + GetTag(lines[0], u"信用金额"),
                 u"团队结算129.50"_s);
        QCOMPARE(GetTag(lines[1], u"信用保证种类") + GetTag(lines[1], u"信用金额"),
                 u"团队折扣-0.50"_s);
        QVERIFY(!(lines[0] + lines[1]).contains(u"实收金额"));
        QCOMPARE(Line(Ledger(u"团队结算信息"_s).value(0)),
                 u"<团队编号>00000007</团队编号><单位名称>江城旅行社</单位名称><客人>王一</客人>"
                 "<日期>2026-03-05</日期><时间>10:00:00</时间><金额>129.00</金额>"
                 "<备注>江城旅行社</备注><经办单位>收银</经办单位><经办人>王丽娟</经办人>"
                 "<序号>1</序号>"_s);
    }

    void whoIsATeam() {
        Payment payment;
        const auto isTeam = [&](const QString& team, const QString& note) {
            payment.team = team;
            payment.note = note;
            return IsTeamSettlement(payment);
        };
        QVERIFY(isTeam(u"00000007"_s, u"旅行社"_s));
        QVERIFY(!isTeam(u"00000007"_s, {}));
        QVERIFY(!isTeam(u"0000007"_s, u"旅行社"_s));
        QVERIFY(!isTeam({}, u"旅行社"_s));
    }

    void partOfAParty() {
        CheckIn({Member(u"王一"_s), Member(u"李二"_s), Member(u"张三"_s)});
        TextTable list = ListOf();
        SetChosen(list, 1, false);
        list.setText(3, 7, u"0.00"_s);
        Cashier cashier;
        const CheckOutOutcome outcome = cashier.confirm(list);
        QVERIFY(outcome.done && !outcome.retired && outcome.notices.isEmpty());
        QCOMPARE(cashier.asked.size(), 1); // no payment
        QCOMPARE(outcome.list.dataRows(), 1);
        QCOMPARE(outcome.list.text(1, 2), u"王一"_s);
        QCOMPARE(Ledger(u"房费明细信息"_s).size(), 1); // nothing for the charge of 0.00
        QCOMPARE(Ledger(u"信用押金信息"_s), QStringList());
        QCOMPARE(Ledger(u"结账信息"_s), QStringList());
        const QString folio = FindOpenFolio(kFolio).value_or(QString());
        QVERIFY(!GetTag(folio, u"8101").isEmpty());
        QVERIFY(!folio.contains(u"8102") && !folio.contains(u"8103"));
        QCOMPARE(StoredRoom(u"8101"_s, u"房态") + StoredRoom(u"8103"_s, u"房态"), u"团队脏房"_s);
        QCOMPARE(hotel_->logged(u"操作内容") + hotel_->logged(u"备注"),
                 u"260305100000 退房房费:129.00"_s);

        // the last one pays all
        Cashier rest{.pays = Cash(u"258.00"_s, u"0.00"_s, u"258"_s)};
        QVERIFY(rest.confirm(ListOf()).retired);
        QCOMPARE(rest.asked, QStringList(u"pay 258.00"_s));
        QCOMPARE(LoadFolioTotals(kFolio)->balance(), Money());
    }

    void aBedOfASharedRoom() {
        CheckIn({Member(u"王一"_s, kFolio, u"散客"_s), Member(u"李二"_s, kFolio, u"散客"_s),
                 Member(u"别人"_s, kOther, u"散客"_s)},
                true);
        TextTable list = ListOf();
        SetChosen(list, 1, false);
        Cashier cashier;
        QVERIFY(cashier.confirm(list).done);
        QCOMPARE(StoredNames(u"8101"_s), QStringList({u"客人01 王一"_s, u"客人03 别人"_s}));
        QCOMPARE(StoredRoom(u"8101"_s, u"房态") + StoredRoom(u"8101"_s, u"住客数"), u"散客2"_s);
        const QString beds = GetTag(FindOpenFolio(kFolio).value_or(QString()), u"8101");
        QVERIFY(beds.contains(u"床位01") && !beds.contains(u"床位02"));
        QVERIFY(FindOpenFolio(kOther)->contains(u"床位03"));
    }

    void changeAndDiscount() {
        const auto change = [](const char* received, const char* discount, const char* due) {
            return ChangeOf(QString::fromUtf8(received), QString::fromUtf8(discount),
                            QString::fromUtf8(due))
                .value_or(u"-"_s);
        };
        QCOMPARE(DefaultDiscount(u"1200"_s), u"0.00"_s);
        QCOMPARE(DefaultDiscount(u"1200.00"_s), u"0.00"_s);
        QCOMPARE(DefaultDiscount(u"1234.50"_s), u"0.50"_s);
        QCOMPARE(change("1200", "0.00", "1200"), u"0.00"_s);
        QCOMPARE(change("1233.99", "0.56", "1234.56"), u"-"_s);
        QCOMPARE(change("1234.00", "0.56", "1234.56"), u"0.00"_s);
        QCOMPARE(change("1233.9999", "0.56", "1234.56"), u"-"_s);
        QCOMPARE(change("2000", "0.56", "1234.56"), u"766.00"_s);
        QCOMPARE(change("１０００＋２００", "0", "1200.00"), u"0.00"_s);
        QCOMPARE(change("", "0.00", "-200.00"), u"-"_s); // nothing typed yet
        QCOMPARE(change("0", "0.00", "-200.00"), u"200.00"_s);
        QCOMPARE(change("1200+", "0.00", "1200.00"), u"-"_s);
        QCOMPARE(change("1200", "5%", "1200.00"), u"-"_s);
        QCOMPARE(change("1200", "", "1200.00"), u"0.00"_s);
        QVERIFY(!ChangeOf(QString(300, u'9') + u'x', u"", u"1.00"));

        QRandomGenerator random(9);
        for (int n = 0; n < 2000; ++n) { // in cents, as a child would
            const int due = random.bounded(300000);
            const int discount = due % 100;
            const int received = random.bounded(300000);
            const auto text = [](int cents) {
                return u"%1.%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
            };
            QCOMPARE(DefaultDiscount(text(due)), text(discount));
            const int left = received + discount - due;
            QCOMPARE(ChangeOf(text(received), text(discount), text(due)),
                     left < 0 ? std::nullopt : std::optional(text(left)));
        }
    }

    // Commands of one guest's check-out that write, in their order; the server goes ahead of one. What
    // stood before stays, and what comes behind isn't there; each failure is told once.
    void theServerGoesAheadOfEachWrite() {
        struct Stage {
            int writes; // so many are needed for it
            QString what;
            std::function<bool()> stands;
        };
        const auto has = [](const QString& file, const QString& project, int records) {
            return [=] { return StoredRecords(file, project).size() >= records; };
        };
        const QList<Stage> stages = {
            {2, u"settlement"_s, has(kLedger, u"结账信息"_s, 1)},
            {4, u"paid"_s, has(kLedger, u"信用押金信息"_s, 1)},
            {6, u"paid, journal"_s, has(kDepositJournal, u"信用押金信息"_s, 1)},
            {8, u"discount"_s, has(kLedger, u"信用押金信息"_s, 2)},
            {10, u"discount, journal"_s, has(kDepositJournal, u"信用押金信息"_s, 2)},
            {12, u"charge"_s, has(kLedger, u"房费明细信息"_s, 1)},
            {14, u"charge, journal"_s, has(kRoomJournal, u"房费明细信息"_s, 1)},
            {17, u"history"_s, has(u"kszl\\军官证\\南1\\南12345.QVR"_s, u"客史资料信息"_s, 1)},
            {20, u"departure"_s, has(u"kszl\\ldjl\\260305.QVR"_s, u"离店客人记录"_s, 1)},
            {22, u"stay"_s, has(kLedger, u"住宿信息"_s, 1)},
            {23, u"room empty"_s, [] { return StoredNames(u"8101"_s).isEmpty(); }},
            {24, u"nobody counted"_s, [] { return StoredRoom(u"8101"_s, u"住客数").isEmpty(); }},
            {27, u"dirty"_s, [] { return StoredRoom(u"8101"_s, u"房态") == u"脏房"; }},
            {29, u"folio before"_s, has(kLedger, u"结账号基本信息"_s, 1)},
            {30, u"room off"_s,
             [] { return !FindOpenFolio(kFolio).value_or(QString()).contains(u"8101"); }},
            {32, u"folio kept"_s, has(kLedger, u"结账号基本信息"_s, 2)},
            {33, u"folio closed"_s, [] { return !FindOpenFolio(kFolio); }},
            {36, u"retired"_s, has(u"kzxx\\jzhls\\260305.QVR"_s, u"结账号信息"_s, 1)},
        };
        for (const int cut : {1, 4, 10, 11, 14, 15, 18, 20, 23, 24, 28, 30, 31, 33, 36, 39, 40}) {
            cleanup();
            init();
            CheckIn({Member(u"王一"_s)});
            const TextTable list = ListOf();
            CheckOutOutcome outcome;
            {
                CutLine line(hotel_->port());
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(cut);
                Cashier cashier{.pays = Cash(u"129.50"_s, u"0.50"_s, u"129.00"_s)};
                outcome = cashier.confirm(list);
            }
            QVERIFY(outcome.done && outcome.retired);
            QStringList told{cut <= 10 ? kUnsaved : kPaid};
            if (cut <= 14)
                told.append(u"意外错误: 结账结算8101房间的王一房费保存失败,需要退出重新操作!"_s);
            if (cut <= 30)
                told.append(
                    u"意外失误: 客房：8101 没有处理完，请退出后重新登录，核对客房和账号！"_s);
            if (cut <= 36)
                told.append(u"意外失误: 结账号：260305100000 没有注销，请重新登录后核对！"_s);
            QCOMPARE(AllWords(outcome.notices), told);
            hotel_->desk().use();
            for (const Stage& stage : stages)
                QVERIFY2(stage.stands() == (cut > stage.writes),
                         qPrintable(stage.what + u" at "_s + QString::number(cut)));
            QCOMPARE(hotel_->logged(u"操作内容") == u"260305100000 结账退房", cut > 39);
        }
    }

    // The team's account is told of by itself.
    void theServerGoesWithinATeamSettlement() {
        const QString saved = u"处理完成: 团队账务已经保存"_s;
        for (const int cut : {2, 11, 14, 15}) {
            cleanup();
            init();
            Payment payment = Cash(u"129.50"_s, u"0.50"_s, u"129.00"_s);
            payment.team = u"00000007"_s;
            payment.note = u"旅行社"_s;
            CutLine line(hotel_->port());
            Desk desk(line.port());
            desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            line.reset();
            line.cutBeforeWrite(cut);
            QCOMPARE(AllWords(PostSettlement(kFolio, u"王一"_s, payment)),
                     QStringList({cut <= 10 ? kUnsaved : kPaid, cut <= 14 ? kUnsaved : saved}));
        }
    }

    // One write that the server refuses is made again; nobody is told.
    void aRefusedWriteIsRepeated() {
        for (const int write : {2, 4, 12, 17, 20, 23, 24, 27, 30, 33, 36}) {
            cleanup();
            init();
            CheckIn({Member(u"王一"_s)});
            const TextTable list = ListOf();
            CutLine line(hotel_->port());
            Desk desk(line.port());
            desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            line.reset();
            line.spoilWrite(write);
            Cashier cashier{.pays = Cash(u"129.50"_s, u"0.50"_s, u"129.00"_s)};
            QCOMPARE(AllWords(cashier.confirm(list).notices), QStringList(kPaid));
        }
    }

    // What another desk posts while the list stands is paid, too; what it has settled isn't again.
    void twoDesksOnOneFolio() {
        CheckIn({Member(u"王一"_s)});
        const TextTable list = ListOf();
        SaveBills(kFolio, kFoodPosting, Charged(u"71.00"_s));
        Cashier cashier{.pays = Cash(u"200.00"_s, u"0.00"_s, u"200"_s)};
        QVERIFY(cashier.confirm(list).done);
        QCOMPARE(cashier.asked, QStringList(u"pay 200.00"_s));
        Cashier second{.pays = cashier.pays};
        QCOMPARE(AllWords(second.confirm(list).notices),
                 QStringList(u"注意: 结账号：260305100000"_s));
        QCOMPARE(Ledger(u"信用押金信息"_s).size(), 2);
    }

    void calculatingTheList() {
        CheckIn({Member(u"王一"_s), Member(u"李二"_s), Member(u"张三"_s)});
        TextTable list = ListOf(kFolio, u"1.00"_s);
        SetChosen(list, 1, false);
        list.setText(2, 3, u"钟点"_s);
        list.setText(2, 4, u"帐篷"_s);
        CalculateCharges(list, ChargePeriod::Half, u"10:00", TextTable());
        QCOMPARE(list.text(1, 7) + u' ' + list.text(2, 7) + u' ' + list.text(3, 7),
                 u"1.00 1.00 129.00"_s);      // stays, no such type, half
        list.setText(1, 11, u"2026-03-04"_s); // isn't the first who leaves
        QCOMPARE(PeriodOf(list, u"15:00", u"2026-03-05"), (PeriodChoice{ChargePeriod::Half}));
        SetChosen(list, 1, true);
        QCOMPARE(PeriodOf(list, u"15:00", u"2026-03-05"), (PeriodChoice{ChargePeriod::Full, true}));
        QCOMPARE(Words(PeriodReminder()),
                 u"提醒: 请注意手工计算房费，直接填写房间费用，或者该结账号费用特别结算,!"_s);
    }
};

HOTEL_TEST(CheckOutTest)
#include "test_check_out.moc"
