// The real detail view, run modally over a window on a store of the test's own.
#pragma once

#include <inkx.h>
#include <richink.h>

#include <vector>

#include "list/detail_view.h"
#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/support/modal_stage.h"
#include "tests/support/pump.h"

class DetailScreen : public JournalFixture {
protected:
    DetailScreen() {
        application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
        application_.InitCommonControls();
        InitInkX();
        InitRichInkDLL();
    }

    CEOID AddEntry(const std::function<void(TSList<DbJItem>&)>& fill) {
        TSList<DbJItem> fields;
        journal_.Initialize(&fields);
        fill(fields);
        const CEOID id = journal_.Write(0, &fields);
        EXPECT_NE(id, 0u);
        return id;
    }
    CEOID AddSubject(const std::wstring& subject) {
        return AddEntry([&](auto& fields) { FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject.c_str()); });
    }
    static void SetBytes(TSList<DbJItem>& fields, CEPROPID propid, std::vector<BYTE> bytes) {
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        FindFieldByPropID(fields, propid)->SetBlob(&blob);
    }

    // Opens the view on an entry, runs the script in it, then closes it with OK if the script has not. Answers the
    // view's result.
    INT_PTR View(CEOID id, const ModalStage::Script& script) {
        selection_.SetCurrent(id);
        return stage_.Run(IDC_DETAIL_PANEL, IDOK, script, [&] { return DetailView::Run(stage_.Owner(), selection_); });
    }

    HWND Screen() const { return stage_.Screen(); }
    HWND Panel() const { return GetDlgItem(Screen(), IDC_DETAIL_PANEL); }
    HWND Note() const { return GetDlgItem(Screen(), IDC_DETAIL_NOTE); }
    // The note itself, or a field of the header.
    HWND Item(int id) const { return id == IDC_DETAIL_NOTE ? Note() : GetDlgItem(Panel(), id); }
    std::wstring Text(int id) const {
        std::wstring text(static_cast<size_t>(SendMessageW(Item(id), WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
        text.resize(static_cast<size_t>(
            SendMessageW(Item(id), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
        return text;
    }
    bool IsShown(int id) const { return IsWindowVisible(Item(id)) != FALSE; }
    // In the client area of the view.
    RECT Place(HWND window) const {
        RECT place;
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, Screen(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    int PanelHeight() const { return Place(Panel()).bottom - Place(Panel()).top; }
    static void Tap(HWND control, int x = 5, int y = 5) {
        SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    // As the view's own loop hands a key on: the dialog manager sees it first.
    void Press(HWND control, WPARAM key) const {
        MSG message = {control, WM_KEYDOWN, key, 1, 0, {}};
        if (!IsDialogMessageW(Screen(), &message)) DispatchMessageW(&message);
    }

    ModalStage stage_;
};
