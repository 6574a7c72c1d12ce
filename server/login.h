#pragma once

// Who may work on the store. The users are the records of project `操作员定义` in the user file:
//
//     record name   login name
//     密码          password as typed; empty: the user logs in with the digest of the empty password
//     IP地址        the one address from which the user may log in; empty: any

#include <functional>

#include <QHash>
#include <QHostAddress>
#include <QString>
#include <QStringView>

#include "server/store.h"

namespace hotel {

inline const QString kUserFile = u"User.QVR"_s;
inline const QString kUserProject = u"操作员定义"_s;

enum class LoginVerdict { Admitted, UnknownUser, WrongAddress, WrongPassword };

// Judges an attempt against the user's record; `date` is the server's, "yyyy-MM-dd".
LoginVerdict JudgeLogin(Store& store, QStringView productId, const QString& user,
                        QStringView digest, const QHostAddress& address, QStringView date);

// True when `digest` is the user's digest of the empty password. Every workstation tries that
// first, to find out whether the user has a password, so that a refusal of it is no sign of
// guessing.
bool IsEmptyAttempt(QStringView productId, QStringView user, QStringView digest, QStringView date);

// Slows down whoever guesses passwords. The first failures from an address are answered at once, those that
// follow within a minute of each other later and later. The answers to one address stand in one line,
// whatever the number of its connections: each waits behind the failures before it, and so does a login
// that succeeds, since a guesser on many connections would know it by its haste. The longest wait is that
// for a full line and one more failure, twice twenty steps: a workstation waits half a minute for an answer.
class FailureLimit {
public:
    // Each failure is delayed by `step` milliseconds more, up to twenty steps. `time` tells milliseconds
    // that never go back; the system's unless given.
    explicit FailureLimit(int step = 500, std::function<qint64()> time = {});

    // Milliseconds until the failures so far have been answered.
    int wait(const QHostAddress& address) const;

    // Notes a failure; gives the milliseconds by which its answer is to be held back.
    int delayOfFailure(const QHostAddress& address);

    // The line is too long to join, twenty steps or more: attempts are refused without a look at them.
    bool isClosedTo(const QHostAddress& address) const;

private:
    struct Failures {
        int count = 0;
        qint64 last = 0; // milliseconds on time_
        qint64 due = 0;  // when the last of them is answered
    };
    void forgetOld(qint64 now);

    int step_;
    std::function<qint64()> time_;
    QHash<QHostAddress, Failures> failures_;
};

} // namespace hotel
