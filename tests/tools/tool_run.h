// Starts the real journal-tool.exe and waits for its end.
#pragma once

#include <string>
#include <vector>

struct ToolRun {
    int exitCode = -1;
    std::string output;      // standard output
    std::string complaints;  // standard error

    std::vector<std::string> Lines() const;  // of the output
};

// Runs the tool with these arguments and that on its standard input. A tool that does not end by itself is ended, and
// fails the test.
ToolRun RunTool(const std::vector<std::wstring>& arguments, const std::string& input = {});
