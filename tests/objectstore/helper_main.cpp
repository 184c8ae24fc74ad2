// The other process of the object store's tests: does to the store what the lines of its input say, and answers each
// with one line. Its store is the one that CE_OBJECT_STORE names, as everybody's.
//
//   open NAME PROPERTY   a database by a sort property (hexadecimal); answers its id
//   close                the database
//   first | step N       the id found
//   place RECORD         the record's place
//   add TEXT | set RECORD TEXT | delete RECORD     answers the id, or 1
//   text RECORD          the record's text
//   begin | commit       a batch
//   count                the number of records
//   write SEED           entries until killed, each with a line when its write has returned (see survival_test.cpp)
//   busy SEED N          N calls of every kind that writes; answers "done", or the first that failed and its error
//   kill STEP | kill disk N     the process as soon as it comes to that step of a restore, or to the Nth disk write
//   restore FILE         1, or the error
//   quit
#include <storebackup.h>
#include <storebatch.h>
#include <storefault.h>
#include <windbase.h>

#include <cstdio>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr CEPROPID kText = 0x0001001F;
constexpr CEPROPID kNumber = 0x00020003;
constexpr CEPROPID kBlob = 0x00050041;

HANDLE database = INVALID_HANDLE_VALUE;
CEOID databaseOid = 0;

std::wstring Widen(const std::string& text) {
    return {text.begin(), text.end()};
}

CEOID WriteText(CEOID record, const std::wstring& text) {
    CEPROPVAL value = {};
    value.propid = kText;
    value.val.lpwstr = const_cast<LPWSTR>(text.c_str());
    return CeWriteRecordProps(database, record, 1, &value);
}

std::string ReadText(CEOID record) {
    if (CeSeekDatabase(database, CEDB_SEEK_CEOID, record, nullptr) == 0) return "none";
    LPBYTE buffer = nullptr;
    DWORD size = 0;
    WORD count = 1;
    std::string text = "none";
    if (CeReadRecordProps(database, CEDB_ALLOWREALLOC, &count, &kText, &buffer, &size) != 0) {
        const auto* value = reinterpret_cast<CEPROPVAL*>(buffer);
        if ((value->wFlags & CEDB_PROPNOTFOUND) == 0) {
            const std::wstring wide = value->val.lpwstr;
            text.assign(wide.begin(), wide.end());
        }
    }
    LocalFree(buffer);
    return text;
}

// Text, number and body of an entry all follow from the number, so that whoever reads it can tell whether it is whole.
void WriteEntries(unsigned seed) {
    std::mt19937 random(seed);
    for (long number = static_cast<long>(seed) * 100'000;; ++number) {
        const std::wstring text = L"entry " + std::to_wstring(number);
        const std::string body(static_cast<size_t>(number % 7) * 900, static_cast<char>('a' + number % 26));
        CEPROPVAL values[3] = {};
        values[0].propid = kText;
        values[0].val.lpwstr = const_cast<LPWSTR>(text.c_str());
        values[1].propid = kNumber;
        values[1].val.lVal = number;
        values[2].propid = kBlob;
        values[2].val.blob = {static_cast<DWORD>(body.size()),
                              reinterpret_cast<LPBYTE>(const_cast<char*>(body.data()))};
        // Announced first: a write that was under way when the process was killed may or may not be there.
        std::printf("begin %ld\n", number);
        std::fflush(stdout);
        const CEOID oid = CeWriteRecordProps(database, 0, 3, values);
        std::printf("%s %ld %lu\n", oid ? "done" : "failed", number, oid ? oid : GetLastError());
        std::fflush(stdout);
        if (oid != 0 && random() % 4 == 0) {  // some are changed or deleted again
            std::printf("undo %ld\n", number);
            std::fflush(stdout);
            if (CeDeleteRecord(database, oid)) std::printf("undone %ld\n", number);
            std::fflush(stdout);
        }
    }
}

