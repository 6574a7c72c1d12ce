#include "link/serv_api.h"

#include <QFile>
#include <QStringBuilder>

#include "link/server_memos.h"
#include "platform/clock.h"
#include "record/login_digest.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr QStringView kFile = u"库文件名";
constexpr QStringView kProject = u"项目名";
constexpr QStringView kRecord = u"记录";
constexpr QStringView kInitialValue = u"初始值";
constexpr QStringView kFileName = u"文件名";
constexpr QStringView kContent = u"文件内容";
constexpr QStringView kLength = u"文件长度";
constexpr QStringView kChecksum = u"文件校验和";

constexpr int kDone = 0;
constexpr int kFailed = -1;
constexpr double kBufferedSeconds = 2;
constexpr int kNeverReplacedUses = 10000; // a cached record used more often keeps its place
constexpr qint64 kUploadBlock = 8192;

// Requests

QString Field(QStringView tag, QStringView value) {
    return u'<' % tag % u'>' % value % u"</" % tag % u'>';
}

QString Line(QStringView tag, QStringView value) {
    return u'<' % tag % u'>' % value % u"</" % tag % u'>' % kCrLf;
}

QString OptionalField(QStringView tag, QStringView value) {
    return value.isEmpty() ? QString() : Field(tag, value);
}

QString CommandLine(QStringView command) {
    return Line(u"命令", command);
}

QString Place(QStringView file, QStringView project, QStringView record) {
    return Line(kFile, file) % Line(kProject, project) % Line(kRecord, record);
}

QString TrimmedPlace(QStringView file, QStringView project, QStringView record) {
    return Place(TrimWhite(file), TrimWhite(project), TrimBlanks(record));
}

QString Ask(QString request) {
    return Link().DoCommand(request);
}

int Status(const QString& request) {
    return Ask(request).contains(u"<SUCCESS>") ? kDone : kFailed;
}

QString ValueOrAnswer(const QString& answer, QStringView record) {
    const QString value = GetTag(answer, record);
    return value.isEmpty() ? answer : value;
}

// Lists

// The lines behind the opening list tag; a last line without a line end doesn't count.
QStringList ListEntries(const QString& answer, QStringView listTag, int limit) {
    QStringList entries;
    const qsizetype opening = answer.indexOf(QString(u'<' % listTag % u'>'));
    if (opening < 0)
        return entries;
    const QString closing = u"</" % listTag % u'>';
    qsizetype from = opening + listTag.size() + 2;
    qsizetype end;
    while (entries.size() < limit && (end = answer.indexOf(kCrLf, from)) >= 0) {
        const QStringView line = QStringView(answer).sliced(from, end - from);
        if (line.contains(closing))
            break;
        if (!line.isEmpty())
            entries.append(line.toString());
        from = end + kCrLf.size();
    }
    return entries;
}

// Entry n counted from 1. There is an empty entry 0, and all behind the last are empty.
QString Entry(const QStringList& entries, int n) {
    return n >= 1 ? entries.value(n - 1) : QString();
}

bool MustFetch(const ListMemo& memo, int n) {
    return n <= 1 || memo.entries.isEmpty();
}

bool MustFetch(const ListMemo& memo, const QStringList& arguments, int n) {
    return MustFetch(memo, n) || memo.arguments != arguments;
}

// Files

QString HexSum(quint32 sum) {
    return QString::number(sum, 16).toUpper();
}

quint32 SumOfBytes(QByteArrayView bytes) {
    quint32 sum = 0;
    for (char byte : bytes)
        sum += quint8(byte);
    return sum;
}

