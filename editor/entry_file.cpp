#include "editor/entry_file.h"

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <vector>

#include "data/db_journal.h"
#include "ui/unique_handle.h"

namespace {

constexpr std::string_view kMagic = "QJENTRY1";
constexpr int64_t kMostBytes = 1 << 28;  // 256 MB: more than this is no file of ours

using Bytes = std::vector<BYTE>;

struct FileCloser {
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using UniqueFile = UniqueHandle<HANDLE, FileCloser>;

UniqueFile OpenFileFor(DWORD access, DWORD share, DWORD disposition, const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return UniqueFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

uint64_t Hash(const BYTE* bytes, size_t size) {
    uint64_t hash = 0xCBF29CE484222325;
    for (size_t i = 0; i < size; ++i)
        hash = (hash ^ bytes[i]) * 0x100000001B3;
    return hash;
}

void Put(Bytes& bytes, const void* data, size_t size) {
    const BYTE* first = static_cast<const BYTE*>(data);
    if (size) bytes.insert(bytes.end(), first, first + size);
}

template <typename Number>
void PutNumber(Bytes& bytes, Number number) {
    Put(bytes, &number, sizeof number);
}

// ---- Writing ----

void PutField(Bytes& bytes, const DbJItem& field) {
    CEPROPVAL property;
    if (!field.ToProperty(&property)) return;
    const void* value = &property.val;
    size_t size = 0;
    switch (TypeFromPropID(property.propid)) {
        case CEVT_I2: size = sizeof property.val.iVal; break;
        case CEVT_FILETIME: size = sizeof property.val.filetime; break;
        case CEVT_LPWSTR:
            value = property.val.lpwstr;
            size = std::wcslen(property.val.lpwstr) * sizeof(wchar_t);
            break;
        case CEVT_BLOB:
            value = property.val.blob.lpb;
            size = property.val.blob.dwCount;
            break;
        default: return;
    }
    PutNumber(bytes, static_cast<uint32_t>(property.propid));
    PutNumber(bytes, static_cast<uint32_t>(size));
    Put(bytes, value, size);
}

Bytes Encode(const std::deque<EntryFields>& entries) {
    Bytes bytes;
    Put(bytes, kMagic.data(), kMagic.size());
    for (const EntryFields& entry : entries) {
        Bytes fields;
        for (const DbJItem& field : entry)
            PutField(fields, field);
        PutNumber(bytes, static_cast<uint32_t>(fields.size()));
        PutNumber(bytes, Hash(fields.data(), fields.size()));
        Put(bytes, fields.data(), fields.size());
    }
    return bytes;
}

bool WriteFlushed(const std::wstring& path, const Bytes& bytes) {
    const UniqueFile file = OpenFileFor(GENERIC_WRITE, 0, CREATE_ALWAYS, path);
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

// ---- Reading ----

// Walks through bytes that may end anywhere.
class Reader {
public:
    Reader(const BYTE* bytes, size_t size) : at_(bytes), left_(size) {}

    size_t Left() const { return left_; }
    // The next `size` bytes, null when there are fewer.
    const BYTE* Take(size_t size) {
        if (size > left_) return nullptr;
        const BYTE* taken = at_;
        at_ += size;
        left_ -= size;
        return taken;
    }
    template <typename Number>
    bool TakeNumber(Number& number) {
        const BYTE* taken = Take(sizeof number);
        if (taken) std::memcpy(&number, taken, sizeof number);
        return taken != nullptr;
    }

private:
    const BYTE* at_;
    size_t left_;
};

// A value of the wrong size for its type is none.
void SetValue(DbJItem& field, const BYTE* bytes, uint32_t size) {
    CEPROPVAL property = {};
    property.propid = field.GetPropID();
    std::wstring text;
    switch (TypeFromPropID(property.propid)) {
        case CEVT_I2:
            if (size != sizeof property.val.iVal) return;
            std::memcpy(&property.val.iVal, bytes, size);
            break;
        case CEVT_FILETIME:
            if (size != sizeof property.val.filetime) return;
            std::memcpy(&property.val.filetime, bytes, size);
            break;
        case CEVT_LPWSTR:
            text.resize(size / sizeof(wchar_t));
            if (!text.empty()) std::memcpy(text.data(), bytes, text.size() * sizeof(wchar_t));
            property.val.lpwstr = text.data();
            break;
        case CEVT_BLOB: property.val.blob = {size, const_cast<BYTE*>(bytes)}; break;
        default: return;
    }
    field.FromProperty(property);
}

bool ReadFields(Reader reader, EntryFields& fields) {
    if (!DbJournal().Initialize(&fields)) return false;
    while (reader.Left()) {
        uint32_t propid = 0;
        uint32_t size = 0;
        if (!reader.TakeNumber(propid) || !reader.TakeNumber(size)) return false;
        const BYTE* value = reader.Take(size_t{size});
        if (!value) return false;
        if (DbJItem* field = FindFieldByPropID(fields, propid)) SetValue(*field, value, size);
    }
    return true;
}

bool Decode(const Bytes& bytes, std::deque<EntryFields>& entries) {
    Reader reader(bytes.data(), bytes.size());
    const BYTE* magic = reader.Take(kMagic.size());
    if (!magic || std::memcmp(magic, kMagic.data(), kMagic.size()) != 0) return false;
    bool sound = true;
    while (reader.Left()) {
        uint32_t size = 0;
        uint64_t hash = 0;
        if (!reader.TakeNumber(size) || !reader.TakeNumber(hash)) return false;
        const BYTE* fields = reader.Take(size_t{size});
        if (!fields) return false;
        EntryFields entry;
        if (Hash(fields, size) == hash && ReadFields(Reader(fields, size), entry)) {
            entries.push_back(std::move(entry));
        } else {
            sound = false;
        }
    }
    return sound;
}

}  // namespace

bool WriteEntryFile(const std::wstring& path, const std::deque<EntryFields>& entries) {
    if (entries.empty()) return DeleteFileW(path.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND;
    const std::wstring unfinished = path + L".new";
    if (WriteFlushed(unfinished, Encode(entries)) &&
        MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        return true;
    }
    DeleteFileW(unfinished.c_str());
    return false;
}

bool ReadEntryFile(const std::wstring& path, std::deque<EntryFields>* entries) {
    const UniqueFile file = OpenFileFor(GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, path);
    if (!file) return GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
    LARGE_INTEGER size = {};
    if (!GetFileSizeEx(file.get(), &size) || size.QuadPart > kMostBytes) return false;
    Bytes bytes(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) return false;
    bytes.resize(read);
    return Decode(bytes, *entries);
}
