#include "ui/button.h"

bool Button::IsChecked() const {
    return SendMessage(BM_GETCHECK) == BST_CHECKED;
}

void Button::SetChecked(bool checked) {
    SendMessage(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
}

void Button::Click() {
    SendMessage(BM_CLICK);
}
