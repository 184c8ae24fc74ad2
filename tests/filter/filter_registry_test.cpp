// The filter in the real registry: every value by its name, type and bytes; and whatever else may stand there.
#include <gmock/gmock.h>

#include <map>

#include "filter/registry_filter_store.h"
#include "tests/filter/filter_fixture.h"
#include "tests/support/private_registry.h"
#include "ui/registry_key.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kPath[] = L"Software\\Talvern\\Journal";
constexpr wchar_t kOptions[] = L"Software\\Talvern\\Journal\\Options";

class FilterRegistryTest : public FilterTest {
protected:
    FilterRegistryTest() : key_(kPath), values_(key_) {}

    struct Value {
        DWORD type = REG_NONE;
        std::vector<BYTE> bytes;
        bool operator==(const Value&) const = default;
        friend void PrintTo(const Value& value, std::ostream* out) {
            *out << value.type << ": " << testing::PrintToString(value.bytes);
        }
    };
    static Value Number(DWORD number) {
        const auto* bytes = reinterpret_cast<const BYTE*>(&number);
        return {REG_DWORD, {bytes, bytes + sizeof number}};
    }
    static Value Text(const std::wstring& text) {
        const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
        return {REG_SZ, {bytes, bytes + (text.size() + 1) * sizeof(wchar_t)}};
    }

    static std::map<std::wstring, Value> Stored() {
        std::map<std::wstring, Value> values;
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kOptions, 0, KEY_READ, &key), ERROR_SUCCESS);
        for (DWORD i = 0;; ++i) {
            wchar_t name[100];
            DWORD length = 100, size = 1000;
            Value value{REG_NONE, std::vector<BYTE>(size)};
            if (RegEnumValueW(key, i, name, &length, nullptr, &value.type, value.bytes.data(), &size) != ERROR_SUCCESS)
                break;
            value.bytes.resize(size);
            values[name] = value;
        }
        RegCloseKey(key);
        return values;
    }
    static void Store(const wchar_t* name, DWORD type, const std::vector<BYTE>& bytes) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kOptions, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, bytes.data(), static_cast<DWORD>(bytes.size())), ERROR_SUCCESS);
        RegCloseKey(key);
    }

    // The system's words for it.
    static std::wstring MoreData() {
        wchar_t words[200] = {};
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, ERROR_MORE_DATA, 0, words,
                       200, nullptr);
        const std::wstring text = words;
        return text.substr(0, text.find_last_not_of(L"\r\n") + 1);
    }

    PrivateRegistry registry_;
    RegistryKey key_;
    RegistryFilterStore values_;
};

TEST_F(FilterRegistryTest, SaveStoresEachValueWithItsType) {
    filter_.rangeStart = DateTime(0x11111111, 0x01C01111);
    filter_.rangeEnd = DateTime(0xFFFFFFFE, 0x01C02222);
    filter_.months = 0x0FFF;
    filter_.active = filter_.categoriesOnly = filter_.byRange = TRUE;
    Choose(L"Chess");
    Choose(L"Go");
    filter_.Save(values_);
    const std::map<std::wstring, Value> expected = {{L"fLStart", Number(0x11111111)},
                                                    {L"fHStart", Number(0x01C01111)},
                                                    {L"fLEnd", Number(0xFFFFFFFE)},
                                                    {L"fHEnd", Number(0x01C02222)},
                                                    {L"fActive", Number(1)},
                                                    {L"fMonths", Number(0x0FFF)},
                                                    {L"fRange", Number(1)},
                                                    {L"fCatsOnly", Number(1)},
                                                    {L"fCnt", Number(2)},
                                                    {L"flt0", Text(L"Chess")},
                                                    {L"flt1", Text(L"Go")}};
    EXPECT_EQ(Stored(), expected);
}

TEST_F(FilterRegistryTest, ResetLeavesTheOffFilterAndNoName) {
    filter_.active = TRUE;
    Choose(L"Chess");
    Choose(L"Go");
    filter_.Save(values_);
    Store(L"SortBy", REG_DWORD, {102, 0, 0, 0});
    filter_.Reset(values_);
    const std::map<std::wstring, Value> expected = {
        {L"fLStart", Number(0)}, {L"fHStart", Number(0)}, {L"fLEnd", Number(0)},  {L"fHEnd", Number(0)},
        {L"fActive", Number(0)}, {L"fMonths", Number(0)}, {L"fRange", Number(1)}, {L"fCatsOnly", Number(0)},
        {L"fCnt", Number(0)},    {L"SortBy", Number(102)}};
    EXPECT_EQ(Stored(), expected);
}

