#include "server/command_table.h"

#include <algorithm>

#include <QDir>

#include "record/numbers.h"
#include "record/record_text.h"
#include "server/field_text.h"
#include "server/search.h"

namespace hotel {

namespace {

// A buffered read brings following records along, up to so many and so much.
constexpr int kBlockRecords = 32;
constexpr qsizetype kBlockLength = 16 * 1024;

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

Answer Done() {
    return {u"<SUCCESS>"_s};
}

Answer List(QStringView name, const QStringList& entries) {
    QString text = u'<' % name % u'>' % kCrLf;
    for (const QString& entry : entries)
        text += entry % kCrLf;
    return {text % u"</" % name % u'>'};
}

// --- Login -------------------------------------------------------------------------------------------

QString DateText(const Desk& desk) {
    return desk.clock().toString(u"yyyy-MM-dd"_s);
}

Answer LogIn(Desk& desk, Session& session, const Request& request) {
    const QString user = NameField(request, u"用户名");
    const QStringView digest = request.field(u"密码");
    const QString date = DateText(desk);
    const LoginVerdict verdict =
        JudgeLogin(desk.store, desk.productId, user, digest, session.address, date);
    if (verdict == LoginVerdict::Admitted) {
        session.user = user;
        return {u"<SUCCESS>登录成功"_s};
    }
    const int delay = IsEmptyAttempt(desk.productId, user, digest, date)
                          ? 0
                          : desk.failures.delayOfFailure(session.address);
    switch (verdict) {
    case LoginVerdict::UnknownUser:
        return {ErrorText(u"没有该用户"_s), delay};
    case LoginVerdict::WrongAddress:
        return {ErrorText(u"不允许从该地址登录"_s), delay};
    default:
        return {ErrorText(u"密码错误"_s), delay};
    }
}

Answer LogOut(Desk&, Session& session, const Request&) {
    session.user.clear();
    return Done();
}

Answer UserList(Desk& desk, Session&, const Request&) {
    QStringList users;
    desk.store.walk(*ParseFilePath(kUserFile), kUserProject, false,
                    [&](const QString& name, const QString&) { users += name; });
    return List(u"记录清单", users);
}

Answer UserFileName(Desk&, Session&, const Request&) {
    return {FieldText(u"用户文件名", kUserFile)};
}

Answer ServerDate(Desk& desk, Session&, const Request&) {
    return {FieldText(u"当前日期", DateText(desk))};
}

Answer ServerTime(Desk& desk, Session&, const Request&) {
    return {FieldText(u"当前时间", desk.clock().toString(u"HH:mm:ss"_s))};
}

// --- Files -------------------------------------------------------------------------------------------

Answer CreateDatabase(Desk& desk, Session&, const Request& request) {
    desk.store.createDatabase(FileField(request));
    return Done();
}

Answer DeleteFile(Desk& desk, Session&, const Request& request) {
    desk.store.removeFile(FileField(request));
    return Done();
}

Answer RenameFile(Desk& desk, Session&, const Request& request) {
    desk.store.renameFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

Answer CopyFile(Desk& desk, Session&, const Request& request) {
    desk.store.copyFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

Answer FileList(Desk& desk, Session&, const Request& request) {
    const std::optional<StorePath> folder = ParseFolderPath(request.field(u"路径名"));
    if (!folder)
        throw Refusal(refusal::kBadName);
    const QString pattern = NameField(request, u"库文件说明");
    QStringList files = desk.store.list(*folder).files;
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

Answer CheckDatabase(Desk& desk, Session&, const Request& request) {
    const auto result = [](const QString& text) { return Answer{FieldText(u"检查结果", text)}; };
    const QString missing = u"-1"_s;
    const int code = int(LeadingNumber(request.field(u"功能码")));
    if (code == 2 || code == 3) {
        const QStringList folders = NumberedFolders(desk.store, request.field(u"库文件名"));
        if (folders.isEmpty())
            return result(missing);
        return result(code == 2 ? folders.first() : folders.last());
    }
    const StorePath path = FileField(request);
    if (desk.store.kind(path) == Store::Kind::Missing)
        return result(missing);
    switch (code) {
    case 0:
        return result(QString::number(desk.store.projects(path).size()));
    case 5:
        return result(desk.store.stamp(path).last(8));
    case 6:
        return result(desk.store.stamp(path));
    default:
        throw Refusal(u"不认识的功能码"_s);
    }
}

Answer PrepareData(Desk& desk, Session&, const Request& request) {
    if (desk.store.kind(FileField(request)) == Store::Kind::Missing)
        throw Refusal(refusal::kNoFile);
    return Done();
}

QString HexSum(const QByteArray& content) {
    quint32 sum = 0;
    for (char c : content)
        sum += quint8(c);
    return QString::number(sum, 16).toUpper();
}

Answer Upload(Desk& desk, Session&, const Request& request) {
    const StorePath path = FileField(request, u"文件名");
    const QByteArray hex = request.field(u"文件内容").toLatin1();
    const QByteArray content = QByteArray::fromHex(hex);
    if (content.size() * 2 != hex.size() ||
        double(content.size()) != LeadingNumber(request.field(u"文件长度")))
        throw Refusal(u"文件长度不符"_s);
    bool isNumber = false;
    const quint32 sum = request.field(u"文件校验和").trimmed().toUInt(&isNumber, 16);
    if (!isNumber || QString::number(sum, 16).toUpper() != HexSum(content))
        throw Refusal(u"文件校验和不符"_s);
    desk.store.writeUpload(path, content);
    return Done();
}

Answer Download(Desk& desk, Session&, const Request& request) {
    const std::optional<QByteArray> content = desk.store.upload(FileField(request, u"文件名"));
    if (!content)
        throw Refusal(refusal::kNoFile);
    return {FieldText(u"文件内容", QString::fromLatin1(content->toHex().toUpper())) % kCrLf %
            FieldText(u"文件长度", QString::number(content->size())) % kCrLf %
            FieldText(u"文件校验和", HexSum(*content))};
}

// --- Projects ----------------------------------------------------------------------------------------

Answer ProjectList(Desk& desk, Session&, const Request& request) {
    return List(u"项目清单", desk.store.projects(FileField(request)));
}

Answer CreateProject(Desk& desk, Session&, const Request& request) {
    const StorePath path = FileField(request);
    const QString project = NewNameField(request, u"项目名");
    if (!desk.store.hasProject(path, project))
        desk.store.writeProject(path, project, request.field(u"初始值"));
    return Done();
}

Answer DeleteProject(Desk& desk, Session&, const Request& request) {
    desk.store.removeProject(FileField(request), NameField(request, u"项目名"));
    return Done();
}

// --- Records -----------------------------------------------------------------------------------------

// A record as a request names it. With an empty project name the record's name is that of a project,
// which is meant as a whole.
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
        store.writeProject(key.path, record, value);
    else
        store.write(key.path, NewNameField(request, u"项目名"), record, value.toString());
}

Answer ReadRecord(Desk& desk, Session&, const Request& request) {
    const RecordKey key(request);
    const std::optional<QString> value = Read(desk.store, key);
    if (!value)
        throw Refusal(refusal::kNoRecord);
    return {FieldText(key.record, *value)};
}

// The record and, up to a bound, those behind it. A following record is left out, with all behind it,
// when its tags stand in the block already: the reader of the block would find the wrong text.
Answer ReadBuffered(Desk& desk, Session& session, const Request& request) {
    const RecordKey key(request);
    const QList<NamedText> records =
        desk.store.readBlock(key.path, key.project, key.record, kBlockRecords);
    if (records.isEmpty())
        return ReadRecord(desk, session, request);
    QString block = FieldText(records.first().name, records.first().text);
    for (const NamedText& record : records.sliced(1)) {
        const bool hidden =
            block.contains(u'<' % record.name % u'>') || block.contains(u"</" % record.name % u'>');
        if (hidden || block.size() + record.text.size() > kBlockLength)
            break;
        block += kCrLf % FieldText(record.name, record.text);
    }
    return {block};
}

Answer ModifyRecord(Desk& desk, Session&, const Request& request) {
    Write(desk.store, RecordKey(request), request);
    return Done();
}

Answer CreateRecord(Desk& desk, Session&, const Request& request) {
    const RecordKey key(request);
    if (Exists(desk.store, key))
        throw Refusal(refusal::kRecordExists);
    Write(desk.store, key, request);
    return Done();
}

Answer ReplaceRecord(Desk& desk, Session&, const Request& request) {
    const RecordKey key(request);
    if (!Exists(desk.store, key))
        throw Refusal(refusal::kNoRecord);
    Write(desk.store, key, request);
    return Done();
}

Answer DeleteRecord(Desk& desk, Session&, const Request& request) {
    const RecordKey key(request);
    desk.store.remove(key.path, key.project, key.record);
    return Done();
}

Answer RecordList(Desk& desk, Session&, const Request& request) {
    QStringList names;
    desk.store.walk(FileField(request), NameField(request, u"项目名"), false,
                    [&](const QString& name, const QString&) { names += name; });
    return List(u"记录清单", names);
}

Answer FindRecords(Desk& desk, Session&, const Request& request) {
    const Keywords keywords{SplitKeywords(request.field(u"记录必选项")),
                            SplitKeywords(request.field(u"记录任选项")),
                            SplitKeywords(request.field(u"记录排除项"))};
    return List(u"记录清单", FindByKeywords(desk.store, FileField(request),
                                            NameField(request, u"项目名"), keywords));
}

Answer FindFields(Desk& desk, Session&, const Request& request) {
    return List(u"记录清单",
                FindByConditions(desk.store, FileField(request), NameField(request, u"项目名"),
                                 request.field(u"记录查询条件")));
}

// --- The table ---------------------------------------------------------------------------------------

constexpr Command kCommands[] = {
    {u"登录", kBeforeLogin, LogIn},
    {u"注销", 0, LogOut},
    {u"用户清单", kBeforeLogin, UserList},
    {u"获取用户文件名", kBeforeLogin, UserFileName},
    {u"读取日期", kBeforeLogin, ServerDate},
    {u"读取时间", kBeforeLogin, ServerTime},
    {u"读取记录", 0, ReadRecord},
    {u"缓冲读取记录", 0, ReadBuffered},
    {u"修改记录", kWrites, ModifyRecord},
    {u"创建记录", kWrites, CreateRecord},
    {u"替换记录", kWrites, ReplaceRecord},
    {u"删除记录", kWrites, DeleteRecord},
    {u"记录清单", 0, RecordList},
    {u"查找记录", 0, FindRecords},
    {u"字段查找", 0, FindFields},
    {u"项目清单", 0, ProjectList},
    {u"创建项目", kWrites, CreateProject},
    {u"删除项目", kWrites, DeleteProject},
    {u"创建数据库", kWrites, CreateDatabase},
    {u"删除数据库", kWrites, DeleteFile},
    {u"检查数据库", 0, CheckDatabase},
    {u"数据库清单", 0, FileList},
    {u"数据准备", 0, PrepareData},
    {u"文件换名", kWrites, RenameFile},
    {u"文件复制", kWrites, CopyFile},
    {u"上传文件", kWrites, Upload},
    {u"下载文件", 0, Download},
};

} // namespace

const Command* FindCommand(QStringView name) {
    const auto command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                      [&](const Command& c) { return c.name == name; });
    return command == std::end(kCommands) ? nullptr : command;
}

QString ErrorText(const QString& words) {
    return FieldText(u"ERROR", words);
}

Answer AnswerRequest(Desk& desk, Session& session, const Request& request) {
    const Command* command = FindCommand(request.command());
    const bool beforeLogin = command && (command->flags & kBeforeLogin);
    if (session.user.isEmpty() && !beforeLogin)
        return {ErrorText(u"没有登录"_s)};
    if (!command)
        return {ErrorText(u"不认识的命令"_s)};
    if (command->flags & kWrites)
        desk.store.begin();
    try {
        return command->handler(desk, session, request);
    } catch (const Refusal& refusal) {
        return {ErrorText(refusal.words())};
    }
}

} // namespace hotel
