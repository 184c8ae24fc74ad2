#include "tools/journal_tool/entry_writer.h"

#include <storebatch.h>

#include <algorithm>

#include "data/contact_blob.h"
#include "tools/journal_tool/rtf.h"

namespace {

// Large enough that the commits do not count, small enough that other programs' writes wait less than a second.
constexpr int kEntriesPerBatch = 2000;
constexpr ULONGLONG kTicksPerMinute = 600'000'000;

void SetBytes(DbJItem* field, const void* bytes, size_t count) {
    const CEBLOB blob{static_cast<DWORD>(count), static_cast<BYTE*>(const_cast<void*>(bytes))};
    field->SetBlob(&blob);
}

}  // namespace

EntryWriter::~EntryWriter() {
    if (batch_) CeCancelBatch();
}

bool EntryWriter::Open() {
    journal_.Initialize(&fields_);
    return OpenOrComplain(journal_) && categories_.Open();
}

bool EntryWriter::Begin() {
    if (batch_) return true;
    batch_ = CeBeginBatch();
    if (!batch_) ComplainAboutStore(L"the store cannot be written");
    return batch_;
}

bool EntryWriter::Add(const NewEntry& entry) {
    if (!Begin()) return false;

    std::vector<CEOID> categories;
    for (const std::wstring& name : entry.categories) {
        const CEOID category = categories_.FindOrAdd(name);
        if (!category) return false;
        if (std::find(categories.begin(), categories.end(), category) == categories.end())
            categories.push_back(category);
    }
    const std::string body = MakeRtf(entry.body);
    const std::vector<BYTE> contacts = MakeContactBlob(entry.contacts);
    const ULONGLONG ticks = entry.minutes * kTicksPerMinute;

    for (DbJItem& field : fields_) {
        switch (field.GetID()) {
            case kFieldStart: field.SetFileTime(entry.start); break;
            case kFieldSubject: field.SetStrValue(entry.subject.c_str()); break;
            case kFieldCompany: field.SetStrValue(entry.company.c_str()); break;
            case kFieldEntryType: field.SetShort(entry.type); break;
            case kFieldPriority: field.SetShort(entry.priority); break;
            case kFieldSensitivity: field.SetShort(entry.sensitivity); break;
            case kFieldDuration: field.SetFileTime({static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)}); break;
            case kFieldContacts: SetBytes(&field, contacts.data(), contacts.size()); break;
            case kFieldCategories: SetBytes(&field, categories.data(), categories.size() * sizeof(CEOID)); break;
            case kFieldBody: SetBytes(&field, body.data(), body.size()); break;
            default: break;
        }
    }
    if (!Write()) return false;
    categories_.CountEntry(categories);
    return ++pending_ < kEntriesPerBatch || Finish();
}

// DbJournal::Write and SetFlags in one: half the writes.
bool EntryWriter::Write() {
    std::vector<CEPROPVAL> values(static_cast<size_t>(fields_.GetCount()) + 1);
    size_t count = 0;
    for (const DbJItem& field : fields_)
        if (field.ToProperty(&values[count])) ++count;
    values[count] = CEPROPVAL{};
    values[count].propid = kPropRecordFlags;
    values[count++].val.ulVal = kRecordFlagsWritten;
    return journal_.WriteRecordProps(0, static_cast<WORD>(count), values.data()) != 0;
}

bool EntryWriter::Finish() {
    if (!batch_) return true;
    const bool counted = categories_.WriteUses();
    batch_ = false;
    if (!CeCommitBatch()) {
        ComplainAboutStore(L"the last entries were not saved");
        pending_ = 0;
        categories_.Forget();
        return false;
    }
    saved_ += pending_;
    pending_ = 0;
    return counted;
}
