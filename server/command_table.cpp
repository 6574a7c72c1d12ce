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

QString DateText(const CommandContext& context) {
    return context.clock().toString(u"yyyy-MM-dd"_s);
}

Answer LogIn(CommandContext& context, Speaker& speaker, const Request& request) {
    const QString user = NameField(request, u"用户名");
    const QStringView digest = request.field(u"密码");
    const QString date = DateText(context);
    const LoginVerdict verdict =
        JudgeLogin(context.store, context.productId, user, digest, speaker.address, date);
    if (verdict == LoginVerdict::Admitted) {
        speaker.user = user;
        return {u"<SUCCESS>登录成功"_s};
    }
    const int delay = IsEmptyAttempt(context.productId, user, digest, date)
                          ? 0
                          : context.failures.delayOfFailure(speaker.address);
    switch (verdict) {
    case LoginVerdict::UnknownUser:
        return {ErrorText(u"没有该用户"_s), delay};
    case LoginVerdict::WrongAddress:
        return {ErrorText(u"不允许从该地址登录"_s), delay};
    default:
        return {ErrorText(u"密码错误"_s), delay};
    }
}

Answer LogOut(CommandContext&, Speaker& speaker, const Request&) {
    speaker.user.clear();
    return Done();
}

Answer UserList(CommandContext& context, Speaker&, const Request&) {
    QStringList users;
    context.store.walk(*ParseFilePath(kUserFile), kUserProject, false,
                       [&](const QString& name, const QString&) { users += name; });
    return List(u"记录清单", users);
}

Answer UserFileName(CommandContext&, Speaker&, const Request&) {
    return {FieldText(u"用户文件名", kUserFile)};
}

Answer ServerDate(CommandContext& context, Speaker&, const Request&) {
    return {FieldText(u"当前日期", DateText(context))};
}

Answer ServerTime(CommandContext& context, Speaker&, const Request&) {
    return {FieldText(u"当前时间", context.clock().toString(u"HH:mm:ss"_s))};
}

// --- Files -------------------------------------------------------------------------------------------

Answer CreateDatabase(CommandContext& context, Speaker&, const Request& request) {
    context.store.createDatabase(FileField(request));
    return Done();
}

Answer DeleteFile(CommandContext& context, Speaker&, const Request& request) {
    context.store.removeFile(FileField(request));
    return Done();
}

