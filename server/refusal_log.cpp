#include "server/refusal_log.h"

#include <algorithm>

#include <QTime>

#include "record/field_walk.h"
#include "record/record_text.h"
#include "server/store_path.h"

namespace hotel {

namespace {

constexpr qsizetype kEntryLimit = 500;

constexpr QStringView kCommands[] = {u"修改记录", u"创建记录"};
constexpr QStringView kEntryFields[] = {u"操作员", u"日期", u"时间", u"操作内容", u"备注"};

struct RefusedOperation {
    QStringView operation;
    QStringView remark; // how its 备注 begins
};
constexpr RefusedOperation kOperations[] = {{u"登录失败", {}}, {u"修改密码", u"验证失败"}};

bool IsOneOf(const auto& names, QStringView name) {
    return std::ranges::find(names, name) != std::end(names);
}

bool IsTimeOfDay(const QString& name) {
    return name.size() == 6 && DigitsOnly(name) == name &&
           QTime::fromString(name, u"HHmmss"_s).isValid();
}

bool IsEntryField(const FieldWalk& field) {
    return field.closed() && IsOneOf(kEntryFields, field.name()) && !field.value().contains(u'<') &&
           !field.value().contains(u'>');
}

bool IsEntry(QStringView value) {
    if (value.size() > kEntryLimit)
        return false;
    for (FieldWalk field(value); field.next();)
        if (!IsEntryField(field))
            return false;
    const QString operation = GetTag(value, u"操作内容");
    const QString remark = GetTag(value, u"备注");
    return std::ranges::any_of(kOperations, [&](const RefusedOperation& refused) {
        return operation == refused.operation && remark.startsWith(refused.remark);
    });
}

} // namespace

bool IsRefusalEntry(const OperationLogPlace& log, QDate today, const Request& request) {
    const auto file = ParseFilePath(request.field(u"库文件名"));
    const auto ofToday = ParseFilePath(log.folder + today.toString(u"yy\\MM\\yyMMdd") + u".qvr"_s);
    return IsOneOf(kCommands, request.command()) && file && ofToday && file->key == ofToday->key &&
           TrimWhite(request.field(u"项目名")) == log.project &&
           IsTimeOfDay(TrimWhite(request.field(u"记录"))) && IsEntry(request.field(u"记录值"));
}

} // namespace hotel
