#include "shell/user_accounts.h"

#include <algorithm>
#include <array>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr std::array<QStringView, 55> kRights = {
    u"密码设定",  u"前台接待",  u" 入住接待", u" 住客查询", u" 客人换房", u" 前台监控",
    u"客房中心",  u" 房态信息", u" 客房维护", u" 失物招领", u" 住客查询", u" 定时提醒",
    u"收银结算",  u" 账号管理", u" 费用查询", u" 夜审统计", u" 结账退房", u" 余额查验",
    u" 营业报表", u"经理办公",  u" 用户管理", u" 客房参数", u" 前厅照片", u" 操作记录",
    u"销售预定",  u" 预定管理", u" 铺面参数", u" 铺面销售", u" 团队会议", u" 应收管理",
    u"商务餐娱",  u" 签单记账", u" 电话计费", u" 话单分拣", u" 宽带计费", u" 网费分拣",
    u"人事管理",  u" 部门设定", u" 员工信息", u" 员工考勤", u" 考勤修订", u" 考勤统计",
    u" 考勤查询", u"资料信息",  u" 供应信息", u" 供应商",   u" 群发邮件", u" 群发短信",
    u" 打印封签", u"系统管理",  u" 分类名称", u" 系统参数", u" 数据浏览", u" 系统维护",
    u" 打印格式",
};

constexpr QStringView kUsualFile = u"User.QVR";
constexpr QStringView kManageUsers = u"用户管理";
constexpr QStringView kRightEnd = u"\r\n";

// In their order of writing.
constexpr QStringView kFields[] = {user_record::kName, user_record::kDepartment,
                                   user_record::kPassword, user_record::kRights,
                                   user_record::kAddress};

QString RightName(QStringView offered) {
    return TrimBlanks(offered);
}

QList<UserAccount> AccountsOf(QStringView project) {
    QList<UserAccount> accounts;
    for (FieldWalk user(project); user.next();) {
        if (user.closed())
            accounts.append({user.name().toString(), user.value().toString()});
    }
    return accounts;
}

QString ProjectOf(const QList<UserAccount>& accounts) {
    QStringList fields;
    for (const UserAccount& user : accounts)
        fields.append(u'<' + user.id + u'>' + user.record + u"</" + user.id + u'>');
    return fields.join(u"\r\n");
}

qsizetype IndexOf(const QList<UserAccount>& accounts, QStringView id) {
    const auto user = std::ranges::find(accounts, id, &UserAccount::id);
    return user == accounts.end() ? -1 : user - accounts.begin();
}

QString WithBoxes(QString record, QStringView boxes) {
    for (const QStringView field : kFields)
        record = SetTag(record, field, GetTag(boxes, field));
    return record;
}

// What `edited` changed against `read`, on top of what the server has by now.
QString Merged(const QString& read, const QString& edited, QString standing) {
    for (const QStringView field : kFields) {
        const QString value = GetTag(edited, field);
        if (value != GetTag(read, field))
            standing = SetTag(standing, field, value);
    }
    return standing;
}

QList<UserAccount> Merged(const UserAccounts& users, const QList<UserAccount>& standing) {
    QList<UserAccount> merged;
    for (const UserAccount& user : users.edited) {
        const qsizetype before = IndexOf(users.read, user.id);
        const qsizetype now = IndexOf(standing, user.id);
        const bool isNew = before < 0;
        if (!isNew && now >= 0)
            merged.append(
                {user.id, Merged(users.read[before].record, user.record, standing[now].record)});
        else if (isNew || user != users.read[before]) // deleted by another desk, changed here
            merged.append(user);
    }
    for (const UserAccount& user : standing) {
        if (IndexOf(users.read, user.id) < 0 && IndexOf(merged, user.id) < 0)
            merged.append(user);
    }
    return merged;
}

UserEditOutcome Refused(const QString& words, QStringView missing = {}) {
    return {false, Notice{u"提示"_s, words}, missing};
}

// What must be there in a user's boxes, in the order of asking.
std::optional<UserEditOutcome> RefuseBoxes(QStringView boxes) {
    if (GetTag(boxes, user_record::kName).isEmpty())
        return Refused(u"请输入用户姓名"_s, user_record::kName);
    if (GetTag(boxes, user_record::kDepartment).isEmpty())
        return Refused(u"请输入用户部门"_s, user_record::kDepartment);
    return {};
}

// A login name becomes the name of a record: what would cut the list or read as one of its fields is none.
bool IsLoginName(const QString& id) {
    constexpr QStringView kMarks = u"<>/\\";
    return std::ranges::none_of(id, [&](QChar sign) { return kMarks.contains(sign); }) &&
           std::ranges::find(kFields, id) == std::end(kFields);
}

} // namespace

