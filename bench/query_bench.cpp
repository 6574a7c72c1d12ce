// A query into a list by the side of reading the same project whole, and the search inside a record by
// the number of its sub-records.

#include "bench/ratio.h"

#include <QCoreApplication>

#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tests/test_hotel.h"
#include "tools/queries/query_walk.h"
#include "tools/queries/record_match.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kRecords = 5000;
constexpr int kFields = 24;
constexpr int kBlock = 32; // records that the server sends along with one
const QString kFile = u"bench\\list.qvr"_s;
const QString kProject = u"清单"_s;

// Short tags: the whole project must stay below what one read takes.
QStringList Headers() {
    QStringList headers;
    for (int field = 0; field < kFields; ++field)
        headers.append(QString(QChar(char16_t(u'a' + field))));
    return headers;
}

QString Record(int number) {
    QString record;
    for (const QString& header : Headers())
        record += u"<%1>%2</%1>"_s.arg(header).arg(number);
    return record;
}

void FillProject() {
    QString project;
    for (int number = 1; number <= kRecords; ++number)
        project += u"<%1>%2</%1>\r\n"_s.arg(number).arg(Record(number));
    if (DbModifyRecord(kFile, {}, kProject, project) != 0)
        qFatal("the project was not stored");
}

QString EveryRecord() {
    QString body;
    int number = 0;
    AddQueryCondition(body, u"或者", tag::kRecordName, u"非空", {}, number);
    return WrapConditions(body);
}

// The whole project in one command, walked into a list, and a round trip for each block.
int ReadWhole() {
    TextTable list(Headers());
    const QString project = DbReadRecord(kFile, {}, kProject);
    for (FieldWalk record(project); record.next();)
        list.addRow(
            CellsOf(record.value(), record.name().toString(), list.headers(), kNoNameColumn));
    for (int block = 0; block < kRecords / kBlock; ++block)
        DbServerTime();
    return list.dataRows();
}

int Query() {
    TextTable list(Headers());
    WalkFound(kFile, kProject, EveryRecord(), kNoNameColumn, list, kRecords,
              [](int, int) { return true; });
    return list.dataRows();
}

// A record of so many sub-records, and ten conditions on them.
QString SubRecords(int count, int round) {
    QString record = u"<来往>"_s;
    for (int n = 1; n <= count; ++n)
        record += u"<笔%1><项目>餐费%2</项目><金额>%1</金额></笔%1>"_s.arg(n).arg(round);
    return record + u"</来往>"_s;
}

QString TenConditions() {
    QString body;
    int number = 0;
    for (int i = 0; i < 10; ++i)
        AddQueryCondition(body, u"并且", u"金额", u"数值不等于", QString::number(-i - 1), number);
    return WrapConditions(body) + kCrLf + u"<记录查询字段>来往</记录查询字段>"_s;
}

// Each round searches another text, so that none is served from memory.
auto Search(int count) {
    return [count, round = 0]() mutable {
        return MatchRecordConditions(SubRecords(count, ++round), TenConditions(), 1).size();
    };
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const TestHotel house;
    FillProject();
    if (Query() != kRecords || ReadWhole() != kRecords)
        qFatal("the list is not what was stored: %d, %d", Query(), ReadWhole());
    PrintRatio("query_to_grid_by_whole_project", MedianRatio(Query, ReadWhole), 1.5);
    PrintRatio("match_in_20000_by_2000", ProcessorRatio(Search(20000), Search(2000), 20000, 2000),
               1.3);
}
