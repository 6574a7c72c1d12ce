#include "server/command_table.h"

#include <algorithm>
#include <bitset>

#include <QDir>
#include <QSet>

#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "server/field_text.h"
#include "server/search.h"

namespace hotel {

namespace {

// A buffered read brings following records along, up to so many and so much.
constexpr int kBlockRecords = 32;
constexpr qsizetype kBlockLength = 16 * 1024;

const StorePath& UserFile() {
    static const StorePath path = *ParseFilePath(kUserFile);
    return path;
}

// --- What requests and answers are made of -----------------------------------------------------------

StorePath FileField(const Request& request, QStringView field = u"库文件名") {
    const std::optional<StorePath> path = ParseFilePath(request.field(field));
    if (!path)
        throw Refusal(refusal::kBadName);
    return *path;
}

// A name that is about to be looked up: one that can't be is simply not there.
QString NameField(const Request& request, QStringView field) {
    return TrimWhite(request.field(field));
}

// A name that is about to be written.
QString NewNameField(const Request& request, QStringView field) {
    const std::optional<QString> name = ParseName(request.field(field));
    if (!name)
        throw Refusal(refusal::kBadName);
    return *name;
}

CommandAnswer Done() {
    return {u"<SUCCESS>"_s};
}

CommandAnswer List(QStringView name, const QStringList& entries) {
    QString text = u'<' % name % u'>' % kCrLf;
    for (const QString& entry : entries)
        text += entry % kCrLf;
    return {text % u"</" % name % u'>'};
}

// --- Login -------------------------------------------------------------------------------------------

QString DateText(const ServerState& server) {
    return server.clock().toString(u"yyyy-MM-dd"_s);
}

CommandAnswer LogIn(ServerState& server, Peer& peer, const Request& request) {
    peer.user.clear();
    peer.mayLog = false;
    const QString user = NameField(request, u"用户名");
    const QStringView digest = request.field(u"密码");
    const QString date = DateText(server);
    const bool isGuess = !IsEmptyAttempt(server.productId, user, digest, date);
    if (isGuess && server.failures.isClosedTo(peer.address))
        return {ErrorText(u"登录失败次数太多，请稍候再试"_s), server.failures.wait(peer.address)};
    const LoginVerdict verdict =
        JudgeLogin(server.store, server.productId, user, digest, peer.address, date);
    if (verdict == LoginVerdict::Admitted) {
        peer.user = user;
        peer.userChanges = server.store.changesOf(UserFile());
        return {u"<SUCCESS>登录成功"_s, isGuess ? server.failures.wait(peer.address) : 0};
    }
    peer.mayLog = true;
    peer.wasCounted = isGuess;
    const int delay = isGuess ? server.failures.delayOfFailure(peer.address) : 0;
    switch (verdict) {
    case LoginVerdict::UnknownUser:
        return {ErrorText(u"没有该用户"_s), delay};
    case LoginVerdict::WrongAddress:
        return {ErrorText(u"不允许从该地址登录"_s), delay};
    default:
        return {ErrorText(u"密码错误"_s), delay};
    }
}

// The entry of a refused attempt: one record, which must not stand yet. One that waits as a failure does
// finds the line closed as an attempt would.
bool IsAttemptEntry(const ServerState& server, const Peer& peer, const Request& request) {
    return peer.mayLog && (peer.wasCounted || !server.failures.isClosedTo(peer.address)) &&
           IsRefusalEntry(server.log, server.clock().date(), request) &&
           !server.store.read(FileField(request), server.log.project, NameField(request, u"记录"));
}

CommandAnswer LogOut(ServerState&, Peer& peer, const Request&) {
    peer.user.clear();
    return Done();
}

CommandAnswer UserList(ServerState& server, Peer&, const Request&) {
    QStringList users;
    server.store.walk(UserFile(), kUserProject, false,
                      [&](const QString& name, const QString&) { users += name; });
    return List(u"记录清单", users);
}

CommandAnswer UserFileName(ServerState&, Peer&, const Request&) {
    return {FieldText(u"用户文件名", kUserFile)};
}

CommandAnswer ServerDate(ServerState& server, Peer&, const Request&) {
    return {FieldText(u"当前日期", DateText(server))};
}

CommandAnswer ServerTime(ServerState& server, Peer&, const Request&) {
    return {FieldText(u"当前时间", server.clock().toString(u"HH:mm:ss"_s))};
}

// --- Files -------------------------------------------------------------------------------------------

CommandAnswer CreateDatabase(ServerState& server, Peer&, const Request& request) {
    server.store.createDatabase(FileField(request));
    return Done();
}

CommandAnswer DeleteFile(ServerState& server, Peer&, const Request& request) {
    server.store.removeFile(FileField(request));
    return Done();
}

CommandAnswer RenameFile(ServerState& server, Peer&, const Request& request) {
    server.store.renameFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

CommandAnswer CopyFile(ServerState& server, Peer&, const Request& request) {
    server.store.copyFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

CommandAnswer FileList(ServerState& server, Peer&, const Request& request) {
    const std::optional<StorePath> folder = ParseFolderPath(request.field(u"路径名"));
    if (!folder)
        throw Refusal(refusal::kBadName);
    const QString pattern = NameField(request, u"库文件说明");
    QStringList files = server.store.list(*folder).files;
    if (!pattern.isEmpty())
        files.removeIf([&](const QString& name) { return !QDir::match(pattern, name); });
    return List(u"文件清单", files);
}

bool IsNumeric(const QString& name) {
    return !name.isEmpty() && DigitsOnly(name).size() == name.size();
}

// Numbered folders of the path's first folder, the least first: dated files lie in one a month.
QStringList NumberedFolders(Store& store, QStringView file) {
    const std::optional<StorePath> path = ParseFolderPath(file);
    if (!path)
        throw Refusal(refusal::kBadName);
    const QString first = path->key.section(kPathSeparator, 0, 0);
    QStringList folders = store.list(StorePath{first, first}).folders;
    folders.removeIf([](const QString& name) { return !IsNumeric(name); });
    std::stable_sort(folders.begin(), folders.end(), [](const QString& a, const QString& b) {
        return LeadingNumber(a) < LeadingNumber(b);
    });
    return folders;
}

CommandAnswer CheckDatabase(ServerState& server, Peer&, const Request& request) {
    const auto result = [](const QString& text) {
        return CommandAnswer{FieldText(u"检查结果", text)};
    };
    const QString missing = u"-1"_s;
    const int code = int(LeadingNumber(request.field(u"功能码")));
    if (code == 2 || code == 3) {
        const QStringList folders = NumberedFolders(server.store, request.field(u"库文件名"));
        if (folders.isEmpty())
            return result(missing);
        return result(code == 2 ? folders.first() : folders.last());
    }
    const StorePath path = FileField(request);
    if (server.store.kind(path) == Store::Kind::Missing)
        return result(missing);
    switch (code) {
    case 0:
        return result(QString::number(server.store.projects(path).size()));
    case 5:
        return result(server.store.stamp(path).last(8));
    case 6:
        return result(server.store.stamp(path));
    default:
        throw Refusal(u"不认识的功能码"_s);
    }
}

CommandAnswer PrepareData(ServerState& server, Peer&, const Request& request) {
    if (server.store.kind(FileField(request)) == Store::Kind::Missing)
        throw Refusal(refusal::kNoFile);
    return Done();
}

QString HexSum(const QByteArray& content) {
    quint32 sum = 0;
    for (char c : content)
        sum += quint8(c);
    return QString::number(sum, 16).toUpper();
}

CommandAnswer Upload(ServerState& server, Peer&, const Request& request) {
    const StorePath path = FileField(request, u"文件名");
    const QByteArray hex = request.field(u"文件内容").toLatin1();
    const QByteArray content = QByteArray::fromHex(hex);
    if (content.toHex() != hex.toLower() ||
        double(content.size()) != LeadingNumber(request.field(u"文件长度")))
        throw Refusal(u"文件长度不符"_s);
    bool isNumber = false;
    const quint32 sum = request.field(u"文件校验和").trimmed().toUInt(&isNumber, 16);
    if (!isNumber || QString::number(sum, 16).toUpper() != HexSum(content))
        throw Refusal(u"文件校验和不符"_s);
    server.store.writeUpload(path, content);
    return Done();
}

CommandAnswer Download(ServerState& server, Peer&, const Request& request) {
    const std::optional<QByteArray> content = server.store.upload(FileField(request, u"文件名"));
    if (!content)
        throw Refusal(refusal::kNoFile);
    return {FieldText(u"文件内容", QString::fromLatin1(content->toHex().toUpper())) % kCrLf %
            FieldText(u"文件长度", QString::number(content->size())) % kCrLf %
            FieldText(u"文件校验和", HexSum(*content))};
}

// --- Projects ----------------------------------------------------------------------------------------

// The text of a project written whole. One without any field would empty the project, which only an empty
// text is meant to do.
QStringView WholeProject(QStringView text) {
    if (TrimWhite(text).isEmpty())
        return text;
    for (FieldWalk field(text); field.next();) {
        if (field.closed())
            return text;
    }
    throw Refusal(u"内容不是记录"_s);
}

CommandAnswer ProjectList(ServerState& server, Peer&, const Request& request) {
    return List(u"项目清单", server.store.projects(FileField(request)));
}

CommandAnswer CreateProject(ServerState& server, Peer&, const Request& request) {
    const StorePath path = FileField(request);
    const QString project = NewNameField(request, u"项目名");
    if (!server.store.hasProject(path, project))
        server.store.writeProject(path, project, WholeProject(request.field(u"初始值")));
    return Done();
}

CommandAnswer DeleteProject(ServerState& server, Peer&, const Request& request) {
    server.store.removeProject(FileField(request), NameField(request, u"项目名"));
    return Done();
}

// --- Records -----------------------------------------------------------------------------------------

// A record as a request names it. With an empty project name the record's name is that of a
// project, which is meant as a whole.
struct RecordKey {
    StorePath path;
    QString project;
    QString record;

    explicit RecordKey(const Request& request)
        : path(FileField(request)), project(NameField(request, u"项目名")),
          record(NameField(request, u"记录")) {}
};

std::optional<QString> Read(Store& store, const RecordKey& key) {
    if (!key.project.isEmpty())
        return store.read(key.path, key.project, key.record);
    if (std::optional<QString> whole = store.readProject(key.path, key.record))
        return whole;
    return store.readAnywhere(key.path, key.record);
}

bool Exists(Store& store, const RecordKey& key) {
    if (key.project.isEmpty())
        return store.hasProject(key.path, key.record);
    return store.read(key.path, key.project, key.record).has_value();
}

void Write(Store& store, const RecordKey& key, const Request& request) {
    const QString record = NewNameField(request, u"记录");
    const QStringView value = request.field(u"记录值");
    if (key.project.isEmpty())
        store.writeProject(key.path, record, WholeProject(value));
    else
        store.write(key.path, NewNameField(request, u"项目名"), record, value.toString());
}

CommandAnswer ReadRecord(ServerState& server, Peer&, const Request& request) {
    const RecordKey key(request);
    const std::optional<QString> value = Read(server.store, key);
    if (!value)
        throw Refusal(refusal::kNoRecord);
    return {FieldText(key.record, *value)};
}

// Which names of the block's records stand as tags inside its values: there the reader would find the
// value of the tag in place of the record's.
class TagsInside {
public:
    explicit TagsInside(const QList<NamedText>& records) {
        for (const NamedText& record : records) {
            names_.insert(record.name);
            firsts_.set(Place(record.name));
        }
    }

    void take(QStringView value) {
        qsizetype open = -1;
        for (qsizetype i = 0; i < value.size(); ++i) {
            if (value[i] == u'<') {
                open = i;
            } else if (value[i] == u'>' && open >= 0) {
                QStringView tag = value.sliced(open + 1, i - open - 1);
                if (tag.startsWith(u'/'))
                    tag = tag.sliced(1);
                if (!tag.isEmpty() && firsts_[Place(tag)] && names_.contains(tag))
                    found_.insert(tag);
                open = -1;
            }
        }
    }

    bool has(QStringView name) const { return found_.contains(name); }

private:
    // Most tags are told from all names by length and first character.
    static size_t Place(QStringView name) {
        return (size_t(name.first(1)[0].unicode()) * 16 + size_t(name.size())) % kPlaces;
    }
    static constexpr size_t kPlaces = 4096;

    std::bitset<kPlaces> firsts_;
    QSet<QStringView> names_;
    QSet<QStringView> found_;
};

// The record and, up to a bound, those behind it. A following record is left out, with all behind
// it, when its tags stand in the block already: the reader of the block would find the wrong text.
CommandAnswer ReadBuffered(ServerState& server, Peer& peer, const Request& request) {
    const RecordKey key(request);
    const QList<NamedText> records =
        server.store.readBlock(key.path, key.project, key.record, kBlockRecords);
    if (records.isEmpty())
        return ReadRecord(server, peer, request);
    QString block = FieldText(records.first().name, records.first().text);
    TagsInside inside(records);
    inside.take(records.first().text);
    for (const NamedText& record : records.sliced(1)) {
        if (inside.has(record.name) || block.size() + record.text.size() > kBlockLength)
            break;
        block += kCrLf % FieldText(record.name, record.text);
        inside.take(record.text);
    }
    return {block};
}

CommandAnswer ModifyRecord(ServerState& server, Peer&, const Request& request) {
    Write(server.store, RecordKey(request), request);
    return Done();
}

CommandAnswer CreateRecord(ServerState& server, Peer&, const Request& request) {
    const RecordKey key(request);
    if (Exists(server.store, key))
        throw Refusal(refusal::kRecordExists);
    Write(server.store, key, request);
    return Done();
}

CommandAnswer ReplaceRecord(ServerState& server, Peer&, const Request& request) {
    const RecordKey key(request);
    if (!Exists(server.store, key))
        throw Refusal(refusal::kNoRecord);
    Write(server.store, key, request);
    return Done();
}

CommandAnswer DeleteRecord(ServerState& server, Peer&, const Request& request) {
    const RecordKey key(request);
    server.store.remove(key.path, key.project, key.record);
    return Done();
}

CommandAnswer RecordList(ServerState& server, Peer&, const Request& request) {
    QStringList names;
    server.store.walk(FileField(request), NameField(request, u"项目名"), false,
                      [&](const QString& name, const QString&) { names += name; });
    return List(u"记录清单", names);
}

CommandAnswer FindRecords(ServerState& server, Peer&, const Request& request) {
    const Keywords keywords{SplitKeywords(request.field(u"记录必选项")),
                            SplitKeywords(request.field(u"记录任选项")),
                            SplitKeywords(request.field(u"记录排除项"))};
    return List(u"记录清单", FindByKeywords(server.store, FileField(request),
                                            NameField(request, u"项目名"), keywords));
}

CommandAnswer FindFields(ServerState& server, Peer&, const Request& request) {
    return List(u"记录清单",
                FindByConditions(server.store, FileField(request), NameField(request, u"项目名"),
                                 request.field(u"记录查询条件")));
}

// --- The table ---------------------------------------------------------------------------------------

constexpr ServerCommand kCommands[] = {
    {u"登录", kBeforeLogin | kFromMemory, LogIn},
    {u"注销", kFromMemory, LogOut},
    {u"用户清单", kBeforeLogin, UserList},
    {u"获取用户文件名", kBeforeLogin | kFromMemory, UserFileName},
    {u"读取日期", kBeforeLogin | kFromMemory, ServerDate},
    {u"读取时间", kBeforeLogin | kFromMemory, ServerTime},
    {u"读取记录", kFromMemory | kOnlyReads, ReadRecord},
    {u"缓冲读取记录", 0, ReadBuffered},
    {u"修改记录", kWrites, ModifyRecord},
    {u"创建记录", kWrites, CreateRecord},
    {u"替换记录", kWrites, ReplaceRecord},
    {u"删除记录", kWrites, DeleteRecord},
    {u"记录清单", 0, RecordList},
    {u"查找记录", 0, FindRecords},
    {u"字段查找", 0, FindFields},
    {u"项目清单", kFromMemory, ProjectList},
    {u"创建项目", kWrites, CreateProject},
    {u"删除项目", kWrites, DeleteProject},
    {u"创建数据库", kWrites, CreateDatabase},
    {u"删除数据库", kWrites, DeleteFile},
    {u"检查数据库", kFromMemory | kOnlyReads, CheckDatabase},
    {u"数据库清单", kFromMemory, FileList},
    {u"数据准备", kFromMemory, PrepareData},
    {u"文件换名", kWrites, RenameFile},
    {u"文件复制", kWrites, CopyFile},
    {u"上传文件", kWrites, Upload},
    {u"下载文件", 0, Download},
};

// Looks again at who is logged in when the users may have changed.
void DropDeletedUser(const ServerState& server, Peer& peer) {
    const quint64 changes = server.store.changesOf(UserFile());
    if (peer.user.isEmpty() || peer.userChanges == changes)
        return;
    if (!server.store.read(UserFile(), kUserProject, peer.user))
        peer.user.clear();
    peer.userChanges = changes;
}

} // namespace

const ServerCommand* FindServerCommand(QStringView name) {
    const auto command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                      [&](const ServerCommand& c) { return c.name == name; });
    return command == std::end(kCommands) ? nullptr : command;
}

QString ErrorText(const QString& words) {
    return FieldText(u"ERROR", words);
}

// Changes nothing of the peer ahead of the last read that may not be in memory.
static CommandAnswer Answer(ServerState& server, Peer& peer, const Request& request,
                            const ServerCommand* command) {
    const bool beforeLogin = command && (command->flags & kBeforeLogin);
    const bool writes = command && (command->flags & kWrites);
    DropDeletedUser(server, peer);
    const bool isAttemptEntry =
        peer.user.isEmpty() && !beforeLogin && IsAttemptEntry(server, peer, request);
    if (peer.user.isEmpty() && !beforeLogin && !isAttemptEntry)
        return {ErrorText(u"没有登录"_s)};
    if (!command)
        return {ErrorText(u"不认识的命令"_s)};
    if (writes && request.isTorn())
        return {ErrorText(u"命令不完整"_s)};
    if (writes)
        server.store.begin();
    if (isAttemptEntry)
        peer.mayLog = false;
    try {
        CommandAnswer answer = command->handler(server, peer, request);
        if (isAttemptEntry && !peer.wasCounted)
            answer.delay = server.failures.delayOfFailure(peer.address);
        return answer;
    } catch (const Refusal& refusal) {
        return {ErrorText(refusal.words())};
    }
}

bool OnlyReads(const Request& request) {
    const ServerCommand* command = FindServerCommand(request.command());
    return command && (command->flags & kOnlyReads);
}

CommandAnswer AnswerRequest(ServerState& server, Peer& peer, const Request& request) {
    const ServerCommand* command = FindServerCommand(request.command());
    const unsigned flags = command ? command->flags : kFromMemory;
    try {
        if ((flags & kOnlyReads) && server.store.assumes()) {
            CommandAnswer answer = Answer(server, peer, request, command);
            answer.isAssumed = true;
            return answer;
        }
        if ((flags & kWrites) && (!peer.user.isEmpty() || peer.mayLog))
            server.store.begin();
        else if (flags & (kWrites | kFromMemory))
            server.store.refreshMemory();
        else
            server.store.refresh();
        return Answer(server, peer, request, command);
    } catch (const Store::NotInMemory&) {
        server.store.refresh();
        return Answer(server, peer, request, command);
    }
}

} // namespace hotel
