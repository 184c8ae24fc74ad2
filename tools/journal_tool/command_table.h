// All commands of the tool, by name.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/journal_tool/commands.h"

struct Command {
    std::wstring_view name;
    int (*run)(Arguments);
    std::wstring_view synopsis;  // how it is called
    std::wstring_view about;     // what it does, lines without a margin
};

std::span<const Command> Commands();
// Null when there is none of that name.
const Command* FindCommand(std::wstring_view name);

// What --help prints for the whole tool, and for one command.
std::wstring ToolHelp();
std::wstring HelpOf(const Command& command);
