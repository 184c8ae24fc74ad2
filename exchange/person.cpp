// vCard: a person.
#include <algorithm>
#include <array>

#include "exchange/item.h"
#include "exchange/text.h"

namespace import {
namespace {

// What a card says, put together line by line.
class Person {
public:
    Person(const Component& card, Item* item, std::vector<Problem>* problems)
        : card_(card), item_(*item), problems_(*problems) {
        const ContentLine* version = card.Find("VERSION");
        if (version && version->value.starts_with("2")) escapes_ = Escapes::kOld;
    }

    bool Read() {
        if (IsGroup()) {
            problems_.push_back({card_.line, L"a group is no person"});
            return false;
        }
        // The preferred ones first: they get the first places.
        for (const bool preferred : {true, false}) {
            for (const ContentLine& line : card_.lines)
                if (IsPreferred(line) == preferred) Take(line);
        }
        FileAs();
        if (!item_.Has(kContactFileAs)) {
            problems_.push_back({card_.line, L"the person has no name"});
            return false;
        }
        return true;
    }

private:
    static bool IsPreferred(const ContentLine& line) { return line.HasType("PREF") || line.Get("PREF") == "1"; }
    bool IsGroup() const {
        for (const char* name : {"KIND", "X-ADDRESSBOOKSERVER-KIND"}) {
            const ContentLine* kind = card_.Find(name);
            if (kind && ToUpper(kind->value) == "GROUP") return true;
        }
        return false;
    }

    void Take(const ContentLine& line) {
        struct Text {
            const char* name;
            CEPROPID property;
        };
        static constexpr Text kTexts[] = {
            {"TITLE", kContactJobTitle},
            {"URL", kContactWebPage},
            {"X-SPOUSE", kContactSpouse},
            {"X-EVOLUTION-SPOUSE", kContactSpouse},
            {"X-ASSISTANT", kContactAssistantName},
            {"X-EVOLUTION-ASSISTANT", kContactAssistantName},
            {"X-PHONETIC-FIRST-NAME", kContactYomiFirstName},
            {"X-PHONETIC-LAST-NAME", kContactYomiLastName},
            {"X-PHONETIC-ORG", kContactYomiCompanyName},
            {"X-EVOLUTION-FILE-AS", kContactFileAs},
        };
        for (const Text& text : kTexts)
            if (line.name == text.name) return PutFirst(text.property, Plain(line));
        if (line.name == "N") return TakeName(line);
        if (line.name == "FN") return PutFirstText(&formatted_, line);
        if (line.name == "NICKNAME") return PutFirstText(&nickname_, line);
        if (line.name == "ORG") return TakeOrganisation(line);
        if (line.name == "TEL") return TakeTelephone(line);
        if (line.name == "EMAIL")
            return TakeInTurn(Plain(line), {kContactEmail1Address, kContactEmail2Address, kContactEmail3Address});
        if (line.name == "ADR") return TakeAddress(line);
        if (line.name == "BDAY") return TakeDate(kContactBirthday, line);
        if (line.name == "ANNIVERSARY" || line.name == "X-ANNIVERSARY" || line.name == "X-EVOLUTION-ANNIVERSARY") {
            return TakeDate(kContactAnniversary, line);
        }
        if (line.name == "NOTE") return Append(kContactBody, TextOf(line, escapes_), L"\r\n");
        if (line.name == "CATEGORIES") return TakeCategories(line);
        if (line.name == "RELATED" && line.HasType("SPOUSE")) return PutFirst(kContactSpouse, Plain(line));
        if (line.name == "UID") item_.uid = Plain(line);
    }

    std::wstring Plain(const ContentLine& line) const { return Trimmed(TextOf(line, escapes_)); }
    void PutFirst(CEPROPID property, std::wstring text) {
        if (!item_.Has(property)) item_.Put(property, std::move(text));
    }
    void PutFirstText(std::wstring* text, const ContentLine& line) const {
        if (text->empty()) *text = Plain(line);
    }
    void Append(CEPROPID property, const std::wstring& text, const wchar_t* separator) {
        if (text.empty()) return;
        if (item_.Has(property)) {
            std::get<std::wstring>(item_.properties[property]) += separator + text;
        } else {
            item_.Put(property, text);
        }
    }
    // The first of the properties that is free takes the text; when none is, it is left out.
    void TakeInTurn(const std::wstring& text, std::initializer_list<CEPROPID> properties) {
        for (const CEPROPID property : properties) {
            if (item_.Has(property)) continue;
            item_.Put(property, text);
            return;
        }
    }

