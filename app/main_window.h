// The program's one top-level window: the menu bar, the button bar and the list of entries. It turns commands into
// calls on the screens.
//
// Messages are routed in main_window.cpp, commands are carried out in main_window_commands.cpp, what other programs ask
// for in main_window_link.cpp; the menus are opened and drawn in main_window_menu.cpp; main_window_lock.cpp keeps it to
// itself while the password is asked for.
//
// A screen that is open comes to the front: while one is open over the window, a command that would open another, or
// change entries, does nothing else.
#pragma once

#include <deque>
#include <memory>
#include <utility>

#include "find/find_request.h"
#include "list/button_bar.h"
#include "list/entry_list.h"
#include "outlook/outlook_contacts.h"
#include "ui/frame_window.h"

class ContextMenu;
struct NMNEWMENU;
struct NMRGINFO;

class MainWindow : public FrameWindow {
public:
    // Sent by screens that change much: 1 shows the wait cursor, 2 hides it and rebuilds the list.
    static constexpr UINT kBusyMessage = 1125;
    // Sent by the shell when memory is short: the program closes.
    static constexpr UINT kHibernate = 1023;
    // Posted at the start, once the window is seen: a store that cannot be written is told, and an entry that could not
    // be stored the last time is offered.
    static constexpr UINT kOfferUnsaved = WM_APP + 1;

    // All three must outlive the object.
    MainWindow(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter);
    ~MainWindow() override;

    // The window class's procedure. The window is created with its object as creation parameter; one at a time.
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;

    // The window is locked from its creation on, and until this call neither shows nor reacts, whatever it is sent and
    // by whom: it stays hidden, its commands and menus do nothing, and its list's rows have no text.
    void Unlock();

    EntryList& List() { return list_; }
    ButtonBar& Bar() { return bar_; }

private:
    // ---- Messages ----
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnCreate();
    LRESULT OnClose(bool asks);
    LRESULT OnOfferUnsaved();
    void TellLimit();
    LRESULT OnDestroy();
    LRESULT OnSettingChange(WPARAM wparam, LPARAM lparam);
    LRESULT OnNotify(NMHDR* header);
    LRESULT OnBusyMessage(WPARAM what);
    LRESULT OnEnable(bool enabled);
    bool MakeControls();
    RECT ListPlace() const;

    // ---- While it is locked (main_window_lock.cpp) ----
    void Lock();
    // Whether the message is not to be carried out, with what it is answered instead. Takes out of those that are what
    // would show the window.
    bool Refuses(UINT message, WPARAM wparam, LPARAM lparam, LRESULT* answer) const;

    // ---- Commands ----
    LRESULT OnCommand(WORD notification, WORD id);
    void OnCommandId(WORD id);
    void OnScreenCommand(WORD id);
    // Whether a screen or a box is open over the window.
    bool IsBehindScreen() const { return !IsEnabled(); }
    void NewEntry();
    void ShowCurrent();
    void EditCurrent();
    void RunEditor(WORD field = 0);
    void EditOptions();
    void ClearFilter();
    void EditFilter();
    void SaveFilter();
    void Find();
    void Export();
    void SortByField(WORD field);
    void SortDescending(bool descending);
    void SetSortOrder(const SORTORDERSPEC& order);
    void CopySelected();
    void DeleteSelected();
    bool MayDelete();

    // ---- Entries for Pocket Outlook items (main_window_link.cpp) ----
    LRESULT OnLinkMessage(WORD kind, CEOID item);
    void BeginLinkedEntry(WORD kind, CEOID item);
    void TellRefusedLinks();

    // ---- Files dropped on the window (main_window_drop.cpp) ----
    LRESULT OnDropFiles(HDROP drop);

    // ---- Menus ----
    LRESULT OnNewMenu(NMNEWMENU* query);
    LRESULT OnContextMenu(const NMRGINFO& gesture);

    static MainWindow* live_;

    ButtonBar bar_;
    EntryList list_;
    OutlookContacts contacts_;
    std::deque<std::pair<WORD, CEOID>> waitingLinks_;  // asked for while a screen was open: kind and item
    int refusedLinks_ = 0;                             // that came when no more could wait; not told yet
    std::unique_ptr<ContextMenu> contextMenu_;         // there while it is open

    DbJournal& journal_;
    SelectionMemory& selection_;
    FilterSettings& filter_;
    FindRequest find_;
    bool comInitialised_ = false;
    bool asking_ = false;  // what is to become of entries that could not be stored
    bool locked_ = false;
    bool toldLimit_ = false;  // that the store cannot be written
};
