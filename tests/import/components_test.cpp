// Which components a file has, and what is told of broken ones.
#include "exchange/components.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ComponentsTest : public testing::Test {
protected:
    void Read(const std::string& bytes) { ReadComponents(bytes, &components_, &problems_); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& component : components_)
            names.push_back(component.name);
        return names;
    }
    std::vector<std::pair<int, std::wstring>> Problems() const {
        std::vector<std::pair<int, std::wstring>> problems;
        for (const auto& problem : problems_)
            problems.emplace_back(problem.line, problem.text);
        return problems;
    }

    std::vector<import::Component> components_;
    std::vector<import::Problem> problems_;
};

using Told = std::pair<int, std::wstring>;

TEST_F(ComponentsTest, ThoseThatAreWantedComeInOrderWithTheirLinesAndParts) {
    Read(
        "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTIMEZONE\nTZID:Z\nBEGIN:STANDARD\nDTSTART:1\nEND:STANDARD\n"
        "END:VTIMEZONE\nBEGIN:VEVENT\nUID:1\nBEGIN:VALARM\nTRIGGER:-PT5M\nEND:VALARM\nSUMMARY:x\nEND:VEVENT\n"
        "BEGIN:VJOURNAL\nSUMMARY:y\nEND:VJOURNAL\nbegin:vtodo\nend:vtodo\nEND:VCALENDAR\n");
    EXPECT_THAT(Names(), ElementsAre("VTIMEZONE", "VEVENT", "VTODO"));
    EXPECT_THAT(Problems(), IsEmpty());
    const auto& event = components_[1];
    EXPECT_EQ(event.line, 9);
    ASSERT_EQ(event.lines.size(), 2u);
    EXPECT_EQ(event.Find("SUMMARY")->value, "x");
    EXPECT_EQ(event.Find("LOCATION"), nullptr);
    ASSERT_EQ(event.parts.size(), 1u);
    EXPECT_EQ(event.parts[0].Find("TRIGGER")->value, "-PT5M");
}

TEST_F(ComponentsTest, OneWithoutItsEndIsLeftOutAndTheNextIsRead) {
    Read("BEGIN:VCARD\nFN:A\nBEGIN:VCARD\nFN:B\nEND:VCARD\n");
    EXPECT_THAT(Names(), ElementsAre("VCARD"));
    EXPECT_EQ(components_[0].Find("FN")->value, "B");
    EXPECT_THAT(Problems(), ElementsAre(Told(1, L"BEGIN:VCARD has no END")));
    EXPECT_TRUE(problems_[0].isItem);
}

TEST_F(ComponentsTest, OneThatTheFileEndsInIsLeftOut) {
    Read("BEGIN:VCARD\nFN:A\nEND:VCARD\nBEGIN:VCARD\nFN:B\n");
    EXPECT_EQ(components_.size(), 1u);
    EXPECT_THAT(Problems(), ElementsAre(Told(4, L"BEGIN:VCARD has no END")));
}

TEST_F(ComponentsTest, AnEventThatIsOpenWhenTheCalendarEndsIsLeftOut) {
    Read("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:1\nEND:VCALENDAR\nBEGIN:VCARD\nFN:A\nEND:VCARD\n");
    EXPECT_THAT(Names(), ElementsAre("VCARD"));
    EXPECT_THAT(Problems(), ElementsAre(Told(2, L"BEGIN:VEVENT has no END")));
}

TEST_F(ComponentsTest, ACalendarWithoutItsEndKeepsItsEvents) {
    Read("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:1\nEND:VEVENT\n");
    EXPECT_THAT(Names(), ElementsAre("VEVENT"));
    EXPECT_THAT(Problems(), ElementsAre(Told(1, L"BEGIN:VCALENDAR has no END")));
    EXPECT_FALSE(problems_[0].isItem);
}

TEST_F(ComponentsTest, AnAlarmWithoutItsEndTakesItsEventWithIt) {
    Read("BEGIN:VEVENT\nBEGIN:VALARM\nEND:VEVENT\nBEGIN:VEVENT\nUID:2\nEND:VEVENT\n");
    EXPECT_THAT(Problems(), ElementsAre(Told(2, L"BEGIN:VALARM has no END")));
    EXPECT_EQ(components_.size(), 2u) << "the event itself is whole";
}

TEST_F(ComponentsTest, ALineThatIsNoneBreaksItsItemAlone) {
    Read("BEGIN:VCARD\nFN:A\nwhat is this\nmore of it\nEND:VCARD\nBEGIN:VCARD\nFN:B\nEND:VCARD\n");
    EXPECT_EQ(components_.size(), 1u);
    EXPECT_THAT(Problems(), ElementsAre(Told(3, L"this is no line of VCARD"))) << "told once";
    EXPECT_TRUE(problems_[0].isItem);
}

TEST_F(ComponentsTest, LinesBetweenTheItemsAreToldOnceAndBreakNone) {
    Read("hello\nworld\nBEGIN:VCARD\nFN:A\nEND:VCARD\nand more\n");
    EXPECT_EQ(components_.size(), 1u);
    EXPECT_THAT(Problems(), ElementsAre(Told(1, L"this is no line of a vCard or iCalendar file")));
    EXPECT_FALSE(problems_[0].isItem);
}

TEST_F(ComponentsTest, AnEndOfNothingIsTold) {
    Read("END:VCARD\nBEGIN:VCARD\nFN:A\nEND:VCARD\n");
    EXPECT_EQ(components_.size(), 1u);
    EXPECT_THAT(Problems(), ElementsAre(Told(1, L"END:VCARD ends nothing")));
}

TEST_F(ComponentsTest, ACardWithinACardIsItsAgent) {
    Read("BEGIN:VCARD\nFN:A\nAGENT:\nBEGIN:VCARD\nFN:B\nEND:VCARD\nTEL:1\nEND:VCARD\n");
    EXPECT_THAT(Names(), ElementsAre("VCARD"));
    EXPECT_EQ(components_[0].Find("FN")->value, "A");
    EXPECT_NE(components_[0].Find("TEL"), nullptr);
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ComponentsTest, AFileOfSomethingElseHasNone) {
    Read(std::string("\x89PNG\r\n\x1A\n\0\0\0", 11) + std::string(5000, '\xFF'));
    EXPECT_THAT(components_, IsEmpty());
}

}  // namespace
