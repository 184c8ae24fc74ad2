#include "tests/app/fake_detail.h"

#include "list/detail_view.h"
#include "list/selection_memory.h"

std::vector<CEOID> FakeDetail::shown;
std::function<INT_PTR()> FakeDetail::view;
bool FakeDetail::ended = false;

namespace {
bool isShown = false;
}

void FakeDetail::Reset() {
    shown.clear();
    view = nullptr;
    ended = false;
}

INT_PTR DetailView::Run(Window&, SelectionMemory& selection, const NoteMatch&) {
    FakeDetail::shown.push_back(selection.Current());
    isShown = true;
    const INT_PTR result = FakeDetail::view ? FakeDetail::view() : kClosed;
    isShown = false;
    return FakeDetail::ended ? kEditEntry : result;
}

bool DetailView::EndToEdit() {
    if (isShown) FakeDetail::ended = true;
    return isShown;
}
