#include "house/folios/folio.h"
#include "house/guests/guest_form.h"
#include "house/guests/guest_text.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QDateTime kNow(QDate(2026, 3, 5), QTime(14, 5, 9));

QString Field(QStringView tag, const QString& value) {
    return u"<"_s + tag + u">"_s + value + u"</"_s + tag + u">"_s;
}

} // namespace

class GuestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lacks() {
        const auto row = [](const char* name, const QString& changes, int lacks) {
            Check(name, TestKrRecFail(ValidGuest(u"王一"_s, u"260305140509"_s, u"包房"_s, changes)),
                  lacks);
        };
        const QString card = u"<证件种类>身份证</证件种类>"_s;
        const auto number = [card](const QString& digits) {
            return card + Field(guest_text::kDocumentNumber, digits);
        };
        row("nothing", {}, 0);
        row("name", u"<客人姓名></客人姓名>"_s, int(kLacksName));
        row("passport of any length", u"<证件号码>1</证件号码>"_s, 0);
        row("card, 15", number(u"110101850101123"_s), 0);
        row("card, 15 with a letter", number(u"11010185010112X"_s), int(kLacksDocumentNumber));
        row("card, 18 with X", number(u"11010119850101123X"_s), 0);
        row("card, 18 with X inside", number(u"1101011985010X1234"_s), int(kLacksDocumentNumber));
        row("card, 17", number(u"11010119850101123"_s), int(kLacksDocumentNumber));
        row("card, full-width digits", number(u"１１０１０１８５０１０１１２３"_s),
            int(kLacksDocumentNumber));
        row("status", u"<房态></房态>"_s, int(kLacksStatus));
        row("price", u"<确认房价></确认房价>"_s, int(kLacksPrice));
        row("several", u"<客人姓名></客人姓名><房态></房态>"_s, kLacksName + kLacksStatus);
    }
    void anEmptyBedLacksAllButANumber() { QCOMPARE(TestKrRecFail({}), 63 - kLacksDocumentNumber); }

    void writingOrderKeepsUnknownFields() {
        const QString mixed =
            u"<确认房价>1.00</确认房价><结算日期>2026-03-05</结算日期><房间号>101</房间号>"_s;
        QCOMPARE(InWritingOrder(mixed).remove(kCrLf),
                 u"<房间号>101</房间号><确认房价>1.00</确认房价><结算日期>2026-03-05</结算日期>"_s);
    }

    // A party is typed once: what the first guest brought stays on the form for the next one.
    void formCarriesOver() {
        const QString empty = u"<房间号>102</房间号><客房类型>标准双床房</客房类型>"_s;
        const QString form =
            u"<房间号>101</房间号><客人姓名>王一</客人姓名><结账号>260305120000</结账号>"
            "<年龄>40</年龄><付费客人>1</付费客人><工作单位>城建公司</工作单位><房态>团队</房态>"
            "<客房类型>标准双床房</客房类型><房价种类>团队价</房价种类>"
            "<确认房价>198.00</确认房价>"_s;
        const auto row = [&](const QString& guest, QStringView tag, const QString& shown) {
            Check(qUtf8Printable(guest + tag), GetTag(GuestForForm(guest, form, kNow), tag), shown);
        };
        row(empty, guest_text::kFolio, u"260305120000"_s);
        row(empty, guest_text::kEmployer, u"城建公司"_s);
        row(empty, guest_text::kStatus, u"团队"_s);
        row(empty, guest_text::kPrice, u"198.00"_s);
        row(empty, guest_text::kName, {});
        row(empty, guest_text::kAge, {});
        row(empty, guest_text::kPays, {});
        row(empty, guest_text::kDocumentKind, u"身份证"_s);
        row(empty + u"<工作单位>铁路局</工作单位>"_s, guest_text::kEmployer, u"铁路局"_s);
        row(empty + u"<结账号>260304090000</结账号>"_s, guest_text::kFolio, u"260304090000"_s);
        row(u"<客房类型>豪华套房</客房类型>"_s, guest_text::kPrice, {});
        row(u"<房态>散客合住</房态>"_s, guest_text::kSharesRoom, u"1"_s);
    }
    void firstGuestOpensAFolioAndPays() {
        const QString shown = GuestForForm(u"<床位>1</床位>", NewGuestForm(kNow), kNow);
        QCOMPARE(GetTag(shown, guest_text::kFolio), u"260305140509"_s);
        QCOMPARE(GetTag(shown, guest_text::kPays), u"1"_s);
        QCOMPARE(GetTag(shown, guest_text::kStatus), u"包房"_s);
        QCOMPARE(GetTag(shown, guest_text::kArrivalTime), u"14:05"_s);
        QCOMPARE(GetTag(shown, guest_text::kDeparture), u"2026-03-06"_s);
    }

    void pasteKeepsRoomBedAndPayer() {
        const QString copied = CopyKr(u"<房间号>101</房间号><客人姓名>王一</客人姓名>"
                                      "<床位>1</床位><付费客人>1</付费客人>");
        const QString form = u"<房间号>102</房间号><客人姓名>李二</客人姓名><床位>2</床位>"
                             "<年龄>30</年龄>"_s;
        QCOMPARE(PasteKr(form, copied).remove(kCrLf),
                 u"<房间号>102</房间号><客人姓名>王一</客人姓名><床位>2</床位>"_s);
    }

    void steps() {
        // Told is "room.guest", " stored", or the words of the refusal.
        const auto row = [](FormMove move, int room, int guest, bool complete,
                            const QString& told) {
            const FormStep step = DecideFormStep(move, {room, guest}, 3, 2, complete);
            const QString to = u"%1.%2"_s.arg(step.to.room).arg(step.to.guest);
            Check(qUtf8Printable(told),
                  step.refusal ? step.refusal->words : to + (step.store ? u" stored" : u""), told);
        };
        const QString notNext = u"客人的主要信息不全，不能继续下一位"_s;
        const QString notNextRoom = u"第一个房间的客人都没有正确输入，不能输入下一个房间"_s;
        row(FormMove::NextGuest, 1, 1, true, u"1.2 stored"_s);
        row(FormMove::NextGuest, 1, 1, false, notNext);
        row(FormMove::NextGuest, 1, 2, true, u"1.2 stored"_s); // the last bed
        row(FormMove::LastGuest, 1, 2, false, u"1.1 stored"_s);
        row(FormMove::LastGuest, 1, 1, true, u"1.1 stored"_s);
        row(FormMove::NextRoom, 1, 1, false, notNextRoom);
        row(FormMove::NextRoom, 1, 2, true, u"2.1 stored"_s);
        row(FormMove::NextRoom, 2, 2, false, u"3.1"_s);
        row(FormMove::NextRoom, 3, 1, true, u"3.1 stored"_s);
        row(FormMove::LastRoom, 3, 2, false, u"2.1"_s);
        row(FormMove::LastRoom, 1, 2, false, u"1.2"_s);
    }

    void ages() {
        const auto row = [](const QString& typed, const QString& kept, bool warns) {
            const AgeCheck check = CheckAge(typed);
            Check(qUtf8Printable(typed), check.age, kept);
            Check(qUtf8Printable(typed), check.notice.has_value(), warns);
        };
        row({}, {}, false);
        row(u"1"_s, u"1"_s, false);
        row(u"79"_s, u"79"_s, false);
        row(u"80"_s, u"80"_s, true);
        row(u"119"_s, u"119"_s, true);
        row(u"120"_s, {}, true);
        row(u"0"_s, {}, true);
        row(u"abc"_s, {}, true);
    }

    void arrivalTimes() {
        const auto row = [](const QString& typed, const QString& time) {
            Check(qUtf8Printable(typed), ArrivalTime(typed, kNow.time()), time);
        };
        row(u"9:5"_s, u"09:05"_s);
        row(u"23:59:30"_s, u"23:59"_s);
        row(u"0:00"_s, u"00:00"_s);
        row({}, u"14:05"_s);
        row(u"9:"_s, u"14:05"_s);
        row(u"24:00"_s, u"14:05"_s);
        row(u"1:2:3:4"_s, u"14:05"_s);
        row(u"noon"_s, u"14:05"_s);
    }

    void departures() {
        const QDate arrival(2026, 2, 27);
        QCOMPARE(DepartureDate(u"3", arrival), u"2026-03-02"_s);
        QCOMPARE(DepartureDate(u"2026", arrival), u"2026"_s); // no count of nights
        QCOMPARE(DepartureDate(u"3", QDate()), u"3"_s);
        QCOMPARE(DepartureDate(u"2026-03-08", arrival), u"2026-03-08"_s);
    }

    void birthdays() {
        const auto row = [](const char* name, const QString& remark, const QString& birthDate,
                            QDate today, const QString& result) {
            Check(name, WithBirthday(remark, birthDate, today), result);
        };
        const QDate march5(2026, 3, 5);
        const QString none;
        row("today", none, u"1985-03-05"_s, march5, u"生日:2026-03-05"_s);
        row("in two days", u"高楼层"_s, u"1985-03-07"_s, march5, u"高楼层; 生日:2026-03-07"_s);
        row("in three days", none, u"1985-03-08"_s, march5, none);
        row("yesterday", none, u"1985-03-04"_s, march5, none);
        row("January from December", none, u"1985-01-01"_s, QDate(2026, 12, 31), none);
        row("leap day", none, u"1984-02-29"_s, QDate(2026, 2, 28), none);
        row("told already", u"生日:2026-03-05"_s, u"1985-03-05"_s, march5, u"生日:2026-03-05"_s);
    }

    void photographNames() {
        QCOMPARE(DocumentPhotographName(u"1234"), QString());
        QCOMPARE(DocumentPhotographName(u"P1234"), u"P1234.jpg"_s);
        QCOMPARE(PortraitName(u"王", kNow), QString());
        QCOMPARE(PortraitName(u"王一", kNow), u"王一2603051405.jpg"_s);
    }

    void folioNumbers() {
        const auto row = [](const char* name, const QString& text, bool valid) {
            Check(name, IsFolioNumber(text), valid);
        };
        row("clock", u"260305140509"_s, true);
        row("zeros and 1", u"000000000001"_s, true);
        row("11 digits", u"26030514050"_s, false);
        row("a letter", u"26030514050A"_s, false);
        row("a power", u"1e0000000005"_s, false);
        row("a sign", u"-26030514050"_s, false);
        row("full-width", u"２６０３０５１４０５０９"_s, false);
    }
};

HOTEL_TEST(GuestTest)
#include "test_guest.moc"
