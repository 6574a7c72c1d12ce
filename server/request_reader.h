#pragma once

// Requests out of the bytes of a connection. A request is record text in the wire's code page:
//
//     <命令>读取记录</命令>
//     <库文件名>User.QVR</库文件名>
//     ...
//     <命令流水号>CmdID:007</命令流水号>
//
// with CR LF behind the last field; that field and its line end are the only end mark. Requests may
// come in any number of pieces, or several in one piece.

#include <optional>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace hotel {

// The longest request, end mark included: 64 MiB; on a connection that has not logged in, 64 KiB.
inline constexpr qsizetype kRequestLimit = 64 * 1024 * 1024;
inline constexpr qsizetype kLimitBeforeLogin = 64 * 1024;

// One request. Its fields are those that stand side by side at the outermost level. A name's field
// ends at its first closing tag; a field that carries free text (`记录值`, `初始值`, the
// conditions) ends at its last one, so that a value may hold any tags, even those of the request's
// own fields.
class Request {
public:
    // `number` is the three digits of the sequence field, `text` all that stands before it.
    Request(QByteArray number, QString text);

    const QByteArray& number() const { return number_; }
    QStringView command() const { return field(u"命令"); }

    // Value of a field; empty when the request doesn't have it.
    QStringView field(QStringView name) const;

    // A field is opened and not closed, or there are more than a request has: what was meant can't be told.
    bool isTorn() const { return isTorn_; }

private:
    using Span = std::pair<qsizetype, qsizetype>; // start and length in text_
    QStringView view(Span span) const { return QStringView(text_).sliced(span.first, span.second); }

    QByteArray number_;
    QString text_;
    std::vector<std::pair<Span, Span>> fields_; // name, value
    bool isTorn_ = false;
};

class RequestReader {
public:
    explicit RequestReader(qsizetype limit = kRequestLimit) : limit_(limit) {}

    // From here on no request may be longer.
    void setLimit(qsizetype limit) { limit_ = limit; }

    // Takes bytes that arrived.
    void feed(QByteArrayView bytes);

    // The next complete request; nothing when more bytes are needed or the stream is refused.
    std::optional<Request> next();

    // True when the bytes are no request: they don't begin with a command, or there are more than
    // the limit without an end. Nothing can be read from here on; the connection is to be closed.
    bool refused() const { return refused_; }

private:
    void skipLineEnds();
    bool beginsLikeCommand() const;
    qsizetype findEnd();

    qsizetype limit_;
    QByteArray buffer_;
    qsizetype start_ = 0;   // first byte of the request at hand
    qsizetype scanned_ = 0; // no end mark's closing tag begins ahead of this byte
    bool refused_ = false;
};

} // namespace hotel
