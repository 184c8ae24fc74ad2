// A password lock over a window of the test's, with settings of the test's own.
#pragma once

#include <aygshell.h>
#include <gtest/gtest.h>
#include <px.h>

#include <string>

#include "lock/password_lock.h"
#include "res/ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/pad_visits.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"
#include "ui/window.h"

class LockFixture : public testing::Test {
protected:
    LockFixture() {
        application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
        application_.InitCommonControls();
        SIPINFO sip = {};
        sip.cbSize = sizeof sip;
        SHSipInfo(SPI_GETSIPINFO, 0, &sip, 0);
        SIZE size = {sip.rcVisibleDesktop.right - sip.rcVisibleDesktop.left,
                     sip.rcVisibleDesktop.bottom - sip.rcVisibleDesktop.top - Px(kMenuBarHeight)};
        DWORD style = 0;
        SHScreenWindow(&style, &size);
        owner_.Create(L"STATIC", L"Owner", style, 40, 40, size.cx, size.cy, nullptr, nullptr, GetModuleHandleW(nullptr),
                      nullptr);
        owner_.Show();
    }
    ~LockFixture() override { owner_.Destroy(); }

    void TurnOn(const wchar_t* password) {
        application_.WriteString(L"Options", L"vacc", password);
        application_.WriteInt(L"Options", L"pwActive", 1);
    }
    int Active() { return application_.ReadInt(L"Options", L"pwActive", -1); }
    // What "vacc" holds; "<none>" when there is no such value.
    std::wstring Stored() {
        std::wstring text;
        application_.ReadString(L"Options", L"vacc", L"<none>", text);
        return text;
    }

    MessageBoxes boxes_;
    PadVisits pads_;
    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
    Window owner_;
};
