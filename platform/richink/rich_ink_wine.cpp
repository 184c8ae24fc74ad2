// What Wine's rich edit needs that Windows' own does not.
//
// It measures the rest of a run of text anew for each line that it takes off it, so that a word which fills many lines
// costs the square of its length: seconds for 16,000 characters, at every key. As runs of a few hundred characters it
// costs next to nothing. So long words are put in with wrapping off, and an attribute that nobody sees and no stream
// carries makes runs of them.
#include <algorithm>

#include "platform/richink/rich_ink.h"

namespace {

constexpr WPARAM kUndoSteps = 100;  // the rich edit's own default
constexpr LONG kShortestRun = 250;
constexpr LONG kMostRuns = 64;                // each takes a look at its whole paragraph
constexpr size_t kMostLoosened = 40'000;      // characters; what may be typed is within
constexpr size_t kLargestLoosened = 200'000;  // of the whole text: in a larger one it takes longer than it saves

bool IsWine() {
    static const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return wine;
}

}  // namespace

// No change, no step to undo, and no scrolling.
template <typename Act>
void RichInkControl::Unnoticed(Act act) {
    const LRESULT mask = Base(EM_SETEVENTMASK, 0, ENM_NONE);
    const LRESULT modified = Base(EM_GETMODIFY);
    Base(EM_SETUNDOLIMIT, 0);  // records nothing meanwhile, forgets nothing
    act();
    Base(EM_SETUNDOLIMIT, kUndoSteps);
    Base(EM_SETMODIFY, modified);
    Base(EM_SETEVENTMASK, 0, mask);
}

// It goes on with the widths that it measured before the zoom changed: they stay with each format it has made. An
// attribute nobody sees makes it take a new format for all text.
void RichInkControl::RefreshFonts() {
    if (!IsWine()) return;
    Unnoticed([&] {
        CHARFORMAT2W unseen{};
        unseen.cbSize = sizeof(unseen);
        unseen.dwMask = CFM_STYLE;
        unseen.sStyle = fontRound_ = fontRound_ == 1 ? 2 : 1;
        Base(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&unseen));
    });
}

void RichInkControl::SetWrapping(bool wraps) {
    if (wraps_ == wraps) return;
    wraps_ = wraps;
    Base(EM_SETTARGETDEVICE, 0, !wraps);
}

// Before text is put in whose long words have so many characters together; `size` is about that of the whole text.
// Whether EndLongWords must follow.
bool RichInkControl::BeginLongWords(size_t characters, size_t size) {
    if (!IsWine() || characters == 0) return false;
    if (characters <= kMostLoosened && size > kLargestLoosened) return false;
    SetWrapping(false);
    return true;
}

// Nobody reads words beyond what can be loosened: they stay in one line, and the text with them.
void RichInkControl::EndLongWords() {
    const std::vector<LongWord> words = LongWordsOf(RawText());
    LONG all = 0;
    for (const LongWord& word : words)
        all += word.Length();
    if (static_cast<size_t>(all) > kMostLoosened) return;
    const LONG run = std::max(kShortestRun, all / kMostRuns);
    CHARRANGE selection{};
    POINT scrolled{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    Base(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled));
    Unnoticed([&] {
        const auto mark = [&](LONG first, LONG last, BYTE author) {
            CHARFORMAT2W unseen{};
            unseen.cbSize = sizeof(unseen);
            unseen.dwMask = CFM_REVAUTHOR;
            unseen.bRevAuthor = author;
            Base(EM_SETSEL, first, last);
            Base(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&unseen));
        };
        for (const LongWord& word : words) {
            mark(word.first, word.last, 0);
            for (LONG at = word.first + run; at < word.last; at += 2 * run)
                mark(at, std::min(word.last, at + run), 1);
        }
        Base(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    });
    SetWrapping(true);
    Base(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled));
    InvalidateRect(window_, nullptr, TRUE);
}
