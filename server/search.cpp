#include "server/search.h"

#include <algorithm>

#include "record/conditions.h"
#include "record/record_text.h"

namespace hotel {

// The extreme when the conditions are exactly one, and that an extreme of the record's name.
static std::optional<Store::Extreme> LoneNameExtreme(const QList<Condition>& conditions) {
    static const QHash<QString, Store::Extreme> extremes = {
        {u"最大"_s, Store::Extreme::LastText},
        {u"最小"_s, Store::Extreme::FirstText},
        {u"数值最大"_s, Store::Extreme::GreatestNumber},
        {u"数值最小"_s, Store::Extreme::LeastNumber},
    };
    if (conditions.size() != 1 || conditions.first().object != tag::kRecordName)
        return std::nullopt;
    const auto extreme = extremes.constFind(conditions.first().op);
    return extreme == extremes.cend() ? std::nullopt : std::optional(*extreme);
}

QStringList FindByConditions(Store& store, const StorePath& path, const QString& project,
                             QStringView conditionText) {
    const QList<Condition> conditions = ParseConditions(conditionText);
    const std::optional<Store::Extreme> extreme = LoneNameExtreme(conditions);
    if (extreme && !project.isEmpty()) {
        const std::optional<QString> name = store.extremeName(path, project, *extreme);
        return name ? QStringList{*name} : QStringList();
    }
    const bool values = std::any_of(conditions.begin(), conditions.end(), [](const Condition& c) {
        return c.object != tag::kRecordName;
    });
    RecordSelection selection(conditions);
    store.walk(path, project, values,
               [&](const QString& name, const QString& value) { selection.look(name, value); });
    return selection.names();
}

QStringList SplitKeywords(QStringView list) {
    QStringList keywords;
    for (QStringView word : list.split(u','))
        keywords += TrimWhite(word);
    keywords.removeAll(QString());
    return keywords;
}

QStringList FindByKeywords(Store& store, const StorePath& path, const QString& project,
                           const Keywords& keywords) {
    QStringList names;
    store.walk(path, project, true, [&](const QString& name, const QString& value) {
        const auto held = [&](const QString& word) { return value.contains(word); };
        const QStringList& any = keywords.optional;
        if (std::all_of(keywords.required.begin(), keywords.required.end(), held) &&
            (any.isEmpty() || std::any_of(any.begin(), any.end(), held)) &&
            std::none_of(keywords.excluded.begin(), keywords.excluded.end(), held))
            names += name;
    });
    return names;
}

} // namespace hotel
