// vCards as programs write them.
#include <gmock/gmock.h>

#include "exchange/item.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PersonTest : public testing::Test {
protected:
    void Read(const std::string& bytes) {
        contents_ = import::ReadFile(bytes, [](import::Seconds utc) { return utc; });
    }
    // One card of these lines.
    void ReadCard(const std::string& lines, const std::string& version = "3.0") {
        Read("BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "END:VCARD\r\n");
    }
    std::wstring Text(CEPROPID property, size_t item = 0) const {
        if (item >= contents_.items.size()) return L"(no item)";
        const auto& properties = contents_.items[item].properties;
        const auto found = properties.find(property);
        return found == properties.end() ? L"" : std::get<std::wstring>(found->second);
    }
    double Date(CEPROPID property) const {
        const auto& properties = contents_.items.at(0).properties;
        const auto found = properties.find(property);
        return found == properties.end() ? 0 : std::get<double>(found->second);
    }
    std::vector<std::pair<int, std::wstring>> Problems() const {
        std::vector<std::pair<int, std::wstring>> problems;
        for (const auto& problem : contents_.problems)
            problems.emplace_back(problem.line, problem.text);
        return problems;
    }

    import::Contents contents_;
};

using Told = std::pair<int, std::wstring>;

TEST_F(PersonTest, ACardOfVersion3IsReadWhole) {
    ReadCard(
        "UID:urn:uuid:1\r\nN:Abel;Anna;Maria;Dr.;MBA\r\nFN:Dr. Anna Abel\r\nORG:Talvern\\, Inc.;Sales\r\n"
        "TITLE:Head of Sales\r\nTEL;TYPE=CELL,VOICE:+49 1\r\nTEL;TYPE=\"WORK,VOICE\":+49 2\r\nTEL;TYPE=HOME:+49 3\r\n"
        "TEL;TYPE=WORK,FAX:+49 4\r\nEMAIL;TYPE=INTERNET:a@example.com\r\nEMAIL;TYPE=INTERNET,PREF:b@example.com\r\n"
        "ADR;TYPE=HOME:;;1 Main St;Town;State;123;Land\r\nADR;TYPE=WORK:Box 7;Room 5;2 High St;City;;456;\r\n"
        "URL:http://example.com\r\nBDAY:1970-05-07\r\nNOTE:one\\ntwo\r\nCATEGORIES:Friends,Chess\r\n");
    EXPECT_THAT(Problems(), IsEmpty());
    ASSERT_THAT(contents_.items, SizeIs(1));
    EXPECT_EQ(contents_.items[0].uid, L"urn:uuid:1");
    EXPECT_EQ(contents_.items[0].folder, olFolderContacts);
    EXPECT_EQ(Text(kContactFileAs), L"Abel, Anna");
    EXPECT_EQ(Text(kContactMiddleName), L"Maria");
    EXPECT_EQ(Text(kContactTitle), L"Dr.");
    EXPECT_EQ(Text(kContactSuffix), L"MBA");
    EXPECT_EQ(Text(kContactCompanyName), L"Talvern, Inc.");
    EXPECT_EQ(Text(kContactDepartment), L"Sales");
    EXPECT_EQ(Text(kContactJobTitle), L"Head of Sales");
    EXPECT_EQ(Text(kContactMobileTelephoneNumber), L"+49 1");
    EXPECT_EQ(Text(kContactBusinessTelephoneNumber), L"+49 2");
    EXPECT_EQ(Text(kContactHomeTelephoneNumber), L"+49 3");
    EXPECT_EQ(Text(kContactBusinessFaxNumber), L"+49 4");
    EXPECT_EQ(Text(kContactEmail1Address), L"b@example.com") << "the preferred one";
    EXPECT_EQ(Text(kContactEmail2Address), L"a@example.com");
    EXPECT_EQ(Text(kContactHomeAddressStreet), L"1 Main St");
    EXPECT_EQ(Text(kContactHomeAddressCountry), L"Land");
    EXPECT_EQ(Text(kContactBusinessAddressStreet), L"Box 7\r\nRoom 5\r\n2 High St");
    EXPECT_EQ(Text(kContactBusinessAddressPostalCode), L"456");
    EXPECT_EQ(Text(kContactWebPage), L"http://example.com");
    EXPECT_EQ(Date(kContactBirthday), 25695);
    EXPECT_EQ(Text(kContactBody), L"one\r\ntwo");
    EXPECT_EQ(Text(kContactCategories), L"Friends, Chess");
}

