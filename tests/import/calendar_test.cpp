// iCalendar files as programs write them.
#include <gmock/gmock.h>

#include "exchange/item.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kDay7May2004 = 38114;

class CalendarTest : public testing::Test {
protected:
    // The clock here is two hours ahead of UTC.
    void Read(const std::string& components) {
        contents_ = import::ReadFile("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + components + "END:VCALENDAR\r\n",
                                     [](import::Seconds utc) { return utc + 7200; });
    }
    void ReadEvent(const std::string& lines) { Read("BEGIN:VEVENT\r\n" + lines + "END:VEVENT\r\n"); }
    void ReadTodo(const std::string& lines) { Read("BEGIN:VTODO\r\n" + lines + "END:VTODO\r\n"); }
    template <class T>
    T Get(CEPROPID property, T missing) const {
        if (contents_.items.empty()) {
            ADD_FAILURE() << "no item";
            return missing;
        }
        const auto& properties = contents_.items[0].properties;
        const auto found = properties.find(property);
        return found == properties.end() ? missing : std::get<T>(found->second);
    }
    std::wstring Text(CEPROPID property) const { return Get<std::wstring>(property, L""); }
    double Date(CEPROPID property) const { return Get<double>(property, 0); }
    long Number(CEPROPID property) const { return Get<long>(property, -1); }
    bool Truth(CEPROPID property) const { return Get<bool>(property, false); }
    std::vector<std::pair<int, std::wstring>> Problems() const {
        std::vector<std::pair<int, std::wstring>> problems;
        for (const auto& problem : contents_.problems)
            problems.emplace_back(problem.line, problem.text);
        return problems;
    }

    import::Contents contents_;
};

using Told = std::pair<int, std::wstring>;

TEST_F(CalendarTest, AnEventIsReadWhole) {
    ReadEvent(
        "UID:1@example.com\r\nDTSTAMP:20040101T000000Z\r\nDTSTART:20040507T100000Z\r\nDTEND:20040507T113000Z\r\n"
        "SUMMARY:Review\\, long\r\nLOCATION:Room 5\r\nDESCRIPTION:one\\ntwo\r\nCATEGORIES:Work,Plans\r\n"
        "CLASS:PRIVATE\r\nSTATUS:TENTATIVE\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT15M\r\nEND:VALARM\r\n");
    EXPECT_THAT(Problems(), IsEmpty());
    ASSERT_THAT(contents_.items, SizeIs(1));
    EXPECT_EQ(contents_.items[0].folder, olFolderCalendar);
    EXPECT_EQ(contents_.items[0].uid, L"1@example.com");
    EXPECT_EQ(Text(kAppointmentSubject), L"Review, long");
    EXPECT_EQ(Text(kAppointmentLocation), L"Room 5");
    EXPECT_EQ(Text(kAppointmentBody), L"one\r\ntwo");
    EXPECT_EQ(Text(kAppointmentCategories), L"Work, Plans");
    EXPECT_DOUBLE_EQ(Date(kAppointmentStart), kDay7May2004 + 0.5);
    EXPECT_EQ(Number(kAppointmentDuration), 90);
    EXPECT_EQ(Number(kAppointmentSensitivity), olPrivate);
    EXPECT_EQ(Number(kAppointmentBusyStatus), olTentative);
    EXPECT_TRUE(Truth(kAppointmentReminderSet));
    EXPECT_EQ(Number(kAppointmentReminderMinutesBeforeStart), 15);
    EXPECT_FALSE(Truth(kAppointmentAllDayEvent));
}

TEST_F(CalendarTest, TimesAreThoseOfTheClockHere) {
    const std::string zone =
        "BEGIN:VTIMEZONE\r\nTZID:Tokyo\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:+0900\r\n"
        "TZOFFSETTO:+0900\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    const struct {
        const char* start;
        double expected;
    } cases[] = {{"DTSTART:20040507T100000Z\r\n", 0.5},
                 {"DTSTART:20040507T120000\r\n", 0.5},
                 {"DTSTART;TZID=Tokyo:20040507T190000\r\n", 0.5},
                 {"DTSTART;TZID=\"Tokyo\";VALUE=DATE-TIME:20040507T190000\r\n", 0.5}};
    for (const auto& c : cases) {
        Read("BEGIN:VEVENT\r\n" + std::string(c.start) + "END:VEVENT\r\n" + zone);  // the zone may come later
        EXPECT_THAT(Problems(), IsEmpty());
        EXPECT_DOUBLE_EQ(Date(kAppointmentStart), kDay7May2004 + c.expected) << c.start;
    }
}

