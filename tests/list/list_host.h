// A parent window for the list and its bar: hands their notifications back to them and writes down what they send.
#pragma once

#include <win.h>

#include <functional>
#include <ostream>
#include <vector>

class ListHost {
public:
    struct Command {
        WORD id;
        WORD notification;
        bool operator==(const Command&) const = default;
    };

    ListHost();
    ~ListHost();
    ListHost(const ListHost&) = delete;
    ListHost& operator=(const ListHost&) = delete;

    HWND Handle() const { return handle_; }
    RECT Client() const;

    std::function<LRESULT(NMHDR*)> onNotify;
    std::vector<Command> commands;
    std::vector<UINT> notified;  // the codes of every notification

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);

    HWND handle_ = nullptr;
};

inline void PrintTo(const ListHost::Command& command, std::ostream* out) {
    *out << "{" << command.id << ", " << std::hex << command.notification << std::dec << "}";
}
