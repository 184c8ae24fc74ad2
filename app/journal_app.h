// The application object: how the program starts.
#pragma once

#include "ui/application.h"

class DbJournal;
class PasswordLock;
class SelectionMemory;
struct FilterSettings;

class JournalApp : public Application {
public:
    // The settings key under HKEY_CURRENT_USER.
    static constexpr wchar_t kSettings[] = L"Software\\Talvern\\Journal";

    // All three must outlive the object.
    JournalApp(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter);

    // Brings the program up to the shown main window with the list filled. False, without a word, when another instance
    // runs (it is brought forward) or when something needed cannot be had; false after three wrong passwords, with the
    // main window closed unseen.
    bool InitInstance(HINSTANCE instance, int showFlag) override;

private:
    bool CreateMainWindow(const wchar_t* className, const wchar_t* title);
    // Asks for the password when there is one; the main window, made but not shown, stays hidden for that time. False
    // after three wrong ones.
    bool PassLock(PasswordLock& lock);

    DbJournal& journal_;
    SelectionMemory& selection_;
    FilterSettings& filter_;
};
