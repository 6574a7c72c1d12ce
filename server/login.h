#pragma once

// Who may work on the store. The users are the records of project `操作员定义` in the user file:
//
//     record name   login name
//     密码          password as typed; empty: the user logs in with the digest of the empty password
//     IP地址        the one address from which the user may log in; empty: any

#include <QElapsedTimer>
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

// Slows down whoever guesses passwords. The first failures from an address are answered at once,
// those that follow within a minute of each other later and later.
class FailureLimit {
public:
    FailureLimit() { time_.start(); }

    // Notes a failure; gives the milliseconds by which its answer is to be held back.
    int delayOfFailure(const QHostAddress& address);

private:
    struct Failures {
        int count = 0;
        qint64 last = 0; // milliseconds on time_
    };
    void forgetOld(qint64 now);

    QElapsedTimer time_;
    QHash<QHostAddress, Failures> failures_;
};

} // namespace hotel
