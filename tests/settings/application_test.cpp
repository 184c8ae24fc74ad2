// The application object: its settings key, the busy counter, the classes it registers, and the message loop.
#include "ui/application.h"

#include <aygshell.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "res/ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"
#include "ui/window.h"

namespace {

constexpr wchar_t kPath[] = L"Software\\Talvern\\Journal";
constexpr wchar_t kClass[] = L"APPLICATIONTEST";

class ApplicationTest : public testing::Test {
protected:
    ~ApplicationTest() override { UnregisterClassW(kClass, GetModuleHandleW(nullptr)); }

    PrivateRegistry registry_;
    MessageBoxes boxes_;
};

TEST_F(ApplicationTest, IsReachedByEveryScreenWhileItLives) {
    EXPECT_EQ(Application::Current(), nullptr);
    {
        Application application(kPath);
        EXPECT_EQ(Application::Current(), &application);
    }
    EXPECT_EQ(Application::Current(), nullptr);
}

TEST_F(ApplicationTest, HoldsTheSettingsKey) {
    Application application(kPath);
    EXPECT_STREQ(application.GetPath(), kPath);
    Application::Current()->WriteInt(L"Options", L"SortBy", 102);
    EXPECT_EQ(RegistryKey(kPath).ReadInt(L"Options", L"SortBy", 101), 102);
}

TEST_F(ApplicationTest, StartsIdleWithoutWindows) {
    const Application application(kPath);
    EXPECT_EQ(application.BusyCount(), 0);
    EXPECT_EQ(application.GetInstance(), nullptr);
    EXPECT_EQ(application.GetModelessDialog(), nullptr);
    EXPECT_EQ(application.GetMainWindow(), nullptr);
}

TEST_F(ApplicationTest, KeepsTheInstance) {
    Application application(kPath);
    EXPECT_TRUE(application.InitInstance(GetModuleHandleW(nullptr), SW_SHOW));
    EXPECT_EQ(application.GetInstance(), GetModuleHandleW(nullptr));
}

TEST_F(ApplicationTest, RegistersTheCommonControls) {
    Application application(kPath);
    EXPECT_TRUE(application.InitCommonControls());
    EXPECT_TRUE(application.InitCommonControls());  // once more does no harm
    for (const wchar_t* name : {WC_LISTVIEWW, TOOLBARCLASSNAMEW, WC_TABCONTROLW, DATETIMEPICK_CLASSW, MONTHCAL_CLASSW,
                                REBARCLASSNAMEW, WC_CAPEDITW}) {
        WNDCLASSW found = {};
        EXPECT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), name, &found))
            << testing::PrintToString(std::wstring(name));
    }
}

TEST_F(ApplicationTest, RegistersTheWindowClassOnce) {
    Application application(kPath);
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    EXPECT_TRUE(application.RegisterWindowClass(instance, kClass, DefWindowProcW));
    WNDCLASSW found = {};
    ASSERT_TRUE(GetClassInfoW(instance, kClass, &found));
    EXPECT_EQ(found.style, UINT{CS_HREDRAW | CS_VREDRAW});
    EXPECT_EQ(found.lpfnWndProc, static_cast<WNDPROC>(DefWindowProcW));
    EXPECT_EQ(found.cbClsExtra, 0);
    EXPECT_EQ(found.cbWndExtra, 0);
    EXPECT_EQ(found.hInstance, instance);
    EXPECT_NE(found.hIcon, nullptr);
    EXPECT_EQ(found.hIcon, LoadIconW(instance, MAKEINTRESOURCEW(IDI_JOURNAL)));
    EXPECT_EQ(found.hCursor, nullptr);
    EXPECT_EQ(found.hbrBackground, static_cast<HBRUSH>(GetStockObject(1)));
    EXPECT_EQ(found.lpszMenuName, nullptr);

    EXPECT_FALSE(application.RegisterWindowClass(instance, kClass, DefWindowProcW));
}

// ---- Busy ----

TEST_F(ApplicationTest, ShowsTheWaitCursorWhileBusy) {
    Application application(kPath);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    application.SetBusy(true);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(application.BusyCount(), 1);
    application.SetBusy(false);
    EXPECT_EQ(GetCursor(), nullptr);
    EXPECT_EQ(application.BusyCount(), 0);
}

