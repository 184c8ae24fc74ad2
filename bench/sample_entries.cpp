#include "bench/sample_entries.h"

#include <note_text.h>

#include <iterator>

namespace {

constexpr const wchar_t* kWords[] = {L"meeting", L"with",   L"the",    L"garden", L"plan",   L"letter", L"from",
                                     L"harbour", L"review", L"second", L"draft",  L"notes",  L"about",  L"winter",
                                     L"travel",  L"budget", L"music",  L"lesson", L"repair", L"window", L"visit"};

// A number that looks random and follows from two others.
unsigned Mix(unsigned a, unsigned b) {
    unsigned x = a * 2654435761u + b * 40503u + 12345u;
    x ^= x >> 15;
    x *= 2246822519u;
    return x ^ (x >> 13);
}

std::wstring Words(unsigned number, unsigned salt, size_t length) {
    std::wstring text;
    for (unsigned i = 0; text.size() < length; ++i) {
        if (!text.empty()) text += L' ';
        text += kWords[Mix(number, salt + i) % std::size(kWords)];
    }
    text.resize(length);
    return text;
}

// A note as the note control writes it; the words are ASCII and have nothing to escape.
std::string Note(const std::wstring& text) {
    std::string note =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Tahoma;}}\\viewkind4\\uc1\\pard\\f0\\fs18 ";
    for (const wchar_t c : text)
        note += static_cast<char>(c);
    note += "\\par\r\n}";
    AddNoteText(&note, text);
    return note;
}

FILETIME Ticks(unsigned long long ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

constexpr unsigned long long kMinute = 600'000'000ull;
constexpr unsigned long long kFirstDay = 0x01C0'0000'0000'0000ull;
constexpr unsigned kMinutesInTenYears = 10u * 365 * 24 * 60;

}  // namespace

SampleEntry MakeSampleEntry(unsigned number) {
    SampleEntry entry;
    // Mostly one after the other, as they are written, some entered later.
    const unsigned minute = number % 16 == 0 ? Mix(number, 1) % kMinutesInTenYears : number * 80 % kMinutesInTenYears;
    entry.start = Ticks(kFirstDay + minute * kMinute);
    entry.subject = Words(number, 100, 60);
    entry.company = number % 3 == 0 ? Words(number, 200, 16) : L"";
    entry.type = static_cast<short>(Mix(number, 2) % 19);
    entry.priority = static_cast<short>(Mix(number, 3) % 3);
    entry.sensitivity = static_cast<short>(Mix(number, 4) % 4);
    entry.duration = Ticks(Mix(number, 5) % 600 * kMinute);
    for (unsigned i = 0; i < Mix(number, 6) % 3; ++i)
        entry.categories.push_back(2 + Mix(number, 7 + i) % 12);
    entry.bodyText = Words(number, 1000, 600);
    entry.body = Note(entry.bodyText);
    return entry;
}
