// Files of other programs that are brought to the journal: people, appointments and tasks for Pocket Outlook.
#pragma once

#include <string>
#include <vector>

class Window;

// Asks over `owner` whether what the vCard and iCalendar files among `files` hold is to be imported, does so, and tells
// what came of each; files of another kind are named as such. What was imported before is brought up to date.
void ImportFiles(Window& owner, const std::vector<std::wstring>& files);
