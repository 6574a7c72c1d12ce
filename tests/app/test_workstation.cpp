#include "app/workstation.h"

#include <QApplication>
#include <QTemporaryDir>

#include "screen/messages.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"

using namespace hotel;

// The program put together, as main() has it.
class WorkstationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        SetSiteParameters({});
        ResetParameters();
    }

    void configurationIsTaken() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn);
        MessageRecorder messages;
        Workstation workstation(
            *qApp, configuration(hotel.port(), u"<Yhdwmc>海天宾馆</Yhdwmc><AutoFy>2</AutoFy>"_s));
        QCOMPARE(Param(u"Yhdwmc"), u"海天宾馆"_s);
        QVERIFY(!workstation.linkWindow().isVisible());
        QVERIFY(messages.entries().isEmpty());
        workstation.start();
        QVERIFY(workstation.login().isVisible());
        QCOMPARE(messages.entries().size(), 1);
        QCOMPARE(messages.entries().first().title, u"配置文件"_s);
        QCOMPARE(messages.last(), u"完成登记后进入费用管理（AutoFy）：“2”没有采用，只能是0或1。"_s);
    }

private:
    QString configuration(int port, const QString& more) {
        const QString text = u"<端口地址>%1</端口地址>%2"_s.arg(port).arg(more);
        return WriteBytes(folder_.filePath(u"Hotel.Cfg"_s), text.toUtf8());
    }

    QTemporaryDir folder_;
};

HOTEL_TEST(WorkstationTest)

#include "test_workstation.moc"
