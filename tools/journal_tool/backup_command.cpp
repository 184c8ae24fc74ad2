#include <storebackup.h>
#include <win.h>

#include <string>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

bool IsOneFile(Arguments arguments, const wchar_t* command) {
    if (arguments.size() == 1 && arguments[0][0]) return true;
    Complain(std::wstring(command) + L" needs the name of one file");
    return false;
}

int CannotBackUp(const std::wstring& file) {
    const DWORD error = GetLastError();
    switch (error) {
        case ERROR_INVALID_PARAMETER: Complain(file + L" is the store itself"); break;
        case ERROR_FILE_EXISTS: Complain(file + L" is no backup and is not overwritten"); break;
        case ERROR_FILE_CORRUPT:
            Complain(L"the store is damaged and was not backed up; journal-tool check tells more");
            break;
        default: Complain(file + L" cannot be written (" + ErrorText(error) + L")");
    }
    return kExitIncomplete;
}

int CannotRestore(const std::wstring& file) {
    const DWORD error = GetLastError();
    const std::wstring unchanged = L"; the store is as it was";
    switch (error) {
        case ERROR_INVALID_PARAMETER: Complain(file + L" is the store itself"); break;
        case ERROR_FILE_CORRUPT: Complain(file + L" is damaged, or no backup of a journal" + unchanged); break;
        case ERROR_REVISION_MISMATCH: Complain(file + L" was written by a newer version" + unchanged); break;
        case ERROR_SHARING_VIOLATION:
            Complain(L"the store is in use: close the journal, and whatever else uses it, first" + unchanged);
            break;
        default: Complain(file + L" cannot be restored (" + ErrorText(error) + L")" + unchanged);
    }
    return kExitIncomplete;
}

}  // namespace

int BackupCommand(Arguments arguments) {
    if (!IsOneFile(arguments, L"backup")) return kExitUsage;
    if (!StoreIsThere()) return kExitIncomplete;
    const std::wstring file = arguments[0];
    if (!CeBackupObjectStore(file.c_str())) return CannotBackUp(file);
    Print(L"backed up to " + file + L"\n");
    return kExitDone;
}

int RestoreCommand(Arguments arguments) {
    if (!IsOneFile(arguments, L"restore")) return kExitUsage;
    const std::wstring file = arguments[0];
    wchar_t kept[1024] = L"";
    if (!CeRestoreObjectStore(file.c_str(), kept, static_cast<DWORD>(std::size(kept)))) return CannotRestore(file);
    Print(L"restored from " + file + L"\n");
    if (kept[0]) Print(L"the store that was there is kept as " + std::wstring(kept) + L"\n");
    return kExitDone;
}
