// Tells what is on the journal's screen: a console program that answers one line of JSON to each line it reads.
// The stories (see driver.py) see the running journal through it, as a person sees the display; they act through real
// mouse clicks and keys only. What a control of another process shows is asked for with the control's own messages,
// their buffers lying in that process.
//
//   windows              the program's visible top-level windows, the topmost first
//   tree WINDOW          a window and everything in it: class, id, text, place on the display, state
//   rows LIST            the rows of a list view: texts of all columns, place, state
//   page LIST            how many rows a list view has, and those of them that can be seen whole
//   tabs TAB             the tabs of a tab control
//   buttons TOOLBAR      the buttons of a toolbar: command, text, place, state
//   choices COMBO        the texts of a drop-down list and which of them is chosen
//   lines LISTBOX        the lines of a list box, an open drop-down's included: text, place
//   forget-settings      removes the journal's settings from the registry of this user
#include <win.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kProgram[] = L"journal.exe";
constexpr wchar_t kSettings[] = L"Software\\Talvern";
constexpr UINT kPatience = 5000;  // milliseconds that a window gets for an answer
constexpr int kLongestText = 4096;

// ---- JSON -----------------------------------------------------------------------------------------------------------

std::string Quoted(const std::wstring& text) {
    std::string bytes(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                              nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    std::string json = "\"";
    for (const char c : bytes) {
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            json += escaped;
        } else {
            json += c;
        }
    }
    return json + '"';
}

// One JSON object, made field by field.
class Object {
public:
    Object& Text(const char* name, const std::wstring& value) { return Raw(name, Quoted(value)); }
    Object& Number(const char* name, long long value) { return Raw(name, std::to_string(value)); }
    Object& Flag(const char* name, bool value) { return Raw(name, value ? "true" : "false"); }
    Object& Place(const char* name, const RECT& r) {
        std::ostringstream list;
        list << '[' << r.left << ',' << r.top << ',' << r.right << ',' << r.bottom << ']';
        return Raw(name, list.str());
    }
    Object& Raw(const char* name, const std::string& json) {
        fields_ += (fields_.empty() ? "\"" : ",\"") + std::string(name) + "\":" + json;
        return *this;
    }
    std::string Done() const { return '{' + fields_ + '}'; }

private:
    std::string fields_;
};

std::string Array(const std::vector<std::string>& elements) {
    std::string json = "[";
    for (const std::string& element : elements) {
        if (json.size() > 1) json += ',';
        json += element;
    }
    return json + ']';
}

// ---- Windows of the other process -----------------------------------------------------------------------------------

LRESULT Ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wparam, lparam, SMTO_ABORTIFHUNG, kPatience, &answer);
    return static_cast<LRESULT>(answer);
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = L"";
    GetClassNameW(window, name, 256);
    return name;
}

