#include "link/QVRapp.h"
#include "link/records.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

// A peer that answers reads from a few records, finds them all, and refuses as many writes as told.
class FewRecords {
public:
    explicit FewRecords(ScriptedPeer& peer) {
        peer.script = [this](const QString& request, int number) {
            return ScriptedPeer::Pieces{ScriptedPeer::Frame(number, answer(request))};
        };
    }

    QList<std::pair<QString, QString>> records;
    int refusedWrites = 0;
    int refusedDeletes = 0;
    QStringList asked; // the commands, with the record where there is one

    QString whole() const {
        QStringList fields;
        for (const auto& [name, value] : records)
            fields.append(u"<%1>%2</%1>"_s.arg(name, value));
        return fields.join(kCrLf);
    }

private:
    QString answer(const QString& request) {
        const QString command = GetTag(request, u"命令");
        const QString name = GetTag(request, u"记录");
        asked.append(name.isEmpty() ? command : command + u' ' + name);
        if (command == u"检查数据库")
            return u"<检查结果>1</检查结果>"_s;
        if (command == u"字段查找")
            return u"<记录清单>\r\n"_s + names() + u"</记录清单>\r\n"_s;
        if (command == u"修改记录")
            return refuse(refusedWrites);
        if (command == u"删除记录")
            return refuse(refusedDeletes);
        if (!command.endsWith(u"读取记录"))
            return u"<SUCCESS>"_s;
        if (GetTag(request, u"项目名").isEmpty())
            return records.isEmpty() ? u"<ERROR>没有该记录</ERROR>"_s
                                     : u"<%1>%2</%1>"_s.arg(name, whole());
        for (const auto& [record, value] : records)
            if (record == name)
                return u"<%1>%2</%1>"_s.arg(name, value);
        return u"<ERROR>没有该记录</ERROR>"_s;
    }

    QString refuse(int& times) { return times-- > 0 ? u"<ERROR>忙</ERROR>"_s : u"<SUCCESS>"_s; }

    QString names() const {
        QString lines;
        for (const auto& record : records)
            lines += record.first + kCrLf;
        return lines;
    }
};

TextTable GuestList() {
    return TextTable({u"记录号"_s, u"姓名"_s, u""_s, u"房态"_s});
}

} // namespace

