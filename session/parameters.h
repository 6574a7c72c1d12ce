#pragma once

// The hotel's parameters: folders and names of every database file, the time limits of the room
// charge, print formats and switches. Paths are relative to the server's root and are joined by plain
// concatenation: Param(u"XtsjLj") + Param(u"Flmcxx").
//
// The defaults are compiled in; a site has values of its own in their place (its name above all), from the
// configuration of the workstation. Nothing keeps a change: it holds until the program ends.

#include <span>

#include <QHash>

#include <QString>
#include <QStringView>

namespace hotel {

enum class ParameterKind {
    Text,
    Folder, // ends in a backslash, as names are put right behind it
    Switch, // "0" or "1"
    Time,   // "HH:mm"
};

struct Parameter {
    QStringView name; // as other code asks for it
    QStringView defaultValue;
    QStringView label; // as the parameter screen shows it
    ParameterKind kind = ParameterKind::Text;
};

// In the order in which the parameter screen shows them.
std::span<const Parameter> Parameters();

// The current value. An unknown name is an error of the program: it stops a debug build and reads as
// empty otherwise.
QString Param(QStringView name);
bool ParamOn(QStringView name);
void SetParam(QStringView name, const QString& value);

// Why a parameter can't have that value, in words; empty when it can.
QString CheckParameter(const Parameter& parameter, QStringView value);

// The site's own values by name, in place of all earlier ones. A change made meanwhile holds on.
void SetSiteParameters(const QHash<QString, QString>& values);

// Back to the site's values, as at the start of the program.
void ResetParameters();

} // namespace hotel
