#pragma once

// The hotel's parameters: folders and names of every database file, the time limits of the room
// charge, print formats and switches. Paths are relative to the server's root and are joined by plain
// concatenation: Param(u"XtsjLj") + Param(u"Flmcxx").
//
// The defaults are compiled in. Nothing keeps a change: it holds until the program ends.

#include <span>

#include <QString>
#include <QStringView>

namespace hotel {

enum class ParameterKind { Text, Switch };

struct Parameter {
    QStringView name;         // as other code asks for it
    QStringView defaultValue; // a switch: "0" or "1"
    QStringView label;        // as the parameter screen shows it
    ParameterKind kind = ParameterKind::Text;
};

// In the order in which the parameter screen shows them.
std::span<const Parameter> Parameters();

// The current value. An unknown name is an error of the program: it stops a debug build and reads as
// empty otherwise.
QString Param(QStringView name);
bool ParamOn(QStringView name);
void SetParam(QStringView name, const QString& value);

// Back to the compiled-in defaults, as at the start of the program.
void ResetParameters();

} // namespace hotel
