#include "editor/quick_subjects.h"

#include <algorithm>

#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {
constexpr size_t kMaxSubject = 99;
// A count that somebody else wrote is not believed beyond what a list can be used with.
constexpr int kMaxCount = 10'000;
}  // namespace

std::vector<std::wstring> QuickSubjects() {
    const RegistryKey& settings = *Application::Current();
    const std::wstring options = LoadText(IDS_OPTIONS);
    const int count = std::min(settings.ReadInt(options, L"scount", 0), kMaxCount);
    std::vector<std::wstring> subjects;
    for (int i = 0; i < count; ++i) {
        std::wstring subject;
        settings.ReadString(options, L"subj" + std::to_wstring(i), L"", subject);
        subjects.push_back(subject.substr(0, kMaxSubject));
    }
    return subjects;
}
