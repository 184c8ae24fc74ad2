// iCalendar: appointments and tasks.
#include <algorithm>
#include <climits>

#include "exchange/item.h"
#include "exchange/text.h"

namespace import {
namespace {

constexpr Seconds kMinute = 60;

std::wstring Plain(const ContentLine* line) {
    return line ? Trimmed(TextOf(*line, Escapes::kNew)) : std::wstring();
}

std::string Word(const ContentLine* line) {
    return line ? ToUpper(line->value) : std::string();
}

// The component's lines in common, and the times that need its zones.
class Reader {
public:
    Reader(const Component& component, const TimeZones& zones, Item* item, std::vector<Problem>* problems)
        : component_(component), zones_(zones), item_(*item), problems_(*problems) {}

    const ContentLine* Find(std::string_view name) const { return component_.Find(name); }

    void TakeUid() {
        item_.uid = Plain(Find("UID"));
        // One day of something that repeats, changed.
        if (const ContentLine* day = Find("RECURRENCE-ID"); day && !item_.uid.empty()) item_.uid += L"/" + Plain(day);
    }
    void TakeText(CEPROPID property, std::string_view name) { item_.Put(property, Plain(Find(name))); }
    void TakeCategories(CEPROPID property) {
        std::wstring all;
        for (const ContentLine& line : component_.lines) {
            if (line.name != "CATEGORIES") continue;
            for (const std::wstring& part : PartsOf(line, Escapes::kNew, L',')) {
                const std::wstring name = Trimmed(part);
                if (!name.empty()) all += (all.empty() ? L"" : L", ") + name;
            }
        }
        item_.Put(property, all);
    }
    void TakeSensitivity(CEPROPID property) {
        const std::string word = Word(Find("CLASS"));
        if (word == "PRIVATE") item_.Put(property, long{olPrivate});
        if (word == "CONFIDENTIAL") item_.Put(property, long{olConfidential});
    }

    // Nullopt with a problem when the line names no time, without one when there is no such line. A zone that the file
    // does not describe is told, and the time taken as it stands.
    std::optional<WrittenTime> Time(std::string_view name) {
        const ContentLine* line = Find(name);
        if (!line) return std::nullopt;
        const auto time = zones_.LocalTime(*line);
        if (!time) {
            Complain(*line, L"this is no time: " + Plain(line));
        } else if (const std::string_view zone = line->Get("TZID");
                   !zone.empty() && !time->isDate && !line->value.ends_with('Z') && !zones_.Has(zone)) {
            Complain(*line, L"the time zone " + Decode(zone, {}) + L" is not in the file: taken as the time here");
        }
        return time;
    }
    std::optional<Seconds> Duration() {
        const ContentLine* line = Find("DURATION");
        if (!line) return std::nullopt;
        const auto length = ParseDuration(line->value);
        if (!length || *length < 0) {
            Complain(*line, L"this is no duration: " + Plain(line));
            return std::nullopt;
        }
        return length;
    }
    void Complain(const ContentLine& line, std::wstring text) { problems_.push_back({line.number, std::move(text)}); }
    // What was complained about last stands for the item.
    bool Fail() const { return false; }
    bool Fail(std::wstring text) {
        problems_.push_back({component_.line, std::move(text)});
        return false;
    }
    void TellOfRepeats() {
        if (const ContentLine* rule = Find("RRULE")) Complain(*rule, L"it repeats: the first time alone is taken");
    }

