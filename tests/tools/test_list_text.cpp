#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "record/literals.h"
#include "tests/hotel_test.h"
#include "tools/list_text.h"

namespace hotel {

class ListTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A Chinese character takes two columns; the longest cell keeps its gap.
    void alignsColumns() {
        TextTable table({u"编号"_s, u"内容"_s});
        table.addRow({u"01"_s, u"VIP客房"_s});
        table.addRow({u"100000"_s, u"é"_s});
        QCOMPARE(AlignedText(table), u"编号    内容     \r\n"
                                     "01      VIP客房  \r\n"
                                     "100000  é       \r\n"_s);
    }

    void savesBelowFoldersWithBackslashes() {
        QTemporaryDir folder;
        const QString name = folder.path() + u"\\Txt\\26\\房态260305.txt"_s;
        QVERIFY(SaveText(name, u"客房\r\n"_s));
        QFile file(folder.path() + u"/Txt/26/房态260305.txt"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()), u"客房\r\n"_s);
    }

    void tellsWhenNoFileCanBeMade() {
        QTemporaryDir folder;
        QVERIFY(!SaveText(folder.path(), u"x"_s));
    }
};

HOTEL_TEST(ListTextTest)

} // namespace hotel

#include "test_list_text.moc"
