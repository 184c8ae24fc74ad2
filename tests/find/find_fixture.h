// A journal in a fresh store, and entries for it.
#pragma once

#include <gmock/gmock.h>
#include <note_text.h>

#include <string>
#include <vector>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "find/find_request.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "text/date_time.h"

class FindTest : public testing::Test {
protected:
    FindTest() { EXPECT_TRUE(journal_.Open(nullptr)); }
    ~FindTest() override { journal_.Close(); }

    static DateTime At(WORD year, WORD month, WORD day, WORD hour = 9, WORD minute = 0) {
        return DateTime(SYSTEMTIME{year, month, 0, day, hour, minute, 0, 0});
    }

    // A note of that text as the note control writes it, and as others do.
    static std::string Note(const std::wstring& text) {
        std::string stream = ForeignNote(text);
        AddNoteText(&stream, text);
        return stream;
    }
    static std::string ForeignNote(const std::wstring& text) {
        std::string stream = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\uc1\\f0 ";
        for (const wchar_t letter : text)
            stream += letter < 0x80 ? std::string(1, static_cast<char>(letter))
                                    : "\\u" + std::to_string(static_cast<short>(letter)) + "?";
        return stream + "}";
    }

    // An entry with these properties alone: no subject and no body when there is none to be.
    CEOID Add(const DateTime& start, const wchar_t* subject, const std::string& body = {}) {
        CEPROPVAL values[3] = {};
        WORD count = 0;
        values[count].propid = kPropStart;
        values[count++].val.filetime = start.ToFileTime();
        if (subject) {
            values[count].propid = kPropSubject;
            values[count++].val.lpwstr = const_cast<wchar_t*>(subject);
        }
        if (!body.empty()) {
            values[count].propid = kPropBody;
            values[count++].val.blob = {static_cast<DWORD>(body.size()),
                                        reinterpret_cast<LPBYTE>(const_cast<char*>(body.data()))};
        }
        const CEOID id = journal_.WriteRecordProps(0, count, values);
        EXPECT_NE(id, 0u);
        return id;
    }
    // Entries with these subjects, a day apart from 7 May 2001 on.
    std::vector<CEOID> AddDays(const std::vector<std::wstring>& subjects) {
        std::vector<CEOID> ids;
        DateTime start = At(2001, 5, 7);
        for (const std::wstring& subject : subjects) {
            ids.push_back(Add(start, subject.c_str()));
            start.AddDays(1);
        }
        return ids;
    }
    // Writes or deletes as another program does: through a handle of its own.
    static void DeleteElsewhere(CEOID entry) {
        DbJournal other;
        ASSERT_TRUE(other.Open(nullptr));
        EXPECT_TRUE(other.DeleteRecord(entry));
        other.Close();
    }

    FreshStore store_;
    MessageBoxes boxes_;
    DbJournal journal_;
    FindRequest request_;
};
