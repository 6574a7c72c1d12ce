#pragma once

// The details of room service by class: what a laundry, a minibar hands out. The desk adds to it while it
// posts; it is kept in memory and written back as the screen closes.
//
// Parameters XtsjLj and FwmxDb name its file. The project 客房服务明细信息 has a record a class, with one field,
// 服务明细: a field a detail, named "2-" and the detail, whose value is a blank unless the house has put
// something there.

#include <QString>
#include <QStringList>
#include <QStringView>

#include "link/records.h"

namespace hotel {

inline constexpr int kServiceDetailLimit = 99;    // of a class, that are offered
inline constexpr int kServiceCompareLimit = 2000; // classes that are compared on writing back

class ServiceCatalogue {
public:
    // Where the server doesn't give it, the catalogue is empty and is never written back.
    void load();

    // Each once, in their order.
    QStringList details(QStringView serviceClass) const;

    void add(QStringView serviceClass, QStringView detail);
    // Takes back what was added since it was loaded; what the house had stays.
    void takeBack(QStringView serviceClass, QStringView detail);

    // Writes back the classes that were changed here and differ from the server's: another desk may have
    // added to other ones meanwhile. 0 when the server has what is here.
    int writeBack();

private:
    RecordRead loaded_;
    QString text_;
};

} // namespace hotel
