#pragma once

// The primitives of record text in their plainest form: one-based positions, 0 for a search that finds
// nothing, no speed. What the real ones are compared with.

#include <QString>
#include <QStringList>

namespace plain {

QString GetTag(const QString& text, const QString& tag);
QString SetTag(const QString& text, const QString& tag, const QString& value);
QStringList TagNames(const QString& text);

// GetTagN and GetLine with the memory of one walker.
class Walker {
public:
    QString GetTagN(const QString& text, const QString& tag, int n);
    QString GetLine(const QString& text, int n);

private:
    QString lastOpening_;
    int lastOccurrence_ = 0;
    qsizetype occurrencePosition_ = 0;

    QString lastText_;
    int lastLine_ = 0;
    qsizetype linePosition_ = 0;
};

} // namespace plain
