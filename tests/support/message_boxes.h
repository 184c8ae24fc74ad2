// Reads and answers the message boxes that this thread shows while the object lives.
//
// A test says beforehand which boxes it expects, in order, and which button it presses in each. A box that was not
// expected fails the test with its title and text, and is closed; so does an expected box that never came.
#pragma once

#include <win.h>

#include <deque>
#include <string>
#include <vector>

struct SeenBox {
    std::wstring title;
    std::wstring text;
    UINT icon = 0;     // MB_ICONEXCLAMATION, MB_ICONHAND, MB_ICONINFORMATION, MB_ICONQUESTION, or 0 for none
    UINT buttons = 0;  // MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL, MB_RETRYCANCEL or MB_ABORTRETRYIGNORE
    HWND owner = nullptr;
};

class MessageBoxes {
public:
    MessageBoxes();
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    // The next box will carry this title and text; `answer` (IDOK, IDYES, IDNO...) is pressed in it.
    void Expect(std::wstring title, std::wstring text, int answer = IDOK);

    // The system's text of an error code, as a box shows it.
    static std::wstring SystemText(DWORD error);

    // The boxes that came, in order.
    const std::vector<SeenBox>& Seen() const { return seen_; }

private:
    struct Expected {
        std::wstring title;
        std::wstring text;
        int answer;
    };

    static LRESULT CALLBACK Hook(int code, WPARAM wparam, LPARAM lparam);
    static void CALLBACK ReadLater(HWND box, UINT message, UINT_PTR timer, DWORD time);
    void OnBox(HWND box);

    HHOOK hook_ = nullptr;
    std::deque<Expected> expected_;
    std::vector<SeenBox> seen_;
    std::vector<HWND> answered_;  // boxes are activated again when they lose and regain the focus
};
