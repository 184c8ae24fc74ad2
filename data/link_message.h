// What another program sends to the journal's window, to have an entry begun for a Pocket Outlook item.
#pragma once

#include <win.h>

// The window to send it to.
constexpr wchar_t kJournalClass[] = L"JCLASS";
constexpr wchar_t kJournalTitle[] = L"Quillon Journal";

// wParam: the kind in the low word, the high word means nothing. lParam: the item's object id. The answer, one of the
// LinkAnswers, comes before the entry is edited.
constexpr UINT kLinkMessage = 1126;

enum LinkAnswer : LRESULT {
    kLinkTaken = 0,   // the entry is begun as soon as no screen is open
    kLinkLocked = 1,  // the password has not been entered: nothing is begun
};

// A property that the window has while it is locked: nothing it is asked for is done.
constexpr wchar_t kLockedProperty[] = L"Journal.Locked";

// Of any other kind the entry is begun empty.
enum LinkKind : WORD { kLinkContact = 0, kLinkAppointment = 1, kLinkTask = 2 };
