#include <QCoreApplication>
#include <QTest>

#include "record/code_page.h"
#include "record/literals.h"
#include "telephone/accounting_config.h"
#include "telephone/billing_files.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

using Taken = AccountingConfig::Taken;

QString File(const QStringList& lines) {
    return u"<计费参数>"_s + lines.join(u"\r\n"_s) + u"</计费参数>"_s;
}

} // namespace

class AccountingConfigTest : public QObject {
    Q_OBJECT

    WorkingFolder folder_;

private Q_SLOTS:
    void namesAllKeysInTheirOrder() {
        QStringList names;
        for (const AccountingKey& key : AccountingKeys())
            names.append(key.name.toString());
        QCOMPARE(
            names.join(u' '),
            u"AUTOCHECK ACCOUNTDAY ACCOUNTNUM BAUDRATE CARDS CARTON CHAINCMD CHAINFILE "
            u"CHAININTERVAL "
            "CHECKFEEMODE CODECHECK CODEDISPLENG COLORMODE COMPORT COMM_MON COMM_MODEM COMM_CHAIN "
            "CURRDAY "
            "COMM_LOG CURRTIME DBSMODE DBSFILE DBSFILTER DBSNUMCHECK DBSPATH DIALCODEFILE "
            "DIALRECMAXNUM "
            "DISCOUNT DISPMODE DISCARDCODE DISCARDLESSCODE ERRORDELAY FEEFILE FEELIMITWAIT HALFDEF "
            "HALFFEE "
            "HIDECODE HOTEL HOTELFILE HOTELFILTER HOTELNUMCHECK HOTELZEROIGNORE HOTELPATH INTF "
            "IMONIT "
            "IMMDNUMCHECK IMMDMODE IMMDFILE IMMDFILTER IMMDZEROIGNORE INTF168 IOADDR LINEPRINTER "
            "LOCKED "
            "MODE905 MONTHFEEMODE MAXSTEP MULTPTASK NATIONAL PASSWORDENABLE PASSWORDNUM PAYOK "
            "PRNTMODE "
            "QUITEMODE RENTMODE SCREENSAVE SENDPASSWORD SORTFILEMODE STATIONFILE STAMAXNUM "
            "STAMAXLENG "
            "STAMINLENG STARTGET STATIONNEWFORM TABLEFILE TEMPPATH TIMEMODIFY TIMETITLE UNDEFDISP UNITNAME"_s);
    }