TEST_F(ApplicationTest, OffTakesTheCursorAwayThoughARequestIsLeft) {
    Application application(kPath);
    application.SetBusy(true);
    application.SetBusy(true);
    application.SetBusy(false);
    EXPECT_EQ(GetCursor(), nullptr);
    EXPECT_EQ(application.BusyCount(), 1);
    application.SetBusy(true);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(application.BusyCount(), 2);
}

TEST_F(ApplicationTest, AnOffTooManyCountsBelowZero) {
    Application application(kPath);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    application.SetBusy(false);
    EXPECT_EQ(GetCursor(), nullptr);
    EXPECT_EQ(application.BusyCount(), -1);
    application.SetBusy(true);
    EXPECT_EQ(application.BusyCount(), 0);
}

TEST_F(ApplicationTest, TakesOutstandingRequestsBackAtTheEnd) {
    {
        Application application(kPath);
        for (int i = 0; i < 3; ++i)
            application.SetBusy(true);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    }
    EXPECT_EQ(GetCursor(), nullptr);
}

TEST_F(ApplicationTest, LeavesTheCursorAtTheEndWhenNothingIsOutstanding) {
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    { Application application(kPath); }
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    {
        Application application(kPath);
        application.SetBusy(false);
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    }
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

// ---- The end ----

TEST_F(ApplicationTest, DeletesTheMainWindowObjectFirstOfAll) {
    struct Witness : Window {
        explicit Witness(std::vector<std::string>& seen) : seen_(seen) {}
        Witness(const Witness&) = delete;
        Witness& operator=(const Witness&) = delete;
        ~Witness() override {
            seen_.push_back("window");
            seen_.push_back(std::to_string(Application::Current()->BusyCount()));
            seen_.push_back(std::to_string(Application::Current()->ReadInt(L"Options", L"SortBy", 101)));
        }
        std::vector<std::string>& seen_;
    };
    std::vector<std::string> seen;
    {
        Application application(kPath);
        application.WriteInt(L"Options", L"SortBy", 102);
        application.SetBusy(true);
        application.SetMainWindow(std::make_unique<Witness>(seen));
        EXPECT_NE(application.GetMainWindow(), nullptr);
    }
    // The busy requests and the settings key were still there.
    EXPECT_EQ(seen, (std::vector<std::string>{"window", "1", "102"}));
}

// ---- The message loop ----

// A main window that notes what reaches it, and the loop that serves it.
class MessageLoopTest : public ApplicationTest {
protected:
    MessageLoopTest() : application_(kPath) {
        application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
        EXPECT_TRUE(application_.RegisterWindowClass(application_.GetInstance(), kClass, Procedure));
        auto window = std::make_unique<Window>();
        EXPECT_TRUE(window->Create(kClass, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr,
                                   application_.GetInstance(), this));
        main_ = window->GetHandle();
        application_.SetMainWindow(std::move(window));
    }
    ~MessageLoopTest() override { DestroyWindow(main_); }

    // Runs the loop on the messages posted before, and then on a WM_QUIT.
    int RunOut(int result = 0) {
        // Posted behind the others, where WM_QUIT itself would wait until the queue is empty and overtake what a
        // message posts in turn.
        PostMessageW(main_, WM_APP, static_cast<WPARAM>(result), 0);
        return application_.Run();
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == WM_NCCREATE) {
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
        }
        if (auto* test = reinterpret_cast<MessageLoopTest*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
            switch (message) {
                case WM_KEYDOWN: test->seen_.push_back("key " + std::to_string(wparam)); return 0;
                case WM_CHAR: test->seen_.push_back("char " + std::to_string(wparam)); return 0;
                case WM_COMMAND: test->seen_.push_back("command " + std::to_string(LOWORD(wparam))); return 0;
                case WM_APP:
                    // A second round lets through what TranslateMessage posted behind the first.
                    if (lparam == 0) {
                        PostMessageW(window, WM_APP, wparam, 1);
                    } else {
                        PostQuitMessage(static_cast<int>(wparam));
                    }
                    return 0;
                default: break;
            }
        }
        return DefWindowProcW(window, message, wparam, lparam);
    }

    Application application_;
    HWND main_ = nullptr;
    std::vector<std::string> seen_;
};

