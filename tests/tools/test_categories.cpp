#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tools/categories.h"

using namespace hotel;

namespace {

QString Row(int number, const QString& entry, const QString& key = u" "_s) {
    const QString name = CategoryRowTag(number);
    return u'<' + name + u"><内容>"_s + entry + u"</内容><快捷键>"_s + key + u"</快捷键></"_s +
           name + u'>';
}

QString Rows(int count) {
    QStringList rows;
    for (int n = 1; n <= count; ++n)
        rows.append(Row(n, u"第%1项"_s.arg(n)));
    return rows.join(kCrLf);
}

} // namespace

class CategoriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEntries() {
        const auto row = [](const char* name, const QString& text, const QStringList& entries) {
            Check(name, CategoryEntries(text), entries);
        };
        row("as they stand", Row(1, u"护照"_s) + Row(2, u" 身份证 "_s) + Row(3, u"护照"_s),
            {u"护照"_s, u" 身份证 "_s, u"护照"_s});
        row("ends at a missing row", Row(1, u"护照"_s) + Row(3, u"身份证"_s), {u"护照"_s});
        row("by number, not by place", Row(2, u"护照"_s) + Row(1, u"身份证"_s),
            {u"身份证"_s, u"护照"_s});
        row("refused", u"<ERROR>没有该记录</ERROR>"_s, {});
    }

    // Room types: every tag of any row is a column, in the order in which it is met.
    void gathersColumns() {
        const QString text =
            u"<记录01><内容>标准间</内容><房价>288</房价></记录01>\r\n"
            "<记录02><内容>套房</内容><快捷键>TF</快捷键><前台价>988</前台价></记录02>"_s;
        const TextTable table = CategoryTable(text);
        QCOMPARE(table.headers(),
                 (QStringList{u"编号"_s, u"内容"_s, u"快捷键"_s, u"房价"_s, u"前台价"_s}));
        QCOMPARE(table.row(1), (QStringList{u"01"_s, u"标准间"_s, QString(), u"288"_s, QString()}));
        QCOMPARE(table.row(2), (QStringList{u"02"_s, u"套房"_s, u"TF"_s, QString(), u"988"_s}));
        QCOMPARE(CategoryText(table),
                 u"<记录01><内容>标准间</内容>\r\n<快捷键> </快捷键>\r\n<房价>288</房价>\r\n"
                 "<前台价> </前台价></记录01>\r\n"
                 "<记录02><内容>套房</内容>\r\n<快捷键>TF</快捷键>\r\n<房价> </房价>\r\n"
                 "<前台价>988</前台价></记录02>"_s);
    }

    void emptyCategoryHasOneEmptyRow() {
        const TextTable table = CategoryTable({});
        QCOMPARE(table.rows(), 2);
        QCOMPARE(table.row(1), (QStringList{u"01"_s, QString(), QString()}));
        QCOMPARE(CategoryText(table), QString());
    }

    void writesUpToTheFirstEmptyRow() {
        TextTable table = CategoryTable(Rows(120));
        QCOMPARE(CategoryEntries(CategoryText(table)).size(), 120);
        table.setText(101, tag::kEntry, {});
        QCOMPARE(CategoryEntries(CategoryText(table)).size(), 100);
        QVERIFY(CategoryText(table).contains(u"</记录99>\r\n<记录100>"));
    }
};

HOTEL_TEST(CategoriesTest)

#include "test_categories.moc"
