#include "editor/entry_form.h"

#include "data/db_cats.h"
#include "data/field_ids.h"
#include "editor/field_values.h"
#include "editor/unsaved_entries.h"
#include "res/ids.h"
#include "ui/resource_text.h"

bool EntryForm::Build(const FormRecord& record) {
    const PimData* pim = AsPimData(record);
    const EntryRow* row = AsEntryRow(record);
    modified_ = pim != nullptr;
    id_ = row ? row->id : 0;

    SetText(LoadText(IDS_JOURNAL_ENTRY).c_str());
    if (!MakeControls()) return false;

    // Before the text comes: on some systems a text keeps the character widths of the zoom it was loaded with.
    body_.PrepareZoom();
    loaded_ = id_ && journal_.Read(id_, &fields_) == id_;
    if (!id_) ReadNew(pim != nullptr);
    FillRows(pim, row ? row->field : 0);
    opened_ = fields_;
    return true;
}

bool EntryForm::HasOtherValues() const {
    auto opened = opened_.begin();
    for (const DbJItem& field : fields_) {
        if (!(field == *opened)) return true;
        ++opened;
    }
    return false;
}

bool EntryForm::MakeControls() {
    constexpr RECT nowhere = {};
    if (!tabs_.CreateIn(GetHandle(), IDC_EDITOR_TABS, WS_VISIBLE | WS_TABSTOP | TCS_BOTTOM | TCS_FOCUSONBUTTONDOWN,
                        nowhere)) {
        return false;
    }
    tabs_.InsertTab(kEntryPage, LoadText(IDS_ENTRY_PAGE).c_str());
    tabs_.InsertTab(kNotePage, LoadText(IDS_NOTE_PAGE).c_str());
    if (!body_.CreateIn(GetHandle(), IDC_EDITOR_BODY, nowhere)) return false;
    if (!list_.CreateIn(GetHandle(), IDC_EDITOR_FIELDS, nowhere)) return false;

    listLabel_ = std::make_unique<HiddenLabel>(GetHandle(), LoadText(IDS_JOURNAL_ENTRY).c_str());
    bodyLabel_ = std::make_unique<HiddenLabel>(GetHandle(), LoadText(IDS_NOTE_PAGE).c_str());
    RaiseInOrder({listLabel_->Handle(), list_.GetHandle(), bodyLabel_->Handle(), body_.GetHandle(), tabs_.GetHandle()});
    Layout();
    return true;
}

void EntryForm::Layout() {
    if (!list_.GetHandle()) return;  // sized while being created
    RECT client = {};
    GetClientRect(&client);
    const int strip = tabs_.GetStripHeight();
    RECT page = client;
    page.bottom = client.bottom - strip;
    tabs_.MoveWindow(0, page.bottom, client.right, strip);
    body_.Place(page);
    list_.Place(page);
}

// A new entry goes on with what could not be saved before; that of a Pocket Outlook item has its own values.
void EntryForm::ReadNew(bool hasValues) {
    unsaved_ = !hasValues && ReadUnsaved(&fields_);
    if (unsaved_) {
        modified_ = true;
    } else {
        journal_.Read(0, &fields_);
    }
}

void EntryForm::FillRows(const PimData* pim, WORD startField) {
    FieldSources sources;
    sources.pim = pim;
    sources.now.SetNow();
    sources.readCategories = ReadCategoryNames;

    int row = 0;
    for (DbJItem& field : fields_) {
        list_.AppendRow(field.GetLabel(), field.GetItemType());
        field.SetLoc(row);
        PrepareField(field, sources);
        if (field.GetPropID() == kPropBody) {
            bodyField_ = &field;
            field.SetStrValue(LoadBody(field).c_str());
        }
        if (field.GetItemType() != kItemLabelOnly) ShowField(field);
        if (!pim && field.GetID() == startField) startRow_ = row;
        ++row;
    }
    list_.FitColumns();
}

std::wstring EntryForm::LoadBody(DbJItem& field) {
    body_.Load(field);
    return body_.IsEmpty() ? std::wstring() : body_.StreamOutText();
}

DbJItem* EntryForm::FieldOfRow(int row) {
    for (DbJItem& field : fields_) {
        if (field.GetLoc() == row) return &field;
    }
    return nullptr;
}

void EntryForm::ShowField(const DbJItem& field) {
    const std::wstring text = field.GetStrValue();
    list_.SetValue(field.GetLoc(), text.empty() ? field.GetDefaultText() : text, text.empty());
}
