#include "plain_record_text.h"

namespace plain {

namespace {

qsizetype Find(qsizetype from, const QString& text, const QString& part) {
    return text.indexOf(part, from < 1 ? 0 : from - 1) + 1;
}

QString Mid(const QString& text, qsizetype from, qsizetype length) {
    return length <= 0 ? QString() : text.mid(from - 1, length);
}

QString Trimmed(QString text, const QString& blanks) {
    while (!text.isEmpty() && blanks.contains(text.front()))
        text.remove(0, 1);
    while (!text.isEmpty() && blanks.contains(text.back()))
        text.chop(1);
    return text;
}

} // namespace

QString GetTag(const QString& text, const QString& tag) {
    const QString opening = '<' + tag + '>';
    const qsizetype a = Find(1, text, opening);
    const qsizetype z = Find(1, text, "</" + tag + '>');
    if (a == 0 || z <= a)
        return {};
    return Mid(text, a + opening.size(), z - a - opening.size());
}

QString SetTag(const QString& text, const QString& tag, const QString& value) {
    const QString name = Trimmed(tag, " ");
    const QString opening = '<' + name + '>';
    const QString closing = "</" + name + '>';
    if (name.isEmpty())
        return text;
    const qsizetype p = Find(1, text, opening);
    if (p > 0) {
        const qsizetype q = Find(p + 1, text, closing);
        if (q == 0)
            return text;
        if (!value.isEmpty())
            return text.left(p - 1) + opening + value + text.mid(q - 1);
        const qsizetype behind = q + closing.size();
        const qsizetype next = Find(behind, text, "<");
        return text.left(p - 1) + text.mid((next > 0 ? next : behind) - 1);
    }
    if (value.isEmpty())
        return text;
    const qsizetype last = text.lastIndexOf('>') + 1;
    return (last > 0 ? text.left(last) + "\r\n" : QString()) + opening + value + closing;
}

QStringList TagNames(const QString& text) {
    QStringList names;
    qsizetype position = 1;
    while (position < text.size()) {
        qsizetype open = Find(position, text, "<");
        if (open == 0)
            open = text.size() + 1;
        const qsizetype end = Find(open + 1, text, ">");
        if (end <= open)
            break;
        const QString name = Trimmed(Mid(text, open + 1, end - open - 1), u" \r\n\t\u3000"_qs);
        position = end + 1;
        if (name.isEmpty())
            continue;
        names.append(name);
        const QString closing = "</" + name + '>';
        const qsizetype z = Find(end, text, closing);
        if (z > end)
            position = z + closing.size();
    }
    return names;
}

QString Walker::GetTagN(const QString& text, const QString& tag, int n) {
    const QString opening = '<' + tag + '>';
    const QString closing = "</" + tag + '>';
    const QString emptyForm = '<' + tag + " />";
    const bool resumed = lastOpening_ == opening && lastOccurrence_ + 1 == n;
    qsizetype position = resumed ? occurrencePosition_ : 1;
    int counter = resumed ? n : 1;
    lastOpening_.clear();
    for (; counter <= n; ++counter) {
        const qsizetype a = Find(position, text, opening);
        const qsizetype b = Find(position, text, emptyForm);
        if (a > 0 && (b == 0 || b > a)) {
            position = a + opening.size();
            if (counter < n)
                continue;
            const qsizetype z = Find(a, text, closing);
            if (z <= a)
                return {};
            lastOpening_ = opening;
            lastOccurrence_ = n;
            occurrencePosition_ = z;
            return Mid(text, a + opening.size(), z - a - opening.size());
        }
        if (b == 0)
            return {};
        position = a + emptyForm.size();
        if (counter < n)
            continue;
        if (Find(a, text, closing) > a) {
            lastOpening_ = opening;
            lastOccurrence_ = n;
            occurrencePosition_ = position;
        }
    }
    return {};
}

QString Walker::GetLine(const QString& text, int n) {
    const bool resumed = lastLine_ > 0 && lastText_ == text && lastLine_ + 1 == n;
    qsizetype position = resumed ? linePosition_ : 1;
    lastLine_ = 0;
    for (int counter = resumed ? n : 1; counter <= n && position <= text.size() + 1; ++counter) {
        const qsizetype found = Find(position, text, "\r\n");
        if (counter == n) {
            const qsizetype end = found > 0 ? found : text.size() + 1;
            lastText_ = text;
            lastLine_ = n;
            linePosition_ = end + 2;
            return Mid(text, position, end - position);
        }
        if (found == 0)
            break;
        position = found + 2;
    }
    return {};
}

} // namespace plain
