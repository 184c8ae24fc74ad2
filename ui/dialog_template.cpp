#include "ui/dialog_template.h"

DialogTemplate::DialogTemplate(HINSTANCE instance, UINT id) {
    const HRSRC found = FindResourceW(instance, MAKEINTRESOURCEW(id), RT_DIALOG);
    if (found == nullptr) return;
    const HGLOBAL loaded = LoadResource(instance, found);
    if (loaded == nullptr) return;
    template_ = static_cast<const DLGTEMPLATE*>(LockResource(loaded));
}
