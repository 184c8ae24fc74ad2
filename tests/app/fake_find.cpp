#include "tests/app/fake_find.h"

#include "find/find_dialog.h"
#include "find/found_dialog.h"

std::vector<FindRequest*> FakeFind::asked;
std::vector<FindRequest*> FakeFind::shown;
std::function<INT_PTR()> FakeFind::ask;
std::function<void()> FakeFind::meanwhile;

void FakeFind::Reset() {
    asked.clear();
    shown.clear();
    ask = nullptr;
    meanwhile = nullptr;
}

INT_PTR FindDialog::Run(Window&, FindRequest& request) {
    FakeFind::asked.push_back(&request);
    return FakeFind::ask ? FakeFind::ask() : IDOK;
}

INT_PTR FoundDialog::Run(Window&, DbJournal&, SelectionMemory&, FindRequest& request) {
    FakeFind::shown.push_back(&request);
    if (FakeFind::meanwhile) FakeFind::meanwhile();
    return IDOK;
}