    void TakeName(const ContentLine& line) {
        constexpr std::array kParts = {kContactLastName, kContactFirstName, kContactMiddleName, kContactTitle,
                                       kContactSuffix};
        const std::vector<std::wstring> parts = PartsOf(line, escapes_, L';');
        for (size_t i = 0; i < std::min(parts.size(), kParts.size()); ++i)
            PutFirst(kParts[i], Trimmed(parts[i]));
    }
    void TakeOrganisation(const ContentLine& line) {
        const std::vector<std::wstring> parts = PartsOf(line, escapes_, L';');
        PutFirst(kContactCompanyName, Trimmed(parts[0]));
        if (parts.size() > 1) PutFirst(kContactDepartment, Trimmed(parts[1]));
    }
    void TakeTelephone(const ContentLine& line) {
        std::wstring number = Plain(line);
        if (number.starts_with(L"tel:")) number.erase(0, 4);
        const bool work = line.HasType("WORK");
        if (line.HasType("FAX")) {
            if (line.HasType("HOME")) return TakeInTurn(number, {kContactHomeFaxNumber, kContactBusinessFaxNumber});
            return TakeInTurn(number, {kContactBusinessFaxNumber, kContactHomeFaxNumber});
        }
        if (line.HasType("CELL"))
            return TakeInTurn(number, {kContactMobileTelephoneNumber, kContactHome2TelephoneNumber});
        if (line.HasType("PAGER")) return TakeInTurn(number, {kContactPagerNumber});
        if (line.HasType("CAR")) return TakeInTurn(number, {kContactCarTelephoneNumber});
        if (work) return TakeInTurn(number, {kContactBusinessTelephoneNumber, kContactBusiness2TelephoneNumber});
        TakeInTurn(number, {kContactHomeTelephoneNumber, kContactHome2TelephoneNumber, kContactRadioTelephoneNumber});
    }
    void TakeAddress(const ContentLine& line) {
        static constexpr CEPROPID kHome[] = {kContactHomeAddressStreet, kContactHomeAddressCity,
                                             kContactHomeAddressState, kContactHomeAddressPostalCode,
                                             kContactHomeAddressCountry};
        static constexpr CEPROPID kWork[] = {kContactBusinessAddressStreet, kContactBusinessAddressCity,
                                             kContactBusinessAddressState, kContactBusinessAddressPostalCode,
                                             kContactBusinessAddressCountry};
        static constexpr CEPROPID kOther[] = {kContactOtherAddressStreet, kContactOtherAddressCity,
                                              kContactOtherAddressState, kContactOtherAddressPostalCode,
                                              kContactOtherAddressCountry};
        const CEPROPID* place = line.HasType("WORK") ? kWork : line.HasType("HOME") ? kHome : kOther;
        if (std::any_of(place, place + 5, [this](CEPROPID property) { return item_.Has(property); })) return;
        std::vector<std::wstring> parts = PartsOf(line, escapes_, L';');
        parts.resize(7);  // box, room, street; town, region, code, country
        std::wstring street;
        for (const size_t part : {0, 1, 2}) {
            const std::wstring text = Trimmed(parts[part]);
            if (!text.empty()) street += (street.empty() ? L"" : L"\r\n") + text;
        }
        item_.Put(place[0], street);
        for (const size_t part : {1, 2, 3, 4})
            item_.Put(place[part], Trimmed(parts[part + 2]));
    }
    void TakeCategories(const ContentLine& line) {
        for (const std::wstring& name : PartsOf(line, escapes_, L','))
            Append(kContactCategories, Trimmed(name), L", ");
    }
    // A day without its year, and a year that stands for none, is none.
    void TakeDate(CEPROPID property, const ContentLine& line) {
        if (line.value.starts_with("--") || line.value.find_first_not_of(" ") == line.value.npos) return;
        const std::string_view noYear = line.Get("X-APPLE-OMIT-YEAR");
        if (!noYear.empty() && line.value.starts_with(noYear)) return;
        if (const auto date = ParseTime(line.value)) {
            item_.Put(property, DateFrom(date->time - (date->time % kDay + kDay) % kDay));
        } else {
            problems_.push_back({line.number, L"this is no date: " + Plain(line)});
        }
    }
    std::wstring TextOfProperty(CEPROPID property) const {
        const auto found = item_.properties.find(property);
        return found == item_.properties.end() ? std::wstring() : std::get<std::wstring>(found->second);
    }
    void FileAs() {
        const std::wstring last = TextOfProperty(kContactLastName);
        const std::wstring first = TextOfProperty(kContactFirstName);
        if (!last.empty() && !first.empty()) PutFirst(kContactFileAs, last + L", " + first);
        for (const std::wstring& name : {last, formatted_, first, TextOfProperty(kContactCompanyName), nickname_,
                                         TextOfProperty(kContactEmail1Address)})
            PutFirst(kContactFileAs, name);
    }

    const Component& card_;
    Item& item_;
    std::vector<Problem>& problems_;
    Escapes escapes_ = Escapes::kNew;
    std::wstring formatted_;
    std::wstring nickname_;
};

}  // namespace

bool ReadPerson(const Component& card, Item* item, std::vector<Problem>* problems) {
    item->folder = olFolderContacts;
    return Person(card, item, problems).Read();
}

}  // namespace import
