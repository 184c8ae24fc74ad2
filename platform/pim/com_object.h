// What all Pocket Outlook objects have in common: counting references, answering who they are, keeping exceptions in.
#pragma once

#include <pimstore.h>

#include <atomic>
#include <mutex>
#include <new>
#include <utility>

namespace pim {

// How a failure travels inside the server: thrown where it is noticed, answered by Guarded at the method's end.
struct Failure {
    HRESULT code;
};

// Throws the thread's last error.
[[noreturn]] inline void FailWithLastError() {
    const DWORD error = GetLastError();
    throw Failure{error ? HRESULT_FROM_WIN32(error) : E_FAIL};
}

// The frame of every method that may fail: answers what `work` answers, or the failure that it throws.
template <class Work>
HRESULT Guarded(Work work) noexcept {
    try {
        return work();
    } catch (const Failure& failure) {
        return failure.code;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

// How many objects of the server there are, locks of its class factory included; the library may go at 0.
inline std::atomic<long> liveObjects{0};

// A counted reference to a COM object, or null.
template <class Interface>
class Ref {
public:
    Ref() = default;
    // Takes over a reference that the caller has.
    explicit Ref(Interface* owned) : object_(owned) {}
    Ref(const Ref& other) : object_(other.object_) {
        if (object_) object_->AddRef();
    }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~Ref() {
        if (object_) object_->Release();
    }
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    // One more reference to an object that others hold.
    static Ref Share(Interface* object) {
        if (object) object->AddRef();
        return Ref(object);
    }

    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    Interface* Get() const { return object_; }
    // Gives the reference to the caller.
    Interface* Detach() { return std::exchange(object_, nullptr); }

private:
    Interface* object_ = nullptr;
};

// An object with the methods of `Interface`, which begin with those of IDispatch. It begins with one reference, its
// maker's. Calling methods by their names is not offered. Threads may call at the same time: methods run in Locked.
template <class Interface>
class ComObject : public Interface {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsOwn(id);
        *result = known ? static_cast<Interface*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        if (info) *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) noexcept override {
        for (UINT i = 0; ids && i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        return ids ? DISP_E_UNKNOWNNAME : E_POINTER;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return DISP_E_MEMBERNOTFOUND;
    }

protected:
    ComObject() { ++liveObjects; }
    virtual ~ComObject() { --liveObjects; }

    // Guarded, for one thread at a time.
    template <class Work>
    HRESULT Locked(Work work) noexcept {
        return Guarded([&] {
            const std::lock_guard lock(mutex_);
            return work();
        });
    }

private:
    // Whether `id` is this interface's, or one that it builds on beyond IDispatch.
    virtual bool IsOwn(REFIID id) const noexcept = 0;

    std::atomic<long> references_{1};
    std::recursive_mutex mutex_;
};

}  // namespace pim