TEST_F(PersonTest, ACardOfVersion21IsReadWithItsQuotedPrintable) {
    ReadCard(
        "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCller;J=C3=BCrgen;;;\r\n"
        "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=BCrgen M=C3=BCller\r\nTEL;CELL;VOICE:0171 1\r\n"
        "TEL;WORK;FAX:2\r\nORG;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:B=E4ckerei\r\n"
        "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:one=0D=0At=\r\nwo=3D2\r\n"
        "PHOTO;ENCODING=BASE64;JPEG:/9j/4AAQ\r\n SkZJRgAB\r\n\r\nBDAY:19700507\r\nEMAIL;INTERNET:j@example.com\r\n",
        "2.1");
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_EQ(Text(kContactFileAs), L"M\x00FCller, J\x00FCrgen");
    EXPECT_EQ(Text(kContactMobileTelephoneNumber), L"0171 1");
    EXPECT_EQ(Text(kContactBusinessFaxNumber), L"2");
    EXPECT_EQ(Text(kContactCompanyName), L"B\u00E4ckerei");
    EXPECT_EQ(Text(kContactBody), L"one\r\ntwo=2");
    EXPECT_EQ(Text(kContactEmail1Address), L"j@example.com");
    EXPECT_EQ(Date(kContactBirthday), 25695);
}

TEST_F(PersonTest, ACardOfVersion4IsRead) {
    ReadCard(
        "FN:Anna Abel\r\nN:Abel;Anna;;;\r\nTEL;VALUE=uri;TYPE=\"voice,home\":tel:+1-555\r\n"
        "ADR;TYPE=home;LABEL=\"1; Main St: x\":;;1 Main St;Town;;;\r\nBDAY:--0507\r\nANNIVERSARY:20010607T000000\r\n"
        "RELATED;TYPE=spouse;VALUE=text:Ben\r\nKIND:individual\r\nEMAIL;PREF=1:p@example.com\r\n",
        "4.0");
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_EQ(Text(kContactHomeTelephoneNumber), L"+1-555");
    EXPECT_EQ(Text(kContactHomeAddressCity), L"Town");
    EXPECT_EQ(Date(kContactBirthday), 0) << "a day without a year is none";
    EXPECT_EQ(Date(kContactAnniversary), 37049);
    EXPECT_EQ(Text(kContactSpouse), L"Ben");
}

TEST_F(PersonTest, PeopleAreFiledByWhatTheirCardHas) {
    const struct {
        const char* lines;
        const wchar_t* filed;
    } cases[] = {
        {"N:Abel;Anna;;;\r\nFN:Anna Abel\r\n", L"Abel, Anna"},
        {"N:Abel;;;;\r\nFN:Mr. Abel\r\n", L"Abel"},
        {"N:;Anna;;;\r\nFN:Anna the Great\r\n", L"Anna the Great"},
        {"FN:Anna Abel\r\n", L"Anna Abel"},
        {"N:;;;;\r\nFN:\r\nORG:Talvern\r\n", L"Talvern"},
        {"NICKNAME:Anni\r\n", L"Anni"},
        {"EMAIL:a@example.com\r\n", L"a@example.com"},
        {"N:Abel\r\n", L"Abel"},
        {"item1.N:Abel;Anna\r\n", L"Abel, Anna"},
        {"n;language=de: Abel ; Anna \r\n", L"Abel, Anna"},
    };
    for (const auto& c : cases) {
        ReadCard(c.lines);
        EXPECT_EQ(Text(kContactFileAs), c.filed) << c.lines;
    }
}

TEST_F(PersonTest, ACardWithoutANameIsLeftOutWithItsLineAndTheRestIsRead) {
    Read(
        "BEGIN:VCARD\r\nFN:A\r\nEND:VCARD\r\nBEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\nBEGIN:VCARD\r\nFN:B\r\nEND:"
        "VCARD\r\n");
    EXPECT_THAT(contents_.items, SizeIs(2));
    EXPECT_THAT(Problems(), ElementsAre(Told(4, L"the person has no name")));
    EXPECT_EQ(contents_.leftOut, 1);
    EXPECT_TRUE(contents_.problems[0].isItem);
}

