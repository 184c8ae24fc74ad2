// The settings key: values with their defaults, subkeys, odd values that others stored, and what is shown on errors.
#include "ui/registry_key.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "res/ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kPath[] = L"Software\\Talvern\\Journal";
constexpr wchar_t kOptions[] = L"Options";

// The system's words for an error, as the box shows them.
std::wstring Words(DWORD error) {
    wchar_t buffer[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, buffer, 512, nullptr);
    std::wstring words = buffer;
    while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r'))
        words.pop_back();
    EXPECT_FALSE(words.empty());
    return words;
}

class RegistryKeyTest : public testing::Test {
protected:
    // What somebody else stores, in the key itself or a subkey.
    void Store(const std::wstring& subkey, const wchar_t* name, DWORD type, const void* data, size_t size) {
        // The system counts a NUL behind a text as part of it; here nothing behind it shall be one.
        std::vector<BYTE> bytes(static_cast<const BYTE*>(data), static_cast<const BYTE*>(data) + size);
        bytes.insert(bytes.end(), 8, 'Z');
        HKEY key = Open(subkey);
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, bytes.data(), static_cast<DWORD>(size)), ERROR_SUCCESS);
        RegCloseKey(key);
    }

    void MakeSubkey(const std::wstring& subkey) { RegCloseKey(Open(subkey)); }

    // The value as it is stored: its type and bytes; none when it is missing.
    struct Stored {
        DWORD type = 0;
        std::vector<BYTE> data;
    };
    std::optional<Stored> Find(const std::wstring& subkey, const wchar_t* name) {
        const std::wstring path = subkey.empty() ? kPath : std::wstring(kPath) + L"\\" + subkey;
        Stored stored;
        DWORD size = 4096;
        stored.data.resize(size);
        if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_ANY | RRF_NOEXPAND, &stored.type,
                         stored.data.data(), &size) != ERROR_SUCCESS) {
            return std::nullopt;
        }
        stored.data.resize(size);
        return stored;
    }

    bool HasSubkey(const std::wstring& subkey) {
        HKEY key = nullptr;
        const std::wstring path = std::wstring(kPath) + L"\\" + subkey;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
        RegCloseKey(key);
        return true;
    }

    std::wstring Read(const RegistryKey& key, const std::wstring& subkey, const wchar_t* name) {
        std::wstring text = L"before";
        key.ReadString(subkey, name, L"fallback", text);
        return text;
    }

    PrivateRegistry registry_;
    MessageBoxes boxes_;

private:
    HKEY Open(const std::wstring& subkey) {
        HKEY key = nullptr;
        const std::wstring path = subkey.empty() ? kPath : std::wstring(kPath) + L"\\" + subkey;
        EXPECT_EQ(
            RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
        return key;
    }
};

// ---- The key itself ----

TEST_F(RegistryKeyTest, IsMadeWhenAbsentAndKeepsACopyOfItsPath) {
    wchar_t path[] = L"Software\\Talvern\\Journal";
    const RegistryKey key(path);
    path[0] = L'X';
    EXPECT_STREQ(key.GetPath(), kPath);
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &opened), ERROR_SUCCESS);
    RegCloseKey(opened);
}

TEST_F(RegistryKeyTest, StaysOpenUntilItIsDestroyed) {
    {
        RegistryKey key(kPath);
        key.WriteInt(L"", L"a", 1);
        key.WriteInt(kOptions, L"b", 2);
    }
    const RegistryKey again(kPath);
    EXPECT_EQ(again.ReadInt(L"", L"a", 0), 1);
    EXPECT_EQ(again.ReadInt(kOptions, L"b", 0), 2);
}

TEST_F(RegistryKeyTest, AnEmptySubkeyNameIsTheKeyItself) {
    RegistryKey key(kPath);
    EXPECT_TRUE(key.WriteInt(L"", L"number", 7));
    EXPECT_TRUE(key.WriteString(L"", L"text", L"seven"));
    EXPECT_TRUE(Find(L"", L"number"));
    EXPECT_EQ(key.ReadInt(L"", L"number", 0), 7);
    EXPECT_EQ(Read(key, L"", L"text"), L"seven");
    EXPECT_EQ(key.ReadInt(kOptions, L"number", -1), -1);
}

