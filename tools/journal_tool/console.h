// What the tool says: UTF-8, lines ended by \n, results to standard output and complaints to standard error.
#pragma once

#include <string>
#include <string_view>

// Makes both streams UTF-8, whatever they are connected to. Called once, first.
void PrepareConsole();

// Writes text as it is; the caller ends its lines.
void Print(std::wstring_view text);
// "1 entry", "2 entries".
std::wstring Counted(long long count, const wchar_t* one, const wchar_t* many);
inline std::wstring Entries(long long count) {
    return Counted(count, L"entry", L"entries");
}

// Writes one line, with the tool's name before it.
void Complain(std::wstring_view text);

std::string ToUtf8(std::wstring_view text);
// False when the bytes are not sound UTF-8; then `text` is empty.
bool FromUtf8(std::string_view bytes, std::wstring* text);
