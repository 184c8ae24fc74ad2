#include "tools/journal_tool/entry_row.h"

#include <win.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cwchar>

#include "data/value_tables.h"
#include "tools/journal_tool/console.h"

namespace {

struct ColumnName {
    const wchar_t* name;
    Column column;
};

constexpr std::array kColumns = {
    ColumnName{L"start", Column::kStart},
    ColumnName{L"duration", Column::kDuration},
    ColumnName{L"type", Column::kType},
    ColumnName{L"priority", Column::kPriority},
    ColumnName{L"sensitivity", Column::kSensitivity},
    ColumnName{L"subject", Column::kSubject},
    ColumnName{L"company", Column::kCompany},
    ColumnName{L"contacts", Column::kContacts},
    ColumnName{L"categories", Column::kCategories},
    ColumnName{L"body", Column::kBody},
};

// The rich text of a body is up to nine times as long, and must stay below what a property may hold.
constexpr size_t kLongestBody = 4'000'000;
// What an entry can hold: as many ticks as 64 bits count.
constexpr ULONGLONG kLongestDuration = ULLONG_MAX / 600'000'000;

bool SameWord(std::wstring_view one, std::wstring_view other) {
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(), static_cast<int>(other.size()),
                                TRUE) == CSTR_EQUAL;
}

