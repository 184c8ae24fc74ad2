// Owners of system handles: one template, one alias for each kind of handle.
#pragma once

#include <win.h>

#include <utility>

// Owns one handle that a `Closer` gives back to the system. Null is "none": nothing is closed for it.
template <class Handle, class Closer>
class [[nodiscard]] UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        reset(other.release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    explicit operator bool() const { return handle_ != nullptr; }
    Handle operator->() const { return handle_; }
    Handle get() const { return handle_; }

    // Hands the handle over to the caller, who closes it.
    [[nodiscard]] Handle release() { return std::exchange(handle_, nullptr); }

    // Closes the handle held and takes `handle` instead.
    void reset(Handle handle = nullptr) {
        if (handle_ != nullptr && handle_ != handle) Closer{}(handle_);
        handle_ = handle;
    }

private:
    Handle handle_ = nullptr;
};

struct GdiObjectCloser {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct MemoryDcCloser {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct MenuCloser {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
struct ImageListCloser {
    void operator()(HIMAGELIST images) const { ImageList_Destroy(images); }
};

using UniqueFont = UniqueHandle<HFONT, GdiObjectCloser>;
using UniqueBrush = UniqueHandle<HBRUSH, GdiObjectCloser>;
using UniquePen = UniqueHandle<HPEN, GdiObjectCloser>;
using UniqueBitmap = UniqueHandle<HBITMAP, GdiObjectCloser>;
using UniqueMemoryDc = UniqueHandle<HDC, MemoryDcCloser>;
using UniqueMenu = UniqueHandle<HMENU, MenuCloser>;
using UniqueImageList = UniqueHandle<HIMAGELIST, ImageListCloser>;
