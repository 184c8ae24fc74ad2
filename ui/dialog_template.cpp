#include "ui/dialog_template.h"

#include <px.h>

#include <cstring>

#include "ui/gdi_scope.h"

namespace {

constexpr int kLogicalDpi = 96;

// Reads a template from its start; answers 0 from behind its end.
class Reader {
public:
    explicit Reader(const std::vector<BYTE>& bytes) : bytes_(bytes) {}

    WORD Word() {
        WORD word = 0;
        if (at_ + sizeof(word) <= bytes_.size()) std::memcpy(&word, &bytes_[at_], sizeof(word));
        at_ += sizeof(word);
        return word;
    }
    DWORD Long() {
        const DWORD low = Word();
        return low | static_cast<DWORD>(Word()) << 16;
    }
    void Skip(size_t bytes) { at_ += bytes; }
    // A menu, class or title: an ordinal behind 0xFFFF, or characters up to a NUL.
    void SkipName() {
        WORD word = Word();
        if (word == 0xFFFF) {
            Skip(sizeof(WORD));
            return;
        }
        while (word != 0)
            word = Word();
    }
    size_t At() const { return at_; }

private:
    const std::vector<BYTE>& bytes_;
    size_t at_ = 0;
};

int SystemDpi() {
    const WindowDc screen(nullptr);
    return GetDeviceCaps(screen.Dc(), LOGPIXELSY);
}

}  // namespace

size_t FontSizeOffset(const std::vector<BYTE>& bytes) {
    Reader reader(bytes);
    DWORD style = reader.Long();
    if (HIWORD(style) == 0xFFFF) {  // the extended form: version 1, 0xFFFF, help id, extended style, style
        reader.Skip(2 * sizeof(DWORD));
        style = reader.Long();
    } else {
        reader.Skip(sizeof(DWORD));  // extended style
    }
    if ((style & DS_SETFONT) == 0) return 0;
    reader.Skip(5 * sizeof(WORD));  // number of items, place, size
    for (int name = 0; name < 3; ++name)
        reader.SkipName();
    return reader.At() + sizeof(WORD) <= bytes.size() ? reader.At() : 0;
}

DialogTemplate::DialogTemplate(HINSTANCE instance, UINT id) {
    const HRSRC found = FindResourceW(instance, MAKEINTRESOURCEW(id), RT_DIALOG);
    if (found == nullptr) return;
    const HGLOBAL loaded = LoadResource(instance, found);
    if (loaded == nullptr) return;
    const auto* bytes = static_cast<const BYTE*>(LockResource(loaded));
    template_ = reinterpret_cast<const DLGTEMPLATE*>(bytes);

    const int wanted = Px(kLogicalDpi);
    const int system = SystemDpi();
    if (wanted == system) return;
    copy_.assign(bytes, bytes + SizeofResource(instance, found));
    const size_t offset = FontSizeOffset(copy_);
    if (offset == 0) return;
    WORD points = 0;
    std::memcpy(&points, &copy_[offset], sizeof(points));
    points = static_cast<WORD>(MulDiv(points, wanted, system));
    std::memcpy(&copy_[offset], &points, sizeof(points));
    template_ = reinterpret_cast<const DLGTEMPLATE*>(copy_.data());
}
