// The password that locks the journal: whether there is one, and how it is asked for, set and cleared.
#pragma once

#include <string>

class Window;

// Made for each use. The lock is kept in the settings, subkey "Options":
//
//     pwActive  number  1: on, 0 or missing: off
//     vacc      text    the digits as they were typed
//
// With the lock on and no readable "vacc" nothing opens it.
class PasswordLock {
public:
    // `owner` owns the pads and messages, need not be visible and must outlive the object.
    explicit PasswordLock(Window& owner);
    virtual ~PasswordLock() = default;
    PasswordLock(const PasswordLock&) = delete;
    PasswordLock& operator=(const PasswordLock&) = delete;

    bool IsActive() const;

    // Asks for the password. False when the digits are other ones or none, which the user is told; false without a word
    // when the pad went with its owner.
    bool Check();

    // Asks twice for a new password; when both are the same, stores it and turns the lock on. The user is told either
    // way. True when the lock is on with that password.
    bool Set();

    // Turns the lock off and forgets the password. Asks nothing: check first.
    void Clear();

private:
    // Runs the pad; the digits go to where its mode puts them. False when it was not ended with OK.
    bool Ask(unsigned short mode);
    // The stored password; empty when there is none that can be read.
    std::wstring Stored() const;
    bool Activate();
    bool Refuse(unsigned int reason) const;

    std::wstring first_;
    std::wstring second_;
    std::wstring subkey_;
    Window& owner_;
};
