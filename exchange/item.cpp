#include "exchange/item.h"

#include <algorithm>

namespace import {
namespace {

// FNV-1a, 64 bits.
class Hash {
public:
    void Add(const void* bytes, size_t count) {
        for (size_t i = 0; i < count; ++i)
            value_ = (value_ ^ static_cast<const unsigned char*>(bytes)[i]) * 0x100000001B3u;
    }
    std::wstring Text() const {
        std::wstring text;
        for (int shift = 60; shift >= 0; shift -= 4)
            text += L"0123456789abcdef"[value_ >> shift & 15];
        return text;
    }

private:
    uint64_t value_ = 0xCBF29CE484222325u;
};

// The items of a file by what tells them apart, each with its line and what it says.
struct SeenItem {
    int line;
    std::map<CEPROPID, Value> properties;
};
using SeenItems = std::map<std::pair<OlDefaultFolders, std::wstring>, SeenItem>;

// Of two items of one UID the later one is kept, as it would be from a second file: that is told unless both are the
// same.
void TellOfSameUid(const Component& component, const Item& item, SeenItems* seen, std::vector<Problem>* problems) {
    SeenItem& known = (*seen)[{item.folder, item.uid}];
    if (!known.properties.empty() && known.properties != item.properties) {
        problems->push_back({component.line, L"it has the UID of the one in line " + std::to_wstring(known.line) +
                                                 L", which it replaces"});
    }
    known = {component.line, item.properties};
}

}  // namespace

void Item::Put(CEPROPID id, std::wstring text) {
    if (!text.empty()) properties[id] = std::move(text);
}

void Item::MakeUid() {
    if (!uid.empty()) return;
    Hash hash;
    for (const auto& [id, value] : properties) {
        hash.Add(&id, sizeof(id));
        std::visit(
            [&](const auto& content) {
                if constexpr (std::is_same_v<std::decay_t<decltype(content)>, std::wstring>) {
                    hash.Add(content.data(), content.size() * sizeof(wchar_t));
                } else {
                    hash.Add(&content, sizeof(content));
                }
            },
            value);
    }
    uid = L"content:" + hash.Text();
}

Contents ReadFile(std::string bytes, const LocalClock& clock) {
    Contents contents;
    std::vector<Component> components;
    ReadComponents(std::move(bytes), &components, &contents.problems);
    // Each of these is an item that was left out, but for a stray END and a line between the items.
    contents.leftOut = static_cast<int>(std::count_if(contents.problems.begin(), contents.problems.end(),
                                                      [](const Problem& problem) { return problem.isItem; }));
    TimeZones zones(clock);
    for (const Component& component : components)
        if (component.name == "VTIMEZONE") zones.Add(component);
    SeenItems seen;
    for (const Component& component : components) {
        Item item;
        bool made = false;
        if (component.name == "VTIMEZONE") continue;
        if (component.name == "VCARD") {
            made = ReadPerson(component, &item, &contents.problems);
        } else if (component.name == "VEVENT") {
            made = ReadAppointment(component, zones, &item, &contents.problems);
        } else {
            made = ReadTask(component, zones, &item, &contents.problems);
        }
        if (made) {
            item.MakeUid();
            TellOfSameUid(component, item, &seen, &contents.problems);
            contents.items.push_back(std::move(item));
        } else {
            contents.problems.back().isItem = true;
            ++contents.leftOut;
        }
    }
    std::stable_sort(contents.problems.begin(), contents.problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return contents;
}

}  // namespace import
