// The file that entries are exported to.
#pragma once

#include <win.h>

#include <string_view>

// Every write is on the disk when it returns, so that it is worth the while to write much at once. No operation tells
// what became of it: an export to a file that cannot be written runs to its end all the same. Who wants to know asks
// Failed.
class ExportFile {
public:
    ExportFile() = default;
    // Closes the file.
    ~ExportFile();
    ExportFile(const ExportFile&) = delete;
    ExportFile& operator=(const ExportFile&) = delete;

    // Opens or makes the file; arguments are CreateFileW's. False only when the object holds a handle already. A path
    // that cannot be opened counts as made: nothing is written to it then.
    bool Create(const wchar_t* path, DWORD access, DWORD share, DWORD creation, DWORD attributes);
    // Writes at the current place and flushes.
    void Write(std::string_view bytes);
    // Whether the file could not be opened, or something not be written.
    bool Failed() const { return failed_; }
    // How often it has waited for the disk so far.
    int Flushes() const { return flushes_; }
    // Ends the file at the current place, so that nothing stays of a longer one that was there before.
    void SetEnd();
    // Nothing happens without a handle.
    void Close();

private:
    HANDLE handle_ = nullptr;
    bool failed_ = false;
    int flushes_ = 0;
};
