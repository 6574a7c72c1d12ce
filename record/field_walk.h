#pragma once

// A walk over the fields of a record text without memory between calls and without a limit, by the
// same rule as TagName: the value of a field, with any tags inside it, is stepped over.
//
//     FieldWalk walk(text);
//     while (walk.next())
//         use(walk.name(), walk.value());

#include <QHash>
#include <QStringView>

namespace hotel {

class FieldWalk {
public:
    // `text` must outlive the walk; name() and value() look into it.
    explicit FieldWalk(QStringView text) : text_(text) {}

    // Moves to the next field; false at the end of the text.
    bool next();

    // Name of the current field, trimmed with TrimWhite's rule.
    QStringView name() const { return name_; }

    // Text between the tags; empty for a tag that is never closed.
    QStringView value() const { return value_; }

    // False for a tag that is never closed (`<name />`, a stray `</name>`).
    bool closed() const { return closed_; }

private:
    qsizetype closingAhead() const;
    qsizetype findClosing(QStringView closingTag);
    void readLastClosings();

    QStringView text_;
    QStringView name_;
    QStringView value_;
    qsizetype position_ = 0;
    bool closed_ = false;

    int futileSearches_ = 0;
    QHash<QStringView, qsizetype> lastClosings_; // by name; read after a few futile searches
};

} // namespace hotel
