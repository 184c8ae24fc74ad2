#include "exchange/components.h"

#include <algorithm>
#include <array>

#include "exchange/text.h"

namespace import {
namespace {

bool IsWanted(std::string_view name) {
    constexpr std::array<std::string_view, 4> kWanted = {"VCARD", "VEVENT", "VTODO", "VTIMEZONE"};
    return std::find(kWanted.begin(), kWanted.end(), name) != kWanted.end();
}

// What is imported, not what only helps with it.
bool IsItem(std::string_view name) {
    return IsWanted(name) && name != "VTIMEZONE";
}

std::wstring Wide(std::string_view text) {
    return Trimmed(Decode(text, {}));
}

class Reader {
public:
    Reader(std::vector<Component>* components, std::vector<Problem>* problems)
        : components_(components), problems_(problems) {}

    void Take(ContentLine line) {
        if (line.name == "BEGIN") {
            Begin(line);
        } else if (line.name == "END") {
            End(line);
        } else if (line.name.empty()) {
            Break(line);
        } else if (!open_.empty()) {
            open_.back().component.lines.push_back(std::move(line));
        }
    }
    void Finish() {
        while (!open_.empty())
            Abandon();
    }

private:
    struct Open {
        Component component;
        bool broken = false;  // that was told
    };

    static std::string NameOf(const ContentLine& line) {
        const size_t begin = line.value.find_first_not_of(" \t");
        if (begin == line.value.npos) return {};
        return ToUpper(line.value.substr(begin, line.value.find_last_not_of(" \t") - begin + 1));
    }
    void Begin(const ContentLine& line) {
        const std::string name = NameOf(line);
        // Who acts for a person may be a card within the card; any other item within one of its kind begins anew.
        const bool isAgent = !open_.empty() && !open_.back().component.lines.empty() &&
                             open_.back().component.lines.back().name == "AGENT";
        if (IsWanted(name) && !isAgent) {
            while (
                std::any_of(open_.begin(), open_.end(), [](const Open& open) { return IsWanted(open.component.name); }))
                Abandon();
        }
        open_.push_back({{name, line.number, {}, {}}, false});
    }
    void End(const ContentLine& line) {
        const std::string name = NameOf(line);
        const bool known =
            std::any_of(open_.begin(), open_.end(), [&](const Open& open) { return open.component.name == name; });
        if (!known) {
            problems_->push_back({line.number, L"END:" + Wide(name) + L" ends nothing"});
            return;
        }
        while (open_.back().component.name != name)
            Abandon();
        Open done = std::move(open_.back());
        open_.pop_back();
        if (done.broken) return;
        const bool isInside =
            std::any_of(open_.begin(), open_.end(), [](const Open& open) { return IsWanted(open.component.name); });
        if (isInside) {
            open_.back().component.parts.push_back(std::move(done.component));
        } else if (IsWanted(name)) {
            components_->push_back(std::move(done.component));
        }
    }
    // The line makes no sense: neither does the item it stands in.
    void Break(const ContentLine& line) {
        if (std::any_of(open_.begin(), open_.end(), [](const Open& open) { return open.broken; })) return;
        if (open_.empty()) {
            if (!outside_) problems_->push_back({line.number, L"this is no line of a vCard or iCalendar file"});
            outside_ = true;
            return;
        }
        bool isItem = false;
        for (Open& open : open_) {
            open.broken = IsWanted(open.component.name);
            isItem = isItem || IsItem(open.component.name);
        }
        problems_->push_back({line.number, L"this is no line of " + Wide(open_.back().component.name), isItem});
    }
    // What is open has no end.
    void Abandon() {
        const Open& open = open_.back();
        if (!open.broken) {
            problems_->push_back({open.component.line, L"BEGIN:" + Wide(open.component.name) + L" has no END",
                                  IsItem(open.component.name)});
        }
        open_.pop_back();
    }

    std::vector<Component>* components_;
    std::vector<Problem>* problems_;
    std::vector<Open> open_;
    bool outside_ = false;  // a line between the components was complained about
};

}  // namespace

const ContentLine* Component::Find(std::string_view wanted) const {
    for (const ContentLine& candidate : lines)
        if (candidate.name == wanted) return &candidate;
    return nullptr;
}

void ReadComponents(std::string bytes, std::vector<Component>* components, std::vector<Problem>* problems) {
    ContentLines lines(std::move(bytes));
    Reader reader(components, problems);
    while (std::optional<ContentLine> line = lines.Next())
        reader.Take(std::move(*line));
    reader.Finish();
}

}  // namespace import
