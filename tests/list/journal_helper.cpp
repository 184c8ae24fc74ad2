// Another program that changes the journal's entries while they are shown: it does one thing to the test's store, by
// the store's own calls, and ends with the result as its exit code.
//
//   add SUBJECT          an entry of 7 May 2030, behind all others; the record's id
//   rename ID SUBJECT    1 when it worked
//   delete ID            1 when it worked
//   empty                deletes every entry; how many there were
#include <windbase.h>

#include <cwchar>
#include <string>

namespace {

constexpr CEPROPID kStart = 0x00650040;
constexpr CEPROPID kSubject = 0x0066001F;

CEPROPVAL Subject(const wchar_t* text) {
    CEPROPVAL value = {};
    value.propid = kSubject;
    value.val.lpwstr = const_cast<LPWSTR>(text);
    return value;
}

CEOID Add(HANDLE journal, const wchar_t* subject) {
    const SYSTEMTIME time = {2030, 5, 0, 7, 12, 0, 0, 0};
    CEPROPVAL start = {};
    start.propid = kStart;
    SystemTimeToFileTime(&time, &start.val.filetime);
    const CEPROPVAL values[] = {start, Subject(subject)};
    return CeWriteRecordProps(journal, 0, 2, values);
}

CEOID Empty(HANDLE journal) {
    CEOID deleted = 0;
    while (const CEOID record = CeSeekDatabase(journal, CEDB_SEEK_BEGINNING, 0, nullptr)) {
        if (!CeDeleteRecord(journal, record)) break;
        ++deleted;
    }
    return deleted;
}

CEOID Do(HANDLE journal, int count, wchar_t** words) {
    const std::wstring verb = words[1];
    if (verb == L"empty") return Empty(journal);
    if (count < 3) return 0;
    if (verb == L"add") return Add(journal, words[2]);
    const auto record = static_cast<CEOID>(std::wcstoul(words[2], nullptr, 10));
    if (verb == L"delete") return static_cast<CEOID>(CeDeleteRecord(journal, record));
    if (verb != L"rename" || count < 4) return 0;
    const CEPROPVAL subject = Subject(words[3]);
    return CeWriteRecordProps(journal, record, 1, &subject) == record;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    CEOID oid = 0;
    const HANDLE journal = CeOpenDatabase(&oid, L"\\Journal Database", kStart, 0, nullptr);
    if (journal == INVALID_HANDLE_VALUE || count < 2) return 0;
    const CEOID result = Do(journal, count, words);
    CeCloseHandle(journal);
    return static_cast<int>(result);
}
