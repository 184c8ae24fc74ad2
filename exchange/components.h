// The components of a file: what stands between a BEGIN and its END.
#pragma once

#include "exchange/content_lines.h"

namespace import {

struct Component {
    std::string name;  // VCARD, VEVENT...
    int line = 0;      // of its BEGIN
    std::vector<ContentLine> lines;
    std::vector<Component> parts;  // components within it, such as VALARM

    // The first line of that name, null for none.
    const ContentLine* Find(std::string_view wanted) const;
};

struct Problem {
    int line;
    std::wstring text;
    bool isItem = false;  // a whole item is left out for it
};

// Reads a file: appends its people (VCARD), appointments (VEVENT), tasks (VTODO) and time zones (VTIMEZONE), in order,
// to `components`. One that is broken, because a line in it is no content line or its END is missing, is left out, and
// a problem says so.
void ReadComponents(std::string bytes, std::vector<Component>* components, std::vector<Problem>* problems);

}  // namespace import
