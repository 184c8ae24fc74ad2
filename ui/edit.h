// Edit control; with CAPEDIT, which raises the first letter, where the user types names and subjects.
#pragma once

#include "ui/control.h"

class Edit : public Control {
public:
    // The plain control by default; pass WC_CAPEDIT for the one that raises the first letter.
    explicit Edit(const wchar_t* className = WC_EDITW) : Control(className) {}

    // Selects characters `first` up to, not including, `last`; 0, -1 is everything, -1, -1 nothing.
    void SetSelection(int first, int last);
    // At most `characters`.
    void SetLimit(int characters);
    void ReplaceSelection(const wchar_t* text, bool undoable = true);
    bool IsModified() const;
    void SetModified(bool modified);
    // CAPEDIT: whether first letters are raised at all.
    void EnableCapitals(bool enable);
};
