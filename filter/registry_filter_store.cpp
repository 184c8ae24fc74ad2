#include "filter/registry_filter_store.h"

#include "res/ids.h"
#include "ui/registry_key.h"
#include "ui/resource_text.h"

RegistryFilterStore::RegistryFilterStore(RegistryKey& settings) : settings_(settings), subkey_(LoadText(IDS_OPTIONS)) {}

int32_t RegistryFilterStore::ReadNumber(const std::wstring& name) const {
    return settings_.ReadInt(subkey_, name, 0);
}

std::wstring RegistryFilterStore::ReadText(const std::wstring& name) const {
    std::wstring text;
    settings_.ReadString(subkey_, name, L"", text);
    return text;
}

void RegistryFilterStore::WriteNumber(const std::wstring& name, int32_t value) {
    settings_.WriteInt(subkey_, name, value);
}

void RegistryFilterStore::WriteText(const std::wstring& name, const std::wstring& text) {
    settings_.WriteString(subkey_, name, text);
}

void RegistryFilterStore::Delete(const std::wstring& name) {
    // A count that promises more than there is must not show an error for each value that is missing.
    if (settings_.HasValue(subkey_, name)) settings_.DeleteValue(subkey_, name);
}
