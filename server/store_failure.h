#pragma once

// How an operation of the store fails.

#include <stdexcept>

#include <QString>

namespace hotel {

class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& words) : runtime_error(words.toStdString()), words_(words) {}
    const QString& words() const { return words_; } // for people

private:
    QString words_;
};

// What was asked for can't be done here (no such record, ...); the store is fine.
class Refusal : public Failure {
public:
    using Failure::Failure;
};

// The store itself fails (disk full, read-only, damaged, out of reach). The transaction must be rolled back;
// nothing of it is on disk.
class StoreError : public Failure {
public:
    using Failure::Failure;
};

// The connection broke in the middle of a commit, and what became of it can't be asked: all of the
// transaction is on disk, or nothing.
class LostCommit : public StoreError {
public:
    using StoreError::StoreError;
};

} // namespace hotel
