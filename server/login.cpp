#include "server/login.h"

#include <algorithm>

#include <QElapsedTimer>

#include "record/login_digest.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr qint64 kFailureMemory = 60'000; // milliseconds
constexpr int kFreeFailures = 10;
constexpr int kMostSteps = 20;

bool AddressMatches(const QString& allowed, const QHostAddress& address) {
    return allowed.isEmpty() ||
           address.isEqual(QHostAddress(allowed), QHostAddress::ConvertV4MappedToIPv4);
}

} // namespace

LoginVerdict JudgeLogin(Store& store, QStringView productId, const QString& user,
                        QStringView digest, const QHostAddress& address, QStringView date) {
    const std::optional<StorePath> file = ParseFilePath(kUserFile);
    const std::optional<QString> record = store.read(*file, kUserProject, user);
    if (!record)
        return LoginVerdict::UnknownUser;
    if (!AddressMatches(TrimWhite(GetTag(*record, u"IP地址")), address))
        return LoginVerdict::WrongAddress;
    const std::optional<QString> expected =
        LoginDigest(productId, user, GetTag(*record, u"密码"), date);
    return expected && *expected == digest ? LoginVerdict::Admitted : LoginVerdict::WrongPassword;
}

bool IsEmptyAttempt(QStringView productId, QStringView user, QStringView digest, QStringView date) {
    return LoginDigest(productId, user, u"", date) == digest;
}

FailureLimit::FailureLimit(int step, std::function<qint64()> time)
    : step_(step), time_(std::move(time)) {
    if (!time_) {
        QElapsedTimer clock;
        clock.start();
        time_ = [clock] { return clock.elapsed(); };
    }
}

int FailureLimit::wait(const QHostAddress& address) const {
    const auto failures = failures_.constFind(address);
    return failures == failures_.cend() ? 0 : int(qMax<qint64>(failures->due - time_(), 0));
}

int FailureLimit::delayOfFailure(const QHostAddress& address) {
    const qint64 now = time_();
    forgetOld(now);
    Failures& failures = failures_[address];
    failures.last = now;
    const int beyond = ++failures.count - kFreeFailures;
    failures.due = qMax(failures.due, now) + std::clamp(beyond, 0, kMostSteps) * step_;
    return int(failures.due - now);
}

bool FailureLimit::isClosedTo(const QHostAddress& address) const {
    return wait(address) >= kMostSteps * step_;
}

void FailureLimit::forgetOld(qint64 now) {
    using Entry = QHash<QHostAddress, Failures>::iterator;
    failures_.removeIf(
        [now](Entry entry) { return now - qMax(entry->last, entry->due) > kFailureMemory; });
}

} // namespace hotel
