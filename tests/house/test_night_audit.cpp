#include <QRandomGenerator>
#include <QTest>

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/night_charge.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/stays/night_audit.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260304200000"_s;
const QString kOther = u"260304200001"_s;
const QString kRoomCharges = u"房费明细信息"_s;
const QString kLedger = u"kzxx\\26\\03\\04\\260304200000.QVR"_s;
const QString kOtherLedger = u"kzxx\\26\\03\\04\\260304200001.QVR"_s;
const QString kJournal = u"kzxx\\房费明细信息\\26\\03\\260305.QVR"_s;

// "1 2026-03-06 w": factor, the new date, whether the bed is written.
QString Told(const NightCharge& charge) {
    return charge.factor.text(u"#0.0") + u' ' + charge.settledThrough +
           (charge.writesBed ? u" w"_s : u""_s);
}

// A guest who came yesterday evening, changed as told.
QString Guest(const QString& name, const QString& changes = {}, const QString& folio = kFolio) {
    return ValidGuest(name, folio, u"包房"_s,
                      u"<入住日期>2026-03-04</入住日期><入住时间>20:00</入住时间>"_s + changes);
}

void LetIn(const QString& room, const QStringList& beds) {
    QString stay;
    for (int n = 0; n < beds.size(); ++n)
        stay = SetTag(stay, GuestTag(n + 1), beds[n]);
    SaveRmRec(room, stay);
}

QString SettledThrough(const QString& room, int bed = 1) {
    return GetTag(GetTag(GetKfrzxx(room), GuestTag(bed)), u"结算日期");
}

// Amounts of the room charges in a ledger or journal.
QStringList Charges(const QString& file = kLedger) {
    QStringList amounts;
    for (const QString& record : StoredRecords(file, kRoomCharges))
        amounts.append(GetTag(record, u"金额"));
    return amounts;
}

struct Audit {
    QStringList lines;
    QString next;
    NightAudit audit{u"2026-03-05"_s,
                     {u"包房"_s, u"散客"_s, u"长包房"_s},
                     u"财务部"_s,
                     u"赵国强"_s,
                     [this](const QString& line) { lines.append(line); }};

    Audit() = default;
    Audit(const Audit&) = delete; // the log writes to this one
    QStringList run(const QString& tag = u"1"_s) {
        lines.clear();
        next = RunAuditStep(tag, audit);
        return lines.mid(1);
    }
};

} // namespace

class NightAuditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ResetParameters(); }

    void nightOfABed() {
        const auto row = [](const char* name, QStringView settled, QStringView arrival,
                            QStringView time, const NightLimits& limits, const QString& told) {
            Check(name, Told(ChargeOfNight({settled, arrival, time, u"2026-03-05"}, limits)), told);
        };
        const NightLimits usual{u"06:00"_s, u"06:00"_s};
        const NightLimits wide{u"05:00"_s, u"07:30"_s};
        const NightLimits loose{u"6:00"_s, u"6:00"_s};
        const QString none = u"0.0 2026-03-05"_s;
        row("through the audit date", u"2026-03-05", u"2026-03-04", u"20:00", usual, none);
        row("beyond it", u"2026-03-06", u"2026-03-04", u"20:00", usual, u"0.0 2026-03-06"_s);
        row("through the day before", u"2026-03-04", u"2026-03-04", u"05:00", usual,
            u"1.0 2026-03-05 w"_s);
        row("two nights missed", u"2026-02-28", u"2026-02-20", u"20:00", usual,
            u"1.0 2026-03-01 w"_s);
        row("no date", u"2026-03-0", u"2026-03-04", u"20:00", usual, u"1.0 2026-03-05 w"_s);
        row("in the night", {}, u"2026-03-05", u"05:59", usual, u"1.0 2026-03-05 w"_s);
        row("at the minute", {}, u"2026-03-05", u"06:00", usual, u"0.5 2026-03-05 w"_s);
        row("within the minute", {}, u"2026-03-05", u"06:00:59", usual, u"0.5 2026-03-05 w"_s);
        row("a minute later", {}, u"2026-03-05", u"06:01", usual, none + u" w"_s);
        row("yesterday at the minute", {}, u"2026-03-04", u"06:00", usual, u"0.5 2026-03-04 w"_s);
        row("yesterday a minute later", {}, u"2026-03-04", u"06:01", usual, u"1.0 2026-03-05 w"_s);
        row("half price begins", {}, u"2026-03-05", u"05:00", wide, u"0.5 2026-03-05 w"_s);
        row("half price ends", {}, u"2026-03-05", u"07:30", wide, u"0.5 2026-03-05 w"_s);
        row("behind half price", {}, u"2026-03-05", u"07:31", wide, none + u" w"_s);
        row("a text ahead of 6:00", {}, u"2026-03-04", u"22:00", loose, u"1.0 2026-03-04 w"_s);
        row("no time", {}, u"2026-03-04", {}, usual, u"1.0 2026-03-04 w"_s);
        row("no limits", {}, u"2026-03-04", u"20:00", {}, u"1.0 2026-03-05 w"_s);
        row("no day", {}, {}, u"20:00", usual, u"1.0 2026-03-05 w"_s);
    }

    // Every minute of an arrival, on the day ahead of the audit date and on it, reckoned by numbers.
    void everyMinute() {
        const QDate audit(2026, 3, 1);
        const auto text = [](QDate day) { return day.toString(u"yyyy-MM-dd"); };
        for (const auto& [night, dawn] :
             {std::pair(360, 360), std::pair(300, 450), std::pair(0, 0)}) {
            const auto clock = [](int minute) {
                return QTime(0, 0).addSecs(60 * minute).toString(u"HH:mm");
            };
            for (int minute = 0; minute < 24 * 60; ++minute) {
                for (int ago = 0; ago <= 1; ++ago) {
                    for (int settled = -1; settled <= 3; ++settled) { // days ahead; -1: never
                        const QDate arrival = audit.addDays(-ago);
                        const QDate before = audit.addDays(1 - settled);
                        int halves = 2;
                        QDate through = arrival;
                        if (settled >= 0) {
                            halves = settled > 1 ? 2 : 0;
                            through = settled > 1 ? before.addDays(1) : before;
                        } else if (minute >= night && minute <= dawn) {
                            halves = 1;
                        } else if (minute >= night) {
                            halves = 2 * ago;
                            through = audit;
                        }
                        const QString was = settled < 0 ? QString() : text(before);
                        const QString auditDate = text(audit);
                        const NightCharge charge =
                            ChargeOfNight({was, text(arrival), clock(minute), auditDate},
                                          {clock(night), clock(dawn)});
                        QCOMPARE(charge.factor.units(), halves * 5000);
                        QCOMPARE(charge.settledThrough, text(through));
                        QCOMPARE(charge.writesBed, settled < 0 || settled > 1);
                    }
                }
            }
        }
    }

    void auditDate() {
        const auto row = [](const char* moment, const QString& date) {
            Check(moment,
                  AuditDate(QDateTime::fromString(QString::fromLatin1(moment), Qt::ISODate)), date);
        };
        row("2026-02-28T18:00:00", u"2026-02-28"_s);
        row("2026-02-28T18:00:01", u"2026-03-01"_s);
        row("2026-12-31T23:59:59", u"2027-01-01"_s);
        row("2026-03-01T02:30:00", u"2026-03-01"_s);
    }

    // From the first step to the last: the log, the charge as it stands, the folio that holds no room.
    void aWholeAudit() {
        TestHotel hotel;
        FillRooms(
            {{u"101"_s, u"包房"_s}, {u"102"_s, u"维修"_s}, {u"103"_s}, {u"104"_s, u"包房"_s}});
        LetIn(u"101"_s, {Guest(u"王一"_s, u"<确认房价>257.335</确认房价>"_s)});
        LetIn(u"102"_s, {Guest(u"在修"_s)});
        LetIn(u"103"_s, {Guest(u"空房"_s)});
        LetIn(u"104"_s, {
                            Guest(u"短"_s, {}, u"26030420000"_s),
                        });
        SaveRecord(u"kzxx\\Jzh.QVR", u"结账号信息", kFolio,
                   u"<101><床位01><客人姓名>王一</客人姓名></床位01></101>");
        SaveRecord(u"kzxx\\Jzh.QVR", u"结账号信息", kOther,
                   u"<基本信息><客人姓名>走了</客人姓名></基本信息>");
        Audit night;
        QStringList log;
        QStringList tags;
        for (QString tag = u"0"_s; !tag.isEmpty(); tag = night.next) {
            tags.append(tag);
            night.run(tag);
            log += night.lines;
        }
        QCOMPARE(tags.join(u' '), u"0 1 2 3 4 5 6 7 8 9 10"_s);
        QCOMPARE(log,
                 QStringList({u" 2026-03-05 10:00:00夜审开始："_s, u" 1:结算房费："_s,
                              u"    结算101房间的王一的房费成功"_s,
                              u"  客房：104的短没有结账号，或结账号错误？"_s, u" 2:检查结账号"_s,
                              u" 3:次日离店客人检查"_s, u" 4:计算常客积分"_s, u" 5:预订检查处理"_s,
                              u" 6:数据检查校对"_s, u" 7:统计每日指标"_s, u" 8:自动延住"_s,
                              u" 9:数据备份"_s, u" 2026-03-05 10:00:00夜审结束！\r\n"_s}));
        const QString charge = u"<费用名称>房费</费用名称>\r\n<房间号>101</房间号>\r\n"
                               "<客人>王一</客人>\r\n<日期>2026-03-05</日期>\r\n"
                               "<时间>10:00:00</时间>\r\n<金额>257.34</金额>\r\n"
                               "<备注>自动结算</备注>\r\n<经办单位>财务部</经办单位>\r\n"
                               "<经办人>赵国强</经办人>\r\n<序号>1</序号>"_s;
        QCOMPARE(hotel.stored(kLedger, kRoomCharges, u"1"_s), charge);
        QCOMPARE(hotel.stored(kJournal, kRoomCharges, u"1"_s),
                 charge + u"\r\n<结账号>260304200000</结账号>"_s);
        QCOMPARE(Charges(kJournal).size(), 1);
        QCOMPARE(SettledThrough(u"101"_s), u"2026-03-05"_s);
        QCOMPARE(SettledThrough(u"102"_s) + SettledThrough(u"103"_s), QString());
        QCOMPARE(SettledThrough(u"104"_s), u"2026-03-05"_s); // the date moves, charge or no charge
        QCOMPARE(LoadJzhQd(), QStringList{kFolio});
        QCOMPARE(night.run(u"11"_s), QStringList());
        QCOMPARE(night.next, QString());

        QCOMPARE(night.run(), QStringList()); // the same night once more
        night.audit.auditDate = u"2026-03-06"_s;
        QCOMPARE(night.run().first(), u"    结算101房间的王一的2026-03-05房费成功"_s);
        QCOMPARE(GetTag(hotel.stored(kLedger, kRoomCharges, u"2"_s), u"费用名称"),
                 u"2026-03-05房费"_s);
    }

    // The beds of a room, one after the other: what is charged, and the dates behind it.
    void roomsAndBeds() {
        TestHotel hotel;
        const auto row = [&](const char* name, const QString& status, const QStringList& beds,
                             const QStringList& charges, const QStringList& dates) {
            FillRooms({{u"101"_s, status, -1, 4}});
            SaveProject(kLedger, kRoomCharges, {});
            LetIn(u"101"_s, beds);
            Audit night;
            night.run();
            Check(name, Charges(), charges);
            QStringList through;
            for (int bed = 1; bed <= beds.size(); ++bed)
                through.append(SettledThrough(u"101"_s, bed));
            Check(name, through, dates);
        };
        const QString day = u"2026-03-05"_s;
        const QString shares = u"<房态>散客</房态><确认房价>110.00</确认房价>"_s;
        const QString done = u"<结算日期>2026-03-05</结算日期>"_s;
        row("three in a whole room", u"包房"_s, {Guest(u"一"_s), Guest(u"二"_s), Guest(u"三"_s)},
            {u"258.00"_s}, {day, {}, {}});
        row("the first bed is free", u"包房"_s, {{}, Guest(u"二"_s), Guest(u"三"_s)}, {u"258.00"_s},
            {{}, day, {}});
        row("the first is settled", u"包房"_s, {Guest(u"一"_s, done), Guest(u"二"_s)}, {},
            {day, {}});
        row("bed by bed", u"散客"_s,
            {Guest(u"一"_s, shares), {}, Guest(u"三"_s, shares + done), Guest(u"四"_s, shares)},
            {u"110.00"_s, u"110.00"_s}, {day, {}, day, day});
        row("sharing one by one", u"包房"_s,
            {Guest(u"一"_s, u"<散住客人>1</散住客人>"_s), Guest(u"二"_s, u"<散住>1</散住>"_s),
             Guest(u"三"_s)},
            {u"258.00"_s, u"258.00"_s}, {day, day, {}});
        row("part of a settled status", u"长包"_s, {Guest(u"一"_s)}, {u"258.00"_s}, {day});
        row("across two of them", u"房,散"_s, {Guest(u"一"_s)}, {u"258.00"_s}, {day});
        row("more than a settled status", u"散客房"_s, {Guest(u"一"_s)}, {}, {{}});
        row("vacant by an empty status", {}, {Guest(u"一"_s)}, {}, {{}});
        row("13 digits", u"包房"_s, {Guest(u"一"_s, {}, u"2603042000001"_s)}, {}, {day});
        row("half of a cent", u"包房"_s,
            {Guest(u"一"_s, u"<入住时间>06:00</入住时间><确认房价>0.01</确认房价>"_s)}, {u"0.01"_s},
            {u"2026-03-04"_s});
        row("no price", u"包房"_s, {Guest(u"一"_s, u"<确认房价>面议</确认房价>"_s)}, {u"0.00"_s},
            {day});
        row("nobody", u"包房"_s, {}, {}, {});
        SetParam(u"Bjsx1", {});
        SetParam(u"Yjbj", u"6:00"_s);
        row("settings", u"包房"_s, {Guest(u"一"_s)}, {u"258.00"_s}, {u"2026-03-04"_s});
    }

    // Houses, guests and nights by chance, reckoned once more in days, minutes and cents.
    void nightsByChance() {
        struct Bed {
            int arrival, minute, cents;
            int settled = -1; // day; -1: never
        };
        TestHotel hotel;
        QRandomGenerator chance(20260305);
        const auto upTo = [&chance](int most) { return int(chance.bounded(most + 1)); };
        const auto text = [](int day) {
            return QDate(2026, 2, 25).addDays(day).toString(u"yyyy-MM-dd");
        };
        for (int house = 0; house < 12; ++house) {
            QList<RoomSpec> rooms;
            QList<QList<Bed>> beds;
            for (int room = 101; room <= 104; ++room) {
                const bool shared = upTo(1) == 0;
                rooms.append({QString::number(room), shared ? u"散客"_s : u"包房"_s});
                beds.append(QList<Bed>());
                QStringList guests;
                for (int bed = 0; bed <= upTo(2); ++bed) {
                    const Bed taken{upTo(3), 5 * 60 + upTo(9) * 20, upTo(40000)};
                    beds.last().append(taken);
                    guests.append(ValidGuest(
                        u"客"_s, kFolio, rooms.last().status,
                        u"<入住日期>%1</入住日期><入住时间>%2</入住时间><确认房价>%3.%4</确认房价>"_s
                            .arg(text(taken.arrival),
                                 QTime(0, 0).addSecs(60 * taken.minute).toString(u"HH:mm"))
                            .arg(taken.cents / 100)
                            .arg(taken.cents % 100, 2, 10, QChar(u'0'))));
                }
                LetIn(rooms.last().number, guests);
            }
            FillRooms(rooms);
            SaveProject(kLedger, kRoomCharges, {});
            SetParam(u"Yjbj", u"06:00"_s);
            SetParam(u"XYtks", u"07:00"_s);

            int cents = 0;
            Audit night;
            int day = 3;
            for (int audit = 0; audit < 5; ++audit, day += upTo(2)) {
                night.audit.auditDate = text(day);
                night.run();
                for (int room = 0; room < beds.size(); ++room) {
                    const qsizetype paying =
                        rooms[room].status == u"散客"_s ? beds[room].size() : 1;
                    for (qsizetype n = 0; n < paying; ++n) {
                        Bed& bed = beds[room][n];
                        const bool atDawn = bed.minute >= 360 && bed.minute <= 420;
                        if (bed.settled >= day)
                            continue;
                        if (bed.settled >= 0) {
                            cents += bed.cents;
                            ++bed.settled;
                        } else if (bed.minute <= 420) {
                            cents += atDawn ? (bed.cents + 1) / 2 : bed.cents;
                            bed.settled = bed.arrival;
                        } else {
                            cents += bed.arrival < day ? bed.cents : 0;
                            bed.settled = bed.arrival < day ? bed.arrival + 1 : bed.arrival;
                        }
                    }
                }
                qint64 posted = 0;
                for (const QString& amount : Charges())
                    posted += Money::FromText(amount).units();
                QCOMPARE(posted, qint64(cents) * 100);
                for (int room = 0; room < beds.size(); ++room) {
                    for (int bed = 0; bed < beds[room].size(); ++bed) {
                        const int settled = beds[room][bed].settled;
                        QCOMPARE(SettledThrough(rooms[room].number, bed + 1),
                                 settled < 0 ? QString() : text(settled));
                    }
                }
            }
        }
    }

    void aGuestOfTheSmallHours() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"包房"_s}});
        LetIn(u"101"_s, {Guest(u"一"_s, u"<入住时间>05:00</入住时间>"_s)});
        Audit night;
        const auto row = [&](const char* run, qsizetype charges, const QString& through) {
            night.run();
            Check(run, Charges().size(), charges);
            Check(run, SettledThrough(u"101"_s), through);
        };
        row("first", 1, u"2026-03-04"_s);
        row("second", 2, u"2026-03-05"_s);
        row("third", 2, u"2026-03-05"_s);
        night.audit.auditDate = u"2026-03-08"_s;
        row("missed nights", 3, u"2026-03-06"_s);
    }

    // Wherever a bed's text ends: no charge but by its own price, and the date if anything.
    void aBedThatIsCut() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"包房"_s}});
        const QString whole = Guest(u"王一"_s);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            LetIn(u"101"_s, {whole.left(length)});
            Audit night;
            night.run();
            QVERIFY(night.lines.size() <= 2);
            const QString bed = GetTag(GetKfrzxx(u"101"), u"客人01");
            QVERIFY(bed.startsWith(whole.left(length).section(u'>', 0, -2)));
        }
        for (const QString& amount : Charges())
            QVERIFY(amount == u"258.00" || amount == u"0.00");
    }

    void stops() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"包房"_s}, {u"102"_s, u"包房"_s}, {u"103"_s, u"包房"_s}});
        for (const QString& room : {u"101"_s, u"102"_s, u"103"_s})
            LetIn(room, {Guest(room)});
        for (const QString& folio : {kFolio, kOther})
            SaveRecord(OpenFolioFile(), folio_record::kProject, folio, u"<基本信息>甲</基本信息>");
        Audit night;
        QStringList told;
        night.audit.progress = [&](int done, int total) {
            told.append(u"%1/%2"_s.arg(done).arg(total));
            return done < 1;
        };
        QCOMPARE(night.run(), QStringList({u"    结算101房间的101的房费成功"_s,
                                           u" 2026-03-05 10:00:00夜审中断！"_s}));
        QCOMPARE(night.next, QString());
        night.run(u"2"_s);
        QCOMPARE(told, QStringList({u"0/3"_s, u"1/3"_s, u"0/2"_s, u"1/2"_s}));
        QCOMPARE(LoadJzhQd(), QStringList{kOther});
        QCOMPARE(SettledThrough(u"102"_s), QString());
    }

    // The line goes dead ahead of each write: the log says what is missing, the walk goes on, and the next
    // audit charges what the dates allow.
    void theServerGoesAway() {
        int cut = 0;
        const QString posted1 = u"    结算101房间的王一的房费成功"_s;
        const QString unposted1 = u"    结算101房间的王一的房费保存失败"_s;
        const QString posted2 = u"    结算102房间的李二的房费成功"_s;
        const QString unposted2 = u"    结算102房间的李二的房费保存失败"_s;
        const QString undated1 = u"    更新101房间的结算日期失败"_s;
        const QString undated2 = u"    更新102房间的结算日期失败"_s;
        const QString unread2 = u"    读取102房间的住客失败"_s;
        // Charges in the ledgers of 101 and 102 and in the journal, and so once more behind the next audit.
        const auto row = [&cut](const char* before, const QStringList& log,
                                const QList<qsizetype>& left, const QList<qsizetype>& next) {
            TestHotel hotel;
            FillRooms({{u"101"_s, u"包房"_s}, {u"102"_s, u"包房"_s}});
            LetIn(u"101"_s, {Guest(u"王一"_s)});
            LetIn(u"102"_s, {Guest(u"李二"_s, {}, kOther)});
            CutLine line(hotel.port());
            {
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(++cut);
                Audit night;
                Check(before, night.run(), log);
                Check(before, night.next, u"2"_s);
            }
            hotel.desk().use();
            const auto charges = [] {
                return QList{Charges().size(), Charges(kOtherLedger).size(),
                             Charges(kJournal).size()};
            };
            Check(before, charges(), left);
            Audit().run();
            Check(before, charges(), next);
            Check(before, SettledThrough(u"101"_s) + SettledThrough(u"102"_s),
                  u"2026-03-052026-03-05"_s);
        };
        row("ledger of 101", {unposted1, undated1, unread2}, {0, 0, 0}, {1, 1, 2});
        row("charge of 101", {unposted1, undated1, unread2}, {0, 0, 0}, {1, 1, 2});
        row("journal of 101", {unposted1, undated1, unread2}, {1, 0, 0}, {2, 1, 2});
        row("journal entry of 101", {unposted1, undated1, unread2}, {1, 0, 0}, {2, 1, 2});
        row("dates of 101", {posted1, undated1, unread2}, {1, 0, 1}, {2, 1, 3});
        row("ledger of 102", {posted1, unposted2, undated2}, {1, 0, 1}, {1, 1, 2});
        row("charge of 102", {posted1, unposted2, undated2}, {1, 0, 1}, {1, 1, 2});
        row("journal of 102", {posted1, unposted2, undated2}, {1, 1, 1}, {1, 2, 2});
        row("journal entry of 102", {posted1, unposted2, undated2}, {1, 1, 1}, {1, 2, 2});
        row("dates of 102", {posted1, posted2, undated2}, {1, 1, 2}, {1, 2, 3});
        row("nothing more", {posted1, posted2}, {1, 1, 2}, {1, 1, 2});
    }

    void aFailureIsTriedTwiceAndNothingElseStops() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"包房"_s}});
        LetIn(u"101"_s, {Guest(u"王一"_s)});
        CutLine line(hotel.port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        line.reset();
        line.spoilWrite(5); // the dates
        Audit night;
        QCOMPARE(night.run(), QStringList{u"    结算101房间的王一的房费成功"_s});
        QCOMPARE(line.writes(), 6);
        QCOMPARE(SettledThrough(u"101"_s), u"2026-03-05"_s);
        hotel.desk().use();
        night.audit.statuses.clear();
        QCOMPARE(night.run(), QStringList{u"    没有读到结算房态"_s});
        hotel.stopServer();
        QCOMPARE(night.run(), QStringList{u"    没有读到客房清单"_s});
        QCOMPARE(night.next, u"2"_s);
    }

    void commandsABedAreConstant() {
        TestHotel hotel;
        CutLine line(hotel.port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        const auto commands = [&line](int count) {
            QList<RoomSpec> rooms;
            for (int n = 0; n < count; ++n) {
                rooms.append({QString::number(201 + n), u"包房"_s});
                LetIn(rooms.last().number, {Guest(u"客"_s)});
            }
            FillRooms(rooms);
            line.reset();
            Audit().run();
            return line.requests();
        };
        const int one = commands(1);
        QCOMPARE(commands(2) - one, 10); // the stay 2, the charge 8
        QCOMPARE(commands(12) - one, 110);
    }
};

HOTEL_TEST(NightAuditTest)
#include "test_night_audit.moc"
