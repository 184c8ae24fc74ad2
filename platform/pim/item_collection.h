// The items of a folder, in an order, all of them or those that fit a restriction.
#pragma once

#include <optional>

#include "platform/objectstore/sort_key.h"
#include "platform/pim/item.h"
#include "platform/pim/restriction.h"

namespace pim {

// Reads ids, what the order needs and the named columns in one pass, anew whenever the folder has changed.
class ItemCollection final : public ComObject<IPOlItems> {
public:
    ItemCollection(Ref<IPOutlookApp> application, const ItemKind& kind, std::optional<Restriction> restriction = {})
        : application_(std::move(application)), kind_(kind), order_{kind.order, 0}, restriction_(restriction) {}

    HRESULT STDMETHODCALLTYPE Add(IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Count(int* count) noexcept override;
    HRESULT STDMETHODCALLTYPE Find(BSTR restriction, IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE FindNext(IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE Item(int index, IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE Remove(int index) noexcept override;
    HRESULT STDMETHODCALLTYPE Restrict(BSTR restriction, IPOutlookItemCollection** items) noexcept override;
    HRESULT STDMETHODCALLTYPE Sort(BSTR property, VARIANT_BOOL descending) noexcept override;
    HRESULT STDMETHODCALLTYPE get_IncludeRecurrences(VARIANT_BOOL* include) noexcept override;
    HRESULT STDMETHODCALLTYPE put_IncludeRecurrences(VARIANT_BOOL include) noexcept override;
    HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** enumeration) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Application(IPOutlookApp** application) noexcept override;
    HRESULT STDMETHODCALLTYPE SetColumns(BSTR properties) noexcept override;

private:
    using Values = std::map<CEPROPID, Value>;
    struct Row {
        CEOID oid;
        store::SortKey key;
        Values values;  // of the columns
    };

    bool IsOwn(REFIID id) const noexcept override {
        return IsEqualIID(id, IID_IPOutlookItemCollection) || IsEqualIID(id, IID_IPOlItems);
    }
    // All throw.
    void Refresh();
    void Read(HANDLE database);
    static BOOL CALLBACK OnRecord(CEOID record, WORD count, const CEPROPVAL* values, void* self) noexcept;
    void AddRow(CEOID record, WORD count, const CEPROPVAL* values);
    CEPROPID PropertyInBrackets(std::wstring_view text) const;
    Ref<IDispatch> Make(const Row& row) const;
    HRESULT FindFrom(size_t start, IDispatch** item);

    Ref<IPOutlookApp> application_;
    const ItemKind& kind_;
    SORTORDERSPEC order_;
    std::optional<Restriction> restriction_;
    std::vector<CEPROPID> columns_;

    bool read_ = false;
    FILETIME changed_ = {};  // the database's last change when the rows were read
    std::vector<Row> rows_;
    HRESULT readFailure_ = S_OK;

    std::optional<Restriction> sought_;
    CEOID found_ = 0;  // the last item that Find or FindNext answered
};

}  // namespace pim
