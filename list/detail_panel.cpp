#include "list/detail_panel.h"

#include <utility>

#include "res/ids.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kClassName[] = L"ZC_DETAIL";
constexpr int kFirstHeight = 106;  // logical pixels, until an entry is shown
constexpr int kIconSize = 12;      // logical pixels
constexpr int kFocusBar = 2;       // below the icon that has the keys
constexpr COLORREF kDateColour = 0x00FF0000;
constexpr COLORREF kLabelColour = 0x00C84B4B;

// By DetailOption.
constexpr int kValueIds[] = {IDC_DETAIL_COMPANY, IDC_DETAIL_CONTACTS, IDC_DETAIL_CATEGORIES};
constexpr UINT kLabelTexts[] = {IDS_DETAIL_COMPANY, IDS_DETAIL_CONTACTS, IDS_DETAIL_CATEGORIES};

// The strips by the size of their pictures, device pixels. Pictures are never stretched: they would be blurred or
// coarse.
struct StripSize {
    int pictures;
    UINT priorities;
    UINT sensitivities;
};
constexpr StripSize kStrips[] = {{12, IDB_PRIORITIES, IDB_SENSITIVITIES},
                                 {18, IDB_PRIORITIES_18, IDB_SENSITIVITIES_18},
                                 {24, IDB_PRIORITIES_24, IDB_SENSITIVITIES_24},
                                 {36, IDB_PRIORITIES_36, IDB_SENSITIVITIES_36}};

// The largest that fit into an icon.
const StripSize& FittingStrips() {
    const StripSize* fitting = kStrips;
    for (const StripSize& strips : kStrips) {
        if (strips.pictures <= Px(kIconSize)) fitting = &strips;
    }
    return *fitting;
}

void Put(Window& control, const RECT& place) {
    control.MoveWindow(place.left, place.top, place.right - place.left, place.bottom - place.top);
    control.Show(IsRectEmpty(&place) ? SW_HIDE : SW_SHOW);
}

}  // namespace

DetailPanel* DetailPanel::live_ = nullptr;

bool DetailPanel::Register() {
    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    windowClass.lpszClassName = kClassName;
    return RegisterClassW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void DetailPanel::Unregister() {
    UnregisterClassW(kClassName, GetModuleHandleW(nullptr));
}

bool DetailPanel::CreateIn(HWND parent, int parentWidth) {
    parentWidth_ = parentWidth;
    return CreateEx(WS_EX_CONTROLPARENT, kClassName, L"", WS_CHILD | WS_BORDER | SS_NOTIFY, -1, -1, parentWidth + 2,
                    Px(kFirstHeight), parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_DETAIL_PANEL)),
                    GetModuleHandleW(nullptr), this);
}

LRESULT CALLBACK DetailPanel::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_CREATE) {
        live_ = static_cast<DetailPanel*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        live_->Attach(hwnd);
        return live_->OnCreate() ? 0 : -1;
    }
    if (live_ == nullptr || live_->GetHandle() != hwnd) return DefWindowProcW(hwnd, message, wparam, lparam);
    const LRESULT result = live_->OnMessage(message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        live_->Detach();
        live_ = nullptr;
    }
    return result;
}

LRESULT DetailPanel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND: return OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_CTLCOLORSTATIC: return OnColorStatic(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
        case WM_DRAWITEM: return OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        default: return DefWindowProcW(GetHandle(), message, wparam, lparam);
    }
}

// The order in which the fields are made is the order of the Tab key.
bool DetailPanel::OnCreate() {
    bold_ = MakeFont(L"Tahoma", -12, FW_BOLD);
    normal_ = MakeFont(L"Tahoma", -11, FW_NORMAL);
    priorities_ = LoadStrip(FittingStrips().priorities);
    sensitivities_ = LoadStrip(FittingStrips().sensitivities);

    const HWND panel = GetHandle();
    bool made = date_.CreateIn(panel, IDC_DETAIL_DATE, SS_ENDELLIPSIS) &&
                priority_.CreateIn(panel, IDC_DETAIL_PRIORITY, SS_OWNERDRAW) &&
                sensitivity_.CreateIn(panel, IDC_DETAIL_SENSITIVITY, SS_OWNERDRAW) &&
                subject_.CreateIn(panel, IDC_DETAIL_SUBJECT, SS_ENDELLIPSIS) &&
                type_.CreateIn(panel, IDC_DETAIL_TYPE, SS_ENDELLIPSIS) &&
                duration_.CreateIn(panel, IDC_DETAIL_DURATION, SS_ENDELLIPSIS);
    for (size_t option = 0; made && option < kDetailOptions; ++option) {
        constexpr RECT nowhere = {};
        made = labels_[option].CreateIn(panel, 0, SS_LEFTNOWORDWRAP, nowhere) &&
               values_[option].CreateIn(panel, kValueIds[option], SS_ENDELLIPSIS);
        labels_[option].SetFont(normal_.get());
        values_[option].SetFont(normal_.get());
        labels_[option].SetText(LoadText(kLabelTexts[option]).c_str());
    }
    for (Window* field : {&date_, &type_, &duration_})
        field->SetFont(normal_.get());
    subject_.SetFont(bold_.get());
    subject_.SetText(LoadText(IDS_DETAIL_NO_SUBJECT).c_str());
    return made;
}