// The text a control holds; GetWindowText would answer only the caption of another process's window.
std::wstring TextOf(HWND window) {
    std::wstring text(kLongestText, L'\0');
    const LRESULT length = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

bool BelongsToJournal(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (!process) return false;
    wchar_t path[MAX_PATH] = L"";
    DWORD length = MAX_PATH;
    QueryFullProcessImageNameW(process, 0, path, &length);
    CloseHandle(process);
    const wchar_t* name = std::wcsrchr(path, L'\\');
    return name && _wcsicmp(name + 1, kProgram) == 0;
}

// Memory in the process that owns a window, holding one T followed by room for a text.
template <class T>
class Borrowed {
public:
    explicit Borrowed(HWND window) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        if (process_) address_ = VirtualAllocEx(process_, nullptr, kSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    ~Borrowed() {
        if (address_) VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
        if (process_) CloseHandle(process_);
    }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

    LPARAM Address() const { return reinterpret_cast<LPARAM>(address_); }
    wchar_t* TextAddress() const { return reinterpret_cast<wchar_t*>(static_cast<char*>(address_) + sizeof(T)); }

    void Put(const T& value) { WriteProcessMemory(process_, address_, &value, sizeof value, nullptr); }
    T Get() const {
        T value = {};
        ReadProcessMemory(process_, address_, &value, sizeof value, nullptr);
        return value;
    }
    // The text at an address of that process, which a control may have moved to a buffer of its own.
    std::wstring TextAt(const wchar_t* address) const {
        std::wstring text;
        wchar_t character = 0;
        while (text.size() < kLongestText &&
               ReadProcessMemory(process_, address + text.size(), &character, sizeof character, nullptr) && character) {
            text += character;
        }
        return text;
    }

private:
    static constexpr size_t kSize = sizeof(T) + kLongestText * sizeof(wchar_t);
    HANDLE process_ = nullptr;
    void* address_ = nullptr;
};

// From a control's own coordinates to the display's.
RECT OnDisplay(HWND window, RECT place) {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// ---- The commands ---------------------------------------------------------------------------------------------------

std::string Describe(HWND window, HWND focus) {
    return Object()
        .Number("window", reinterpret_cast<LONG_PTR>(window))
        .Number("parent", reinterpret_cast<LONG_PTR>(GetAncestor(window, GA_PARENT)))
        .Text("class", ClassOf(window))
        .Number("id", GetDlgCtrlID(window))
        .Text("text", TextOf(window))
        .Place("place", PlaceOf(window))
        .Flag("visible", IsWindowVisible(window))
        .Flag("enabled", IsWindowEnabled(window))
        .Flag("focus", window == focus)
        .Flag("foreground", window == GetForegroundWindow())
        .Done();
}

HWND FocusOf(HWND window) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

std::string Windows() {
    std::vector<std::string> found;
    EnumWindows(
        [](HWND window, LPARAM list) -> BOOL {
            if (IsWindowVisible(window) && BelongsToJournal(window)) {
                reinterpret_cast<std::vector<std::string>*>(list)->push_back(Describe(window, FocusOf(window)));
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return Array(found);
}

std::string Tree(HWND top) {
    struct Walk {
        HWND focus;
        std::vector<std::string> found;
    } walk = {FocusOf(top), {}};
    walk.found.push_back(Describe(top, walk.focus));
    EnumChildWindows(
        top,
        [](HWND window, LPARAM state) -> BOOL {
            Walk* current = reinterpret_cast<Walk*>(state);
            current->found.push_back(Describe(window, current->focus));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&walk));
    return Array(walk.found);
}

// The rows from `first` on, as many as there are up to `end`.
std::string Rows(HWND list, int first, int end) {
    Borrowed<LVITEMW> item(list);
    Borrowed<RECT> place(list);
    const HWND header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER));
    const int columns = header ? static_cast<int>(Ask(header, HDM_GETITEMCOUNT)) : 1;
    std::vector<std::string> rows;
    for (int row = first; row < end; ++row) {
        std::vector<std::string> texts;
        for (int column = 0; column < columns; ++column) {
            LVITEMW request = {};
            request.iSubItem = column;
            request.pszText = item.TextAddress();
            request.cchTextMax = kLongestText;
            item.Put(request);
            Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), item.Address());
            texts.push_back(Quoted(item.TextAt(item.Get().pszText)));
        }
        place.Put({LVIR_BOUNDS, 0, 0, 0});
        Ask(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), place.Address());
        constexpr LPARAM kStates = LVIS_SELECTED | LVIS_FOCUSED | LVIS_STATEIMAGEMASK;
        const LRESULT state = Ask(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), kStates);
        rows.push_back(Object()
                           .Raw("texts", Array(texts))
                           .Place("place", OnDisplay(list, place.Get()))
                           .Flag("selected", state & LVIS_SELECTED)
                           .Flag("focused", state & LVIS_FOCUSED)
                           .Flag("checked", (state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2))
                           .Done());
    }
    return Array(rows);
}

std::string AllRows(HWND list) {
    return Rows(list, 0, static_cast<int>(Ask(list, LVM_GETITEMCOUNT)));
}

std::string Page(HWND list) {
    const int count = static_cast<int>(Ask(list, LVM_GETITEMCOUNT));
    const int top = static_cast<int>(Ask(list, LVM_GETTOPINDEX));
    const int end = std::min(top + static_cast<int>(Ask(list, LVM_GETCOUNTPERPAGE)), count);
    return Object().Number("count", count).Number("top", top).Raw("rows", Rows(list, top, end)).Done();
}

