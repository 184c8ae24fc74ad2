#include "pickers/quick_subjects.h"

#include <algorithm>

#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kCount[] = L"scount";
constexpr int kMaxCount = 10'000;

RegistryKey& Settings() {
    return *Application::Current();
}

std::wstring NameOf(int place) {
    return L"subj" + std::to_wstring(place);
}

int Count(const std::wstring& options) {
    const int stored = Settings().ReadInt(options, kCount, 0);
    if (stored <= kMaxCount) return std::max(stored, 0);
    int count = 0;
    while (count < kMaxCount && Settings().HasValue(options, NameOf(count)))
        ++count;
    return count;
}

// A character of two units is not cut in half.
std::wstring Cut(std::wstring text) {
    if (text.size() <= kMaxQuickSubject) return text;
    text.resize(IS_HIGH_SURROGATE(text[kMaxQuickSubject - 1]) ? kMaxQuickSubject - 1 : kMaxQuickSubject);
    return text;
}

// The whole text, which another program may have stored longer than the list shows it.
std::wstring ReadWhole(const std::wstring& options, int place) {
    std::wstring text;
    Settings().ReadString(options, NameOf(place), L"", text);
    return text;
}

std::wstring Read(const std::wstring& options, int place) {
    return Cut(ReadWhole(options, place));
}

bool Write(const std::wstring& options, int place, const std::wstring& text) {
    return Settings().WriteString(options, NameOf(place), text);
}

}  // namespace

std::vector<std::wstring> QuickSubjects() {
    const std::wstring options = LoadText(IDS_OPTIONS);
    const int count = Count(options);
    std::vector<std::wstring> subjects;
    for (int place = 0; place < count; ++place)
        subjects.push_back(Read(options, place));
    return subjects;
}

bool AddQuickSubject(const std::wstring& text) {
    const std::wstring options = LoadText(IDS_OPTIONS);
    const int count = Count(options);
    return count < kMaxCount && Write(options, count, Cut(text)) && Settings().WriteInt(options, kCount, count + 1);
}

bool ModifyQuickSubject(int place, const std::wstring& text) {
    const std::wstring options = LoadText(IDS_OPTIONS);
    return place >= 0 && place < Count(options) && Write(options, place, Cut(text));
}

bool DeleteQuickSubject(const std::wstring& text) {
    const std::wstring options = LoadText(IDS_OPTIONS);
    const int count = Count(options);
    int place = 0;
    while (place < count && Read(options, place) != text)
        ++place;
    if (place == count) return false;
    // The last step reads a number that has no text, and so leaves an empty one behind.
    for (int next = place + 1; next <= count; ++next)
        Write(options, next - 1, ReadWhole(options, next));
    return Settings().WriteInt(options, kCount, count - 1);
}
