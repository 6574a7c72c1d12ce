#pragma once

// The hotel's parameters: folders and names of every database file, the time limits of the room
// charge, print formats and switches. Their defaults are compiled in; a change holds until the program
// ends.

#include <QList>
#include <QString>
#include <QStringView>

namespace hotel {

struct Parameter {
    QStringView name;         // as other code asks for it
    QStringView defaultValue; // switches: "0" or "1"
    QStringView label;        // as the parameter screen shows it
};

const QList<Parameter>& Parameters();

// Current value; an unknown name is an error of the program (assertion) and reads as empty.
QString Param(QStringView name);
bool ParamOn(QStringView name);
void SetParam(QStringView name, const QString& value);

// Back to the compiled-in defaults, as at the start of the program.
void ResetParameters();

} // namespace hotel
