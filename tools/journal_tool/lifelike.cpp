#include "tools/journal_tool/lifelike.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "data/value_tables.h"

namespace {

constexpr std::array kPeople = {L"Maria Jensen", L"Tom Okafor",   L"Anna M\x00FCller", L"Luis Herrera",
                                L"Grace Lin",    L"Peter Novak",  L"Sofia Rossi",      L"Ivan Petrov",
                                L"Emma Clarke",  L"Yusuf Demir",  L"Karin Berg",       L"Hiro Tanaka",
                                L"Nadia Haddad", L"Paul Dubois",  L"Olga Sokolova",    L"Ben Carter",
                                L"Ines Almeida", L"Jan de Vries", L"Rosa Greco",       L"Zo\x00EB Martin"};
constexpr std::array kCompanies = {L"Talvern",        L"Harbour Glass",     L"Northfield Dairy", L"Orchard & Sons",
                                   L"Quayside Print", L"Lindqvist Tooling", L"Marlow Freight",   L"City Library"};
constexpr std::array kCategories = {L"Business", L"Family",  L"Health", L"Holiday", L"Personal", L"Projects",
                                    L"Clients",  L"Finance", L"House",  L"Ideas",   L"Training", L"Travel"};
constexpr std::array kBeginnings = {L"Call with",      L"Lunch with",       L"Review with", L"Notes from",
                                    L"Planning with",  L"Letter to",        L"Visit to",    L"Follow-up with",
                                    L"Interview with", L"Walk-through with"};
constexpr std::array kTopics = {L"the spring catalogue", L"next year's budget", L"the new office keys",
                                L"delivery dates",       L"the garden fence",   L"a second opinion",
                                L"the boat repair",      L"travel to the fair", L"the training course",
                                L"insurance papers",     L"the wedding speech", L"samples from the mill"};
// One of each length from 2 to 20, so that every subject is as long as wanted.
constexpr std::array kEndings = {L"II",
                                 L"now",
                                 L"soon",
                                 L"again",
                                 L"by bus",
                                 L"at noon",
                                 L"by phone",
                                 L"this week",
                                 L"next month",
                                 L"in the yard",
                                 L"at the hotel",
                                 L"before summer",
                                 L"over breakfast",
                                 L"with two guests",
                                 L"on the way north",
                                 L"as agreed by mail",
                                 L"and a second offer",
                                 L"with open questions",
                                 L"because of the price"};
constexpr std::array kSentences = {
    L"We went through the list from last time and crossed out what is done.",
    L"The price is still too high; a new offer is promised for Thursday.",
    L"Remember to send the drawings, the second set, not the first.",
    L"Nobody had looked at the contract since the spring.",
    L"The weather was fine, so we talked outside by the water.",
    L"Two boxes were missing and one arrived damaged.",
    L"There is a photograph of the old workshop that I would like to copy.",
    L"Next meeting in three weeks, same place, coffee is on me.",
    L"The caf\x00E9 at the corner has closed for good.",
    L"Parking costs 4 \x20AC an hour, take the tram instead.",
    L"Good questions from the back row, few answers from the front.",
    L"The doctor says rest, and no stairs for a while.",
};
constexpr std::array kMinutes = {0, 5, 5, 10, 15, 15, 30, 30, 60, 60, 90, 120, 180, 480, 1440};

constexpr size_t kSubjectLength = 60;
constexpr size_t kBodyLength = 600;

// A generator of our own, since the library's distributions differ between compilers.
class Random {
public:
    explicit Random(uint64_t seed) : state_(seed) {}
    // 0 to count - 1.
    size_t Below(size_t count) {
        state_ += 0x9E3779B97F4A7C15u;
        uint64_t value = state_;
        value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
        value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
        return static_cast<size_t>((value ^ (value >> 31)) % count);
    }
    template <typename Table>
    auto One(const Table& table) {
        return table[Below(table.size())];
    }

private:
    uint64_t state_;
};

FILETIME MakeStart(Random& random) {
    constexpr ULONGLONG kTicksPerSecond = 10'000'000, kTicksPerDay = 86'400 * kTicksPerSecond;
    SYSTEMTIME first{};
    first.wYear = 2015;
    first.wMonth = 1;
    first.wDay = 1;
    FILETIME time;
    SystemTimeToFileTime(&first, &time);
    ULONGLONG ticks = static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    ticks += random.Below(3653) * kTicksPerDay;                              // the days of ten years
    ticks += (7 * 3600 + random.Below(15 * 12) * 5 * 60) * kTicksPerSecond;  // from 7:00 to 21:55
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

std::wstring MakeSubject(Random& random, const wchar_t* person) {
    for (;;) {
        std::wstring subject = random.One(kBeginnings);
        subject.append(L" ").append(person).append(L" about ").append(random.One(kTopics));
        if (subject.size() == kSubjectLength) return subject;
        for (const std::wstring_view ending : kEndings)
            if (subject.size() + 1 + ending.size() == kSubjectLength) return subject.append(L" ").append(ending);
    }
}

std::wstring MakeBody(Random& random) {
    std::wstring body;
    while (body.size() < kBodyLength) {
        if (!body.empty()) body += random.Below(5) ? L' ' : L'\n';
        body += random.One(kSentences);
    }
    body.resize(kBodyLength - 1);
    return body + L'\x2026';
}

}  // namespace

NewEntry MakeLifelikeEntry(int number) {
    Random random(static_cast<uint64_t>(number) * 0x2545F4914F6CDD1Du);
    NewEntry entry;
    entry.start = MakeStart(random);
    entry.minutes = static_cast<ULONGLONG>(random.One(kMinutes));
    entry.type = static_cast<short>(random.Below(EntryTypes().size()));
    // Most entries are ordinary.
    entry.priority = static_cast<short>(random.Below(4) ? kDefaultPriority : random.Below(Priorities().size()));
    entry.sensitivity =
        static_cast<short>(random.Below(5) ? kDefaultSensitivity : random.Below(Sensitivities().size()));

    const wchar_t* person = random.One(kPeople);
    const wchar_t* company = random.One(kCompanies);
    if (random.Below(2)) entry.company = company;
    const size_t contacts = random.Below(3);
    if (contacts >= 1) entry.contacts.Append(DbAItem(person, company));
    if (contacts == 2) entry.contacts.Append(DbAItem(random.One(kPeople), L""));
    const size_t first = random.Below(kCategories.size());
    for (size_t count = random.Below(4), i = 0; i < count; ++i)
        entry.categories.emplace_back(kCategories[(first + i * 5) % kCategories.size()]);

    entry.subject = MakeSubject(random, person);
    entry.body = MakeBody(random);
    return entry;
}
