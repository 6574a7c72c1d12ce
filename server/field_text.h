#pragma once

#include <QString>
#include <QStringBuilder>
#include <QStringView>

namespace hotel {

// `<name>value</name>`
inline QString FieldText(QStringView name, QStringView value) {
    return u'<' % name % u'>' % value % u"</" % name % u'>';
}

} // namespace hotel
