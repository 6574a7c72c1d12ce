#include "house/stays/board_settings.h"

#include "house/common/paths.h"
#include "link/records.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

QString EntryTag(qsizetype index) {
    return FormatNumber(qint64(index), u"00");
}

} // namespace

QString TextOfShown(const QList<bool>& shown) {
    QString text;
    for (qsizetype i = 0; i < shown.size(); ++i)
        text = SetTag(text, EntryTag(i), shown[i] ? u"1" : u"0");
    return text;
}

QList<bool> ShownOfText(QStringView text, qsizetype entries) {
    QList<bool> shown;
    for (qsizetype i = 0; i < entries; ++i) {
        const QString flag = GetTag(text, EntryTag(i));
        shown.append(flag.isEmpty() || LeadingNumber(flag) > 0);
    }
    return shown;
}

std::optional<BoardSettings> LoadBoardSettings(QStringView user, qsizetype statuses,
                                               qsizetype floors, qsizetype types) {
    const RecordRead stored = ReadProjectToChange(PersonalFile(user), board_settings::kProject);
    if (stored.failed())
        return {};
    const auto shown = [&stored](QStringView record, qsizetype entries) {
        return ShownOfText(GetTag(stored.value, record), entries);
    };
    return BoardSettings{shown(board_settings::kStatuses, statuses),
                         shown(board_settings::kFloors, floors),
                         shown(board_settings::kTypes, types)};
}

int SaveBoardSettings(QStringView user, const BoardSettings& settings) {
    const QString file = PersonalFile(user);
    const auto save = [&file](QStringView record, const QList<bool>& shown) {
        return SaveRecord(file, board_settings::kProject, record, TextOfShown(shown));
    };
    return save(board_settings::kStatuses, settings.statuses) +
           save(board_settings::kFloors, settings.floors) +
           save(board_settings::kTypes, settings.types);
}

} // namespace hotel