    void holdsValuesInTheirRange() {
        const auto row = [](const char* key, const QString& line, const QString& value) {
            const AccountingConfig config(File({line}));
            Check(qPrintable(line), config.value(QString::fromLatin1(key)), value);
        };
        for (const auto& [key, value] : std::initializer_list<std::pair<const char*, QString>>{
                 {"AUTOCHECK", u"1800"_s},
                 {"BAUDRATE", u"2400"_s},
                 {"CODEDISPLENG", u"17"_s},
                 {"CHAININTERVAL", u"10"_s},
                 {"DISPMODE", u"511"_s},
                 {"DBSFILE", u"ACCNT.DBF"_s},
                 {"DBSPATH", u".\\"_s},
                 {"HOTELPATH", u".\\"_s},
                 {"TEMPPATH", u".\\"_s},
                 {"DBSFILTER", u"511"_s},
                 {"HOTELFILTER", u"511"_s},
                 {"IMMDFILTER", u"511"_s},
                 {"HOTELFILE", u"电话费"_s},
                 {"IMMDFILE", u"COM2:1200,N,8,1,CS100,DS100,CD"_s},
                 {"LINEPRINTER", u"LPT1:"_s},
                 {"STAMAXNUM", u"1000"_s},
                 {"FEEFILE", u"FEE.QVR"_s},
                 {"STATIONFILE", u"STATION.QVR"_s},
                 {"DIALCODEFILE", u"yyMMdd.QVR"_s},
                 {"COMPORT", {}},
                 {"UNITNAME", {}}})
            row(key, QString::fromLatin1(key), value); // no "=": the default
        struct Range {
            const char* key;
            int least;
            int greatest;
            QString otherwise;
        };
        for (const Range& range : std::initializer_list<Range>{{"AUTOCHECK", 0, 30000, u"1800"_s},
                                                               {"ACCOUNTDAY", 1, 31, {}},
                                                               {"CODEDISPLENG", 1, 17, u"17"_s},
                                                               {"CHAININTERVAL", 0, 29999, u"10"_s},
                                                               {"DISPMODE", 0, 1024, u"511"_s},
                                                               {"COMPORT", 1, 2, {}},
                                                               {"DBSMODE", 0, 254, {}},
                                                               {"DBSFILTER", 0, 1023, u"511"_s},
                                                               {"HOTELFILTER", 0, 1023, u"511"_s},
                                                               {"IMMDFILTER", 0, 1023, u"511"_s},
                                                               {"HOTEL", 0, 4095, {}},
                                                               {"HOTELZEROIGNORE", 0, 4095, {}},
                                                               {"IMMDZEROIGNORE", 0, 4095, {}},
                                                               {"STAMAXNUM", 0, 1000, u"1000"_s},
                                                               {"STAMAXLENG", 1, 7, {}},
                                                               {"STAMINLENG", 1, 7, {}},
                                                               {"MAXSTEP", 0, 100, {}},
                                                               {"ERRORDELAY", 0, 1799, {}},
                                                               {"FEELIMITWAIT", 0, 17999, {}},
                                                               {"SENDPASSWORD", 0, 30, {}}}) {
            const QString key = QString::fromLatin1(range.key);
            const auto line = [&](int number) { return u"%1=%2"_s.arg(key).arg(number); };
            row(range.key, line(range.least), QString::number(range.least));
            row(range.key, line(range.greatest), QString::number(range.greatest));
            row(range.key, line(range.least - 1), range.otherwise);
            row(range.key, line(range.greatest + 1), range.otherwise);
        }
        row("BAUDRATE", u"BAUDRATE=96"_s, u"9600"_s);
        row("BAUDRATE", u"BAUDRATE=3"_s, u"300"_s);
        row("BAUDRATE", u"BAUDRATE=1200"_s, u"1200"_s);
        row("BAUDRATE", u"BAUDRATE=19200"_s, u"2400"_s);
        row("AUTOCHECK", u" autocheck = 60 "_s, u"60"_s);
        row("AUTOCHECK", u"AUTOCHECK=0000060"_s, u"0000060"_s);
        row("AUTOCHECK", u"AUTOCHECK=00000060"_s, u"1800"_s); // eight characters are no number
        row("AUTOCHECK", u"AUTOCHECK="_s, u"1800"_s);
        row("FEEFILE", u"FEEFILE="_s, u"FEE.QVR"_s);
        row("DBSPATH", u"DBSPATH=D:\\ACC"_s, u"D:\\ACC\\"_s);
        row("DBSPATH", u"DBSPATH=D:\\ACC\\"_s, u"D:\\ACC\\"_s);
        row("UNITNAME", u"UNITNAME=A=B"_s, u"A=B"_s);
        row("UNITNAME", u"UNITNAME=<标签>"_s, {});
        row("UNITNAME", u"UNITNAME="_s + QString(10000, u'长'), QString(10000, u'长'));
        row("FEEFILE", u"\x01\x02 FEEFILE=A"_s, u"FEE.QVR"_s);
        QCOMPARE(AccountingConfig().number(u"COMPORT"), std::nullopt);
        QCOMPARE(AccountingConfig().number(u"STAMAXNUM"), 1000);
    }

    void keepsTenLinesOfAKey() {
        const auto half = [](int n) {
            return u"HALFFEE=1111111 1111111  0000%1"_s.arg(n, 4, 10, QLatin1Char('0')) +
                   u"0500000"_s;
        };
        AccountingConfig config;
        QCOMPARE(config.take(half(1)), Taken::Added);
        QCOMPARE(config.take(half(1)), Taken::Standing);
        QCOMPARE(config.take(half(1).chopped(1)), Taken::NoValue); // 31 characters
        QCOMPARE(config.take(half(1) + u'0'), Taken::NoValue);
        for (int n = 2; n <= 10; ++n)
            QCOMPARE(config.take(half(n)), Taken::Added);
        QCOMPARE(config.take(half(11)), Taken::Full);
        QCOMPARE(config.take(half(10)), Taken::Standing);
        QCOMPARE(config.values(u"HALFFEE").size(), 10);
        QCOMPARE(config.values(u"HALFFEE").first(), u"1111111 1111111  000000010500000"_s);
        QCOMPARE(config.take(u"DISCOUNT=123456789"), Taken::Added);
        QCOMPARE(config.take(u"DISCOUNT=12345678"), Taken::NoValue);
        QCOMPARE(config.take(u"HALFDEF=0"), Taken::NoValue);
        QCOMPARE(config.take(u"HALFDEF=1231"), Taken::Added);
        QCOMPARE(AccountingConfig(File({u"HALFDEF=1"_s})).values(u"HALFDEF"), QStringList(u"1"_s));
        QCOMPARE(config.take(u"HALFDEF=1232"), Taken::NoValue);
        QCOMPARE(config.take(u"COMPORT=1"), Taken::Added);
        QCOMPARE(config.take(u"comport=2"), Taken::Replaced);
        QCOMPARE(config.take(u"COMPORT=3"), Taken::NoValue);
        QCOMPARE(config.value(u"COMPORT"), u"2"_s);
        QCOMPARE(config.take(u"FALSCH=1"), Taken::NoKey);
        QCOMPARE(config.take(u"COMPORT"), Taken::NoKey);
        QCOMPARE(config.lines().mid(10),
                 QStringList({u"DISCOUNT=123456789"_s, u"HALFDEF=1231"_s, u"COMPORT=2"_s}));
    }

