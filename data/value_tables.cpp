#include "data/value_tables.h"

#include <cwchar>

namespace {

// Stored values are rows of these three: rows are never moved.
constexpr const wchar_t* kEntryTypes[] = {
    L"Conversation",
    L"Document",
    L"E-mail message",
    L"Fax",
    L"Letter",
    L"Meeting",
    L"Meeting cancellation",
    L"Meeting request",
    L"Meeting response",
    L"Microsoft Access",
    L"Microsoft Excel",
    L"Microsoft PowerPoint",
    L"Microsoft Word",
    L"Note",
    L"Phone call",
    L"Remote session",
    L"Task",
    L"Task request",
    L"Task response",
};
constexpr const wchar_t* kPriorities[] = {L"Low", L"Normal", L"High"};
constexpr const wchar_t* kSensitivities[] = {L"Normal", L"Personal", L"Private", L"Confidential"};

// ".5 days" without a leading zero is kept on purpose.
constexpr const wchar_t* kDurationPresets[] = {
    L"0 minutes", L"5 minutes", L"10 minutes", L"15 minutes", L"30 minutes", L"1 hour",  L"2 hours",
    L"3 hours",   L"4 hours",   L"5 hours",    L"6 hours",    L"7 hours",    L"8 hours", L"9 hours",
    L"10 hours",  L"11 hours",  L".5 days",    L"1 day",      L"2 days",
};

}  // namespace

ValueTable EntryTypes() {
    return kEntryTypes;
}
ValueTable Priorities() {
    return kPriorities;
}
ValueTable Sensitivities() {
    return kSensitivities;
}
ValueTable DurationPresets() {
    return kDurationPresets;
}

const wchar_t* ValueText(ValueTable table, int value) {
    return value >= 0 && value < static_cast<int>(table.size()) ? table[static_cast<size_t>(value)] : L"";
}

int ValueOfText(ValueTable table, const wchar_t* text) {
    for (size_t row = 0; row < table.size(); ++row)
        if (std::wcscmp(table[row], text) == 0) return static_cast<int>(row);
    return -1;
}
