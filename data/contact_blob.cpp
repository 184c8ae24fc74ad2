#include "data/contact_blob.h"

#include <cstring>

namespace {

// The text that starts at character `at`, which moves behind its NUL; false when the bytes end before one comes.
bool TakeText(const CEBLOB& blob, size_t& at, std::wstring* text) {
    const size_t count = blob.dwCount / sizeof(wchar_t);
    text->clear();
    while (at < count) {
        wchar_t character;
        std::memcpy(&character, blob.lpb + at * sizeof(wchar_t), sizeof(character));  // the bytes need not be aligned
        ++at;
        if (!character) return true;
        text->push_back(character);
    }
    text->clear();
    return false;
}

void PutText(const wchar_t* text, std::vector<BYTE>* bytes) {
    const auto* begin = reinterpret_cast<const BYTE*>(text);
    bytes->insert(bytes->end(), begin, begin + (std::wcslen(text) + 1) * sizeof(wchar_t));
}

}  // namespace

void ReadContactBlob(const CEBLOB& blob, TSList<DbAItem>* contacts) {
    if (!blob.lpb) return;
    size_t at = 0;
    std::wstring name, company;
    while (TakeText(blob, at, &name)) {
        const bool whole = TakeText(blob, at, &company);
        if (!name.empty() || !company.empty()) contacts->Append(DbAItem(name.c_str(), company.c_str()));
        if (!whole) break;
    }
}

std::vector<BYTE> MakeContactBlob(const TSList<DbAItem>& contacts) {
    std::vector<BYTE> bytes;
    for (const DbAItem& contact : contacts) {
        PutText(contact.GetStrValue(), &bytes);
        PutText(contact.GetCompany(), &bytes);
    }
    return bytes;
}

std::wstring JoinContacts(const TSList<DbAItem>& contacts) {
    std::wstring text;
    const wchar_t* separator = L"";
    for (const DbAItem& contact : contacts) {
        text.append(separator).append(contact.GetStrValue());
        separator = L"; ";
    }
    return text;
}
