// A rich-ink control in a parent that counts its notifications.
#pragma once

#include <gtest/gtest.h>
#include <win.h>

#include <string>
#include <vector>

#include "richink.h"

class RichInkTest : public testing::Test {
protected:
    static constexpr UINT kRtf = 2;
    static constexpr UINT kText = 17;

    RichInkTest();
    ~RichInkTest() override;

    HWND Ink() const { return ink_; }
    HWND Parent() const { return parent_; }
    LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
        return SendMessageW(ink_, message, wparam, lparam);
    }

    // The error of the stream, which the message must have answered as well.
    DWORD Load(UINT format, const std::string& bytes) const;
    DWORD LoadText(const std::wstring& text) const;
    std::string Save(UINT format) const;
    // By WM_GETTEXT, with "\n" for line ends.
    std::wstring Text() const;

    void Write(const std::wstring& text) const;  // character by character, as typed
    void Replace(const std::wstring& text) const { Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str())); }
    void SelectAll() const { Send(EM_SETSEL, 0, -1); }
    static void PutOnClipboard(const std::wstring& text);

    bool IsModified() const { return Send(EM_GETMODIFY) != 0; }
    bool CanUndo() const { return Send(EM_CANUNDO) != 0; }
    bool CanRedo() const { return Send(EM_INKCANREDO) != 0; }

    // Notifications since the last Forget.
    int Count(WORD code) const;
    void Forget() { codes_.clear(); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    HWND parent_ = nullptr;
    HWND ink_ = nullptr;
    std::vector<WORD> codes_;
};
