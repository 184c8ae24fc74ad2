// A folder of a test's own, removed with everything in it when the object goes.
#pragma once

#include <filesystem>
#include <string>

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // The full path of a file of that name in the folder; the file itself is not made.
    std::wstring File(const std::wstring& name) const { return (path_ / name).wstring(); }

private:
    std::filesystem::path path_;
};
