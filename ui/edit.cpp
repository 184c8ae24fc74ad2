#include "ui/edit.h"

void Edit::SetSelection(int first, int last) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
}

void Edit::SetLimit(int characters) {
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(characters));
}

void Edit::ReplaceSelection(const wchar_t* text, bool undoable) {
    SendMessage(EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(text));
}

bool Edit::IsModified() const {
    return SendMessage(EM_GETMODIFY) != 0;
}

void Edit::SetModified(bool modified) {
    SendMessage(EM_SETMODIFY, modified);
}

void Edit::EnableCapitals(bool enable) {
    SendMessage(CEM_ENABLEUPCASE, enable);
}
