// What another program sends to the journal's window, to have an entry begun for a Pocket Outlook item.
#pragma once

#include <win.h>

// The window to send it to.
constexpr wchar_t kJournalClass[] = L"JCLASS";
constexpr wchar_t kJournalTitle[] = L"Quillon Journal";

// wParam: the kind in the low word, the high word means nothing. lParam: the item's object id. The answer means
// nothing, and comes before the entry is edited.
constexpr UINT kLinkMessage = 1126;

// Of any other kind the entry is begun empty.
enum LinkKind : WORD { kLinkContact = 0, kLinkAppointment = 1, kLinkTask = 2 };