TEST_F(MessageLoopTest, AnswersWhatTheProgramQuitsWith) {
    EXPECT_EQ(RunOut(0), 0);
    EXPECT_EQ(RunOut(7), 7);
    EXPECT_EQ(RunOut(-1), -1);
}

TEST_F(MessageLoopTest, TranslatesAndDispatches) {
    PostMessageW(main_, WM_KEYDOWN, 'A', 1);
    RunOut();
    EXPECT_EQ(seen_, (std::vector<std::string>{"key 65", "char 97"}));
}

TEST_F(MessageLoopTest, GivesAcceleratorsToTheMainWindow) {
    PostMessageW(main_, WM_KEYDOWN, VK_F5, 1);
    RunOut();
    EXPECT_EQ(seen_, (std::vector<std::string>{"command 4711"}));
}

TEST_F(MessageLoopTest, TakesNoKeyWithoutAnAcceleratorTable) {
    // Another module's resources, which have no such table; so have the program's.
    application_.InitInstance(GetModuleHandleW(L"kernel32.dll"), SW_SHOW);
    PostMessageW(main_, WM_KEYDOWN, VK_F5, 1);
    RunOut();
    EXPECT_EQ(seen_, (std::vector<std::string>{"key 116"}));
}

// A modeless dialog with two edits.
class ModelessDialogTest : public MessageLoopTest {
protected:
    ModelessDialogTest() {
        struct {
            DLGTEMPLATE header;
            WORD menu, windowClass, title;
        } const dialog = {{WS_POPUP | WS_VISIBLE, WS_EX_CONTROLPARENT, 0, 0, 0, 80, 40}, 0, 0, 0};
        dialog_ = CreateDialogIndirectParamW(application_.GetInstance(), &dialog.header, main_, DialogProcedure, 0);
        EXPECT_NE(dialog_, nullptr);
        for (HWND& edit : edits_) {
            edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 40, 10, dialog_, nullptr,
                                   application_.GetInstance(), nullptr);
            EXPECT_NE(edit, nullptr);
        }
        SetFocus(edits_[0]);
    }
    ~ModelessDialogTest() override { DestroyWindow(dialog_); }

    static INT_PTR CALLBACK DialogProcedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

    HWND dialog_ = nullptr;
    HWND edits_[2] = {};
};

TEST_F(ModelessDialogTest, SeesAMessageBeforeTheAccelerators) {
    application_.SetModelessDialog(dialog_);
    PostMessageW(edits_[0], WM_KEYDOWN, VK_TAB, 1);
    RunOut();
    EXPECT_EQ(GetFocus(), edits_[1]);
    EXPECT_EQ(seen_, std::vector<std::string>());
}

TEST_F(ModelessDialogTest, SeesNothingWhenItIsNotCurrent) {
    PostMessageW(edits_[0], WM_KEYDOWN, VK_TAB, 1);
    RunOut();
    EXPECT_EQ(GetFocus(), edits_[0]);
    EXPECT_EQ(seen_, (std::vector<std::string>{"command 4712"}));
}

TEST_F(ModelessDialogTest, LeavesOthersTheirMessages) {
    application_.SetModelessDialog(dialog_);
    PostMessageW(main_, WM_KEYDOWN, VK_F5, 1);
    PostMessageW(main_, WM_KEYDOWN, 'A', 1);
    RunOut();
    EXPECT_EQ(seen_, (std::vector<std::string>{"command 4711", "key 65", "char 97"}));
}

TEST_F(ModelessDialogTest, MayBeGoneWithoutHarm) {
    application_.SetModelessDialog(dialog_);
    DestroyWindow(dialog_);
    PostMessageW(main_, WM_KEYDOWN, 'A', 1);
    RunOut();
    EXPECT_EQ(seen_, (std::vector<std::string>{"key 65", "char 97"}));
}

}  // namespace
