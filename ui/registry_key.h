// A key of the current user's registry: where all settings are kept.
#pragma once

#include <win.h>

#include <cstdint>
#include <memory>
#include <string>

// Opens (makes, when absent) a key under HKEY_CURRENT_USER at construction and keeps it open; works on its values and
// on those of its subkeys. A subkey name that is an empty string means the key itself. Subkeys are found whatever the
// case of their names; each operation opens the one it needs and closes it again.
//
// Every error of the registry, but for a missing value or subkey on a read, is shown at once: the system's text for it
// in a box titled "Error". What went wrong then goes on: reads yield their defaults. A box pumps messages, so any
// operation may let the program's other handlers run.
class RegistryKey {
public:
    // Characters that ReadString reads at most, its terminating NUL included when one is stored.
    static constexpr int kMaxText = 156;
    // Characters of a subkey name that is found for reading; longer ones are passed over.
    static constexpr int kMaxName = 160;

    // Keeps a copy of `path`. Without the key (an error that is shown) reads yield defaults, silently, and all else
    // fails.
    explicit RegistryKey(const wchar_t* path);
    virtual ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    const wchar_t* GetPath() const { return path_.get(); }

    // The 32-bit value, or `fallback` when the value or its subkey is missing, of another type, or of another size.
    int32_t ReadInt(const std::wstring& subkey, const std::wstring& name, int32_t fallback) const;

    // Puts the text into `text`, up to its first NUL, and answers true; or puts `fallback` there and answers false,
    // when the value or its subkey is missing, of another type, or longer than kMaxText (an error that is shown). A
    // value stored without its NUL is read as far as it goes.
    bool ReadString(const std::wstring& subkey, const std::wstring& name, const std::wstring& fallback,
                    std::wstring& text) const;

    // Whether there is a value of that name, of whatever type and size.
    bool HasValue(const std::wstring& subkey, const std::wstring& name) const;

    // Stores the text with its NUL, making the subkey when it is absent. Answers whether it is stored. Mind that
    // ReadString reads back no more than kMaxText - 1 characters.
    bool WriteString(const std::wstring& subkey, const std::wstring& name, const std::wstring& text);

    // Stores a 32-bit value, making the subkey when it is absent. Always answers true: an error is shown, not answered.
    bool WriteInt(const std::wstring& subkey, const std::wstring& name, int32_t value);

    // Deletes a value of a subkey; answers false when that failed (a missing value too, an error that is shown). With
    // an empty subkey name or a missing subkey there is nothing to do, and it answers true.
    bool DeleteValue(const std::wstring& subkey, const std::wstring& name);

    // Deletes a subkey that has no subkeys itself, with its values. Answers whether it did; a missing one is an error
    // that is shown. An empty name names no subkey: false, and nothing happens.
    bool DeleteKey(const std::wstring& name);

    // Looks through the strings named `prefix` followed by 0, 1, 2 ... count - 1, as far as the first that is empty or
    // missing, and answers the 1-based place of the first that equals `text` in the user's locale; 0 when none does.
    int FindIndexedString(const std::wstring& subkey, const std::wstring& prefix, const std::wstring& text,
                          int count) const;

private:
    HKEY key_ = nullptr;
    std::unique_ptr<wchar_t[]> path_;
};
