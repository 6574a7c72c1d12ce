
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tools/aids/identity_number.h"

using namespace hotel;

namespace {

const QDate kToday(2026, 3, 5);

QString Said(const std::optional<IdentityNumber>& holder) {
    if (!holder)
        return u"-"_s;
    return QStringList{holder->province,  holder->city, holder->county,
                       holder->birthDate, holder->age,  holder->sex}
        .join(u'|');
}

} // namespace

class IdentityNumberTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void analyses() {
        const auto row = [](const char* name, const QString& number, const QString& said) {
            const AreaTable areas =
                AreaTable::FromText(FileText(QStringLiteral(HOTEL_TREE "/install/sfzcode.dll")));
            Check(name, Said(AnalyseIdentityNumber(number, kToday, areas)), said);
        };
        row("15 digits", u"330102850101123"_s, u"浙江省|杭州市|上城区|1985-01-01|41|男"_s);
        row("15 digits, even", u"330102850101122"_s, u"浙江省|杭州市|上城区|1985-01-01|41|女"_s);
        row("18 with X", u"11010819900305451X"_s, u"北京市|市辖区|海淀区|1990-03-05|36|男"_s);
        row("birthday tomorrow", u"110108199003064520"_s,
            u"北京市|市辖区|海淀区|1990-03-06|35|女"_s);
        row("born this month", u"110108202603014520"_s, u"北京市|市辖区|海淀区|2026-03-01|0|女"_s);
        row("born tomorrow", u"110108202603064520"_s, u"北京市|市辖区|海淀区|2026-03-06|0|女"_s);
        row("17 digits only", u"11010819900305451"_s, u"北京市|市辖区|海淀区|1990-03-05|36|男"_s);
        row("code no longer given out", u"512921196807150017"_s, u"四川省|||1968-07-15|57|男"_s);
        row("county merged", u"110103197912310028"_s, u"北京市|市辖区|崇文区|1979-12-31|46|女"_s);
        row("residence permit", u"830000198801010011"_s, u"台湾省|||1988-01-01|38|男"_s);
        row("16 digits", u"1101081990030545"_s, u"-"_s);
        row("15 with a letter", u"33010285010112X"_s, u"-"_s);
        row("letter among the 17", u"1101081990030545X1"_s, u"-"_s);
        row("full-width digit", u"１10108199003054510"_s, u"-"_s);
        row("blank ahead", u" 110108199003054510"_s, u"-"_s);
        row("empty", u""_s, u"-"_s);
    }

    void readsTableLines() {
        const AreaTable areas = AreaTable::FromText(u"11  北京市\r\n1101 市　辖区\n1102 县\n"
                                                    "110101\n110102 西城区\n1101020 太长\n");
        QCOMPARE(areas.name(u"11"), u"北京市"_s);
        QCOMPARE(areas.name(u"1101"), u"市辖区"_s);
        QCOMPARE(areas.name(u"1102"), QString());
        QCOMPARE(areas.name(u"110101"), QString());
        QCOMPARE(areas.name(u"110102"), u"西城区"_s);
    }

    void turnsFullWidthToPlain() { QCOMPARE(ToHalfWidth(u"１１０１08Ｘｘ。"), u"110108Xx。"_s); }
};

HOTEL_TEST(IdentityNumberTest)

#include "test_identity_number.moc"
