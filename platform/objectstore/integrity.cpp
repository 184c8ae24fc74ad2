#include "platform/objectstore/integrity.h"

#include <set>

#include "platform/objectstore/record_values.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

class Check {
public:
    Check(Session& session, const std::function<void(const std::wstring&)>& report)
        : session_(session), connection_(session.Sql()), catalog_(session.Databases()), report_(report) {}

    bool Run() {
        if (!CheckCatalog()) return CheckFile(), false;
        CheckFile();
        for (const auto& [oid, database] : catalog_.All())
            CheckDatabase(*database);
        CheckIds();
        CheckLarge();
        return sound_;
    }

private:
    void Report(const std::string& problem) {
        sound_ = false;
        report_(std::wstring(problem.begin(), problem.end()));
    }

    int64_t Number(const std::string& sql) {
        Query query(connection_, sql);
        return query.Step() ? query->Number(0) : 0;
    }

    // What the file says of the databases: whether they can be used at all.
    bool CheckCatalog() {
        try {
            session_.Refresh();
        } catch (const StoreError& failure) {
            if (failure.code != ERROR_FILE_CORRUPT) throw;
            Report("the list of databases is damaged, or says what cannot be");
        }
        return sound_;
    }

    // The file's structure, and every entry of every index against its record.
    void CheckFile() {
        Query query(connection_, "PRAGMA integrity_check");
        while (query.Step()) {
            const std::string line = query->Text(0);
            if (line != "ok") Report("file: " + line);
        }
    }

    void CheckDatabase(const Database& database) {
        const std::string name = "database " + std::to_string(database.oid) + ": ";
        const int64_t records = Number("SELECT count(*) FROM " + database.Table());
        if (records != int64_t{database.count}) {
            Report(name + "holds " + std::to_string(records) + " records and counts " + std::to_string(database.count));
        }
        for (const SORTORDERSPEC& order : database.orders) {
            const std::string index = IndexName(database, order);
            if (Number("SELECT count(*) FROM sqlite_schema WHERE type='index' AND name='" + index + "'") != 1) {
                Report(name + "the sort order " + index + " is missing");
            }
        }
        for (const auto& [property, column] : database.columns)
            CheckColumn(database, property, column, name);
    }

    void CheckColumn(const Database& database, CEPROPID property, const Column& column, const std::string& name) {
        const std::string value = ColumnName(property);
        const std::string from = " FROM " + database.Table() + " WHERE ";
        const char* kind = HasBytes(property) ? "('null','blob','integer')" : "('null','integer')";
        if (Number("SELECT count(*)" + from + "typeof(" + value + ") NOT IN " + kind) != 0) {
            Report(name + value + " has values of another kind");
        }
        if (!HasBytes(property)) return;
        const std::string cut = TypeFromPropID(property) == CEVT_LPWSTR ? " OR length(" + value + ")%2=1" : "";
        if (Number("SELECT count(*)" + from + "typeof(" + value + ")='blob' AND (" + TooLarge(value) + cut + ")") !=
            0) {
            Report(name + value + " has values that are too large or cut off");
        }
        const std::string outside = "typeof(" + value + ")='integer'";
        if (!column.outside && Number("SELECT count(*)" + from + outside) != 0) {
            Report(name + value + " has large values where none should be");
        }
        if (!column.outside) return;
        const int64_t lost =
            Number("SELECT count(*)" + from + outside + " AND " + value + " NOT IN (SELECT id FROM large)");
        if (lost != 0) Report(name + value + " lacks " + std::to_string(lost) + " large values");
        references_ += (references_.empty() ? "SELECT " : " UNION ALL SELECT ") + value + " AS id" + from + outside;
    }

    static std::string TooLarge(const std::string& value) {
        return "length(" + value + ")>" + std::to_string(CEDB_MAXPROPDATASIZE);
    }

    void CheckIds() {
        if (Number("SELECT count(*) FROM counter WHERE oid=0 AND typeof(value)='integer' AND value BETWEEN 0 AND " +
                   std::to_string(MAXDWORD)) != 1) {
            Report("the last id that was given is not known");
        }
        std::string all = "SELECT oid FROM database";
        for (const auto& [oid, database] : catalog_.All())
            all += " UNION ALL SELECT oid FROM " + database->Table();
        const int64_t twice = Number("SELECT count(*)-count(DISTINCT oid) FROM (" + all + ")");
        if (twice != 0) Report(std::to_string(twice) + " ids are used more than once");
        const int64_t wrong =
            Number("SELECT count(*) FROM (" + all + ") WHERE oid<=0 OR oid>(SELECT value FROM counter WHERE oid=0)");
        if (wrong != 0) Report(std::to_string(wrong) + " ids were never given");
    }

    void CheckLarge() {
        const std::string used = references_.empty() ? "SELECT NULL AS id WHERE 0" : references_;
        const int64_t orphans = Number("SELECT count(*) FROM large WHERE id NOT IN (" + used + ")");
        if (orphans != 0) Report(std::to_string(orphans) + " large values belong to no record");
        const int64_t shared = Number("SELECT count(*)-count(DISTINCT id) FROM (" + used + ")");
        if (shared != 0) Report(std::to_string(shared) + " large values belong to several records");
        if (Number("SELECT count(*) FROM large WHERE " + TooLarge("value")) != 0) Report("large values are too large");
    }

    Session& session_;
    Connection& connection_;
    Catalog& catalog_;
    const std::function<void(const std::wstring&)>& report_;
    std::string references_;
    bool sound_ = true;
};

}  // namespace

bool CheckStore(Session& session, const std::function<void(const std::wstring&)>& report) {
    return Check(session, report).Run();
}

}  // namespace store
