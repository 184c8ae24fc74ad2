#include <gtest/gtest.h>
#include <win.h>

#include <sstream>
#include <string>

#include "aygshell.h"
#include "px.h"
#include "tests/support/private_registry.h"
#include "tests/support/variable.h"

namespace {

constexpr wchar_t kExpected[] = L"EXPECTED_PX";

SIZE VisibleDesktop() {
    SIPINFO info{};
    info.cbSize = sizeof(info);
    EXPECT_TRUE(SHSipInfo(SPI_GETSIPINFO, 0, &info, 0));
    EXPECT_EQ(info.rcVisibleDesktop.left, 0);
    EXPECT_EQ(info.rcVisibleDesktop.top, 0);
    return {info.rcVisibleDesktop.right, info.rcVisibleDesktop.bottom};
}

void ExpectScreen(SIZE logical) {
    EXPECT_EQ(VisibleDesktop().cx, Px(logical.cx));
    EXPECT_EQ(VisibleDesktop().cy, Px(logical.cy - 26));
}

// The scale is read once in a process's life, so each look at one is a process of its own: this program, run for the
// one test that compares Px with `expected` ("26=52 -13=-26"). True when that passes.
bool PxIs(const wchar_t* scale, const wchar_t* expected) {
    const Variable variable(L"CE_SCALE", scale);
    const Variable expectation(kExpected, expected);
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, ARRAYSIZE(program));
    std::wstring line = std::wstring(L"\"") + program + L"\" --gtest_brief=1 --gtest_filter=ScaleTest.IsAsExpected";
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;  // none: its report is its exit code
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
        return false;
    }
    DWORD code = 1;
    if (WaitForSingleObject(process.hProcess, 30'000) == WAIT_OBJECT_0) GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code == 0;
}

int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

}  // namespace

TEST(ScreenGeometryTest, WithoutAChoiceTheScreenIsOneForADesktop) {
    const PrivateRegistry registry;
    const Variable none(L"CE_SCREEN", nullptr);
    ExpectScreen({480, 720});
}

TEST(ScreenGeometryTest, TheEnvironmentChoosesTheScreen) {
    const PrivateRegistry registry;
    const Variable screen(L"CE_SCREEN", L"480x640");
    ExpectScreen({480, 640});
}

TEST(ScreenGeometryTest, WhatIsNoScreenSizeDoesNotCount) {
    const PrivateRegistry registry;
    for (const wchar_t* garbage : {L"", L"480", L"480x", L"x640", L"480X640", L"480x640x2", L"-480x640", L" 480x640",
                                   L"159x320", L"240x3841", L"0x0", L"99999x99999", L"480x6 0", L"४८०x640",
                                   L"480x640 and a very long text that fits into no buffer of a sensible size"}) {
        const Variable screen(L"CE_SCREEN", garbage);
        ExpectScreen({480, 720});
    }
}

TEST(ScreenGeometryTest, TheStoredChoiceHoldsWhereTheEnvironmentSaysNothing) {
    const PrivateRegistry registry;
    const wchar_t stored[] = L"320x480";
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Pocket PC", L"Screen", REG_SZ, stored, sizeof(stored));
    const Variable none(L"CE_SCREEN", nullptr);
    ExpectScreen({320, 480});
    const Variable screen(L"CE_SCREEN", L"480x640");
    ExpectScreen({480, 640});
    const Variable garbage(L"CE_SCREEN", L"large");
    ExpectScreen({320, 480});
}

TEST(ScreenGeometryTest, AStoredChoiceOfAnotherTypeDoesNotCount) {
    const PrivateRegistry registry;
    const DWORD number = 480;
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Pocket PC", L"Screen", REG_DWORD, &number, sizeof(number));
    const Variable none(L"CE_SCREEN", nullptr);
    ExpectScreen({480, 720});
}

TEST(ScreenGeometryTest, TheInputPanelIsDownAndItsPlaceIsAboveTheMenuBar) {
    const PrivateRegistry registry;
    SIPINFO info{};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(SHSipInfo(SPI_GETSIPINFO, 0, &info, 0));
    EXPECT_EQ(info.fdwFlags, static_cast<DWORD>(SIPF_OFF | SIPF_DOCKED));
    EXPECT_EQ(info.rcSipRect.bottom, Px(294 - 26));
    EXPECT_EQ(info.rcSipRect.top, Px(294 - 26 - 80));
}

TEST(ScreenGeometryTest, ARecordOfAnotherSizeIsRefused) {
    SIPINFO info{};
    info.cbSize = sizeof(info) - 1;
    EXPECT_FALSE(SHSipInfo(SPI_GETSIPINFO, 0, &info, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_FALSE(SHSipInfo(SPI_GETSIPINFO, 0, nullptr, 0));
    info.cbSize = sizeof(info);
    EXPECT_FALSE(SHSipInfo(4711, 0, &info, 0));
}

TEST(ScaleTest, IsAsExpected) {
    wchar_t expected[128] = {};
    GetEnvironmentVariableW(kExpected, expected, ARRAYSIZE(expected));
    if (!expected[0] && !GetEnvironmentVariableW(L"CE_SCALE", nullptr, 0)) {
        EXPECT_EQ(Px(960), SystemDpi() * 10);
    }
    std::wistringstream pairs(expected);
    int logical = 0, device = 0;
    for (wchar_t sign; pairs >> logical >> sign >> device;)
        EXPECT_EQ(Px(logical), device) << logical;
}

TEST(ScaleTest, TheEnvironmentScalesEveryPixel) {
    EXPECT_TRUE(PxIs(L"200", L"0=0 1=2 26=52 -13=-26"));
    EXPECT_TRUE(PxIs(L"150", L"0=0 1=2 26=39 -13=-20"));
    EXPECT_TRUE(PxIs(L"400", L"26=104"));
}

TEST(ScaleTest, NoPixelVanishes) {
    EXPECT_TRUE(PxIs(L"50", L"0=0 1=1 -1=-1 26=13"));
}

TEST(ScaleTest, WhatIsNoScaleDoesNotCount) {
    const std::wstring expected = L"960=" + std::to_wstring(SystemDpi() * 10);
    for (const wchar_t* garbage : {L"49", L"401", L"2x", L"-200", L"200 "}) {
        EXPECT_TRUE(PxIs(garbage, expected.c_str())) << garbage;
    }
}