std::string Tabs(HWND tab) {
    Borrowed<TCITEMW> item(tab);
    Borrowed<RECT> place(tab);
    const int count = static_cast<int>(Ask(tab, TCM_GETITEMCOUNT));
    const int current = static_cast<int>(Ask(tab, TCM_GETCURSEL));
    std::vector<std::string> tabs;
    for (int index = 0; index < count; ++index) {
        TCITEMW request = {};
        request.mask = TCIF_TEXT;
        request.pszText = item.TextAddress();
        request.cchTextMax = kLongestText;
        item.Put(request);
        Ask(tab, TCM_GETITEMW, static_cast<WPARAM>(index), item.Address());
        Ask(tab, TCM_GETITEMRECT, static_cast<WPARAM>(index), place.Address());
        tabs.push_back(Object()
                           .Text("text", item.TextAt(item.Get().pszText))
                           .Place("place", OnDisplay(tab, place.Get()))
                           .Flag("selected", index == current)
                           .Done());
    }
    return Array(tabs);
}

std::string Buttons(HWND toolbar) {
    Borrowed<TBBUTTON> button(toolbar);
    Borrowed<RECT> place(toolbar);
    const int count = static_cast<int>(Ask(toolbar, TB_BUTTONCOUNT));
    std::vector<std::string> buttons;
    for (int index = 0; index < count; ++index) {
        Ask(toolbar, TB_GETBUTTON, static_cast<WPARAM>(index), button.Address());
        const TBBUTTON shown = button.Get();
        Ask(toolbar, TB_GETITEMRECT, static_cast<WPARAM>(index), place.Address());
        const WPARAM command = static_cast<WPARAM>(shown.idCommand);
        std::wstring text;
        const LRESULT length = Ask(toolbar, TB_GETBUTTONTEXTW, command, 0);
        if (length > 0 && length < kLongestText) {
            Ask(toolbar, TB_GETBUTTONTEXTW, command, reinterpret_cast<LPARAM>(button.TextAddress()));
            text = button.TextAt(button.TextAddress());
        }
        buttons.push_back(Object()
                              .Number("command", shown.idCommand)
                              .Text("text", text)
                              .Place("place", OnDisplay(toolbar, place.Get()))
                              .Flag("separator", shown.fsStyle & BTNS_SEP)
                              .Flag("enabled", shown.fsState & TBSTATE_ENABLED)
                              .Flag("checked", shown.fsState & TBSTATE_CHECKED)
                              .Flag("hidden", shown.fsState & TBSTATE_HIDDEN)
                              .Done());
    }
    return Array(buttons);
}

std::string Choices(HWND combo) {
    std::vector<std::string> texts;
    const int count = static_cast<int>(Ask(combo, CB_GETCOUNT));
    for (int index = 0; index < count; ++index) {
        std::wstring text(kLongestText, L'\0');
        const LRESULT length =
            Ask(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(length > 0 ? static_cast<size_t>(length) : 0);
        texts.push_back(Quoted(text));
    }
    return Object().Raw("texts", Array(texts)).Number("chosen", static_cast<int>(Ask(combo, CB_GETCURSEL))).Done();
}

std::string Lines(HWND box) {
    std::vector<std::string> lines;
    const int count = static_cast<int>(Ask(box, LB_GETCOUNT));
    for (int index = 0; index < count; ++index) {
        RECT place = {};
        Ask(box, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
        std::wstring text(kLongestText, L'\0');
        const LRESULT length = Ask(box, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(length > 0 ? static_cast<size_t>(length) : 0);
        lines.push_back(Object().Text("text", text).Place("place", OnDisplay(box, place)).Done());
    }
    return Array(lines);
}

std::string Answer(const std::string& command, HWND window) {
    if (command == "windows") return Windows();
    if (command == "tree") return Tree(window);
    if (command == "rows") return AllRows(window);
    if (command == "page") return Page(window);
    if (command == "tabs") return Tabs(window);
    if (command == "buttons") return Buttons(window);
    if (command == "choices") return Choices(window);
    if (command == "lines") return Lines(window);
    if (command == "forget-settings") {
        const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
        return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND ? "true" : "false";
    }
    return "null";
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string command;
        LONG_PTR window = 0;
        words >> command >> window;
        std::cout << Answer(command, reinterpret_cast<HWND>(window)) << std::endl;
    }
    return 0;
}