std::wstring_view Trim(std::wstring_view text) {
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

// Quotes a value for a message, cut when it is long.
std::wstring Quoted(std::wstring_view value) {
    constexpr size_t kMost = 40;
    return L"\"" + std::wstring(value.substr(0, kMost)) + (value.size() > kMost ? L"...\"" : L"\"");
}

template <typename View>
std::vector<View> Split(View text, typename View::value_type separator) {
    std::vector<View> parts;
    for (;;) {
        const size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == View::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

// Names between bars; blanks around them and empty ones do not count.
std::vector<std::wstring> Names(std::wstring_view text) {
    std::vector<std::wstring> names;
    for (const std::wstring_view name : Split(text, L'|'))
        if (!Trim(name).empty()) names.emplace_back(Trim(name));
    return names;
}

// #12: a value as the store has it, for which there is no other text.
template <typename Number>
bool ReadRaw(std::wstring_view text, Number* number) {
    if (text.size() < 2 || text.size() > 21 || text[0] != L'#') return false;
    errno = 0;
    wchar_t* end = nullptr;
    const std::wstring digits(text.substr(1));
    if (digits.find_first_not_of(L"-0123456789") != std::wstring::npos) return false;
    if constexpr (std::is_signed_v<Number>) {
        const long long value = std::wcstoll(digits.c_str(), &end, 10);
        *number = static_cast<Number>(value);
        if (*number != value) return false;
    } else {
        if (digits[0] == L'-') return false;
        *number = std::wcstoull(digits.c_str(), &end, 10);
    }
    return errno == 0 && *end == L'\0';
}

// Takes `digits` digits and then, unless that is NUL, the separator.
bool TakeNumber(std::wstring_view& text, size_t digits, wchar_t separator, WORD* number) {
    if (text.size() < digits + (separator ? 1 : 0)) return false;
    unsigned value = 0;
    for (size_t i = 0; i < digits; ++i) {
        if (text[i] < L'0' || text[i] > L'9') return false;
        value = value * 10 + static_cast<unsigned>(text[i] - L'0');
    }
    if (separator && text[digits] != separator) return false;
    text.remove_prefix(digits + (separator ? 1 : 0));
    *number = static_cast<WORD>(value);
    return true;
}

// 2004-05-07, 2004-05-07 14:30, 2004-05-07 14:30:05; a T may stand for the blank. A year may have five digits.
bool ReadStart(std::wstring_view text, FILETIME* start) {
    if (ULONGLONG ticks = 0; ReadRaw(text, &ticks)) {
        *start = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        return true;
    }
    SYSTEMTIME time{};
    const size_t yearDigits = text.size() > 4 && text[4] != L'-' ? 5 : 4;
    if (!TakeNumber(text, yearDigits, L'-', &time.wYear) || !TakeNumber(text, 2, L'-', &time.wMonth) ||
        !TakeNumber(text, 2, 0, &time.wDay))
        return false;
    if (!text.empty()) {
        if (text[0] != L' ' && text[0] != L'T') return false;
        text.remove_prefix(1);
        if (!TakeNumber(text, 2, L':', &time.wHour) || !TakeNumber(text, 2, 0, &time.wMinute)) return false;
        if (!text.empty() && (text[0] != L':' || (text.remove_prefix(1), !TakeNumber(text, 2, 0, &time.wSecond))))
            return false;
    }
    // Not every system's conversion refuses 29 February 2003; it then comes back as another day.
    SYSTEMTIME back;
    return text.empty() && SystemTimeToFileTime(&time, start) && FileTimeToSystemTime(start, &back) &&
           back.wMonth == time.wMonth;
}

bool ReadMinutes(std::wstring_view text, ULONGLONG* minutes) {
    constexpr size_t kMostDigits = 11;
    if (text.size() > kMostDigits) return false;
    ULONGLONG value = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9') return false;
        value = value * 10 + static_cast<ULONGLONG>(digit - L'0');
    }
    *minutes = value;
    return value <= kLongestDuration;
}

// The row of that word in a table; an empty one leaves the value as it is.
bool ReadWord(std::wstring_view text, ValueTable table, short* value) {
    if (text.empty() || ReadRaw(text, value)) return true;
    for (size_t row = 0; row < table.size(); ++row) {
        if (!SameWord(text, table[row])) continue;
        *value = static_cast<short>(row);
        return true;
    }
    return false;
}

std::wstring Unescape(std::wstring_view text) {
    std::wstring plain;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t next = text[i] == L'\\' && i + 1 < text.size() ? text[i + 1] : L'\0';
        const wchar_t meant = next == L'n' ? L'\n' : next == L't' ? L'\t' : next == L'\\' ? L'\\' : L'\0';
        plain += meant ? meant : text[i];
        if (meant) ++i;
    }
    return plain;
}

// The word for a value, or its number when the table has none.
std::wstring WordFor(ValueTable table, short value) {
    const std::wstring word = ValueText(table, value);
    return word.empty() ? L"#" + std::to_wstring(value) : word;
}

std::wstring StartText(const FILETIME& start) {
    SYSTEMTIME time{};
    if (!FileTimeToSystemTime(&start, &time)) {
        return L"#" + std::to_wstring(ULONGLONG{start.dwHighDateTime} << 32 | start.dwLowDateTime);
    }
    wchar_t text[32];
    wsprintfW(text, time.wSecond ? L"%04u-%02u-%02u %02u:%02u:%02u" : L"%04u-%02u-%02u %02u:%02u", time.wYear,
              time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    return text;
}

// Without the control characters that no note shows.
std::wstring Escape(std::wstring_view text) {
    std::wstring escaped;
    for (const wchar_t character : text) {
        switch (character) {
            case L'\n': escaped += L"\\n"; break;
            case L'\t': escaped += L"\\t"; break;
            case L'\\': escaped += L"\\\\"; break;
            default:
                if (character >= L' ' && character != 0x7F) escaped += character;
        }
    }
    return escaped;
}

std::wstring OnOneLine(std::wstring_view text, std::wstring_view unwanted = L"\t\r\n") {
    std::wstring line(text);
    std::replace_if(
        line.begin(), line.end(), [&](wchar_t c) { return unwanted.find(c) != std::wstring_view::npos; }, L' ');
    return line;
}

// Puts a name behind those between bars, as Names would read it: without blanks around it, and not when it is empty.
void AppendName(std::wstring_view name, std::wstring* names) {
    const std::wstring line = OnOneLine(name, L"\t\r\n|");
    const std::wstring_view trimmed = Trim(line);
    if (!trimmed.empty()) names->append(names->empty() ? L"" : L"|").append(trimmed);
}

// Answers what is wrong with the value, "" for nothing.
std::wstring ReadValue(Column column, std::wstring_view value, NewEntry* entry) {
    const std::wstring_view trimmed = Trim(value);
    switch (column) {
        case Column::kStart:
            if (!ReadStart(trimmed, &entry->start)) return L"the start " + Quoted(value) + L" is no date and time";
            break;
        case Column::kSubject: entry->subject = value; break;
        case Column::kCompany: entry->company = value; break;
        case Column::kBody:
            if (value.size() > kLongestBody) return L"the body has more than 4000000 characters";
            entry->body = Unescape(value);
            break;
        case Column::kCategories: entry->categories = Names(value); break;
        case Column::kContacts:
            for (const std::wstring& name : Names(value))
                entry->contacts.Append(DbAItem(name.c_str(), L""));
            break;
        case Column::kType:
            if (!ReadWord(trimmed, EntryTypes(), &entry->type)) return L"there is no entry type " + Quoted(value);
            break;
        case Column::kPriority:
            if (!ReadWord(trimmed, Priorities(), &entry->priority)) return L"there is no priority " + Quoted(value);
            break;
        case Column::kSensitivity:
            if (!ReadWord(trimmed, Sensitivities(), &entry->sensitivity))
                return L"there is no sensitivity " + Quoted(value);
            break;
        case Column::kDuration:
            if (!ReadMinutes(trimmed, &entry->minutes))
                return L"the duration " + Quoted(value) + L" is no number of minutes";
            break;
    }
    return {};
}

}  // namespace

std::wstring ColumnNames() {
    std::wstring names;
    for (const ColumnName& column : kColumns)
        names.append(names.empty() ? L"" : L"\t").append(column.name);
    return names + L"\n";
}

std::wstring RowLayout::Parse(std::string_view header) {
    columns_.clear();
    std::wstring text;
    if (!FromUtf8(header, &text)) return L"the first row is not UTF-8";
    for (const std::wstring_view field : Split(std::wstring_view(text), L'\t')) {
        const auto found = std::find_if(kColumns.begin(), kColumns.end(),
                                        [&](const ColumnName& column) { return SameWord(column.name, Trim(field)); });
        if (found == kColumns.end()) return L"there is no column " + Quoted(field);
        if (std::find(columns_.begin(), columns_.end(), found->column) != columns_.end())
            return L"the column " + Quoted(field) + L" stands twice";
        columns_.push_back(found->column);
    }
    if (std::find(columns_.begin(), columns_.end(), Column::kStart) == columns_.end())
        return L"the column \"start\" is missing";
    return {};
}

std::wstring RowLayout::ReadRow(std::string_view row, NewEntry* entry) const {
    *entry = NewEntry();
    std::wstring text;
    if (row.find('\0') != std::string_view::npos) return L"it holds a NUL";
    if (!FromUtf8(row, &text)) return L"it is not UTF-8";
    const std::vector<std::wstring_view> values = Split(std::wstring_view(text), L'\t');
    if (values.size() > columns_.size())
        return L"it has " + std::to_wstring(values.size()) + L" values for " + std::to_wstring(columns_.size()) +
               L" columns";
    bool started = false;
    for (size_t i = 0; i < values.size(); ++i) {
        if (std::wstring problem = ReadValue(columns_[i], values[i], entry); !problem.empty()) return problem;
        started = started || columns_[i] == Column::kStart;
    }
    return started ? L"" : L"it has no start";
}

std::wstring MakeRow(const NewEntry& entry) {
    std::wstring contacts, categories;
    for (const DbAItem& contact : entry.contacts)
        AppendName(contact.GetStrValue(), &contacts);
    for (const std::wstring& category : entry.categories)
        AppendName(category, &categories);

    std::wstring row;
    for (const ColumnName& column : kColumns) {
        if (!row.empty()) row += L'\t';
        switch (column.column) {
            case Column::kStart: row += StartText(entry.start); break;
            case Column::kDuration: row += std::to_wstring(entry.minutes); break;
            case Column::kType: row += WordFor(EntryTypes(), entry.type); break;
            case Column::kPriority: row += WordFor(Priorities(), entry.priority); break;
            case Column::kSensitivity: row += WordFor(Sensitivities(), entry.sensitivity); break;
            case Column::kSubject: row += OnOneLine(entry.subject); break;
            case Column::kCompany: row += OnOneLine(entry.company); break;
            case Column::kContacts: row += contacts; break;
            case Column::kCategories: row += categories; break;
            case Column::kBody: row += Escape(entry.body); break;
        }
    }
    return row + L"\n";
}