DetailPanel::Strip DetailPanel::LoadStrip(UINT id) {
    Strip strip;
    strip.images.reset(LoadBitmapW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id)));
    BITMAP bitmap = {};
    GetObjectW(strip.images.get(), sizeof bitmap, &bitmap);
    strip.count = bitmap.bmHeight > 0 ? bitmap.bmWidth / bitmap.bmHeight : 0;
    strip.size = bitmap.bmHeight;
    return strip;
}

void DetailPanel::ShowTexts(DetailTexts texts) {
    texts_ = std::move(texts);
    date_.SetText(texts_.date.c_str());
    priority_.SetText(texts_.priorityText.c_str());
    sensitivity_.SetText(texts_.sensitivityText.c_str());
    type_.SetText(texts_.type.c_str());
    duration_.SetText(texts_.duration.c_str());
    values_[kDetailCompany].SetText(texts_.company.c_str());
    values_[kDetailContacts].SetText(texts_.contacts.c_str());
    values_[kDetailCategories].SetText(texts_.categories.c_str());
    Fit(parentWidth_);
    Show();
}

void DetailPanel::Fit(int parentWidth) {
    parentWidth_ = parentWidth;
    const DetailLayout layout =
        LayOutDetail(parentWidth, {!texts_.company.empty(), !texts_.contacts.empty(), !texts_.categories.empty()});
    subject_.SetText(FittingSubject(layout.subjectRoom).c_str());
    FitDate(layout.date.right - layout.date.left);
    Put(date_, layout.date);
    Put(priority_, layout.priority);
    Put(sensitivity_, layout.sensitivity);
    Put(subject_, layout.subject);
    Put(type_, layout.type);
    Put(duration_, layout.duration);
    for (size_t option = 0; option < kDetailOptions; ++option) {
        Put(labels_[option], layout.options[option].label);
        Put(values_[option], layout.options[option].value);
    }
    MoveWindow(-1, -1, parentWidth + 2, layout.height);
    Invalidate();
}

std::wstring DetailPanel::FittingSubject(int room) const {
    const std::wstring subject = texts_.subject.empty() ? LoadText(IDS_DETAIL_NO_SUBJECT) : texts_.subject;
    const WindowDc dc(GetHandle());
    const SelectedObject font(dc.Dc(), bold_.get());
    return FitSubject(subject, room, [&](const wchar_t* text, int count, int width) {
        int fitting = 0;
        SIZE size;
        GetTextExtentExPointW(dc.Dc(), text, count, width, &fitting, nullptr, &size);
        return fitting;
    });
}

// The time stands last and would be cut off first: in locales with long names the line is written narrower instead.
void DetailPanel::FitDate(int room) {
    const WindowDc dc(GetHandle());
    UniqueFont narrow = MakeNarrowFont(dc.Dc(), normal_.get(), texts_.date, room);
    date_.SetFont(narrow ? narrow.get() : normal_.get());
    narrow_ = std::move(narrow);
}

LRESULT DetailPanel::OnCommand(WORD code, WORD id) {
    if (code != STN_CLICKED) return 0;
    return ::SendMessageW(GetParent(), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(GetHandle()));
}

LRESULT DetailPanel::OnColorStatic(HDC dc, HWND control) {
    SetBkMode(dc, TRANSPARENT);
    if (control == date_.GetHandle()) SetTextColor(dc, kDateColour);
    for (const StaticText& label : labels_)
        if (control == label.GetHandle()) SetTextColor(dc, kLabelColour);
    // The icons are drawn again with every line; their own requests would have them drawn without end.
    if (control != priority_.GetHandle() && control != sensitivity_.GetHandle()) {
        priority_.Invalidate(nullptr, false);
        sensitivity_.Invalidate(nullptr, false);
    }
    if (control != ::GetFocus()) return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_HIGHLIGHT));
}

LRESULT DetailPanel::OnDrawItem(const DRAWITEMSTRUCT& draw) const {
    const bool isPriority = draw.CtlID == IDC_DETAIL_PRIORITY;
    const Strip& strip = isPriority ? priorities_ : sensitivities_;
    const int image = isPriority ? texts_.priority : texts_.sensitivity;
    ::FillRect(draw.hDC, &draw.rcItem, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    if (::GetFocus() == draw.hwndItem) {
        RECT bar = draw.rcItem;
        bar.top = bar.bottom - Px(kFocusBar);
        ::FillRect(draw.hDC, &bar, GetSysColorBrush(COLOR_HIGHLIGHT));
    }
    if (image < 0 || image >= strip.count) return TRUE;
    const UniqueMemoryDc source(CreateCompatibleDC(draw.hDC));
    const SelectedObject selected(source.get(), strip.images.get());
    const int margin = (Px(kIconSize) - strip.size) / 2;
    BitBlt(draw.hDC, draw.rcItem.left + margin, draw.rcItem.top + margin, strip.size, strip.size, source.get(),
           image * strip.size, 0, SRCCOPY);
    return TRUE;
}