TEST_F(FilterRegistryTest, TheFilterIsThereAtTheNextStart) {
    filter_.rangeStart = At(2024, 3, 1, 8);
    filter_.rangeEnd = At(2024, 3, 31);
    filter_.months = 0x0801;
    filter_.active = TRUE;
    Choose(L"Chess");
    filter_.Save(values_);
    RegistryKey key(kPath);
    FilterSettings loaded;
    loaded.Load(RegistryFilterStore(key));
    EXPECT_EQ(loaded.rangeStart, filter_.rangeStart);
    EXPECT_EQ(loaded.rangeEnd, filter_.rangeEnd);
    EXPECT_EQ(loaded.months, 0x0801u);
    EXPECT_EQ(loaded.active, TRUE);
    EXPECT_EQ(loaded.byRange, FALSE);
    ASSERT_EQ(loaded.Categories().GetCount(), 1);
    EXPECT_TRUE(loaded.HasCategory(DbCItem(kPropCategoryName, L"Chess")));
}

TEST_F(FilterRegistryTest, AFirstStartSaysNothing) {
    filter_.Load(values_);
    EXPECT_EQ(filter_.active, FALSE);
    EXPECT_EQ(filter_.byRange, FALSE);
    filter_.Reset(values_);
    EXPECT_TRUE(boxes_.Seen().empty());
}

TEST_F(FilterRegistryTest, ValuesOfAnotherTypeOrSizeAreTheirDefaults) {
    const struct {
        const char* label;
        DWORD type;
        std::vector<BYTE> bytes;
    } rows[] = {
        {"no bytes", REG_DWORD, {}},
        {"a short number", REG_DWORD, {1, 0}},
        {"a long number", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}},
        {"a longer text", REG_SZ, {'1', 0, '2', 0, 0, 0}},
        {"a text", REG_SZ, {'1', 0, 0, 0}},
        {"bytes", REG_BINARY, {1, 1, 1, 1}},
    };
    const wchar_t* const names[] = {L"fActive", L"fMonths", L"fRange", L"fCatsOnly", L"fLStart",
                                    L"fHStart", L"fLEnd",   L"fHEnd",  L"fCnt"};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        for (const wchar_t* name : names)
            Store(name, row.type, row.bytes);  // and no box at any start
        filter_.Load(values_);
        EXPECT_EQ(filter_.active, FALSE);
        EXPECT_EQ(filter_.months, 0u);
        EXPECT_EQ(filter_.byRange, FALSE);
        EXPECT_EQ(filter_.categoriesOnly, FALSE);
        EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
        EXPECT_EQ(filter_.rangeEnd.Ticks(), 0u);
        EXPECT_THAT(Names(), IsEmpty());
    }
    // Saved over, all is well again.
    filter_.Save(values_);
    for (const wchar_t* name : names)
        EXPECT_EQ(Stored().at(name), Number(0));
}

TEST_F(FilterRegistryTest, NamesOfAnotherTypeAreEmptyAndALongOneIsShown) {
    Store(L"fCnt", REG_DWORD, {5, 0, 0, 0});
    Store(L"flt0", REG_DWORD, {1, 0, 0, 0});
    Store(L"flt1", REG_BINARY, {'a', 0, 'b', 0, 0, 0});
    Store(L"flt2", REG_SZ, {'a', 0, 'b', 0});  // without its NUL
    Store(L"flt3", REG_SZ, std::vector<BYTE>(2000, 'x'));
    boxes_.Expect(L"Error", MoreData());
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAre(L"", L"", L"ab", L"", L""));
}

TEST_F(FilterRegistryTest, ResetDeletesNamesOfAnyTypeAndPassesOverMissingOnes) {
    Store(L"fCnt", REG_DWORD, {4, 0, 0, 0});
    Store(L"flt0", REG_DWORD, {1, 0, 0, 0});
    Store(L"flt2", REG_SZ, std::vector<BYTE>(2000, 'x'));
    Store(L"flt4", REG_SZ, {'a', 0, 0, 0});
    filter_.Reset(values_);
    const auto stored = Stored();
    EXPECT_EQ(stored.count(L"flt0"), 0u);
    EXPECT_EQ(stored.count(L"flt2"), 0u);
    EXPECT_EQ(stored.count(L"flt4"), 1u);  // behind the count: not the filter's
}

}  // namespace
