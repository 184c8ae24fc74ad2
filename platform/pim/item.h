// What contacts, appointments and tasks have in common, and how they are made.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/pim/com_object.h"
#include "platform/pim/item_record.h"

namespace pim {

// A new BSTR of the text. Throws.
inline BSTR MakeBstr(const std::wstring& text) {
    const BSTR made = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!made) throw std::bad_alloc();
    return made;
}

inline bool IsDate(DATE date) {
    return std::isfinite(date) && date > -657435.0 && date < 2958466.0;  // the years 100 to 9999
}

// Whether a property can be set to this number.
inline bool IsNumberAllowed(CEPROPID id, long number) {
    switch (id) {
        case kAppointmentBusyStatus: return number >= olFree && number <= olOutOfOffice;
        case kTaskImportance: return number >= olImportanceLow && number <= olImportanceHigh;
        case kAppointmentSensitivity:
        case kTaskSensitivity: return number >= olNormal && number <= olConfidential;
        case kAppointmentDuration:
        case kAppointmentReminderMinutesBeforeStart: return number >= 0;
        default: return true;
    }
}

// A new item's number.
inline long InitialNumber(CEPROPID id) {
    switch (id) {
        case kAppointmentBusyStatus: return olBusy;
        case kTaskImportance: return olImportanceNormal;
        default: return 0;
    }
}

// `Self` is the class derived from this one. Setting a date to DATE_NONE takes it away.
template <class Self, class Interface>
class Item : public ComObject<Interface> {
public:
    Item(Ref<IPOutlookApp> application, ItemRecord record)
        : application_(std::move(application)), record_(std::move(record)) {}

    HRESULT STDMETHODCALLTYPE Save() noexcept override {
        return this->Locked([this] {
            BeforeSave();
            record_.Save();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Delete() noexcept override {
        return this->Locked([this] { return record_.Delete(), S_OK; });
    }
    HRESULT STDMETHODCALLTYPE Copy(Interface** copy) noexcept override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        return this->Locked([&] { return *copy = new Self(application_, record_.Copy()), S_OK; });
    }
    HRESULT STDMETHODCALLTYPE Display() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Oid(long* oid) noexcept override {
        if (!oid) return E_POINTER;
        *oid = static_cast<long>(record_.Oid());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_BodyInk(CEBLOB* ink) noexcept override {
        if (!ink || (ink->dwCount && !ink->lpb)) return E_POINTER;
        return this->Locked([&] {
            if (ink->dwCount) {
                record_.Set(kPimBodyInk, std::vector<BYTE>(ink->lpb, ink->lpb + ink->dwCount));
            } else {
                record_.Remove(kPimBodyInk);
            }
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_BodyInk(CEBLOB* ink) noexcept override {
        if (!ink) return E_POINTER;
        *ink = {};
        return this->Locked([&] {
            const auto bytes = record_.template Get<std::vector<BYTE>>(kPimBodyInk);
            if (bytes.empty()) return S_OK;
            ink->lpb = static_cast<BYTE*>(LocalAlloc(LMEM_FIXED, bytes.size()));
            if (!ink->lpb) return E_OUTOFMEMORY;
            ink->dwCount = static_cast<DWORD>(bytes.size());
            std::copy(bytes.begin(), bytes.end(), ink->lpb);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_Application(IPOutlookApp** application) noexcept override {
        if (!application) return E_POINTER;
        *application = Ref(application_).Detach();
        return S_OK;
    }

protected:
    ItemRecord& Record() { return record_; }

    // What there is to do for properties that depend on each other. Throw Failure.
    virtual DATE ReadDate(CEPROPID id) { return record_.Get(id, DATE_NONE); }
    virtual void WriteDate(CEPROPID id, DATE date) {
        if (date == DATE_NONE) {
            record_.Remove(id);
        } else {
            record_.Set(id, date);
        }
    }
    virtual void WriteTruth(CEPROPID id, bool truth) { record_.Set(id, truth); }
    virtual void BeforeSave() {}

    // ---- The properties' methods ----

    HRESULT Get(CEPROPID id, BSTR* value) noexcept {
        if (!value) return E_POINTER;
        *value = nullptr;
        return this->Locked([&] { return *value = MakeBstr(record_.Get<std::wstring>(id)), S_OK; });
    }
    HRESULT Get(CEPROPID id, DATE* value) noexcept {
        if (!value) return E_POINTER;
        *value = 0;
        return this->Locked([&] { return *value = ReadDate(id), S_OK; });
    }
    HRESULT Get(CEPROPID id, long* value) noexcept {
        if (!value) return E_POINTER;
        *value = 0;
        return this->Locked([&] { return *value = record_.Get(id, InitialNumber(id)), S_OK; });
    }
    HRESULT Get(CEPROPID id, VARIANT_BOOL* value) noexcept {
        if (!value) return E_POINTER;
        *value = VARIANT_FALSE;
        return this->Locked([&] { return *value = record_.Get<bool>(id) ? VARIANT_TRUE : VARIANT_FALSE, S_OK; });
    }
    HRESULT Put(CEPROPID id, BSTR value) noexcept {
        return this->Locked([&] {
            if (SysStringLen(value)) {
                record_.Set(id, std::wstring(value, wcsnlen(value, SysStringLen(value))));
            } else {
                record_.Remove(id);
            }
            return S_OK;
        });
    }
    HRESULT Put(CEPROPID id, DATE value) noexcept {
        if (!IsDate(value)) return E_INVALIDARG;
        return this->Locked([&] { return WriteDate(id, value), S_OK; });
    }
    HRESULT Put(CEPROPID id, long value) noexcept {
        if (!IsNumberAllowed(id, value)) return E_INVALIDARG;
        return this->Locked([&] { return record_.Set(id, value), S_OK; });
    }
    HRESULT Put(CEPROPID id, VARIANT_BOOL value) noexcept {
        return this->Locked([&] { return WriteTruth(id, value != VARIANT_FALSE), S_OK; });
    }

private:
    Ref<IPOutlookApp> application_;
    ItemRecord record_;
};

// The object of a record, of the class that its kind says. Throws.
Ref<IDispatch> MakeItem(const Ref<IPOutlookApp>& application, ItemRecord record);

}  // namespace pim
