#include "tools/queries/list_query.h"

#include <QPointer>
#include <QWidget>
#include <optional>

#include "record/conditions.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/lists/CmnGrd.h"
#include "tools/queries/CmnQuery.h"

namespace hotel {

namespace {

int NameColumn(const ListQuery& query) {
    const QString label = query.nameLabel.isEmpty() ? tag::kRecordName.toString() : query.nameLabel;
    return int(query.columns.indexOf(label));
}

std::optional<QueryAnswer> Ask(const ListQuery& query, QWidget* parent) {
    ModalScreen<CmnQuery> form(parent, query.caption, query.columns, query.nameLabel);
    if (query.dated)
        form->useDates();
    if (!form.show())
        return std::nullopt;
    return QueryAnswer{form->conditionText(), form->StDay(), form->EndDay(), NameColumn(query)};
}

// False when the search went through and found nothing.
bool SearchAndShow(const ListQuery& query, const QueryAnswer& answer, QWidget* parent) {
    auto* list = new CmnGrd(query.title, query.columns);
    list->stopWith(parent ? qobject_cast<Screen*>(parent->window()) : nullptr);
    ShowScreen(list);
    const Screen::Running searching(*list); // the list stands until this is gone
    list->setTask(GridTask::Wait);
    const WalkEnd end = query.search(answer, *list);
    list->setTask(GridTask::Check);
    if (list->Grd().dataRows() > 0)
        return true;
    list->close();
    return end != WalkEnd::Finished;
}

} // namespace

ListSearch SearchFiles(const QString& project,
                       const std::function<QStringList(QDate first, QDate last)>& files) {
    return [project, files](const QueryAnswer& answer, CmnGrd& list) {
        return QueryFilesToGrid(files(answer.first, answer.last), project, answer.conditionText,
                                answer.nameColumn, list);
    };
}

void OpenListQuery(const ListQuery& query, QWidget* parent) {
    const QPointer<QWidget> asker = parent;
    const bool hasParent = parent != nullptr;
    while (bool(asker) == hasParent) {
        const std::optional<QueryAnswer> answer = Ask(query, asker);
        if (!answer || SearchAndShow(query, *answer, asker))
            return;
        MsgBox(u"没有找到满足条件的信息！"_s, u"重新查询"_s);
    }
}

} // namespace hotel