TEST_F(RegistryKeyTest, ShowsThatItCannotBeMadeAndThenYieldsDefaults) {
    const std::wstring tooLong(300, L'k');  // no key's name is that long
    HKEY made = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(HKEY_CURRENT_USER, tooLong.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made, nullptr);
    ASSERT_NE(error, ERROR_SUCCESS);
    boxes_.Expect(L"Error", Words(static_cast<DWORD>(error)));
    RegistryKey key(tooLong.c_str());
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, UINT{MB_ICONINFORMATION});
    EXPECT_EQ(boxes_.Seen()[0].buttons, UINT{MB_OK});

    EXPECT_EQ(key.ReadInt(L"", L"a", 5), 5);
    EXPECT_EQ(key.ReadInt(kOptions, L"SortBy", 101), 101);
    EXPECT_EQ(Read(key, kOptions, L"a"), L"fallback");
    EXPECT_EQ(key.FindIndexedString(kOptions, L"a", L"b", 3), 0);
    EXPECT_TRUE(key.DeleteValue(kOptions, L"a"));
    EXPECT_EQ(boxes_.Seen().size(), 1u);

    for (int i = 0; i < 3; ++i)
        boxes_.Expect(L"Error", Words(ERROR_INVALID_HANDLE));
    EXPECT_FALSE(key.WriteString(kOptions, L"a", L"b"));
    EXPECT_TRUE(key.WriteInt(kOptions, L"a", 1));
    EXPECT_FALSE(key.DeleteKey(kOptions));
    EXPECT_EQ(boxes_.Seen().size(), 4u);
}

// ---- Reading ----

TEST_F(RegistryKeyTest, YieldsDefaultsWithoutTheSubkey) {
    const RegistryKey key(kPath);
    EXPECT_EQ(key.ReadInt(LoadText(IDS_OPTIONS), L"SortBy", 101), 101);
    std::wstring text;
    EXPECT_FALSE(key.ReadString(LoadText(IDS_OPTIONS), LoadText(IDS_OPTION_CONFIRM_DELETES), L"Yes", text));
    EXPECT_EQ(text, L"Yes");
    EXPECT_FALSE(HasSubkey(kOptions));  // reading makes nothing
}

TEST_F(RegistryKeyTest, YieldsDefaultsWithoutTheValue) {
    const RegistryKey key(kPath);
    MakeSubkey(kOptions);
    EXPECT_EQ(key.ReadInt(kOptions, L"SortBy", 101), 101);
    EXPECT_EQ(Read(key, kOptions, L"Confirm Deletes"), L"fallback");
}

TEST_F(RegistryKeyTest, FindsASubkeyInAnyCase) {
    const DWORD field = 102;
    Store(L"OPTIONS", L"SortBy", REG_DWORD, &field, sizeof(field));
    Store(L"OPTIONS", L"Confirm Deletes", REG_SZ, L"No", 3 * sizeof(wchar_t));
    const RegistryKey key(kPath);
    EXPECT_EQ(key.ReadInt(kOptions, L"SortBy", 101), 102);
    EXPECT_EQ(Read(key, L"oPtIoNs", L"Confirm Deletes"), L"No");
}

TEST_F(RegistryKeyTest, FindsASubkeyAmongOthers) {
    for (int i = 0; i < 40; ++i)
        MakeSubkey(L"Option" + std::to_wstring(i));
    MakeSubkey(L"Options2");
    const DWORD field = 102;
    Store(kOptions, L"SortBy", REG_DWORD, &field, sizeof(field));
    const RegistryKey key(kPath);
    EXPECT_EQ(key.ReadInt(kOptions, L"SortBy", 101), 102);
}

TEST_F(RegistryKeyTest, FindsSubkeyNamesOfUpTo160Characters) {
    const DWORD value = 5;
    const RegistryKey key(kPath);
    for (const size_t length : {1, 159, 160, 161, 255}) {
        const std::wstring name(length, L'n');
        Store(name, L"a", REG_DWORD, &value, sizeof(value));
        EXPECT_EQ(key.ReadInt(name, L"a", 0), length <= RegistryKey::kMaxName ? 5 : 0) << length;
    }
}

TEST_F(RegistryKeyTest, PassesOverSubkeysWithLongerNames) {
    MakeSubkey(std::wstring(200, L'A'));
    const DWORD value = 5;
    Store(kOptions, L"a", REG_DWORD, &value, sizeof(value));
    const RegistryKey key(kPath);
    EXPECT_EQ(key.ReadInt(kOptions, L"a", 0), 5);
}

