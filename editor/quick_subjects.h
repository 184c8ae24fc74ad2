// The user's ready-made subjects, kept in the settings.
#pragma once

#include <string>
#include <vector>

// The subjects in their order: "scount" of the options, then as many texts "subj0", "subj1"... A text that is missing
// counts as empty; each is cut to 99 characters.
std::vector<std::wstring> QuickSubjects();
