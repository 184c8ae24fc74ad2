// The form in which one journal entry is shown: its fields as rows of a list, its body on a second page.
#pragma once

#include <memory>

#include "data/db_journal.h"
#include "editor/field_controls.h"
#include "editor/field_list.h"
#include "editor/form_record.h"
#include "editor/note_body.h"
#include "ui/dialog.h"
#include "ui/tab_control.h"

// The rows are whatever fields the journal defines, in its order. What the user does with them is the derived class's.
class EntryForm : public Dialog {
public:
    // The object id of the entry; 0 for a new one that is not written.
    CEOID Id() const { return id_; }

protected:
    enum Page { kEntryPage = 0, kNotePage = 1 };  // indexes of the tabs

    explicit EntryForm(DbJournal& journal) : journal_(journal) {}

    // Makes the controls, reads the entry and fills the rows; no row is selected yet. False when the controls cannot be
    // made.
    bool Build(const FormRecord& record);
    // Fits tab strip and pages into the window.
    void Layout();

    // The field of a row; null when there is none.
    DbJItem* FieldOfRow(int row);
    // The row to select first.
    int StartRow() const { return startRow_; }
    // Shows the field's text, or what stands for an empty one, in its row.
    void ShowField(const DbJItem& field);

    // Whether a field's value is another one than the form was opened with. What shows and was never stored (the
    // default of a coded field, the start of an entry without one) counts as opened with.
    bool HasOtherValues() const;

    // Whether the entry's record can be written again: it was read, and nobody has deleted it since.
    bool IsStored() { return loaded_ && journal_.SeekToOid(id_) == id_; }

    DbJournal& journal_;
    Page page_ = kEntryPage;  // the one that is shown
    CEOID id_ = 0;
    TSList<DbJItem> fields_;
    DbJItem* bodyField_ = nullptr;  // null when the journal defines none
    bool modified_ = false;         // OK writes the entry, whether or not a field has another value

    bool unsaved_ = false;  // the fields are the oldest of those that are kept unsaved

    TabControl tabs_;
    FieldList list_;
    NoteBody body_;

private:
    bool MakeControls();
    void ReadNew(bool hasValues);
    void FillRows(const PimData* pim, WORD startField);
    std::wstring LoadBody(DbJItem& field);

    std::unique_ptr<HiddenLabel> listLabel_;
    std::unique_ptr<HiddenLabel> bodyLabel_;
    TSList<DbJItem> opened_;  // the fields as the form was opened
    int startRow_ = 0;
    bool loaded_ = false;  // the fields are those of the record id_
};