    void readsAndWritesTheFile() {
        QStringList lines = {u"HOTELFILE=话费"_s, {}, {}, u"无等号"_s};
        while (lines.size() < 10)
            lines.append(QString());
        lines.append(u"COMPORT=1"_s); // line 11
        lines.append(QString());
        lines.append(u"AUTOCHECK=5"_s);
        AccountingConfig config(File(lines));
        QCOMPARE(config.lines(), QStringList({u"HOTELFILE=话费"_s, u"COMPORT=1"_s}));
        QStringList many(1001, u"x"_s);
        many[999] = u"COMPORT=1"_s;
        many[1000] = u"COMPORT=2"_s; // is not read any more
        QCOMPARE(AccountingConfig(File(many)).value(u"COMPORT"), u"1"_s);
        QCOMPARE(AccountingConfig(u"COMPORT=1").lines(), QStringList());

        const QString path = folder_.filePath(u"Accnt.Cfg"_s);
        QVERIFY(ReadAccountingFile(path).isEmpty());
        QVERIFY(WriteAccountingFile(path, config));
        QCOMPARE(FileBytes(path).left(10),
                 QByteArray("<\xBC\xC6\xB7\xD1\xB2\xCE\xCA\xFD>")); // CP936
        QCOMPARE(AccountingConfig(ReadAccountingFile(path)).lines(), config.lines());
        WriteBytes(path, "<计费参数>\nhotelfile=电话\nCOMPORT=2\n</计费参数>");
        QCOMPARE(AccountingConfig(ReadAccountingFile(path)).lines(),
                 QStringList({u"HOTELFILE=电话"_s, u"COMPORT=2"_s}));
        QByteArray rubbish(5000, '\0');
        for (int n = 0; n < rubbish.size(); ++n)
            rubbish[n] = char(n * 37);
        WriteBytes(path, rubbish);
        QCOMPARE(AccountingConfig(ReadAccountingFile(path)).lines(), QStringList());
        WriteBytes(path, EncodeForWire(u"<计费参数>\nCOMPORT=1\n"_s) + rubbish +
                             EncodeForWire(u"\n</计费参数>"_s));
        QCOMPARE(AccountingConfig(ReadAccountingFile(path)).lines(), QStringList(u"COMPORT=1"_s));
        QStringList bands;
        for (int n = 1; n <= 12; ++n)
            bands.append(u"HALFFEE=1111111 1111111  "_s +
                         QString::number(n).rightJustified(4, u'0') + u"06590500000"_s);
        QCOMPARE(AccountingConfig(File(bands)).lines(), bands.mid(0, 10));
        QVERIFY(!WriteAccountingFile(folder_.filePath(u"none/Accnt.Cfg"_s), config));
    }

    void wantsItsConversionFile() {
        const QString path = WriteBytes(folder_.filePath(u"fj.txt"_s), "1");
        bool missing = false;
        QCOMPARE(AccountingConfig(File({u"TABLEFILE="_s + path}), &missing).value(u"TABLEFILE"),
                 path);
        QVERIFY(!missing);
        QCOMPARE(AccountingConfig(File({u"TABLEFILE=没有.txt"_s}), &missing).lines(),
                 QStringList());
        QVERIFY(missing);
    }

    void namesTheFilesOnTheServer() {
        const BillingFiles files;
        QCOMPARE(files.rateFile(), u"Bill\\FEE.QVR"_s);
        QCOMPARE(files.extensionFile(), u"Bill\\STATION.QVR"_s);
        QCOMPARE(files.dayFile(QDate(2026, 3, 5)), u"Bill\\26\\03\\260305.QVR"_s);
        const BillingFiles others(AccountingConfig(File({u"FEEFILE=a.qvr"_s, u"STATIONFILE=b.qvr"_s,
                                                         u"DIALCODEFILE=MMdd.qvr"_s})),
                                  u"x\\y"_s);
        QCOMPARE(others.rateFile(), u"x\\y\\a.qvr"_s);
        QCOMPARE(others.extensionFile(), u"x\\y\\b.qvr"_s);
        QCOMPARE(others.dayFile(QDate(2026, 3, 5)), u"x\\y\\26\\03\\0305.qvr"_s);
    }
};

HOTEL_TEST(AccountingConfigTest)

#include "test_accounting_config.moc"
