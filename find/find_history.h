// The texts that were looked for last, in the settings.
#pragma once

#include <string>
#include <vector>

class RegistryKey;

// So many are kept.
constexpr int kFindHistorySize = 10;

// Most recent first. Ends before the first that is missing or empty, or cannot be read: one that is too long is an
// error that is shown (see RegistryKey::ReadString).
std::vector<std::wstring> ReadFindHistory(const RegistryKey& settings);

// Puts `text`, which is not empty, before those that there were; an older copy of it goes, and so does what is one too
// many.
void WriteFindHistory(RegistryKey& settings, const std::wstring& text, const std::vector<std::wstring>& before);

// A text of the history to begin with; empty for none. The journal itself never stores one.
std::wstring ReadLastFound(const RegistryKey& settings);
