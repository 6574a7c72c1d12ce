#pragma once

// The login of a desk at which nobody sits: a punching desk has no one to type a password when the server comes
// back. It remembers the login with which its screen was opened, for as long as that is open, and repeats it.

#include <QString>

namespace hotel {

class DeskLogin {
public:
    // Takes the login of the current link.
    DeskLogin();

    // Whether somebody is logged in on the link.
    bool stands() const;

    // Logs in again where the login is lost, opening the link if it is closed, and follows the server's clock
    // first, by which the server knows the login. False while the server is away or refuses.
    bool regain() const;

private:
    QString user_;
    QString password_;
};

} // namespace hotel
