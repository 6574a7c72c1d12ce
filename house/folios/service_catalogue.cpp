#include "house/folios/service_catalogue.h"

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/parameters.h"

namespace hotel {

namespace {

constexpr QStringView kProject = u"客房服务明细信息";
constexpr QStringView kDetails = u"服务明细";
constexpr QStringView kPrefix = u"2-";
constexpr QStringView kNoValue = u" ";

QString CatalogueFile() {
    return Param(u"XtsjLj") + Param(u"FwmxDb");
}

QString DetailsOf(QStringView catalogue, QStringView serviceClass) {
    return GetTag(GetTag(catalogue, serviceClass), kDetails);
}

// The catalogue with a field of a class's details set; an empty value takes it away.
QString WithDetail(const QString& catalogue, QStringView serviceClass, QStringView detail,
                   QStringView value) {
    const QString details =
        SetTag(DetailsOf(catalogue, serviceClass), kPrefix.toString() + detail, value);
    return SetTag(catalogue, serviceClass,
                  SetTag(GetTag(catalogue, serviceClass), kDetails, details));
}

} // namespace

void ServiceCatalogue::load() {
    loaded_ = ReadProjectToChange(CatalogueFile(), kProject);
    text_ = loaded_.value;
}

QStringList ServiceCatalogue::details(QStringView serviceClass) const {
    QStringList details;
    const QString fields = DetailsOf(text_, serviceClass);
    for (FieldWalk field(fields); details.size() < kServiceDetailLimit && field.next();) {
        const QStringView name = field.name();
        const QString detail =
            name.sliced(name.startsWith(kPrefix) ? kPrefix.size() : 0).toString();
        if (!details.contains(detail))
            details.append(detail);
    }
    return details;
}

void ServiceCatalogue::add(QStringView serviceClass, QStringView detail) {
    if (GetTag(DetailsOf(text_, serviceClass), kPrefix.toString() + detail).isEmpty())
        text_ = WithDetail(text_, serviceClass, detail, kNoValue);
}

void ServiceCatalogue::takeBack(QStringView serviceClass, QStringView detail) {
    if (GetTag(DetailsOf(loaded_.value, serviceClass), kPrefix.toString() + detail).isEmpty())
        text_ = WithDetail(text_, serviceClass, detail, {});
}

int ServiceCatalogue::writeBack() {
    if (loaded_.failed() || text_ == loaded_.value)
        return 0;
    const RecordRead server = ReadProjectToChange(CatalogueFile(), kProject);
    if (server.failed())
        return 1;
    QString merged = server.value;
    int compared = 0;
    for (FieldWalk field(text_); compared < kServiceCompareLimit && field.next(); ++compared) {
        const QString details = field.value().toString();
        if (details != GetTag(loaded_.value, field.name()))
            merged = SetTag(merged, field.name(), details);
    }
    if (merged == server.value)
        return 0;
    const QString file = CatalogueFile();
    if (DbModifyRecord(file, {}, kProject, merged) == 0)
        return 0;
    DbCreateFile(file);
    DbCreateProject(file, kProject);
    return DbModifyRecord(file, {}, kProject, merged);
}

} // namespace hotel
