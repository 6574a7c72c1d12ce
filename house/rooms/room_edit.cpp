#include "house/rooms/room_edit.h"

#include "house/common/paths.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"

#include <QFileInfo>

namespace hotel {

namespace {

using namespace room_record;

constexpr QStringView kOperation = u"房间基本参数设定";

constexpr QStringView kBoxFields[] = {kNumber,    kFloor,       kBeds,  kType,
                                      kTelephone, kNetworkPort, kRemark};

struct Required {
    QStringView field;
    QStringView words;
};
constexpr Required kRequired[] = {
    {kNumber, u"房间号错误，必须输入！"},
    {kFloor, u"楼层号错误，必须输入！"},
    {kBeds, u"房间内床位数量错误，必须输入！"},
    {kType, u"房间类型错误，必须选择！"},
};

constexpr QStringView kNoSuchRoom = u"房间信息不存在，必须首先增加";

RoomEditOutcome Refuse(QStringView words, QStringView missing = {}) {
    return {false, Notice{u"错误"_s, words.toString()}, missing};
}

RoomEditOutcome Unread() {
    return {false, Notice{kUnreadTitle.toString(), kUnreadWords.toString()}};
}

QString Box(QStringView boxes, QStringView field) {
    const QString value = TrimWhite(GetTag(boxes, field));
    return field == kBeds ? FormatText(value, u"#0") : value;
}

// `record` with every box that is filled.
QString WithBoxes(QString record, QStringView boxes) {
    for (const QStringView field : kBoxFields) {
        const QString value = Box(boxes, field);
        if (!value.isEmpty())
            record = SetTag(record, field, value);
    }
    return record;
}

QString WithPicture(const QString& record, const QString& path) {
    const QFileInfo picture(path);
    if (path.isEmpty() || !picture.isFile() || picture.fileName() == GetTag(record, kPicture))
        return record;
    const bool uploaded = UploadFile(path, RoomPictureFile(picture.fileName())) == 0;
    return uploaded ? SetTag(record, kPicture, picture.fileName()) : record;
}

RoomEditOutcome Save(QStringView room, const QString& record) {
    if (SetKfjbxx(room, record) == 0)
        return {true, {}};
    return {false, Notice{u"数据库操作失败"_s, u"房间信息保存失败，可能需要重新登录数据库！"_s}};
}

} // namespace

RoomEditOutcome AddRoom(QStringView boxes, const QString& picturePath) {
    for (const Required& required : kRequired) {
        if (Box(boxes, required.field).isEmpty())
            return Refuse(required.words, required.field);
    }
    const QString room = Box(boxes, kNumber);
    const RecordRead standing = FindKfjbxx(room);
    if (standing.failed())
        return Unread();
    if (!standing.value.isEmpty())
        return Refuse(u"房间信息已经存在，请使用修改命令");
    return Save(room, WithPicture(WithBoxes({}, boxes), picturePath));
}

RoomEditOutcome ChangeRoom(QStringView boxes, const QString& picturePath) {
    const QString room = Box(boxes, kNumber);
    if (room.isEmpty())
        return Refuse(kRequired[0].words);
    const RecordRead standing = FindKfjbxx(room);
    if (standing.failed())
        return Unread();
    if (standing.value.isEmpty())
        return Refuse(kNoSuchRoom);
    const RoomEditOutcome outcome =
        Save(room, WithPicture(WithBoxes(standing.value, boxes), picturePath));
    if (outcome.done)
        SaveLogRec(kOperation.toString(), u"修改房间参数"_s);
    return outcome;
}

RoomEditOutcome DeleteRoom(QStringView room) {
    if (DeleteRecord(RoomDatabaseFile(), kProject, room) != 0)
        return {false, Notice{u"提示"_s, u"信息删除失败！"_s}};
    SaveLogRec(kOperation.toString(), u"删除房间"_s);
    return {true, Notice{u"提示"_s, u"客房信息删除成功！"_s}};
}

std::optional<Notice> RefuseDelete(QStringView room) {
    return GetKfjbxx(room).isEmpty() ? Refuse(kNoSuchRoom).notice : std::nullopt;
}

Notice DeleteQuestion(QStringView room) {
    return {u"注意"_s, u"确认要删除客房:"_s + room + u" 的所有信息吗？"_s};
}

} // namespace hotel