TEST_F(CalendarTest, AZoneThatIsNotInTheFileIsToldAndTheTimeTakenAsItStands) {
    ReadEvent("DTSTART;TZID=Mars:20040507T120000\r\nSUMMARY:x\r\n");
    EXPECT_THAT(Problems(), ElementsAre(Told(4, L"the time zone Mars is not in the file: taken as the time here")));
    EXPECT_DOUBLE_EQ(Date(kAppointmentStart), kDay7May2004 + 0.5);
    EXPECT_EQ(contents_.leftOut, 0);
}

TEST_F(CalendarTest, AllDayEventsTakeTheirDays) {
    const struct {
        const char* end;
        long minutes;
    } cases[] = {{"", 1440},
                 {"DTEND;VALUE=DATE:20040508\r\n", 1440},
                 {"DTEND;VALUE=DATE:20040510\r\n", 3 * 1440},
                 {"DTEND;VALUE=DATE:20040507\r\n", 1440},
                 {"DURATION:P2D\r\n", 2 * 1440}};
    for (const auto& c : cases) {
        ReadEvent("DTSTART;VALUE=DATE:20040507\r\n" + std::string(c.end));
        EXPECT_TRUE(Truth(kAppointmentAllDayEvent));
        EXPECT_EQ(Date(kAppointmentStart), kDay7May2004) << "midnight here, wherever here is";
        EXPECT_EQ(Number(kAppointmentDuration), c.minutes) << c.end;
    }
}

TEST_F(CalendarTest, AnEventMayHaveADurationOrNoEnd) {
    ReadEvent("DTSTART:20040507T100000\r\nDURATION:PT1H15M\r\n");
    EXPECT_EQ(Number(kAppointmentDuration), 75);
    ReadEvent("DTSTART:20040507T100000\r\n");
    EXPECT_EQ(Number(kAppointmentDuration), 0);
    EXPECT_EQ(Text(kAppointmentSubject), L"");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CalendarTest, BrokenEventsAreToldByTheirLineAndLeftOut) {
    const struct {
        const char* lines;
        Told told;
    } cases[] = {
        {"SUMMARY:x\r\n", {3, L"the appointment has no start"}},
        {"SUMMARY:x\r\nDTSTART:soon\r\n", {5, L"this is no time: soon"}},
        {"DTSTART:20040231T100000\r\n", {4, L"this is no time: 20040231T100000"}},
        {"DTSTART:20040507T100000\r\nDTEND:20040507T090000\r\n", {5, L"the appointment ends before it starts"}},
        {"DTSTART:20040507T100000\r\nDTEND:never\r\n", {5, L"this is no time: never"}},
        {"DTSTART:20040507T100000\r\nDURATION:long\r\n", {5, L"this is no duration: long"}},
    };
    for (const auto& c : cases) {
        Read("BEGIN:VEVENT\r\n" + std::string(c.lines) +
             "END:VEVENT\r\nBEGIN:VEVENT\r\nDTSTART:20040507T100000\r\nEND:VEVENT\r\n");
        EXPECT_THAT(Problems(), ElementsAre(c.told));
        EXPECT_TRUE(contents_.problems.at(0).isItem);
        EXPECT_EQ(contents_.leftOut, 1);
        EXPECT_THAT(contents_.items, SizeIs(1));
    }
}

TEST_F(CalendarTest, WhatRepeatsIsTakenOnceAndTold) {
    ReadEvent("UID:1\r\nDTSTART:20040507T100000\r\nRRULE:FREQ=WEEKLY\r\n");
    EXPECT_THAT(contents_.items, SizeIs(1));
    EXPECT_THAT(Problems(), ElementsAre(Told(6, L"it repeats: the first time alone is taken")));
    EXPECT_EQ(contents_.leftOut, 0);
}

