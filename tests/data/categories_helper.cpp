// Another program that uses the device's categories, as the tests of them need one: it does one thing to the test's
// store, by the store's own calls, and ends with the result as its exit code.
//
//   add NAME         a category, with a count of uses of its own; the record's id
//   use ID COUNT     sets its count of uses of a category
//   hide ID          hides a category
//   delete ID        deletes a category
//   is ID NAME       whether the category has that name
#include <windbase.h>

#include <cwchar>
#include <string>

namespace {

constexpr CEPROPID kName = 0x4001001F;
constexpr CEPROPID kVisible = 0x40030002;
constexpr CEPROPID kUses = 0x40050002;

CEPROPVAL Text(CEPROPID property, const wchar_t* text) {
    CEPROPVAL value = {};
    value.propid = property;
    value.val.lpwstr = const_cast<LPWSTR>(text);
    return value;
}

CEPROPVAL Number(CEPROPID property, int number) {
    CEPROPVAL value = {};
    value.propid = property;
    value.val.iVal = static_cast<short>(number);
    return value;
}

bool HasName(HANDLE categories, CEOID category, const wchar_t* name) {
    CEPROPVAL value = Text(kName, name);
    return CeSeekDatabase(categories, CEDB_SEEK_VALUEFIRSTEQUAL, reinterpret_cast<DWORD_PTR>(&value), nullptr) ==
           category;
}

CEOID Do(HANDLE categories, int count, wchar_t** words) {
    const std::wstring verb = words[1];
    if (verb == L"add") {
        const CEPROPVAL values[] = {Text(kName, words[2]), Number(kVisible, 1), Number(kUses, 1)};
        return CeWriteRecordProps(categories, 0, 3, values);
    }
    const auto category = static_cast<CEOID>(std::wcstoul(words[2], nullptr, 10));
    const CEPROPVAL hidden = Number(kVisible, 0);
    if (verb == L"hide") return CeWriteRecordProps(categories, category, 1, &hidden);
    if (verb == L"delete") return static_cast<CEOID>(CeDeleteRecord(categories, category));
    if (count < 4) return 0;
    const CEPROPVAL uses = Number(kUses, static_cast<int>(std::wcstol(words[3], nullptr, 10)));
    if (verb == L"use") return CeWriteRecordProps(categories, category, 1, &uses);
    return verb == L"is" ? HasName(categories, category, words[3]) : 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    CEOID oid = 0;
    const HANDLE categories = CeOpenDatabase(&oid, L"\\Categories Database", kName, 0, nullptr);
    if (categories == INVALID_HANDLE_VALUE || count < 3) return 0;
    const CEOID result = Do(categories, count, words);
    CeCloseHandle(categories);
    return static_cast<int>(result);
}
