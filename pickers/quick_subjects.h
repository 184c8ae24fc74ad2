// The user's ready-made subjects, kept in the settings.
#pragma once

#include <string>
#include <vector>

// They are numbered in their order: "scount" of the options says how many there are, "subj0", "subj1"... are the texts.
// Texts numbered beyond are left over from a deletion and mean nothing. A negative count is none; one that is higher
// than a list can be used with is not believed, and the texts are counted instead, up to the first that is missing.

// At most this many characters of a subject are shown, and stored of one that is typed; no character is cut in half.
// One that is stored longer keeps its text when others are deleted.
constexpr int kMaxQuickSubject = 99;

// The subjects. A text that is missing counts as empty.
std::vector<std::wstring> QuickSubjects();

// Puts a subject behind the last; an empty text and one that is there already are subjects like any other. False when
// it could not be stored, or when there are 10,000.
bool AddQuickSubject(const std::wstring& text);

// Gives the subject at that place (from 0) another text. False when there is no such place or it could not be stored.
bool ModifyQuickSubject(int place, const std::wstring& text);

// Removes the first subject of that text; those behind it move up. The number that becomes free keeps an empty text.
// False, and nothing is stored, when there is no such subject.
bool DeleteQuickSubject(const std::wstring& text);