Answer RenameFile(CommandContext& context, Speaker&, const Request& request) {
    context.store.renameFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

Answer CopyFile(CommandContext& context, Speaker&, const Request& request) {
    context.store.copyFile(FileField(request, u"源文件名"), FileField(request, u"目标文件名"));
    return Done();
}

Answer FileList(CommandContext& context, Speaker&, const Request& request) {
    const std::optional<StorePath> folder = ParseFolderPath(request.field(u"路径名"));
    if (!folder)
        throw Refusal(refusal::kBadName);
    const QString pattern = NameField(request, u"库文件说明");
    QStringList files = context.store.list(*folder).files;
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

Answer CheckDatabase(CommandContext& context, Speaker&, const Request& request) {
    const auto result = [](const QString& text) { return Answer{FieldText(u"检查结果", text)}; };
    const QString missing = u"-1"_s;
    const int code = int(LeadingNumber(request.field(u"功能码")));
    if (code == 2 || code == 3) {
        const QStringList folders = NumberedFolders(context.store, request.field(u"库文件名"));
        if (folders.isEmpty())
            return result(missing);
        return result(code == 2 ? folders.first() : folders.last());
    }
    const StorePath path = FileField(request);
    if (context.store.kind(path) == Store::Kind::Missing)
        return result(missing);
    switch (code) {
    case 0:
        return result(QString::number(context.store.projects(path).size()));
    case 5:
        return result(context.store.stamp(path).last(8));
    case 6:
        return result(context.store.stamp(path));
    default:
        throw Refusal(u"不认识的功能码"_s);
    }
}

Answer PrepareData(CommandContext& context, Speaker&, const Request& request) {
    if (context.store.kind(FileField(request)) == Store::Kind::Missing)
        throw Refusal(refusal::kNoFile);
    return Done();
}

QString HexSum(const QByteArray& content) {
    quint32 sum = 0;
    for (char c : content)
        sum += quint8(c);
    return QString::number(sum, 16).toUpper();
}

Answer Upload(CommandContext& context, Speaker&, const Request& request) {
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
    context.store.writeUpload(path, content);
    return Done();
}

Answer Download(CommandContext& context, Speaker&, const Request& request) {
    const std::optional<QByteArray> content = context.store.upload(FileField(request, u"文件名"));
    if (!content)
        throw Refusal(refusal::kNoFile);
    return {FieldText(u"文件内容", QString::fromLatin1(content->toHex().toUpper())) % kCrLf %
            FieldText(u"文件长度", QString::number(content->size())) % kCrLf %
            FieldText(u"文件校验和", HexSum(*content))};
}

// --- Projects ----------------------------------------------------------------------------------------

Answer ProjectList(CommandContext& context, Speaker&, const Request& request) {
    return List(u"项目清单", context.store.projects(FileField(request)));
}

Answer CreateProject(CommandContext& context, Speaker&, const Request& request) {
    const StorePath path = FileField(request);
    const QString project = NewNameField(request, u"项目名");
    if (!context.store.hasProject(path, project))
        context.store.writeProject(path, project, request.field(u"初始值"));
    return Done();
}

Answer DeleteProject(CommandContext& context, Speaker&, const Request& request) {
    context.store.removeProject(FileField(request), NameField(request, u"项目名"));
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

Answer ReadRecord(CommandContext& context, Speaker&, const Request& request) {
    const RecordKey key(request);
    const std::optional<QString> value = Read(context.store, key);
    if (!value)
        throw Refusal(refusal::kNoRecord);
    return {FieldText(key.record, *value)};
}

// The record and, up to a bound, those behind it. A following record is left out, with all behind it,
// when its tags stand in the block already: the reader of the block would find the wrong text.
Answer ReadBuffered(CommandContext& context, Speaker& speaker, const Request& request) {
    const RecordKey key(request);
    const QList<NamedText> records =
        context.store.readBlock(key.path, key.project, key.record, kBlockRecords);
    if (records.isEmpty())
        return ReadRecord(context, speaker, request);
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

Answer ModifyRecord(CommandContext& context, Speaker&, const Request& request) {
    Write(context.store, RecordKey(request), request);
    return Done();
}

Answer CreateRecord(CommandContext& context, Speaker&, const Request& request) {
    const RecordKey key(request);
    if (Exists(context.store, key))
        throw Refusal(refusal::kRecordExists);
    Write(context.store, key, request);
    return Done();
}

Answer ReplaceRecord(CommandContext& context, Speaker&, const Request& request) {
    const RecordKey key(request);
    if (!Exists(context.store, key))
        throw Refusal(refusal::kNoRecord);
    Write(context.store, key, request);
    return Done();
}

Answer DeleteRecord(CommandContext& context, Speaker&, const Request& request) {
    const RecordKey key(request);
    context.store.remove(key.path, key.project, key.record);
    return Done();
}

Answer RecordList(CommandContext& context, Speaker&, const Request& request) {
    QStringList names;
    context.store.walk(FileField(request), NameField(request, u"项目名"), false,
                       [&](const QString& name, const QString&) { names += name; });
    return List(u"记录清单", names);
}

Answer FindRecords(CommandContext& context, Speaker&, const Request& request) {
    const Keywords keywords{SplitKeywords(request.field(u"记录必选项")),
                            SplitKeywords(request.field(u"记录任选项")),
                            SplitKeywords(request.field(u"记录排除项"))};
    return List(u"记录清单", FindByKeywords(context.store, FileField(request),
                                            NameField(request, u"项目名"), keywords));
}

Answer FindFields(CommandContext& context, Speaker&, const Request& request) {
    return List(u"记录清单",
                FindByConditions(context.store, FileField(request), NameField(request, u"项目名"),
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

Answer AnswerRequest(CommandContext& context, Speaker& speaker, const Request& request) {
    const Command* command = FindCommand(request.command());
    const bool beforeLogin = command && (command->flags & kBeforeLogin);
    if (speaker.user.isEmpty() && !beforeLogin)
        return {ErrorText(u"没有登录"_s)};
    if (!command)
        return {ErrorText(u"不认识的命令"_s)};
    if (command->flags & kWrites)
        context.store.begin();
    try {
        return command->handler(context, speaker, request);
    } catch (const Refusal& refusal) {
        return {ErrorText(refusal.words())};
    }
}

} // namespace hotel