TEST_F(RegistryKeyTest, ReadsAndWritesEveryKindOfNumber) {
    RegistryKey key(kPath);
    for (const int32_t value :
         {0, 1, -1, 101, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
        EXPECT_TRUE(key.WriteInt(kOptions, L"a", value));
        EXPECT_EQ(key.ReadInt(kOptions, L"a", 77), value);
    }
    EXPECT_EQ(Find(kOptions, L"a")->type, DWORD{REG_DWORD});
    EXPECT_EQ(Find(kOptions, L"a")->data, (std::vector<BYTE>{0, 0, 0, 0x80}));
}

struct OddNumberRow {
    const char* label;
    DWORD type;
    std::vector<BYTE> data;
    bool shown;  // more bytes than a number has: the registry refuses to give them
};

TEST_F(RegistryKeyTest, YieldsTheDefaultForWhatIsNoNumber) {
    const OddNumberRow rows[] = {
        {"no bytes", REG_DWORD, {}, false},
        {"one byte", REG_DWORD, {1}, false},
        {"three bytes", REG_DWORD, {1, 2, 3}, false},
        {"five bytes", REG_DWORD, {1, 2, 3, 4, 5}, true},
        {"a long number", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}, false},
        {"a text as large as a number", REG_SZ, {'1', 0, 0, 0}, false},
        {"a longer text", REG_SZ, {'1', 0, '2', 0, 0, 0}, false},
        {"bytes", REG_BINARY, {1, 0, 0, 0}, false},
        {"a number the other way round", REG_DWORD_BIG_ENDIAN, {1, 0, 0, 0}, false},
    };
    const RegistryKey key(kPath);
    for (const OddNumberRow& row : rows) {
        SCOPED_TRACE(row.label);
        Store(kOptions, L"a", row.type, row.data.data(), row.data.size());
        const size_t before = boxes_.Seen().size();
        if (row.shown) boxes_.Expect(L"Error", Words(ERROR_MORE_DATA));
        EXPECT_EQ(key.ReadInt(kOptions, L"a", 77), 77);
        EXPECT_EQ(boxes_.Seen().size() - before, row.shown ? 1u : 0u);
    }
}

struct OddTextRow {
    const char* label;
    DWORD type;
    std::wstring characters;
    size_t bytes;
    const wchar_t* text;  // null: the default
    bool shown;
};

TEST_F(RegistryKeyTest, ReadsTextsAsFarAsTheyAreSound) {
    const std::wstring full(156, L'x');
    const std::wstring almost(155, L'y');
    const OddTextRow rows[] = {
        {"no bytes", REG_SZ, L"", 0, L"", false},
        {"only the NUL", REG_SZ, L"", 2, L"", false},
        {"half a character", REG_SZ, L"a", 1, L"", false},
        {"with its NUL", REG_SZ, L"abc", 8, L"abc", false},
        {"without a NUL", REG_SZ, L"abc", 6, L"abc", false},
        {"two characters and a half", REG_SZ, L"abc", 5, L"ab", false},
        {"a NUL in between", REG_SZ, std::wstring(L"ab\0cd", 5), 12, L"ab", false},
        {"155 characters and a NUL", REG_SZ, almost, 312, almost.c_str(), false},
        {"156 characters without a NUL", REG_SZ, full, 312, full.c_str(), false},
        {"156 characters and a NUL", REG_SZ, full, 314, nullptr, true},
        {"312 bytes and one", REG_SZ, full, 313, nullptr, true},
        {"a number", REG_DWORD, L"ab", 4, nullptr, false},
        {"a text to expand", REG_EXPAND_SZ, L"ab", 6, nullptr, false},
        {"several texts", REG_MULTI_SZ, L"ab", 6, nullptr, false},
        {"bytes", REG_BINARY, L"ab", 6, nullptr, false},
        {"very many bytes", REG_BINARY, std::wstring(2000, L'b'), 4000, nullptr, false},
    };
    const RegistryKey key(kPath);
    for (const OddTextRow& row : rows) {
        SCOPED_TRACE(row.label);
        Store(kOptions, L"a", row.type, row.characters.c_str(), row.bytes);
        const size_t before = boxes_.Seen().size();
        if (row.shown) boxes_.Expect(L"Error", Words(ERROR_MORE_DATA));
        std::wstring text = L"before";
        EXPECT_EQ(key.ReadString(kOptions, L"a", L"fallback", text), row.text != nullptr);
        EXPECT_EQ(text, row.text ? row.text : L"fallback");
        EXPECT_EQ(boxes_.Seen().size() - before, row.shown ? 1u : 0u);
    }
}

