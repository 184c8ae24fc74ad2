// Works the PIN pads that a flow under test opens, one script a pad.
#pragma once

#include <win.h>

#include <deque>
#include <functional>
#include <string>

// A test says beforehand what is done on each pad, in order. A pad that nobody expected fails the test and is closed;
// so does an expected one that never came. A pad that its script leaves open is ended with OK. One object at a time.
class PadVisits {
public:
    using Script = std::function<void()>;

    PadVisits();
    ~PadVisits();
    PadVisits(const PadVisits&) = delete;
    PadVisits& operator=(const PadVisits&) = delete;

    void Expect(Script script) { scripts_.push_back(std::move(script)); }
    // Taps these digits and OK.
    void ExpectDigits(std::wstring digits);
    int Seen() const { return seen_; }

    // ---- What a script does ----
    HWND Pad() const { return pad_; }
    HWND Item(int id) const { return GetDlgItem(pad_, id); }
    // Taps keys: '0' to '9' and 'C'.
    void Tap(const std::wstring& keys) const;
    void Ok() const;
    std::wstring TextOf(int id) const;

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void Look();

    static PadVisits* live_;

    UINT_PTR timer_ = 0;
    std::deque<Script> scripts_;
    HWND pad_ = nullptr;
    int seen_ = 0;
};
