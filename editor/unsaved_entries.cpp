#include "editor/unsaved_entries.h"

#include <storefile.h>

#include <deque>

#include "data/field_ids.h"
#include "editor/entry_file.h"
#include "res/ids.h"
#include "ui/resource_text.h"
#include "ui/window.h"

namespace {

constexpr size_t kMostNamed = 3;        // subjects in a box
constexpr size_t kMostCharacters = 40;  // of each of them

struct Kept {
    std::wstring file;  // "" when the store has no place
    std::deque<EntryFields> entries;
    bool written = true;  // the file holds them all
};

std::wstring FileNow() {
    wchar_t store[MAX_PATH * 4] = L"";
    return CeObjectStoreFile(store, static_cast<DWORD>(std::size(store))) ? std::wstring(store) + L".unsaved" : L"";
}

void Load(Kept& kept) {
    kept.entries.clear();
    kept.written = true;
    if (kept.file.empty() || ReadEntryFile(kept.file, &kept.entries)) return;
    const std::wstring aside = kept.file + L".damaged";
    CopyFileW(kept.file.c_str(), aside.c_str(), FALSE);
}

// What is kept for the store that the program works on.
Kept& Current() {
    static Kept kept;
    const std::wstring file = FileNow();
    if (file != kept.file) {
        kept.file = file;
        Load(kept);
    }
    return kept;
}

void Save(Kept& kept) {
    kept.written = !kept.file.empty() && WriteEntryFile(kept.file, kept.entries);
}

std::wstring SubjectOf(EntryFields& entry) {
    const DbJItem* field = FindFieldByPropID(entry, kPropSubject);
    std::wstring subject = field ? field->GetStrValue() : L"";
    if (subject.empty() && field) subject = field->GetDefaultText();
    if (subject.size() <= kMostCharacters) return subject;
    subject.resize(IS_HIGH_SURROGATE(subject[kMostCharacters - 1]) ? kMostCharacters - 1 : kMostCharacters);
    return subject + L"...";
}

// "Lunch; Dinner"; dots stand for those beyond the first few.
std::wstring SubjectsOf(std::deque<EntryFields>& entries) {
    std::wstring subjects;
    for (size_t i = 0; i < entries.size() && i <= kMostNamed; ++i) {
        if (i > 0) subjects += L"; ";
        subjects += i < kMostNamed ? SubjectOf(entries[i]) : L"...";
    }
    return subjects;
}

bool Asks(const Window& owner, const std::wstring& text, UINT icon) {
    return owner.MessageBox(text.c_str(), LoadText(IDS_APP_TITLE).c_str(), MB_YESNO | icon) == IDYES;
}

}  // namespace

void KeepUnsaved(const TSList<DbJItem>& fields) {
    Kept& kept = Current();
    kept.entries.push_back(fields);
    Save(kept);
}

bool ReadUnsaved(TSList<DbJItem>* fields) {
    const Kept& kept = Current();
    if (kept.entries.empty()) return false;
    *fields = kept.entries.front();
    return true;
}

void ForgetUnsaved() {
    Kept& kept = Current();
    if (kept.entries.empty()) return;
    kept.entries.pop_front();
    Save(kept);
}

bool MayCloseUnsaved(const Window& owner) {
    Kept& kept = Current();
    if (kept.entries.empty()) return true;
    if (!kept.written) Save(kept);
    std::wstring text = LoadText(IDS_NOT_STORED) + L" " + SubjectsOf(kept.entries) + L"\n";
    text += LoadText(kept.written ? IDS_OFFERED_AGAIN : IDS_NO_ROOM_TO_KEEP) + L"\n" + LoadText(IDS_CLOSE_ALL_THE_SAME);
    return Asks(owner, text, MB_ICONEXCLAMATION);
}

bool WantsUnsaved(const Window& owner) {
    Kept& kept = Current();
    if (kept.entries.empty()) return false;
    return Asks(owner, LoadText(IDS_NOT_STORED) + L" " + SubjectsOf(kept.entries) + L"\n" + LoadText(IDS_GO_ON_WITH_IT),
                MB_ICONQUESTION);
}