TEST_F(RegistryKeyTest, TheDefaultMayBeTheTextItself) {
    const RegistryKey key(kPath);
    std::wstring text = L"kept";
    EXPECT_FALSE(key.ReadString(kOptions, L"a", text, text));
    EXPECT_EQ(text, L"kept");
}

// ---- Writing ----

TEST_F(RegistryKeyTest, StoresATextWithItsNul) {
    RegistryKey key(kPath);
    EXPECT_TRUE(key.WriteString(kOptions, L"a", L"No"));
    const std::optional<Stored> stored = Find(kOptions, L"a");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->type, DWORD{REG_SZ});
    EXPECT_EQ(stored->data, (std::vector<BYTE>{'N', 0, 'o', 0, 0, 0}));
    EXPECT_EQ(Read(key, kOptions, L"a"), L"No");
}

TEST_F(RegistryKeyTest, StoresAnEmptyText) {
    RegistryKey key(kPath);
    EXPECT_TRUE(key.WriteString(kOptions, L"a", L""));
    EXPECT_EQ(Find(kOptions, L"a")->data, (std::vector<BYTE>{0, 0}));
    EXPECT_EQ(Read(key, kOptions, L"a"), L"");
}

TEST_F(RegistryKeyTest, ReplacesAValueOfAnotherType) {
    RegistryKey key(kPath);
    key.WriteString(kOptions, L"a", L"text");
    key.WriteInt(kOptions, L"a", 5);
    EXPECT_EQ(key.ReadInt(kOptions, L"a", 0), 5);
    EXPECT_EQ(Read(key, kOptions, L"a"), L"fallback");
}

TEST_F(RegistryKeyTest, WritesIntoASubkeyOfAnotherCase) {
    MakeSubkey(L"OPTIONS");
    RegistryKey key(kPath);
    key.WriteInt(kOptions, L"a", 5);
    EXPECT_EQ(Find(L"OPTIONS", L"a")->data.size(), 4u);
    EXPECT_EQ(key.ReadInt(L"options", L"a", 0), 5);
}

TEST_F(RegistryKeyTest, ShowsAFailedWriteAndAnswersForTextsOnly) {
    RegistryKey key(kPath);
    const std::wstring tooLong(300, L'k');
    HKEY made = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(HKEY_CURRENT_USER, tooLong.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made, nullptr);
    ASSERT_NE(error, ERROR_SUCCESS);
    boxes_.Expect(L"Error", Words(static_cast<DWORD>(error)));
    boxes_.Expect(L"Error", Words(static_cast<DWORD>(error)));
    EXPECT_FALSE(key.WriteString(tooLong, L"a", L"b"));
    EXPECT_TRUE(key.WriteInt(tooLong, L"a", 1));
    EXPECT_EQ(boxes_.Seen().size(), 2u);
}

TEST_F(RegistryKeyTest, ShowsEveryErrorOfADeletedKeyAndGoesOn) {
    RegistryKey key(kPath);
    ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kPath), ERROR_SUCCESS);
    boxes_.Expect(L"Error", Words(ERROR_KEY_DELETED));
    EXPECT_EQ(key.ReadInt(kOptions, L"SortBy", 101), 101);
    boxes_.Expect(L"Error", Words(ERROR_KEY_DELETED));
    EXPECT_EQ(Read(key, L"", L"a"), L"fallback");
    boxes_.Expect(L"Error", Words(ERROR_KEY_DELETED));
    EXPECT_FALSE(key.WriteString(L"", L"a", L"b"));
    EXPECT_EQ(boxes_.Seen().size(), 3u);
}

// ---- Deleting ----

