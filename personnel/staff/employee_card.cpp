#include "personnel/staff/employee_card.h"

#include <QFileInfo>
#include <QImageReader>

#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

namespace {

using namespace employee;

QStringList Holders(const QString& card, const QString& number) {
    QString conditions;
    int n = 0;
    AddQueryCondition(conditions, u"或者", kNumber, u"等于", number, n);
    AddQueryCondition(conditions, u"或者", kCard, u"等于", card, n);
    const QString text = WrapConditions(conditions);
    QStringList found;
    for (int hit = 1;; ++hit) {
        const QString name = DbFieldFind(EmployeeFile(), {}, text, hit);
        if (name.isEmpty())
            return found;
        found.append(name);
    }
}

bool PutCard(const QString& file, const EmployeeKey& owner, const QString& card) {
    const RecordRead read = ReadToChange(file, owner.department, owner.number);
    return read.outcome == Reading::Present &&
           SaveRecord(file, owner.department, owner.number, SetTag(read.value, kCard, card)) == 0;
}

} // namespace

QString CardText(const QString& swiped) {
    return TrimWhite(swiped);
}

std::optional<Notice> RefuseCard(const QString& card, const EmployeeKey& owner) {
    for (const QString& number : Holders(card, owner.number)) {
        const QString holder = DbReadRecordBuffered(EmployeeFile(), {}, number);
        const QString department = EmployeeValue(holder, kDepartment);
        if (number == owner.number && department == owner.department)
            continue;
        return Notice{u"重复定义"_s, u"部门:"_s + department + u" 的员工:"_s +
                                         EmployeeValue(holder, kName) +
                                         u" 已经包含或使用了这一张卡或标志!"_s};
    }
    return std::nullopt;
}

CardOutcome GiveCard(const EmployeeKey& owner, const QString& card) {
    if (!PutCard(EmployeeFile(), owner, card) || !PutCard(EmployeeBriefFile(), owner, card))
        return {false, {kUnreadTitle.toString(), u"新的考勤用卡没有保存，请稍候再试！"_s}};
    return {true, CardGiven()};
}

Notice CardGiven() {
    return {u"提示"_s, u"该员工可以使用这张磁卡考勤了！"_s};
}

std::optional<Notice> RefusePhotograph(const QString& path) {
    if (QFileInfo(path).size() > kPhotographLimit)
        return Notice{u"注意"_s,
                      u"为了提高系统综合速度，请尽量选择较小的员工图片，不要大于120K！"_s};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (reader.format() != "jpeg" || reader.read().isNull())
        return Notice{u"注意"_s, u"这个文件不是JPEG图片，请重新选择！"_s};
    return std::nullopt;
}

} // namespace hotel
