// The order of the virtual operations: others who hold a window object by its table rely on it.
#include <gtest/gtest.h>

#include <cstring>

#include "ui/dialog.h"

namespace {

// The position of a virtual function in its table, as this compiler's pointers to members tell it: the offset in bytes
// plus 1.
template <class Member>
size_t SlotOf(Member member) {
    size_t offset = 0;
    std::memcpy(&offset, &member, sizeof(offset));
    return (offset - 1) / sizeof(void*);
}

// The compiler gives the destructor two slots; it stands first.
constexpr size_t kFirst = 2;

template <class... Members>
void ExpectInOrder(size_t first, Members... members) {
    const size_t slots[] = {SlotOf(members)...};
    for (size_t i = 0; i < sizeof...(members); ++i)
        EXPECT_EQ(slots[i], first + i) << "operation " << i;
}

using GetTextToString = void (Window::*)(std::wstring&) const;
using GetTextToBuffer = int (Window::*)(wchar_t*, int) const;
using PointToClient = bool (Window::*)(POINT*) const;
using RectToClient = bool (Window::*)(RECT*) const;
using ItemVisible = bool (Dialog::*)(int) const;
using ShowItem = bool (Dialog::*)(int, bool);
using ItemRect = bool (Dialog::*)(int, RECT*) const;

}  // namespace

TEST(WindowOrderTest, OperationsOfAWindowStandInTheirFixedOrder) {
    ExpectInOrder(kFirst, &Window::Destroy, &Window::Create, &Window::CreateEx, &Window::Attach, &Window::Detach,
                  &Window::PreTranslate, &Window::FillRect, &Window::GetHandle, &Window::GetParent, &Window::GetMenuBar,
                  &Window::IsVisible, &Window::IsEnabled, &Window::IsWindow, &Window::IsClass, &Window::IsInputPanelUp,
                  &Window::GetStyle, &Window::GetExStyle, &Window::SetStyle, &Window::SetExStyle,
                  &Window::GetWindowLong, &Window::SetWindowLong, &Window::GetWindowRect, &Window::GetClientRect,
                  &Window::MoveWindow, &Window::SetWindowPos, &Window::Enable, &Window::Show, &Window::Hide,
                  &Window::SendMessage, &Window::PostMessage, &Window::Invalidate, &Window::Update,
                  &Window::SetForeground, &Window::GetTextLength, static_cast<GetTextToString>(&Window::GetText),
                  static_cast<GetTextToBuffer>(&Window::GetText), &Window::SetText, &Window::KillTimer,
                  &Window::SetTimer, &Window::FindTimer, &Window::GetBrush, &Window::ReleaseBrush, &Window::MessageBox,
                  &Window::Validate, &Window::BringToTop, static_cast<PointToClient>(&Window::ScreenToClient),
                  static_cast<RectToClient>(&Window::ScreenToClient), &Window::ClientToScreen, &Window::SetActive,
                  &Window::SetFont, &Window::GetDC, &Window::ReleaseDC, &Window::SetFocus, &Window::KillFocus,
                  &Window::SipPreference, &Window::CreateMenuBar, &Window::Subclass, &Window::Unsubclass);
}

TEST(WindowOrderTest, OperationsOfADialogFollowThoseOfTheWindow) {
    ExpectInOrder(SlotOf(&Window::Unsubclass) + 1, &Dialog::GetDlgItem, &Dialog::EnableItem,
                  static_cast<ItemVisible>(&Dialog::IsVisible), static_cast<ShowItem>(&Dialog::Show), &Dialog::EndOk,
                  &Dialog::EndCancel, static_cast<ItemRect>(&Dialog::ScreenToClient),
                  static_cast<ItemRect>(&Dialog::ClientToScreen), &Dialog::Centre, &Dialog::HandleSettingChange,
                  &Dialog::InitDialog, &Dialog::AttachIfNone, &Dialog::DoModal, &Dialog::CreateModeless);
}