TEST_F(RegistryKeyTest, TellsWhetherThereIsAValueOfAnyType) {
    RegistryKey key(kPath);
    EXPECT_FALSE(key.HasValue(kOptions, L"a"));
    MakeSubkey(kOptions);
    EXPECT_FALSE(key.HasValue(kOptions, L"a"));
    for (const DWORD type : {REG_DWORD, REG_SZ, REG_BINARY, REG_NONE}) {
        Store(kOptions, L"a", type, L"12345", 10);
        EXPECT_TRUE(key.HasValue(kOptions, L"A"));
    }
    Store(kOptions, L"a", REG_BINARY, nullptr, 0);
    EXPECT_TRUE(key.HasValue(kOptions, L"a"));
    EXPECT_FALSE(key.HasValue(L"", L"a"));
}

TEST_F(RegistryKeyTest, DeletesAValueOfASubkey) {
    RegistryKey key(kPath);
    key.WriteString(kOptions, L"vacc", L"1234");
    key.WriteInt(kOptions, L"pwActive", 1);
    EXPECT_TRUE(key.DeleteValue(L"OPTIONS", L"vacc"));
    EXPECT_FALSE(Find(kOptions, L"vacc"));
    EXPECT_TRUE(Find(kOptions, L"pwActive"));
}

TEST_F(RegistryKeyTest, DeletesNoValueOfTheKeyItself) {
    RegistryKey key(kPath);
    key.WriteInt(L"", L"a", 5);
    EXPECT_TRUE(key.DeleteValue(L"", L"a"));
    EXPECT_EQ(key.ReadInt(L"", L"a", 0), 5);
}

TEST_F(RegistryKeyTest, DeletesNothingOfAMissingSubkey) {
    RegistryKey key(kPath);
    EXPECT_TRUE(key.DeleteValue(kOptions, L"a"));
    EXPECT_FALSE(HasSubkey(kOptions));
}

TEST_F(RegistryKeyTest, ShowsThatAValueToDeleteIsMissing) {
    RegistryKey key(kPath);
    MakeSubkey(kOptions);
    boxes_.Expect(L"Error", Words(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(key.DeleteValue(kOptions, L"a"));
    EXPECT_EQ(boxes_.Seen().size(), 1u);
}

TEST_F(RegistryKeyTest, DeletesASubkeyWithItsValues) {
    RegistryKey key(kPath);
    key.WriteInt(kOptions, L"a", 5);
    EXPECT_TRUE(key.DeleteKey(kOptions));
    EXPECT_FALSE(HasSubkey(kOptions));
    EXPECT_EQ(key.ReadInt(kOptions, L"a", 0), 0);
}

TEST_F(RegistryKeyTest, ShowsThatASubkeyToDeleteIsMissing) {
    RegistryKey key(kPath);
    boxes_.Expect(L"Error", Words(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(key.DeleteKey(kOptions));
    EXPECT_EQ(boxes_.Seen().size(), 1u);
}

TEST_F(RegistryKeyTest, NeverDeletesTheKeyItself) {
    RegistryKey key(kPath);
    EXPECT_FALSE(key.DeleteKey(L""));
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &opened), ERROR_SUCCESS);
    RegCloseKey(opened);
}

// ---- Numbered texts ----

TEST_F(RegistryKeyTest, FindsATextAmongNumberedOnes) {
    RegistryKey key(kPath);
    const wchar_t* const texts[] = {L"bread", L"butter", L"Butter", L"butter", L"jam"};
    for (int i = 0; i < 5; ++i)
        key.WriteString(kOptions, L"subj" + std::to_wstring(i), texts[i]);

    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"bread", 5), 1);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"butter", 5), 2);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"Butter", 5), 3);  // upper and lower case differ
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"jam", 5), 5);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"jam", 100), 5);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"jam", 4), 0);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"honey", 5), 0);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"bread", 0), 0);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"bread", -1), 0);
    EXPECT_EQ(key.FindIndexedString(L"", L"subj", L"bread", 5), 0);
}

TEST_F(RegistryKeyTest, EndsAtTheFirstEmptyNumberedText) {
    RegistryKey key(kPath);
    key.WriteString(kOptions, L"subj0", L"bread");
    key.WriteString(kOptions, L"subj1", L"");
    key.WriteString(kOptions, L"subj2", L"jam");
    key.WriteString(kOptions, L"subj4", L"late");
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"jam", 5), 0);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"", 5), 0);
    key.WriteString(kOptions, L"subj1", L"butter");
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"jam", 5), 3);
    EXPECT_EQ(key.FindIndexedString(kOptions, L"subj", L"late", 5), 0);  // number 3 is missing
}

}  // namespace
