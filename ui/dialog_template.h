// A dialog template out of the resources.
#pragma once

#include <win.h>

#include <vector>

// Finds the template `id` among the dialog resources of `instance` and loads it. Dialog units follow the template's
// font, which the system sizes by its own DPI; where Px() scales by another number (see px.h), the template is copied
// with its font resized, so that the whole dialog follows. A template without a font stays as it is.
class DialogTemplate {
public:
    DialogTemplate(HINSTANCE instance, UINT id);
    DialogTemplate(const DialogTemplate&) = delete;
    DialogTemplate& operator=(const DialogTemplate&) = delete;

    // Null when there is no such template. Good as long as the object and the module live.
    const DLGTEMPLATE* Get() const { return template_; }

private:
    const DLGTEMPLATE* template_ = nullptr;
    std::vector<BYTE> copy_;
};

// Where the point size of the font stands in a template of either form, as an offset in bytes; 0 when the template
// names no font or is damaged.
size_t FontSizeOffset(const std::vector<BYTE>& bytes);
