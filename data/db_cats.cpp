#include "data/db_cats.h"

#include "data/category_blob.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"

DbCats::~DbCats() = default;

int DbCats::Open(HWND notify) {
    return DbCategories::Open(kPropCategoryName, notify);
}

std::wstring DbCats::GetName(CEOID category) {
    if (!category || !SeekToOid(category)) return {};
    CEPROPID ids[] = {kPropCategoryName};
    WORD count = 1;
    RecordBuffer record;
    if (ReadRecordProps(&count, ids, record.Put()) != category || !record.Has(0)) return {};
    return record[0].val.lpwstr;
}

void DbCats::ReadBlob(const CEBLOB& blob, TSList<DbCItem>* categories) {
    for (const CEOID category : ReadCategoryBlob(blob)) {
        const std::wstring name = GetName(category);
        if (!name.empty()) categories->Append(DbCItem(kPropCategoryName, name.c_str(), category));
    }
}

std::vector<BYTE> DbCats::MakeBlob(const TSList<DbCItem>& categories) {
    std::vector<CEOID> ids;
    for (const DbCItem& category : categories) {
        const CEOID oid = category.GetOid() ? category.GetOid() : FindByName(category.GetStrValue());
        if (oid) ids.push_back(oid);
    }
    return MakeCategoryBlob(ids);
}

std::wstring JoinCategories(const TSList<DbCItem>& categories) {
    std::wstring text;
    const wchar_t* separator = L"";
    for (const DbCItem& category : categories) {
        text.append(separator).append(category.GetStrValue());
        separator = L", ";
    }
    return text;
}

void ReadCategoryNames(const CEBLOB& blob, TSList<DbCItem>* categories) {
    DbCats database;
    if (database.Open(nullptr)) database.ReadBlob(blob, categories);
}