TEST_F(CalendarTest, AChangedDayOfWhatRepeatsIsAnItemOfItsOwn) {
    ReadEvent("UID:1\r\nRECURRENCE-ID:20040514T100000\r\nDTSTART:20040514T110000\r\n");
    EXPECT_EQ(contents_.items.at(0).uid, L"1/20040514T100000");
}

TEST_F(CalendarTest, ATaskIsReadWhole) {
    ReadTodo(
        "UID:t1\r\nSUMMARY:Paint\r\nDTSTART;VALUE=DATE:20040507\r\nDUE:20040508T100000Z\r\nPRIORITY:1\r\n"
        "CLASS:CONFIDENTIAL\r\nDESCRIPTION:blue\r\nCATEGORIES:Home\r\nSTATUS:NEEDS-ACTION\r\n");
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_EQ(contents_.items.at(0).folder, olFolderTasks);
    EXPECT_EQ(contents_.items.at(0).uid, L"t1");
    EXPECT_EQ(Text(kTaskSubject), L"Paint");
    EXPECT_EQ(Date(kTaskStartDate), kDay7May2004);
    EXPECT_DOUBLE_EQ(Date(kTaskDueDate), kDay7May2004 + 1.5);
    EXPECT_EQ(Number(kTaskImportance), olImportanceHigh);
    EXPECT_EQ(Number(kTaskSensitivity), olConfidential);
    EXPECT_EQ(Text(kTaskBody), L"blue");
    EXPECT_EQ(Text(kTaskCategories), L"Home");
    EXPECT_FALSE(Truth(kTaskComplete));
}

TEST_F(CalendarTest, ATaskIsCompleteInEveryWayOfSayingIt) {
    for (const char* lines : {"STATUS:COMPLETED\r\n", "PERCENT-COMPLETE:100\r\n", "COMPLETED:20040507T233000Z\r\n"}) {
        ReadTodo("SUMMARY:x\r\n" + std::string(lines));
        EXPECT_TRUE(Truth(kTaskComplete)) << lines;
    }
    EXPECT_EQ(Date(kTaskDateCompleted), kDay7May2004 + 1) << "the day here";
}

TEST_F(CalendarTest, ATaskNeedsNoDates) {
    ReadTodo("SUMMARY:x\r\nPRIORITY:9\r\n");
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_EQ(Date(kTaskStartDate), 0);
    EXPECT_EQ(Number(kTaskImportance), olImportanceLow);
    ReadTodo("SUMMARY:x\r\nDTSTART:20040507T000000\r\nDURATION:P1D\r\n");
    EXPECT_EQ(Date(kTaskDueDate), kDay7May2004 + 1);
}

TEST_F(CalendarTest, APriorityOfATaskIsHighLowOrNone) {
    const struct {
        const char* priority;
        long importance;  // -1: none
    } cases[] = {{"0", -1},
                 {"1", olImportanceHigh},
                 {"4", olImportanceHigh},
                 {"5", -1},
                 {"6", olImportanceLow},
                 {"9", olImportanceLow},
                 {"high", -1},
                 {"", -1}};
    for (const auto& row : cases) {
        ReadTodo("SUMMARY:x\r\nPRIORITY:" + std::string(row.priority) + "\r\n");
        EXPECT_EQ(Number(kTaskImportance), row.importance) << row.priority;
    }
}

TEST_F(CalendarTest, BrokenTasksAreToldAndLeftOut) {
    ReadTodo("UID:1\r\nDUE:20040507\r\n");
    EXPECT_THAT(Problems(), ElementsAre(Told(3, L"the task says nothing")));
    EXPECT_THAT(contents_.items, IsEmpty());
    ReadTodo("SUMMARY:x\r\nDUE:whenever\r\n");
    EXPECT_THAT(Problems(), ElementsAre(Told(5, L"this is no time: whenever")));
    EXPECT_EQ(contents_.leftOut, 1);
}

TEST_F(CalendarTest, AnOldCalendarIsRead) {
    contents_ = import::ReadFile(
        "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nDTSTART:20040507T100000Z\r\nDTEND:20040507T110000Z\r\n"
        "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Pr=C3=BC=\r\nfung\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n",
        [](import::Seconds utc) { return utc; });
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_EQ(Text(kAppointmentSubject),
              L"Pr\x00FC"
              L"fung");
    EXPECT_EQ(Number(kAppointmentDuration), 60);
}

}  // namespace
