// A journal in a fresh store, entries for it, and files to compare byte by byte.
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "data/category_blob.h"
#include "data/contact_blob.h"
#include "data/db_cats.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "tests/support/replaced_import.h"
#include "tests/support/temp_folder.h"
#include "text/date_time.h"

// What an entry of a test holds; the rest is as a new entry has it.
struct Sample {
    std::wstring subject = {};
    DateTime start = DateTime(SYSTEMTIME{2001, 5, 0, 7, 15, 30, 0, 0});
    DateTime duration = {};
    short type = 13;
    short priority = 1;
    short sensitivity = 0;
    std::wstring company = {};
    std::vector<std::wstring> contacts = {};
    std::vector<CEOID> categories = {};
    std::string body = {};
};

// The system's own function, for stand-ins: the import leads back to them.
template <typename Function>
Function SystemCall(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

// Read-only files cannot be opened for writing: under Wine the superuser can.
class ReadOnlyRespected {
private:
    static HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD creation,
                                DWORD attributes, HANDLE like) {
        const DWORD found = GetFileAttributesW(path);
        if (found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_READONLY)) {
            SetLastError(ERROR_ACCESS_DENIED);
            return INVALID_HANDLE_VALUE;
        }
        return SystemCall<decltype(&::CreateFileW)>("CreateFileW")(path, access, share, security, creation, attributes,
                                                                   like);
    }

    ReplacedImport create_{nullptr, "CreateFileW", Create};
};

class ExportTest : public testing::Test {
protected:
    ExportTest() { EXPECT_TRUE(journal_.Open(nullptr)); }
    ~ExportTest() override { journal_.Close(); }

    static void Fill(TSList<DbJItem>& fields, const Sample& sample) {
        const auto bytes = [&](CEPROPID propid, const void* data, size_t size) {
            const CEBLOB blob = {static_cast<DWORD>(size), static_cast<LPBYTE>(const_cast<void*>(data))};
            FindFieldByPropID(fields, propid)->SetBlob(&blob);
        };
        TSList<DbAItem> contacts;
        for (const std::wstring& name : sample.contacts)
            contacts.Append(DbAItem(name.c_str(), L"Talvern"));
        const std::vector<BYTE> people = MakeContactBlob(contacts);
        const std::vector<BYTE> categories = MakeCategoryBlob(sample.categories);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(sample.subject.c_str());
        FindFieldByPropID(fields, kPropCompany)->SetStrValue(sample.company.c_str());
        FindFieldByPropID(fields, kPropStart)->SetFileTime(sample.start.ToFileTime());
        FindFieldByPropID(fields, kPropDuration)->SetFileTime(sample.duration.ToFileTime());
        FindFieldByPropID(fields, kPropEntryType)->SetShort(sample.type);
        FindFieldByPropID(fields, kPropPriority)->SetShort(sample.priority);
        FindFieldByPropID(fields, kPropSensitivity)->SetShort(sample.sensitivity);
        bytes(kPropContacts, people.data(), people.size());
        bytes(kPropCategories, categories.data(), categories.size());
        bytes(kPropBody, sample.body.data(), sample.body.size());
    }

    CEOID Add(const Sample& sample) {
        TSList<DbJItem> fields;
        journal_.Initialize(&fields);
        Fill(fields, sample);
        const CEOID id = journal_.Write(0, &fields);
        EXPECT_NE(id, 0u);
        return id;
    }

    // "entry 0", "entry 1"... on days that follow each other.
    std::vector<CEOID> AddDays(int count) {
        std::vector<CEOID> ids;
        for (int i = 0; i < count; ++i) {
            Sample sample = {L"entry " + std::to_wstring(i)};
            sample.start.AddDays(i);
            ids.push_back(Add(sample));
        }
        return ids;
    }

    static CEOID Category(const wchar_t* name) {
        DbCats database;
        EXPECT_TRUE(database.Open(nullptr));
        database.Add(name);
        return database.FindByName(name);
    }

    // Only these fields are exported.
    static void Choose(TSList<DbJItem>& fields, std::initializer_list<CEPROPID> chosen) {
        for (DbJItem& field : fields)
            field.DelFlag(kFieldExported);
        for (const CEPROPID propid : chosen)
            FindFieldByPropID(fields, propid)->SetFlag(kFieldExported);
    }
    static void ChooseAll(TSList<DbJItem>& fields) {
        for (DbJItem& field : fields)
            field.SetFlag(kFieldExported);
    }

    std::wstring File() const { return folder_.File(L"journal.csv"); }
    static std::string Bytes(const std::wstring& path) {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static void WriteBytes(const std::wstring& path, const std::string& bytes) {
        std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
    }

    static std::string Ansi(const std::wstring& text) {
        std::string bytes(text.size() * 4, '\0');
        bytes.resize(
            static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                                    static_cast<int>(bytes.size()), nullptr, nullptr)));
        return bytes;
    }
    static std::string TimeOf(const DateTime& time) {
        std::wstring text;
        time.DateAndTime(text);
        return Ansi(text);
    }

    FreshStore store_;
    TempFolder folder_;
    MessageBoxes boxes_;
    DbJournal journal_;
};
