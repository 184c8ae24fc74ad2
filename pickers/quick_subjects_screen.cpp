#include "pickers/quick_subjects_screen.h"

#include <px.h>

#include "pickers/quick_subjects.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {
constexpr int kMargin = 4;  // logical pixels
}

SubjectPanel::SubjectPanel() : ListPanel(kMaxQuickSubject) {}

void SubjectPanel::Fill() {
    for (const std::wstring& subject : QuickSubjects())
        List().AddString(subject.c_str());
}

bool SubjectPanel::Add(const std::wstring& text) {
    return AddQuickSubject(text);
}

bool SubjectPanel::Modify(int row, const std::wstring& text) {
    return ModifyQuickSubject(row, text);
}

bool SubjectPanel::Delete(int row) {
    const bool asks = Application::Current()->ReadInt(LoadText(IDS_OPTIONS), L"ConfirmDelete", 1) != 0;
    if (asks && MessageBox(LoadText(IDS_DELETE_SUBJECT).c_str(), LoadText(IDS_CONFIRM).c_str(),
                           MB_YESNO | MB_ICONEXCLAMATION) != IDYES) {
        return false;
    }
    DeleteQuickSubject(List().GetString(row));
    return true;
}

INT_PTR QuickSubjectsScreen::Run(HWND owner) {
    QuickSubjectsScreen screen;
    return screen.RunModal(owner);
}

bool QuickSubjectsScreen::OnOpen() {
    SetText(LoadText(IDS_SUBJECTS_TITLE).c_str());
    if (!panel_.CreateIn(GetHandle(), IDD_QUICK_SUBJECTS, IDC_SUBJECT_PANEL)) return false;
    panel_.Show();
    panel_.Reset();
    return true;
}

void QuickSubjectsScreen::LayOut(const RECT& client) {
    RECT place = client;
    InflateRect(&place, -Px(kMargin), -Px(kMargin));
    panel_.Place(place);
}
