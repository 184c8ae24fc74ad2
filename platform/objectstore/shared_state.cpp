#include "platform/objectstore/shared_state.h"

#include <cstdio>

#include "platform/objectstore/store_error.h"

#undef CloseHandle

namespace store {

// A process that dies leaves its rows; they are told by its number and time of birth and used again.
struct SharedRow {
    CEOID database;  // 0: the row is free
    DWORD process;
    DWORD thread;
    DWORD unused;
    LONG64 born;
    DWORD64 notify;  // the window, or 0
};

constexpr int kRows = 1000;

struct SharedPage {
    LONG64 changes;
    SharedRow rows[kRows];
};

namespace {

constexpr DWORD kPatience = 10'000;  // milliseconds

// The same for every spelling of one path.
std::wstring NameFor(const std::wstring& path) {
    std::wstring name(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');  // with room for the NUL
    if (!name.empty()) {
        name.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(name.size()), name.data(), nullptr));
    }
    if (name.empty()) name = path;
    CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
    uint64_t hash = 14695981039346656037u;  // FNV-1a
    for (const wchar_t character : name)
        hash = (hash ^ character) * 1099511628211u;
    wchar_t text[64];
    swprintf(text, 64, L"Local\\CeObjectStore-%016llx", static_cast<unsigned long long>(hash));
    return text;
}

LONG64 BirthOf(HANDLE process) {
    FILETIME born = {};
    FILETIME unused = {};
    if (!GetProcessTimes(process, &born, &unused, &unused, &unused)) return 0;
    return static_cast<LONG64>((uint64_t{born.dwHighDateTime} << 32) | born.dwLowDateTime);
}

}  // namespace

SharedState::SharedState(const std::wstring& path) : born_(BirthOf(GetCurrentProcess())) {
    const std::wstring name = NameFor(path);
    mutex_ = CreateMutexW(nullptr, FALSE, (name + L"-lock").c_str());
    if (mutex_) {
        section_ =
            CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(SharedPage), name.c_str());
    }
    if (section_)
        page_ = static_cast<SharedPage*>(MapViewOfFile(section_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(SharedPage)));
    if (page_) return;
    const DWORD error = GetLastError();
    if (section_) CloseHandle(section_);
    if (mutex_) CloseHandle(mutex_);
    Fail(error);
}

SharedState::~SharedState() {
    UnmapViewOfFile(page_);
    CloseHandle(section_);
    CloseHandle(mutex_);
}

LONG64 SharedState::Changes() const {
    return *static_cast<const volatile LONG64*>(&page_->changes);
}

void SharedState::CountChange() {
    InterlockedIncrement64(&page_->changes);
}

SharedState::Lock::Lock(SharedState& state) : state_(state) {
    const DWORD result = WaitForSingleObject(state.mutex_, kPatience);
    // Abandoned by a process that died: each row is whole or free, so there is nothing to repair.
    if (result != WAIT_OBJECT_0 && result != WAIT_ABANDONED) Fail(ERROR_LOCK_VIOLATION);
}

SharedState::Lock::~Lock() {
    ReleaseMutex(state_.mutex_);
}

bool SharedState::Lives(const SharedRow& row) const {
    if (row.process == GetCurrentProcessId()) return row.born == born_;
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, row.process);
    if (!process) return GetLastError() == ERROR_ACCESS_DENIED;  // somebody else's, but there
    const bool lives = WaitForSingleObject(process, 0) == WAIT_TIMEOUT && BirthOf(process) == row.born;
    CloseHandle(process);
    return lives;
}

int SharedState::Enter(CEOID database, HWND notify) {
    Lock lock(*this);
    for (const bool desperate : {false, true}) {  // asking whether a process lives is slow: only when there is no room
        for (int number = 0; number < kRows; ++number) {
            SharedRow& row = page_->rows[number];
            if (row.database != 0 && !(desperate && !Lives(row))) continue;
            row.process = GetCurrentProcessId();
            row.thread = GetCurrentThreadId();
            row.born = born_;
            row.notify = reinterpret_cast<DWORD64>(notify);
            *static_cast<volatile CEOID*>(&row.database) = database;
            return number;
        }
    }
    Fail(ERROR_NOT_ENOUGH_MEMORY);
}

void SharedState::Leave(int row) noexcept {
    *static_cast<volatile CEOID*>(&page_->rows[row].database) = 0;
}

bool SharedState::IsOpen(CEOID database) {
    for (SharedRow& row : page_->rows) {
        if (row.database != database) continue;
        if (Lives(row)) return true;
        row.database = 0;
    }
    return false;
}

bool SharedState::IsInUse() {
    for (SharedRow& row : page_->rows) {
        if (row.database != 0 && Lives(row)) return true;
    }
    return false;
}

void SharedState::Notify(CEOID database, UINT message, CEOID object) {
    // Without the lock: a row that changes meanwhile costs a message too many or too few at the moment of opening or
    // closing, and the window that gets it is checked.
    const DWORD self = GetCurrentThreadId();
    for (SharedRow& row : page_->rows) {
        if (row.database != database || row.thread == self || row.notify == 0) continue;
        const HWND window = reinterpret_cast<HWND>(row.notify);
        // A window's number may be used again by another thread after its owner died.
        if (GetWindowThreadProcessId(window, nullptr) != row.thread) continue;
        PostMessageW(window, message, object, static_cast<LPARAM>(database));
    }
}

}  // namespace store