class TestQvrApp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        desk_ = std::make_unique<ScriptedDesk>();
        store_ = std::make_unique<FewRecords>(desk_->peer);
    }
    void cleanup() { desk_.reset(); }

    void loads() {
        for (const bool found : {false, true}) {
            fill(45, u"<姓名>王</姓名>"_s);
            store_->records[1].second.clear();
            // An <ERROR> anywhere makes the whole answer a failed read.
            store_->records[2].second = found ? u"<ERROR>坏<ERROR>"_s : QString();
            TextTable list = GuestList();
            list.addRow();
            QList<std::pair<int, bool>> steps;
            const LoadProgress progress = [&](int rows, bool atEnd) {
                steps.append({rows, atEnd});
                return true;
            };
            const int loaded = found ? LoadFoundToGrid(u"f"_s, u"p"_s, u"c"_s, list, 0, progress)
                                     : LoadProjectToGrid(u"f"_s, u"p"_s, list, 0, progress);
            QCOMPARE(loaded, 43);
            QCOMPARE(list.dataRows(), 43); // the blank row was filled
            QCOMPARE(list.row(1), (QStringList{u"1"_s, u"王"_s, u""_s, u""_s}));
            QCOMPARE(list.text(2, 0), u"4"_s);
            QCOMPARE(steps, (QList<std::pair<int, bool>>{{20, false}, {40, false}, {43, true}}));
        }
    }

    void loadStops() {
        fill(45, u"<姓名>王</姓名>"_s);
        TextTable list = GuestList();
        const auto stop = [](int, bool) { return false; };
        QCOMPARE(LoadProjectToGrid(u"f"_s, u"p"_s, list, 0, stop), 20);
        QCOMPARE(LoadFoundToGrid(u"f"_s, u"p"_s, u"c"_s, list, 0, stop), 20);
        QCOMPARE(list.dataRows(), 40);
        store_->records.clear(); // a failed read leaves the list
        QCOMPARE(LoadProjectToGrid(u"f"_s, u"p"_s, list, 0), 0);
        QCOMPARE(list.dataRows(), 40);
    }

    void loadEndsAtItsLimit() {
        fill(kProjectLoadLimit + 1, u"<a>1</a>"_s);
        TextTable list({u"号"_s, u"a"_s});
        QCOMPARE(LoadProjectToGrid(u"f"_s, u"p"_s, list, 0), kProjectLoadLimit);
        QVERIFY(desk_->messages.isEmpty());
    }

    // A project that is longer than what GetTag looks at is loaded all the same.
    void loadsALongProject() {
        fill(1100, u"<a>"_s + QString(2000, u'x') + u"</a>"_s);
        TextTable list({u"号"_s, u"a"_s});
        QCOMPARE(LoadProjectToGrid(u"f"_s, u"p"_s, list, 0), 1100);
        QCOMPARE(list.text(1100, 0), u"1100"_s);
    }

    void rowsByKey() {
        TextTable list = GuestList();
        QCOMPARE(SetGridRowByKey(list, u"a"_s, u"<姓名>王</姓名><记录号>x</记录号>"), 1);
        QCOMPARE(SetGridRowByKey(list, u"b"_s, u"<姓名>李</姓名>"), 2);
        QCOMPARE(SetGridRowByKey(list, u"a"_s, u"<房态>散客</房态>"), 1);
        QCOMPARE(list.row(1), (QStringList{u"a"_s, u""_s, u""_s, u"散客"_s}));
        QCOMPARE(SetGridRowByKey(list, u""_s, u"<姓名>王</姓名>"), 0);
        QCOMPARE(SetGridRowByKey(list, u"李"_s, u"<房态>长包</房态>", 1), 2);
        QCOMPARE(list.text(2, 3), u"长包"_s);
        TextTable keyless({u"姓名"_s});
        QCOMPARE(SetGridRowByKey(keyless, u"a"_s, u"<姓名>王</姓名>"), 0);
        QCOMPARE(keyless.dataRows(), 0);
    }

    void savesARow() {
        store_->records = {{u"a"_s, u"<电话>110</电话>\r\n<房态>空房</房态>\r\n<姓名>王</姓名>"_s}};
        TextTable list = GuestList();
        list.addRow({u"a"_s, u"李"_s, u"no header"_s, u""_s});
        store_->refusedWrites = 1;
        QCOMPARE(SaveGridRow(u"f"_s, u"p"_s, list, 1, 0), 0);
        QCOMPARE(GetTag(desk_->peer.requests.last(), u"记录值"),
                 u"<电话>110</电话>\r\n<姓名>李</姓名>"_s);
        QCOMPARE(store_->asked, (QStringList{u"读取记录 a"_s, u"修改记录 a"_s, u"修改记录 a"_s}));
        store_->refusedWrites = 2;
        QVERIFY(SaveGridRow(u"f"_s, u"p"_s, list, 1, 0) != 0);
        store_->asked.clear();
        list.addRow({u""_s, u"李"_s});
        QCOMPARE(SaveGridRow(u"f"_s, u"p"_s, list, 2, 0), 0);
        QVERIFY(store_->asked.isEmpty());
    }

    // An empty record, one that isn't there, and an answer that tells nothing about it.
    void threeOutcomesOfARead() {
        const auto row = [this](const char* name, const QString& answer, Reading outcome,
                                const QString& value) {
            desk_->peer.answerAll(answer);
            const RecordRead read = ReadToChange(u"f", u"p", u"2");
            Check(name, read.outcome == outcome, true);
            Check(name, read.value, value);
            Check(name, read.failed(), outcome == Reading::Failed);
        };
        row("present", u"<2><姓名>王</姓名></2>"_s, Reading::Present, u"<姓名>王</姓名>"_s);
        row("empty", u"<2></2>"_s, Reading::Present, {});
        row("absent", u"<ERROR>没有该记录</ERROR>"_s, Reading::Absent, {});
        row("nobody logged in", u"<ERROR>没有登录</ERROR>"_s, Reading::Failed, {});
        row("the store fails", u"<ERROR>数据库不能完成命令：x</ERROR>"_s, Reading::Failed, {});
        desk_->peer.answerAll(u"<p><2>v</2></p>"_s);
        QCOMPARE(ReadProjectToChange(u"f", u"p").value, u"<2>v</2>"_s);
        desk_->peer.answerAll(u"<p></p>"_s);
        QCOMPARE(ReadProjectToChange(u"f", u"p").value, QString());
        desk_->peer.stop();
        QTRY_VERIFY(!desk_->link.isUp());
        QVERIFY(ReadToChange(u"f", u"p", u"2").failed());
    }

    // What could not be read is not written over; an empty record's answer is not its value; and what moves
    // onto itself is not deleted.
    void rewritesOnlyWhatWasRead() {
        TextTable list({u"记录号"_s, u"姓名"_s});
        list.addRow({u"2"_s, u"李"_s});
        store_->records = {{u"2"_s, {}}};
        QCOMPARE(SaveGridRow(u"f"_s, u"p"_s, list, 1, 0), 0);
        QCOMPARE(GetTag(desk_->peer.requests.last(), u"记录值"), u"<姓名>李</姓名>"_s);
        QCOMPARE(MoveRecord(u"f"_s, u"p"_s, u"2"_s, u"g"_s, u"p"_s, u"3"_s), 0);
        QVERIFY(desk_->peer.requests.filter(u"修改记录"_s).last().contains(u"<记录值></记录值>"));
        store_->asked.clear();
        QCOMPARE(MoveRecord(u"A\\f.qvr"_s, u"p"_s, u"2"_s, u"a/F.QVR"_s, u"p"_s, u"2"_s), 0);
        QCOMPARE(store_->asked, QStringList{u"读取记录 2"_s});
        desk_->peer.answerAll(u"<ERROR>没有登录</ERROR>"_s);
        desk_->peer.requests.clear();
        QVERIFY(SaveGridRow(u"f"_s, u"p"_s, list, 1, 0) != 0);
        QVERIFY(MoveRecord(u"f"_s, u"p"_s, u"2"_s, u"g"_s, u"p"_s, u"3"_s) != 0);
        QVERIFY(desk_->peer.requests.filter(u"修改记录"_s).isEmpty());
    }

    void moves() {
        const auto row = [this](const char* name, bool there, int refusedWrites, int refusedDeletes,
                                bool moved, const QString& asked) {
            if (there)
                store_->records = {{u"a"_s, u"<姓名>王</姓名>"_s}};
            store_->refusedWrites = refusedWrites;
            store_->refusedDeletes = refusedDeletes;
            store_->asked.clear();
            Check(name, MoveRecord(u"f"_s, u"p"_s, u"a"_s, u"g"_s, u"p"_s, u"b"_s) == 0, moved);
            Check(name, store_->asked.join(u','), asked);
        };
        const QString target = u"读取记录 a,创建数据库,创建项目,修改记录 b"_s;
        row("nothing to move", false, 0, 0, false, u"读取记录 a"_s);
        row("at once", true, 0, 0, true, target + u",删除记录 a"_s);
        row("second attempts", true, 1, 1, true, target + u",修改记录 b,删除记录 a,删除记录 a"_s);
        row("not written", true, 2, 0, false, target + u",修改记录 b"_s);
        row("not deleted", true, 0, 2, false, target + u",删除记录 a,删除记录 a"_s);
    }

    void entriesAsRecordText() {
        QCOMPARE(ListToRecordText({u"前厅"_s, u""_s, u"客房"_s}, u"<a>1</a>"_s),
                 u"<a>1</a>\r\n<记录01>前厅</记录01>\r\n<记录03>客房</记录03>"_s);
        QStringList hundred(100, u"x"_s);
        QVERIFY(ListToRecordText(hundred, {}).endsWith(u"<记录100>x</记录100>"));
        QCOMPARE(GetTagDefault(u"<a></a>", u"a", u"无"_s), u"无"_s);
    }

private:
    // So many records, named by their numbers.
    void fill(int count, const QString& value) {
        store_->records.clear();
        for (int n = 1; n <= count; ++n)
            store_->records.append({QString::number(n), value});
    }

    std::unique_ptr<ScriptedDesk> desk_;
    std::unique_ptr<FewRecords> store_;
};

HOTEL_TEST(TestQvrApp)

#include "test_qvrapp.moc"
