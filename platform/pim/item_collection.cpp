#include "platform/pim/item_collection.h"

#include <storescan.h>

#include <algorithm>

#include "platform/pim/item_enumeration.h"

namespace pim {
namespace {

// Also an index that was given as 0 or less.
bool IsIndex(int index, size_t count) {
    return index >= 1 && static_cast<size_t>(index) <= count;
}

std::wstring_view ViewOf(BSTR text) {
    return {text ? text : L"", SysStringLen(text)};
}

}  // namespace

// ---- Reading ----

void ItemCollection::Refresh() {
    const KindDatabase database(kind_);
    CEOIDINFO info = {};
    if (!CeOidGetInfo(database.Oid(), &info)) FailWithLastError();
    const FILETIME changed = info.infDatabase.ftLastModified;
    if (read_ && CompareFileTime(&changed, &changed_) == 0) return;
    read_ = false;
    Read(database.Handle());
    changed_ = changed;
    read_ = true;
}

void ItemCollection::Read(HANDLE database) {
    rows_.clear();
    readFailure_ = S_OK;
    std::vector<CEPROPID> properties = {order_.propid};
    properties.insert(properties.end(), columns_.begin(), columns_.end());
    if (restriction_) {
        const std::vector<CEPROPID> more = restriction_->Properties();
        properties.insert(properties.end(), more.begin(), more.end());
    }
    if (!CeScanRecords(database, static_cast<WORD>(properties.size()), properties.data(), OnRecord, this)) {
        FailWithLastError();
    }
    if (FAILED(readFailure_)) throw Failure{readFailure_};
    std::sort(rows_.begin(), rows_.end(), [this](const Row& a, const Row& b) {
        return store::CompareInOrder(order_, a.key, a.oid, b.key, b.oid) < 0;
    });
}

BOOL CALLBACK ItemCollection::OnRecord(CEOID record, WORD count, const CEPROPVAL* values, void* self) noexcept {
    auto& collection = *static_cast<ItemCollection*>(self);
    collection.readFailure_ = Guarded([&] { return collection.AddRow(record, count, values), S_OK; });
    return SUCCEEDED(collection.readFailure_);
}

void ItemCollection::AddRow(CEOID record, WORD count, const CEPROPVAL* values) {
    Row row{record, {}, {}};
    if (!(values[0].wFlags & CEDB_PROPNOTFOUND)) row.key = store::MakeSortKey(order_, store::Encode(values[0]));
    for (WORD i = 1; i < count; ++i) {
        Value value;
        if (TakeValue(values[i], &value)) row.values[values[i].propid] = std::move(value);
    }
    if (!restriction_ || restriction_->Fits(row.values)) rows_.push_back(std::move(row));
}

Ref<IDispatch> ItemCollection::Make(const Row& row) const {
    Values known = row.values;
    for (const CEPROPID column : columns_)  // a column that the record lacks is known, too
        if (TypeFromPropID(column) == CEVT_LPWSTR) known.try_emplace(column, std::wstring());
    return MakeItem(application_, ItemRecord(kind_, row.oid, std::move(known)));
}

CEPROPID ItemCollection::PropertyInBrackets(std::wstring_view text) const {
    const size_t begin = text.find_first_not_of(L" [");
    const size_t end = text.find_last_not_of(L" ]");
    const CEPROPID property = begin == text.npos ? 0 : kind_.FindProperty(text.substr(begin, end - begin + 1));
    if (!property) throw Failure{E_INVALIDARG};
    return property;
}

// ---- Methods ----

HRESULT ItemCollection::Add(IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    return Locked([&] { return *item = MakeItem(application_, ItemRecord(kind_)).Detach(), S_OK; });
}

HRESULT ItemCollection::get_Count(int* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return Locked([&] {
        Refresh();
        *count = static_cast<int>(rows_.size());
        return S_OK;
    });
}

HRESULT ItemCollection::Item(int index, IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    return Locked([&] {
        Refresh();
        if (!IsIndex(index, rows_.size())) return E_INVALIDARG;
        *item = Make(rows_[static_cast<size_t>(index) - 1]).Detach();
        return S_OK;
    });
}

HRESULT ItemCollection::Remove(int index) noexcept {
    return Locked([&] {
        Refresh();
        if (!IsIndex(index, rows_.size())) return E_INVALIDARG;
        const KindDatabase database(kind_);
        const auto row = rows_.begin() + (index - 1);
        if (!CeDeleteRecord(database.Handle(), row->oid)) FailWithLastError();
        return S_OK;
    });
}

HRESULT ItemCollection::Find(BSTR restriction, IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    return Locked([&] {
        sought_ = Restriction(kind_, ViewOf(restriction));
        found_ = 0;
        Refresh();
        return FindFrom(0, item);
    });
}

HRESULT ItemCollection::FindNext(IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    if (!sought_) return E_INVALIDARG;
    return Locked([&] {
        Refresh();
        const auto last =
            std::find_if(rows_.begin(), rows_.end(), [this](const Row& row) { return row.oid == found_; });
        return last == rows_.end() ? S_FALSE : FindFrom(static_cast<size_t>(last - rows_.begin()) + 1, item);
    });
}

HRESULT ItemCollection::FindFrom(size_t start, IDispatch** item) {
    for (size_t i = start; i < rows_.size(); ++i) {
        ItemRecord record(kind_, rows_[i].oid);
        Values values;
        for (const CEPROPID property : sought_->Properties())
            if (const Value* value = record.Find(property)) values[property] = *value;
        if (!sought_->Fits(values)) continue;
        found_ = rows_[i].oid;
        *item = MakeItem(application_, std::move(record)).Detach();
        return S_OK;
    }
    found_ = 0;
    return S_FALSE;
}

HRESULT ItemCollection::Restrict(BSTR restriction, IPOutlookItemCollection** items) noexcept {
    if (!items) return E_POINTER;
    *items = nullptr;
    return Locked([&] {
        *items = new ItemCollection(application_, kind_, Restriction(kind_, ViewOf(restriction)));
        return S_OK;
    });
}

HRESULT ItemCollection::Sort(BSTR property, VARIANT_BOOL descending) noexcept {
    return Locked([&] {
        order_.propid = PropertyInBrackets(ViewOf(property));
        const bool isText = TypeFromPropID(order_.propid) == CEVT_LPWSTR;
        order_.dwFlags = isText ? DWORD{CEDB_SORT_CASEINSENSITIVE} : 0;
        if (descending != VARIANT_FALSE) order_.dwFlags |= CEDB_SORT_DESCENDING;
        read_ = false;
        return S_OK;
    });
}

HRESULT ItemCollection::get_IncludeRecurrences(VARIANT_BOOL* include) noexcept {
    if (!include) return E_POINTER;
    *include = VARIANT_FALSE;
    return S_OK;
}

HRESULT ItemCollection::put_IncludeRecurrences(VARIANT_BOOL include) noexcept {
    return include == VARIANT_FALSE ? S_OK : E_NOTIMPL;
}

HRESULT ItemCollection::get__NewEnum(IUnknown** enumeration) noexcept {
    if (!enumeration) return E_POINTER;
    *enumeration = nullptr;
    return Locked([&] {
        *enumeration = new ItemEnumeration(Ref<IPOutlookItemCollection>::Share(this));
        return S_OK;
    });
}

HRESULT ItemCollection::get_Application(IPOutlookApp** application) noexcept {
    if (!application) return E_POINTER;
    *application = Ref(application_).Detach();
    return S_OK;
}

HRESULT ItemCollection::SetColumns(BSTR properties) noexcept {
    return Locked([&] {
        std::vector<CEPROPID> columns;
        std::wstring_view left = ViewOf(properties);
        while (!left.empty()) {
            const size_t comma = std::min(left.find(L','), left.size());
            columns.push_back(PropertyInBrackets(left.substr(0, comma)));
            left.remove_prefix(std::min(comma + 1, left.size()));
        }
        columns_ = std::move(columns);
        read_ = false;
        return S_OK;
    });
}

}  // namespace pim
