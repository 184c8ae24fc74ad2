#include "find/find_history.h"

#include "res/ids.h"
#include "ui/registry_key.h"
#include "ui/resource_text.h"

namespace {

std::wstring ValueName(int place) {
    return L"Find" + std::to_wstring(place);
}

}  // namespace

std::vector<std::wstring> ReadFindHistory(const RegistryKey& settings) {
    const std::wstring options = LoadText(IDS_OPTIONS);
    std::vector<std::wstring> texts;
    for (int place = 0; place < kFindHistorySize; ++place) {
        std::wstring text;
        settings.ReadString(options, ValueName(place), L"", text);
        if (text.empty()) break;
        texts.push_back(std::move(text));
    }
    return texts;
}

void WriteFindHistory(RegistryKey& settings, const std::wstring& text, const std::vector<std::wstring>& before) {
    const std::wstring options = LoadText(IDS_OPTIONS);
    int place = 0;
    settings.WriteString(options, ValueName(place++), text);
    for (const std::wstring& older : before) {
        if (place == kFindHistorySize) break;
        if (older != text) settings.WriteString(options, ValueName(place++), older);
    }
}

std::wstring ReadLastFound(const RegistryKey& settings) {
    std::wstring text;
    settings.ReadString(LoadText(IDS_OPTIONS), L"Last", L"", text);
    return text;
}
