// A dialog template out of the resources.
#pragma once

#include <win.h>

// Finds the template `id` among the dialog resources of `instance` and loads it. The resource belongs to the module:
// nothing is freed.
class DialogTemplate {
public:
    DialogTemplate(HINSTANCE instance, UINT id);

    // Null when there is no such template.
    const DLGTEMPLATE* Get() const { return template_; }

private:
    const DLGTEMPLATE* template_ = nullptr;
};
