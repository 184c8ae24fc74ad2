// The rows of the options screen: what they show, and what a tap on each does.
#include <px.h>

#include "app/options_screen.h"
#include "data/field_ids.h"
#include "list/tap_guard.h"
#include "lock/password_lock.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr int kDropHeight = 120;  // logical pixels, the field included

struct RowSpec {
    UINT label;
    int controlType;
    CEPROPID propid;
    UINT initial;  // the value without a setting
};

// In display order. The label is the name of the row's setting, too.
constexpr RowSpec kRows[] = {
    {IDS_OPTION_PASSWORD, kControlPassword, 0, IDS_NO_PASSWORD},
    {IDS_OPTION_CONFIRM_DELETES, kControlList, kPropConfirmDeletes, IDS_YES},
    {IDS_OPTION_SUBJECTS, kControlLauncher, 0, IDS_EDIT_QUICK_SUBJECTS},
    {IDS_OPTION_CATEGORIES, kControlLauncher, 0, IDS_EDIT_CATEGORIES},
};

}  // namespace

void OptionsScreen::FillRows() {
    const std::wstring subkey = LoadText(IDS_OPTIONS);
    for (const RowSpec& spec : kRows) {
        const std::wstring label = LoadText(spec.label);
        const std::wstring initial = LoadText(spec.initial);
        DbJItem* item = items_.Append(
            std::make_unique<DbJItem>(0, spec.propid, label.c_str(), spec.controlType, 0, kItemValue, initial.c_str()));
        std::wstring value;
        Application::Current()->ReadString(subkey, label, initial, value);
        item->SetStrValue(value.c_str());
        item->SetLoc(items_.GetCount() - 1);
        list_.AppendRow(label.c_str(), kItemValue);
        ShowRow(*item);
    }
}

DbJItem* OptionsScreen::ItemOfRow(int row) {
    for (DbJItem& item : items_) {
        if (item.GetLoc() == row) return &item;
    }
    return nullptr;
}

void OptionsScreen::ShowRow(const DbJItem& item) {
    std::wstring text = item.GetStrValue();
    if (item.GetCtrlType() == kControlPassword) {
        text = LoadText(PasswordLock(*this).IsActive() ? IDS_PASSWORD_ON : IDS_PASSWORD_OFF);
    }
    list_.SetValue(item.GetLoc(), text, item.GetCtrlType() == kControlLauncher);
}

void OptionsScreen::ActOn(int row) {
    DbJItem* item = ItemOfRow(row);
    if (item == nullptr) return;
    if (item->GetCtrlType() == kControlList) {
        OpenChoices(*item);
        return;
    }
    SwallowSecondTap(nullptr);
    switch (row) {
        case kPassword: OnPassword(); break;
        case kSubjects: Launch(launchers_.subjects); break;
        case kCategories: Launch(launchers_.categories); break;
        default: break;
    }
}

void OptionsScreen::Launch(const std::function<void(HWND)>& launcher) {
    if (launcher) launcher(GetHandle());
}

void OptionsScreen::OnPassword() {
    PasswordLock lock(*this);
    if (!lock.IsActive()) {
        lock.Set();
    } else if (lock.Check() && MessageBox(LoadText(IDS_LOCK_CLEAR).c_str(), LoadText(IDS_LOCK_TITLE).c_str(),
                                          MB_YESNO | MB_ICONQUESTION) == IDYES) {
        lock.Clear();
    }
    if (IsWindow()) ShowRow(*ItemOfRow(kPassword));  // the screen may have gone with the program meanwhile
}

void OptionsScreen::StoreRows() {
    const DbJItem& confirm = *ItemOfRow(kConfirmDeletes);
    Application::Current()->WriteString(LoadText(IDS_OPTIONS), confirm.GetLabel(), confirm.GetStrValue());
}

// ---- The drop-down list in a row ----

void OptionsScreen::OpenChoices(DbJItem& item) {
    TSList<DbOptItem> offered;
    options_.Read(item.GetPropID(), &offered);
    choicesLabel_ = std::make_unique<HiddenLabel>(GetHandle(), item.GetLabel());
    choices_ = std::make_unique<ComboBox>();
    choices_->CreateIn(GetHandle(), IDC_OPTIONS_CHOICES, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST,
                       {0, 0, 0, Px(kDropHeight)});
    choices_->FitFieldToFont();
    for (const DbOptItem& choice : offered)
        choices_->AddString(choice.GetStrValue());
    choices_->SetSelection(choices_->FindExact(item.GetStrValue()));
    chosenFor_ = &item;
    list_.EnsureVisible(item.GetLoc(), false);
    RaiseInOrder({choicesLabel_->Handle(), choices_->GetHandle()});
    PlaceChoices();
    choices_->SetFocus();
}

void OptionsScreen::PlaceChoices() {
    if (!choices_) return;
    RECT list = {};
    list_.GetClientRect(&list);
    RECT cell = {};
    if (!list_.GetValueRect(chosenFor_->GetLoc(), &cell) || cell.top < 0 || cell.bottom > list.bottom) cell = {};
    PlaceInCell(*choices_, cell, HeightOf(*choices_));
}

void OptionsScreen::CloseChoices() {
    if (!choices_) return;
    const int choice = choices_->GetSelection();
    if (choice >= 0) chosenFor_->SetStrValue(choices_->GetString(choice).c_str());
    ShowRow(*chosenFor_);
    if (::GetFocus() == choices_->GetHandle()) list_.SetFocus();
    choices_->Destroy();
    choices_.reset();
    choicesLabel_.reset();
}
