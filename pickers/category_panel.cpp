#include "pickers/category_panel.h"

#include <utility>

#include "data/field_ids.h"
#include "data/record_buffer.h"

namespace {

// As long as the names that the pickers read from their rows.
constexpr int kMaxName = 99;

std::wstring Trimmed(const std::wstring& text) {
    const size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

}  // namespace

CategoryPanel::CategoryPanel(DbCats& database, std::function<void()> changed)
    : ListPanel(kMaxName), database_(database), changed_(std::move(changed)) {}

const std::vector<DbCItem>& CategoryPanel::Categories() {
    if (read_) return categories_;
    read_ = true;
    categories_.clear();
    for (CEOID category = database_.SeekFirst(); category; category = database_.SeekNext()) {
        CEPROPID ids[] = {kPropCategoryName, kPropCategoryVisible};
        WORD count = static_cast<WORD>(std::size(ids));
        RecordBuffer record;
        if (!database_.ReadRecordProps(&count, ids, record.Put()) || !record.Has(0)) continue;
        if (!record.Has(1) || record[1].val.iVal == 0) continue;  // without a mark it is hidden too
        categories_.emplace_back(kPropCategoryName, record[0].val.lpwstr, category);
    }
    return categories_;
}

void CategoryPanel::Fill() {
    for (const DbCItem& category : Categories()) {
        List().SetItemData(List().AddString(category.GetStrValue()), static_cast<LPARAM>(category.GetOid()));
    }
}

bool CategoryPanel::Add(const std::wstring& text) {
    const std::wstring name = Trimmed(text);
    return !IsTaken(0, name) && Changed(database_.Add(name.c_str()));
}

bool CategoryPanel::Modify(int row, const std::wstring& text) {
    const std::wstring name = Trimmed(text);
    const auto category = static_cast<CEOID>(List().GetItemData(row));
    return !IsTaken(category, name) && Changed(database_.Rename(category, name.c_str()));
}

bool CategoryPanel::Delete(int row) {
    return Changed(database_.Remove(static_cast<CEOID>(List().GetItemData(row))));
}

bool CategoryPanel::IsAllowed(const std::wstring& text) const {
    return !Trimmed(text).empty();
}

// Whether a visible category but that one has the name; its row is selected then, to show why nothing happens.
bool CategoryPanel::IsTaken(CEOID except, const std::wstring& name) {
    const CEOID found = database_.FindByName(name.c_str());
    if (!found || found == except || database_.IsHidden(found)) return false;
    const int rows = List().GetCount();
    for (int row = 0; row < rows; ++row) {
        if (static_cast<CEOID>(List().GetItemData(row)) == found) List().SetSelection(row);
    }
    return true;
}

bool CategoryPanel::Changed(bool done) {
    if (!done) return false;
    read_ = false;
    changed_();
    return true;
}
