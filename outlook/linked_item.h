// The Pocket Outlook item that an entry is begun for.
#pragma once

#include "editor/form_record.h"
#include "outlook/outlook_session.h"

class Window;

// The item, and the session, are held as long as the object lives.
class LinkedItem {
public:
    // Copies the values of the item of that kind (a LinkKind, or any other number: then there is none) and object id
    // into `record`:
    //   contact      file-as name as the subject, company
    //   appointment  subject, start
    //   task         subject, start date, without one the due date
    // False when no entry is to be begun: without Pocket Outlook silently, and when it has no such item after a message
    // box over `owner` that says so.
    bool Read(Window& owner, WORD kind, CEOID oid, PimData* record);

private:
    template <class Interface>
    Interface* Find(CEOID oid, REFIID id);
    bool ReadContact(CEOID oid, PimData* record);
    bool ReadAppointment(CEOID oid, PimData* record);
    bool ReadTask(CEOID oid, PimData* record);

    OutlookSession session_;
    UniqueCom<IUnknown> item_;  // goes before the session
};
