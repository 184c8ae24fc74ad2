// Where the filter is kept: numbers and texts by name.
#pragma once

#include <cstdint>
#include <string>

class FilterStore {
public:
    virtual ~FilterStore() = default;

    // 0 when there is no such number.
    virtual int32_t ReadNumber(const std::wstring& name) const = 0;
    // "" when there is no such text.
    virtual std::wstring ReadText(const std::wstring& name) const = 0;

    virtual void WriteNumber(const std::wstring& name, int32_t value) = 0;
    virtual void WriteText(const std::wstring& name, const std::wstring& text) = 0;
    // Nothing happens when there is no such value.
    virtual void Delete(const std::wstring& name) = 0;
};
