// What a component of a file becomes: a Pocket Outlook item.
#pragma once

#include <pimdata.h>

#include <map>
#include <string>
#include <variant>

#include "exchange/times.h"

namespace import {

using Value = std::variant<std::wstring, double, long, bool>;

struct Item {
    OlDefaultFolders folder;
    std::wstring uid;  // never empty; without one in the file it is made from what the file says
    std::map<CEPROPID, Value> properties;

    // Empty texts are no properties.
    void Put(CEPROPID id, std::wstring text);
    void Put(CEPROPID id, double date) { properties[id] = date; }
    void Put(CEPROPID id, long number) { properties[id] = number; }
    void Put(CEPROPID id, bool truth) { properties[id] = truth; }
    bool Has(CEPROPID id) const { return properties.contains(id); }
    // Gives an item without an id of its own one.
    void MakeUid();
};

// Each reads a component of its kind. False when it makes no item: the last problem says why. Problems of an item that
// was made name what was left out of it.
bool ReadPerson(const Component& card, Item* item, std::vector<Problem>* problems);
bool ReadAppointment(const Component& event, const TimeZones& zones, Item* item, std::vector<Problem>* problems);
bool ReadTask(const Component& todo, const TimeZones& zones, Item* item, std::vector<Problem>* problems);

// All items of a file, in order, and what is wrong with it.
struct Contents {
    std::vector<Item> items;
    std::vector<Problem> problems;  // by line
    int leftOut = 0;                // items that are broken
};
Contents ReadFile(std::string bytes, const LocalClock& clock);

}  // namespace import