    const Component& component_;
    const TimeZones& zones_;
    Item& item_;
    std::vector<Problem>& problems_;
};

// Minutes that an alarm comes before the start; nullopt without one that is told like this.
std::optional<long> MinutesBefore(const Component& component) {
    for (const Component& part : component.parts) {
        const ContentLine* trigger = part.name == "VALARM" ? part.Find("TRIGGER") : nullptr;
        const auto length = trigger ? ParseDuration(trigger->value) : std::nullopt;
        if (length && *length <= 0 && *length > LONG_MIN) return static_cast<long>(-*length / kMinute);
    }
    return std::nullopt;
}

void TakeBusyStatus(const Reader& reader, Item* item) {
    const std::string status = Word(reader.Find("STATUS"));
    const std::string busy = Word(reader.Find("TRANSP"));
    if (busy == "TRANSPARENT" || status == "CANCELLED") {
        item->Put(kAppointmentBusyStatus, long{olFree});
    } else if (status == "TENTATIVE") {
        item->Put(kAppointmentBusyStatus, long{olTentative});
    }
}

}  // namespace

bool ReadAppointment(const Component& event, const TimeZones& zones, Item* item, std::vector<Problem>* problems) {
    item->folder = olFolderCalendar;
    Reader reader(event, zones, item, problems);
    const ContentLine* startLine = reader.Find("DTSTART");
    if (!startLine) return reader.Fail(L"the appointment has no start");
    const auto start = reader.Time("DTSTART");
    if (!start) return reader.Fail();

    Seconds length = start->isDate ? kDay : 0;
    if (const ContentLine* endLine = reader.Find("DTEND")) {
        const auto end = reader.Time("DTEND");
        if (!end) return reader.Fail();
        if (end->time < start->time) {
            reader.Complain(*endLine, L"the appointment ends before it starts");
            return reader.Fail();
        }
        // Some end the only day on itself.
        if (!start->isDate || end->time > start->time) length = end->time - start->time;
    } else if (reader.Find("DURATION")) {
        const auto duration = reader.Duration();
        if (!duration) return reader.Fail();
        length = *duration;
    }
    item->Put(kAppointmentStart, DateFrom(start->time));
    item->Put(kAppointmentDuration, static_cast<long>(std::min<Seconds>(length / kMinute, LONG_MAX)));
    if (start->isDate) item->Put(kAppointmentAllDayEvent, true);

    reader.TakeUid();
    reader.TakeText(kAppointmentSubject, "SUMMARY");
    reader.TakeText(kAppointmentLocation, "LOCATION");
    reader.TakeText(kAppointmentBody, "DESCRIPTION");
    reader.TakeCategories(kAppointmentCategories);
    reader.TakeSensitivity(kAppointmentSensitivity);
    TakeBusyStatus(reader, item);
    if (const auto minutes = MinutesBefore(event)) {
        item->Put(kAppointmentReminderSet, true);
        item->Put(kAppointmentReminderMinutesBeforeStart, *minutes);
    }
    reader.TellOfRepeats();
    return true;
}

bool ReadTask(const Component& todo, const TimeZones& zones, Item* item, std::vector<Problem>* problems) {
    item->folder = olFolderTasks;
    Reader reader(todo, zones, item, problems);
    reader.TakeUid();
    reader.TakeText(kTaskSubject, "SUMMARY");
    reader.TakeText(kTaskBody, "DESCRIPTION");
    reader.TakeCategories(kTaskCategories);
    reader.TakeSensitivity(kTaskSensitivity);
    if (item->properties.empty()) return reader.Fail(L"the task says nothing");

    const auto start = reader.Time("DTSTART");
    if (!start && reader.Find("DTSTART")) return reader.Fail();
    if (start) item->Put(kTaskStartDate, DateFrom(start->time));
    const auto due = reader.Time("DUE");
    if (!due && reader.Find("DUE")) return reader.Fail();
    if (due) item->Put(kTaskDueDate, DateFrom(due->time));
    if (start && !due) {
        if (const auto length = reader.Duration()) item->Put(kTaskDueDate, DateFrom(start->time + *length));
    }

    const ContentLine* percent = reader.Find("PERCENT-COMPLETE");
    const bool complete =
        Word(reader.Find("STATUS")) == "COMPLETED" || reader.Find("COMPLETED") || (percent && percent->value == "100");
    if (complete) item->Put(kTaskComplete, true);
    if (const auto completed = reader.Time("COMPLETED")) {
        item->Put(kTaskDateCompleted, DateFrom(completed->time - (completed->time % kDay + kDay) % kDay));
    }
    const std::string priority = Word(reader.Find("PRIORITY"));
    if (!priority.empty() && priority[0] >= '1' && priority[0] <= '4')
        item->Put(kTaskImportance, long{olImportanceHigh});
    if (!priority.empty() && priority[0] >= '6' && priority[0] <= '9')
        item->Put(kTaskImportance, long{olImportanceLow});
    if (MinutesBefore(todo)) item->Put(kTaskReminderSet, true);
    reader.TellOfRepeats();
    return true;
}

}  // namespace import
