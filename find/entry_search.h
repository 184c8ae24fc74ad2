// Searching the journal, without any window.
#pragma once

#include <windbase.h>

#include <functional>
#include <string>
#include <vector>

#include "find/find_request.h"

class DbJournal;

class EntrySearch {
public:
    // Asked again and again while a search runs: false gives it up. It may use the journal, close it and give up, and
    // let others do so; it must not throw. It changes nothing in the store.
    using GoOn = std::function<bool()>;
    // The plain text of a note's bytes, which are never none, into `text`; empty for what is no note. Only asked for
    // notes that do not tell their text by themselves.
    using NoteText = std::function<void(const CEBLOB& note, std::wstring& text)>;

    // `journal` must outlive the object. Without a `noteText` such notes are never found.
    EntrySearch(DbJournal& journal, NoteText noteText) : journal_(journal), noteText_(std::move(noteText)) {}

    // Fills the request's results with the entries that match and answers how many they are; 0, and no results, when it
    // was given up. `current` is where a search from the current entry starts: an entry that is not there (0 never is)
    // has nothing before it that could be left out, so that all are searched. Moves the journal's current position.
    //
    // What another program changes meanwhile may be seen or not; what it has deleted by the end is not found.
    int Run(FindRequest& request, CEOID current, const GoOn& goOn = {});

    // How many the search that runs, or the last one, has found so far.
    int FoundSoFar() const { return static_cast<int>(hits_.size()); }

private:
    bool FindByDate(const DateTime& date);
    bool FindBySubject(const FindRequest& request);
    bool FindByNote(const FindRequest& request);
    template <class Visit>
    bool ForEach(CEPROPID property, const Visit& visit);
    bool MayGoOn() const { return !goOn_ || (*goOn_)(); }
    std::vector<CEOID> InOrder(CEOID after);
    std::vector<CEOID> WalkOrder(CEOID after);
    std::vector<CEOID> AskPlaces(CEOID after);

    DbJournal& journal_;
    NoteText noteText_;
    const GoOn* goOn_ = nullptr;
    std::vector<CEOID> hits_;  // in no particular order
};