std::span<const QStringView> OfferedRights() {
    return kRights;
}

QString RightsText(const QStringList& ticked) {
    QString rights;
    for (const QString& right : ticked)
        rights += RightName(right) + kRightEnd;
    return rights;
}

QList<bool> TicksOf(QStringView rights) {
    QList<bool> ticks;
    for (const QStringView right : kRights)
        ticks.append(rights.contains(RightName(right) + kRightEnd));
    return ticks;
}

QString UserFile() {
    const QString file = DbUserFileName();
    return file.isEmpty() ? kUsualFile.toString() : file;
}

qsizetype UserAccounts::find(QStringView id) const {
    return IndexOf(edited, id);
}

std::optional<UserAccounts> LoadUsers() {
    const RecordRead read = ReadProjectToChange(UserFile(), user_record::kProject);
    if (read.failed())
        return {};
    const QList<UserAccount> accounts = AccountsOf(read.value);
    return UserAccounts{accounts, accounts};
}

UserEditOutcome AddUser(UserAccounts& users, QStringView boxes) {
    const QString id = TrimWhite(GetTag(boxes, kUserId));
    if (id.isEmpty())
        return Refused(u"请输入用户名"_s, kUserId);
    if (!IsLoginName(id))
        return Refused(u"用户名不能使用这样的文字！"_s, kUserId);
    if (const auto refused = RefuseBoxes(boxes))
        return *refused;
    if (users.find(id) >= 0)
        return Refused(u"用户已经存在！"_s, kUserId);
    users.edited.append({id, WithBoxes({}, boxes)});
    SaveLogRec(u"增加用户"_s, u"用户信息："_s + id);
    return {true, {}};
}

UserEditOutcome ChangeUser(UserAccounts& users, QStringView selected, QStringView boxes) {
    const qsizetype index = users.find(selected);
    if (selected.isEmpty() || index < 0)
        return Refused(u"请先选择要修改内容的用户"_s);
    if (TrimWhite(GetTag(boxes, kUserId)) != selected)
        return Refused(u"如果要修改用户名，请删除重建！"_s, kUserId);
    if (const auto refused = RefuseBoxes(boxes))
        return *refused;
    users.edited[index].record = WithBoxes(users.edited[index].record, boxes);
    SaveLogRec(u"修改用户信息"_s, u"用户信息："_s + selected);
    return {true, Notice{u"提示"_s, u"用户信息已经修改！退出前请注意执行保存操作！"_s}};
}

void RemoveUser(UserAccounts& users, QStringView id) {
    users.edited.removeIf([id](const UserAccount& user) { return user.id == id; });
    SaveLogRec(u"删除用户"_s, u"用户信息："_s + id);
}

UserEditOutcome SaveUsers(UserAccounts& users) {
    const QString file = UserFile();
    const RecordRead standing = ReadProjectToChange(file, user_record::kProject);
    if (standing.failed())
        return {false, Notice{kUnreadTitle.toString(), kUnreadWords.toString()}};
    const QList<UserAccount> merged = Merged(users, AccountsOf(standing.value));
    if (std::ranges::none_of(merged, [](const UserAccount& user) {
            return GetTag(user.record, user_record::kRights).contains(kManageUsers);
        }))
        return Refused(u"至少要保留一个有“用户管理”权限的用户，没有保存！"_s);
    if (SaveProject(file, user_record::kProject, ProjectOf(merged)) != 0)
        return Refused(u"用户信息清单保存失败，请重新登录再试！"_s);
    users = {merged, merged};
    return {true, Notice{u"提示"_s, u"用户信息清单已经保存成功！"_s}};
}

PasswordOutcome ChangePassword(const QString& user, const QString& oldPassword,
                               const QString& newPassword, const QString& retyped) {
    const QString operation = u"修改密码"_s;
    if (newPassword != retyped)
        return {.notice = {u"提示"_s, u"新密码和再确认的密码不相同？"_s}, .clearsNew = true};
    if (user.isEmpty() || DbLogin(user, oldPassword) != 0) {
        SaveLogRec(operation, u"验证失败"_s);
        return {.notice = {u"验证失败！"_s, u"用户名与密码不匹配！"_s},
                .clearsOld = true,
                .clearsNew = true};
    }
    const QString file = UserFile();
    const RecordRead account = ReadToChange(file, user_record::kProject, user);
    const bool saved = account.outcome == Reading::Present &&
                       SaveRecord(file, user_record::kProject, user,
                                  SetTag(account.value, user_record::kPassword, newPassword)) == 0;
    SaveLogRec(operation, saved ? u"成功"_s : u"保存失败"_s);
    return {.done = saved,
            .notice = {u"提示"_s, saved ? u"密码成功修改！"_s : u"密码修改失败！"_s}};
}

} // namespace hotel
