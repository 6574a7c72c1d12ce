#include "record/code_page.h"
#include "shell/configuration.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"

using namespace hotel;

class ConfigurationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parsed() {
        const QString home = u"127.0.0.1"_s;
        const auto row = [](const char* name, const QString& text, const QString& address, int port,
                            bool debug) {
            const Configuration configuration = ParseConfiguration(text);
            Check(name, configuration.address, address);
            Check(name, configuration.port, port);
            Check(name, configuration.debugMode, debug);
        };
        row("empty", {}, home, 6801, false);
        row("all",
            u"<IP地址>192.168.1.10</IP地址>\r\n<端口地址>7000</端口地址>\r\n<调试方式>1</调试方式>"_s,
            u"192.168.1.10"_s, 7000, true);
        row("seven characters of address", u"<IP地址>1.1.1.1</IP地址>"_s, home, 6801, false);
        row("eight characters of address", u"<IP地址>1.1.1.10</IP地址>"_s, u"1.1.1.10"_s, 6801,
            false);
        row("two digits of port", u"<端口地址>80</端口地址>"_s, home, 6801, false);
        row("three digits of port", u"<端口地址>800</端口地址>"_s, home, 800, false);
        row("port with words behind", u"<端口地址>7001号</端口地址>"_s, home, 7001, false);
        row("port beyond all ports", u"<端口地址>99999</端口地址>"_s, home, 6801, false);
        row("negative port", u"<端口地址>-70</端口地址>"_s, home, 6801, false);
        row("tag broken over lines", u"<IP地\r\n址>192.168.1.10</IP地址>"_s, u"192.168.1.10"_s,
            6801, false);
        QVERIFY(ParseConfiguration(u"<校准本机时钟>1</校准本机时钟>").setsMachineClock);
        QVERIFY(!ParseConfiguration(u"<校准本机时钟>0</校准本机时钟>").setsMachineClock);
        QVERIFY(!ParseConfiguration({}).setsMachineClock);
        row("debug minus one", u"<调试方式>-1</调试方式>"_s, home, 6801, true);
        row("unclosed tags", u"<IP地址>192.168.1.10<端口地址>7000"_s, home, 6801, false);
    }

    void sitesOwnValues() {
        const Configuration configuration = ParseConfiguration(
            u"<Yhdwmc>海天宾馆</Yhdwmc>\r\n<AutoFy>1</AutoFy>\n<KfxxLj>rooms</KfxxLj>\n"
            "<Bjsx1>14:00</Bjsx1><ErrPause>on</ErrPause><Jzhxx></Jzhxx><Nobody>1</Nobody>");
        QCOMPARE(configuration.parameters, (QHash<QString, QString>{{u"Yhdwmc"_s, u"海天宾馆"_s},
                                                                    {u"AutoFy"_s, u"1"_s},
                                                                    {u"Bjsx1"_s, u"14:00"_s}}));
        QCOMPARE(configuration.refused,
                 (QStringList{u"结账号信息库（Jzhxx）：“”没有采用，不能为空。"_s,
                              u"客房信息存放路径（KfxxLj）：“rooms”没有采用，必须以“\\”结尾。"_s,
                              u"考勤错误暂停（ErrPause）：“on”没有采用，只能是0或1。"_s}));
        const Configuration none = ParseConfiguration(u"<IP地址>192.168.1.10</IP地址>");
        QVERIFY(none.parameters.isEmpty() && none.refused.isEmpty());
    }

    void missingOrUnreadableFileGivesDefaults() {
        QTemporaryDir folder;
        for (const QString& path : {folder.filePath(u"Hotel.Cfg"_s), folder.path()}) {
            const Configuration configuration = ReadConfiguration(path);
            QCOMPARE(configuration.address, u"127.0.0.1"_s);
            QCOMPARE(configuration.port, 6801);
            QVERIFY(!configuration.debugMode);
        }
    }

    void fileInTheCodePageIsRead() {
        QTemporaryDir folder;
        const QString text = u"<IP地址>192.168.1.10</IP地址>"_s;
        for (const QByteArray& bytes : {EncodeForWire(text), text.toUtf8()}) {
            const QString path = WriteBytes(folder.filePath(u"Hotel.Cfg"_s), bytes);
            QCOMPARE(ReadConfiguration(path).address, u"192.168.1.10"_s);
        }
    }

    void wholeCommandLineIsThePath() {
        QCOMPARE(ConfigurationPath({u"hotel"_s}, u"/opt/hotel"_s), u"/opt/hotel/Hotel.Cfg"_s);
        QCOMPARE(ConfigurationPath({u"hotel"_s, u"/home/front"_s, u"desk/a.cfg"_s}, u"/opt"_s),
                 u"/home/front desk/a.cfg"_s);
    }
};

HOTEL_TEST(ConfigurationTest)

#include "test_configuration.moc"
