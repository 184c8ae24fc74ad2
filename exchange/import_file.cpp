#include "exchange/import_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace import {
namespace {

constexpr size_t kLargestFile = 512u << 20;  // bytes; it is read as a whole

}  // namespace

int ReadBytes(const std::wstring& path, std::string* bytes) {
    bytes->clear();
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (!file) return errno;
    std::string block(1 << 20, '\0');
    size_t count = 0;
    while (bytes->size() <= kLargestFile && (count = std::fread(block.data(), 1, block.size(), file)) > 0)
        bytes->append(block, 0, count);
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) return EIO;
    return bytes->size() > kLargestFile ? EFBIG : 0;
}

Imported ImportBytes(std::string bytes, OutlookWriter& writer) {
    Contents contents = ReadFile(std::move(bytes), SystemClock);
    Imported imported;
    imported.empty = contents.items.empty() && contents.problems.empty();
    imported.stored = std::all_of(contents.items.begin(), contents.items.end(),
                                  [&](const Item& item) { return writer.Put(item, &imported.counts); });
    const DWORD error = GetLastError();  // of an item that the store refused
    imported.stored = writer.Finish() && imported.stored;
    if (!imported.stored && writer.GetFailure() != OutlookWriter::Failure::kCommit) SetLastError(error);
    imported.problems = std::move(contents.problems);
    imported.leftOut = contents.leftOut;
    return imported;
}

}  // namespace import