TEST_F(PersonTest, ADateThatIsNoneIsToldAndTheRestOfTheCardIsRead) {
    ReadCard("FN:A\r\nBDAY:last week\r\nTEL:1\r\n");
    EXPECT_THAT(Problems(), ElementsAre(Told(4, L"this is no date: last week")));
    EXPECT_FALSE(contents_.problems[0].isItem);
    EXPECT_EQ(contents_.leftOut, 0);
    EXPECT_EQ(Text(kContactHomeTelephoneNumber), L"1");
    EXPECT_EQ(Date(kContactBirthday), 0);
}

TEST_F(PersonTest, GroupsAreNoPeople) {
    ReadCard("FN:Team\r\nKIND:group\r\nMEMBER:urn:uuid:1\r\n", "4.0");
    EXPECT_THAT(contents_.items, IsEmpty());
    EXPECT_THAT(Problems(), ElementsAre(Told(1, L"a group is no person")));
}

TEST_F(PersonTest, MoreNumbersThanThereArePlacesFillThemAll) {
    ReadCard("FN:A\r\nTEL;TYPE=WORK:1\r\nTEL;TYPE=WORK:2\r\nTEL;TYPE=WORK:3\r\nTEL:4\r\nTEL:5\r\nTEL:6\r\nTEL:7\r\n");
    EXPECT_EQ(Text(kContactBusinessTelephoneNumber), L"1");
    EXPECT_EQ(Text(kContactBusiness2TelephoneNumber), L"2");
    EXPECT_EQ(Text(kContactHomeTelephoneNumber), L"4");
    EXPECT_EQ(Text(kContactHome2TelephoneNumber), L"5");
    EXPECT_EQ(Text(kContactRadioTelephoneNumber), L"6");
}

TEST_F(PersonTest, WithoutAUidTheContentIsOne) {
    ReadCard("FN:A\r\nTEL:1\r\n");
    const std::wstring first = contents_.items.at(0).uid;
    EXPECT_TRUE(first.starts_with(L"content:"));
    ReadCard("FN:A\r\nTEL:1\r\nREV:20200101\r\n");
    EXPECT_EQ(contents_.items.at(0).uid, first) << "what is not imported does not count";
    ReadCard("FN:A\r\nTEL:2\r\n");
    EXPECT_NE(contents_.items.at(0).uid, first);
}

TEST_F(PersonTest, TenThousandCardsAreRead) {
    std::string bytes;
    for (int i = 0; i < 10'000; ++i) {
        const std::string number = std::to_string(i);
        bytes += "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + number + "\r\nN:Last" + number + ";First;;;\r\nEND:VCARD\r\n";
    }
    Read(bytes);
    EXPECT_THAT(contents_.items, SizeIs(10'000));
    EXPECT_EQ(Text(kContactFileAs, 9'999), L"Last9999, First");
}

TEST_F(PersonTest, ACardCutAnywhereIsOneOrNone) {
    const std::string whole =
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=BC;=\r\nB\r\nADR;WORK:;;a\r\n"
        "BDAY:19700507\r\nEND:VCARD\r\n";
    for (size_t length = 0; length <= whole.size(); ++length) {
        Read(whole.substr(0, length));
        EXPECT_EQ(contents_.items.size(), length >= whole.size() - 2 ? 1u : 0u) << length;
    }
}

TEST_F(PersonTest, TheSameUidTwiceIsToldUnlessBothSayTheSame) {
    const std::string ann = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ann\r\nEND:VCARD\r\n";
    const std::string ben = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ben\r\nEND:VCARD\r\n";
    const std::string cy = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:2\r\nFN:Cy\r\nEND:VCARD\r\n";
    Read(ann + cy + ben + ben);
    EXPECT_THAT(contents_.items, SizeIs(4));
    EXPECT_THAT(Problems(), ElementsAre(std::pair(11, L"it has the UID of the one in line 1, which it replaces")));
    EXPECT_EQ(contents_.leftOut, 0);
    Read(ann + ann + cy);
    EXPECT_THAT(Problems(), IsEmpty());
}

}  // namespace
