// The filter's place among the program's settings: the subkey "Options". Errors of the registry are shown by it.
#pragma once

#include "filter/filter_store.h"

class RegistryKey;

class RegistryFilterStore : public FilterStore {
public:
    // `settings`, the program's key, must outlive the object.
    explicit RegistryFilterStore(RegistryKey& settings);

    int32_t ReadNumber(const std::wstring& name) const override;
    std::wstring ReadText(const std::wstring& name) const override;
    void WriteNumber(const std::wstring& name, int32_t value) override;
    void WriteText(const std::wstring& name, const std::wstring& text) override;
    void Delete(const std::wstring& name) override;

private:
    RegistryKey& settings_;
    std::wstring subkey_;
};
