// The journal's databases for a program that has no window: what would be shown in a message box goes to standard
// error.
#pragma once

#include <string>

#include "data/db_cats.h"
#include "data/db_journal.h"

// The system's words for an error of the store, with its number.
std::wstring ErrorText(DWORD error);

// Complains about the thread's last error.
void ComplainAboutStore(const wchar_t* what);

template <typename Database>
class OnConsole : public Database {
public:
    int ReportError(int, const wchar_t*) override {
        ComplainAboutStore(L"the store failed");
        return IDOK;
    }
};

using ConsoleJournal = OnConsole<DbJournal>;
using ConsoleCategories = OnConsole<DbCats>;

// Lets this program, from before its first use of a store on, work on that file.
void UseStore(const std::wstring& file);
// For commands that only read: false when a file is named, by the user or by CE_OBJECT_STORE, and is not there. That
// was said, and none was made.
bool StoreIsThere();

// Opens, or complains and answers false.
bool OpenOrComplain(ConsoleJournal& journal);
bool OpenOrComplain(ConsoleCategories& categories);