// Writes in every way, batches among them, and deletes about as many entries as it makes.
std::string WriteInEveryWay(unsigned seed, int calls) {
    std::mt19937 random(seed);
    std::vector<CEOID> mine;
    const auto failed = [](const char* call) { return std::string(call) + " " + std::to_string(GetLastError()); };
    for (int i = 0; i < calls; ++i) {
        const std::wstring text = L"busy " + std::to_wstring(random() % 1000);
        const unsigned kind = random() % 8;
        if (kind < 3 || mine.empty()) {
            mine.push_back(WriteText(0, text));
            if (mine.back() == 0) return failed("add");
        } else if (kind < 5) {
            if (WriteText(mine[random() % mine.size()], text) == 0) return failed("set");
        } else if (kind < 7) {
            if (!CeDeleteRecord(database, mine.back())) return failed("delete");
            mine.pop_back();
        } else {
            if (!CeBeginBatch()) return failed("begin");
            for (int n = 0; n < 20; ++n)
                mine.push_back(WriteText(0, text));
            for (int n = 0; n < 20; ++n, mine.pop_back())
                if (!CeDeleteRecord(database, mine.back())) return failed("delete in a batch");
            if (!CeCommitBatch()) return failed("commit");
        }
    }
    return "done";
}

std::string Do(const std::string& verb, std::istringstream& line) {
    if (verb == "open") {
        std::string name;
        CEPROPID sort = 0;
        line >> name >> std::hex >> sort;
        databaseOid = 0;
        database = CeOpenDatabase(&databaseOid, Widen(name).c_str(), sort, 0, nullptr);
        return database == INVALID_HANDLE_VALUE ? "error " + std::to_string(GetLastError())
                                                : std::to_string(databaseOid);
    }
    if (verb == "close") return std::to_string(CeCloseHandle(database));
    if (verb == "first") return std::to_string(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 0, nullptr));
    if (verb == "begin") return std::to_string(CeBeginBatch());
    if (verb == "commit") return std::to_string(CeCommitBatch());
    if (verb == "count") {
        CEOIDINFO info = {};
        CeOidGetInfo(databaseOid, &info);
        return std::to_string(info.infDatabase.wNumRecords);
    }
    if (verb == "kill") {
        std::string step;
        std::getline(line >> std::ws, step);
        if (step.starts_with("disk ")) {
            CeFailDisk(static_cast<DWORD>(std::stoul(step.substr(5))), kCeDiskKill);
        } else {
            CeFailCall(step.c_str(), 1, kCeKill);
        }
        return "1";
    }
    if (verb == "restore") {
        std::string file;
        std::getline(line >> std::ws, file);
        wchar_t kept[MAX_PATH] = L"";
        return CeRestoreObjectStore(Widen(file).c_str(), kept, MAX_PATH) ? "1" : std::to_string(GetLastError());
    }
    if (verb == "add") {
        std::string text;
        std::getline(line >> std::ws, text);
        return std::to_string(WriteText(0, Widen(text)));
    }
    long number = 0;
    line >> number;
    const auto record = static_cast<CEOID>(number);
    if (verb == "step") {
        return std::to_string(CeSeekDatabase(database, CEDB_SEEK_CURRENT,
                                             static_cast<DWORD_PTR>(static_cast<LONG_PTR>(number)), nullptr));
    }
    if (verb == "place") {
        DWORD place = static_cast<DWORD>(-1);
        CeSeekDatabase(database, CEDB_SEEK_CEOID, record, &place);
        return std::to_string(static_cast<int>(place));
    }
    if (verb == "set") {
        std::string text;
        std::getline(line >> std::ws, text);
        return std::to_string(WriteText(record, Widen(text)));
    }
    if (verb == "delete") return std::to_string(CeDeleteRecord(database, record));
    if (verb == "text") return ReadText(record);
    if (verb == "busy") {
        int calls = 0;
        line >> calls;
        return WriteInEveryWay(static_cast<unsigned>(number), calls);
    }
    if (verb == "write") WriteEntries(static_cast<unsigned>(number));
    return "?";
}

}  // namespace

int main() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    std::string text;
    while (std::getline(std::cin, text)) {
        if (!text.empty() && text.back() == '\r') text.pop_back();
        std::istringstream line(text);
        std::string verb;
        line >> verb;
        if (verb == "quit") return 0;
        std::printf("%s\n", Do(verb, line).c_str());
        std::fflush(stdout);
    }
    return 0;
}