QByteArray BytesOfHex(QStringView hex) {
    QByteArray bytes(hex.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = char(hex.sliced(2 * i, 2).toUShort(nullptr, 16));
    return bytes;
}

bool WriteInTwoSteps(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    file.close();
    return file.open(QIODevice::ReadWrite) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

// Session

int DbLogin(const QString& user, const QString& password) {
    Wck_comm& link = Link();
    if (!link.isUp())
        return 2;
    const auto digest = LoginDigest(link.ProdID, user, password, Clock::DateText());
    const QString answer = digest ? Ask(CommandLine(u"登录") + Line(u"用户名", user) +
                                        Line(u"密码", *digest) + Line(u"MAC地址", link.HardMacNo))
                                  : QString();
    const bool loggedIn = answer.contains(u"登录成功");
    link.UserName = loggedIn ? user : QString();
    link.password = loggedIn ? password : QString();
    if (loggedIn) {
        Q_EMIT link.loggedIn();
        return 0;
    }
    return answer.contains(u"密码错误") ? 1 : -1;
}

QString DbUserList(int n) {
    ListMemo& memo = Link().memos().users;
    if (n == 1 || memo.entries.isEmpty()) {
        const QString answer = Ask(Field(u"命令", u"用户清单"));
        memo.entries = GetTag(answer, u"记录清单").split(kCrLf, Qt::SkipEmptyParts);
        if (memo.entries.size() > kUserListLimit)
            memo.entries.resize(kUserListLimit);
    }
    return Entry(memo.entries, n);
}

QString DbUserFileName() {
    return GetTag(Ask(CommandLine(u"获取用户文件名")), u"用户文件名");
}

QString DbServerDate() {
    return GetTag(Ask(CommandLine(u"读取日期")), u"当前日期");
}

QString DbServerTime(Wck_comm& link) {
    QString request = CommandLine(u"读取时间");
    return GetTag(link.DoCommand(request), u"当前时间");
}

// Files

int DbCreateFile(QStringView file) {
    return Status(CommandLine(u"创建数据库") + Line(kFile, file) + Line(kInitialValue, {}));
}

QString DbCheckFile(QStringView file, FileCheck code) {
    const QString result = GetTag(Ask(CommandLine(u"检查数据库") + Line(kFile, file) +
                                      Line(u"功能码", QString::number(code))),
                                  u"检查结果");
    return result.isEmpty() ? u"-1"_s : result;
}

QString DbFileList(QStringView path, QStringView description, int n) {
    ListMemo& memo = Link().memos().files;
    const QStringList arguments{path.toString(), description.toString()};
    if (MustFetch(memo, arguments, n)) {
        memo = {};
        const QString answer = Ask(CommandLine(u"数据库清单") + Field(u"路径名", path) +
                                   Field(u"库文件说明", description));
        memo = {ListEntries(answer, u"文件清单", kFileListLimit), arguments};
    }
    return Entry(memo.entries, n);
}

// Projects

int DbCreateProject(QStringView file, QStringView project, QStringView initialValue) {
    return Status(CommandLine(u"创建项目") + Line(kFile, TrimWhite(file)) +
                  Line(kProject, TrimWhite(project)) + Field(kInitialValue, initialValue));
}

int DbDeleteProject(QStringView file, QStringView project) {
    return Status(CommandLine(u"删除项目") + Line(kFile, TrimWhite(file)) +
                  Line(kProject, TrimWhite(project)));
}

QString DbProjectList(QStringView file, int n) {
    ListMemo& memo = Link().memos().projects;
    const QStringList arguments{file.toString()};
    if (MustFetch(memo, arguments, n)) {
        memo = {};
        const QString answer = Ask(CommandLine(u"项目清单") + Field(kFile, file));
        memo = {ListEntries(answer, u"项目清单", kProjectListLimit), arguments};
    }
    return Entry(memo.entries, n);
}

// Records

QString DbReadRecord(QStringView file, QStringView project, QStringView record) {
    return ValueOrAnswer(Ask(CommandLine(u"读取记录") + Place(file, project, record)), record);
}

namespace {

// A record out of the block that came along. It mostly stands right behind the one taken last: then the
// block need not be searched from its beginning.
QString NextOf(BufferedReadMemo& memo, const QString& name) {
    const QString opening = u'<' + name + u'>';
    const QString closing = u"</"_s + name + u'>';
    QStringView rest = QStringView(memo.answer).sliced(memo.next);
    if (rest.startsWith(kCrLf))
        rest = rest.sliced(kCrLf.size());
    const qsizetype end = rest.startsWith(opening) ? rest.indexOf(closing) : -1;
    if (end < 0)
        return GetTag(memo.answer, name);
    memo.next = rest.data() + end + closing.size() - memo.answer.constData();
    return rest.sliced(opening.size(), end - opening.size()).toString();
}

} // namespace

QString DbReadRecordBuffered(QStringView file, QStringView project, QStringView record) {
    const QString name = TrimBlanks(record);
    if (name.isEmpty())
        return DbReadRecord(file, project, record);

    BufferedReadMemo& memo = Link().memos().buffered;
    const QStringList place{TrimWhite(file), TrimWhite(project)};
    const double now = Clock::SecondsSinceMidnight();
    if (memo.place == place && memo.used <= now && now < memo.used + kBufferedSeconds) {
        const QString value = memo.record == name ? memo.value : NextOf(memo, name);
        if (memo.record == name || !value.isEmpty()) {
            memo.record = name;
            memo.value = value;
            memo.used = now;
            return value;
        }
    }
    const QString answer = Ask(CommandLine(u"缓冲读取记录") + Place(place[0], place[1], name));
    memo = {place, name, answer, {}, Clock::SecondsSinceMidnight(), 0};
    memo.value = NextOf(memo, name);
    return memo.value;
}

namespace {

// The slot that keeps the record, or the one that a new record may take; none when all are in use
// too often.
CachedRecord* FindCached(std::array<CachedRecord, 10>& slots, QStringView file,
                         QStringView record) {
    CachedRecord* leastUsed = nullptr;
    for (CachedRecord& slot : slots) {
        if (slot.file == file && slot.record == record)
            return &slot;
        if (slot.uses <= kNeverReplacedUses && (!leastUsed || slot.uses < leastUsed->uses))
            leastUsed = &slot;
    }
    return leastUsed;
}

bool IsValid(CachedRecord& slot, QStringView file, QStringView record, int trustSeconds) {
    const auto isIt = [&] { return slot.file == file && slot.record == record && slot.uses > 0; };
    if (!isIt())
        return false;
    const double age = Clock::SecondsSinceMidnight() - slot.fetched;
    if (age >= 0 && age < trustSeconds)
        return true;
    const QString stamp = DbCheckFile(file, kFileStamp);
    if (!isIt() || slot.stamp != stamp) // another read may have taken the slot meanwhile
        return false;
    slot.fetched = Clock::SecondsSinceMidnight();
    return true;
}

} // namespace

QString DbReadCached(QStringView file, QStringView record, int trustSeconds) {
    CachedRecord* slot = FindCached(Link().memos().cached, file, record);
    if (slot && IsValid(*slot, file, record, trustSeconds)) {
        ++slot->uses;
        return slot->value;
    }
    if (slot)
        *slot = {};
    const QString answer =
        Ask(CommandLine(u"读取记录") + Line(kFile, file) + Line(kRecord, record));
    const QString value = GetTag(answer, record);
    if (value.isEmpty())
        return answer;
    if (slot) {
        const QString stamp = DbCheckFile(file, kFileStamp);
        *slot = {
            file.toString(), record.toString(), stamp, Clock::SecondsSinceMidnight(), 1, value};
    }
    return value;
}

int DbModifyRecord(QStringView file, QStringView project, QStringView record, QStringView value) {
    if (record.isEmpty())
        return kDone;
    return Status(CommandLine(u"修改记录") + TrimmedPlace(file, project, record) +
                  Line(u"记录值", value));
}

int DbCreateRecord(QStringView file, QStringView project, QStringView record, QStringView value) {
    return Status(CommandLine(u"创建记录") + TrimmedPlace(file, project, record) +
                  Line(u"记录值", value));
}

int DbDeleteRecord(QStringView file, QStringView project, QStringView record) {
    return Status(CommandLine(u"删除记录") + TrimmedPlace(file, project, record));
}

QString DbRecordList(QStringView file, QStringView project, int n) {
    ListMemo& memo = Link().memos().records;
    const QStringList arguments{file.toString(), project.toString()};
    if (MustFetch(memo, arguments, n)) {
        memo = {};
        const QString answer =
            Ask(CommandLine(u"记录清单") + Field(kFile, file) + Field(kProject, project));
        memo = {ListEntries(answer, u"记录清单", kRecordListLimit), arguments};
    }
    return Entry(memo.entries, n);
}

QString DbFindRecords(QStringView file, QStringView project, QStringView required,
                      QStringView optional, QStringView excluded, int n) {
    ListMemo& memo = Link().memos().foundByKeywords;
    if (MustFetch(memo, n)) {
        memo = {};
        const QString answer =
            Ask(CommandLine(u"查找记录") + Field(kFile, file) + OptionalField(kProject, project) +
                OptionalField(u"记录必选项", required) + OptionalField(u"记录任选项", optional) +
                OptionalField(u"记录排除项", excluded));
        memo.entries = ListEntries(answer, u"记录清单", kRecordListLimit);
    }
    return Entry(memo.entries, n);
}

QString DbFieldFind(QStringView file, QStringView project, QStringView conditionText, int n) {
    ListMemo& memo = Link().memos().foundByConditions;
    const QStringList arguments{TrimWhite(file), TrimWhite(project), conditionText.toString()};
    if (MustFetch(memo, arguments, n)) {
        memo = {};
        if (LeadingNumber(DbCheckFile(arguments[0], kFileExists)) < 0)
            return {};
        const QString answer = Ask(CommandLine(u"字段查找") + Field(kFile, arguments[0]) +
                                   OptionalField(kProject, arguments[1]) + arguments[2] + kCrLf);
        memo = {ListEntries(answer, u"记录清单", kRecordListLimit), arguments};
    }
    return Entry(memo.entries, n);
}

// Files of the workstation

int DbDownloadFile(QStringView remoteName, const QString& localPath) {
    const QString answer = Ask(CommandLine(u"下载文件") + Line(kFileName, remoteName));
    const QString content = GetTag(answer, kContent);
    if (content.isEmpty())
        return kFailed;
    const QByteArray bytes = BytesOfHex(content);
    if (LeadingNumber(GetTag(answer, kLength)) != bytes.size() ||
        GetTag(answer, kChecksum) != HexSum(SumOfBytes(bytes)))
        return kFailed;
    return WriteInTwoSteps(localPath, bytes) ? kDone : kFailed;
}

int DbUploadFile(const QString& localPath, QStringView remoteName) {
    QFile file(localPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() >= kFileLimit)
        return kFailed;
    QString content;
    content.reserve(2 * file.size());
    quint32 sum = 0;
    while (!file.atEnd()) {
        const QByteArray block = file.read(kUploadBlock);
        if (block.isEmpty())
            return kFailed;
        content += QLatin1StringView(block.toHex().toUpper());
        sum += SumOfBytes(block);
    }
    return Status(CommandLine(u"上传文件") + Line(kFileName, remoteName) + Line(kContent, content) +
                  Line(kLength, QString::number(content.size() / 2)) +
                  Line(kChecksum, HexSum(sum)));
}

} // namespace hotel
