// The bytes that the two formats make of an entry's fields.
#include "export/export_writer.h"

#include "export/ansi_output.h"
#include "export/export_file.h"
#include "export/field_texts.h"
#include "tests/export/export_fixture.h"

namespace {

constexpr char kAllLabels[] =
    "\"Subject\",\"Entry Type\",\"Start\",\"Duration\",\"Priority\",\"Sensitivity\",\"Company\",\"Contacts\","
    "\"Categories\",\"Note\"\r\n";

class ExportWriterTest : public ExportTest {
protected:
    ExportWriterTest() {
        journal_.Initialize(&fields_);
        ChooseAll(fields_);
    }

    // The file of a header and one entry for each sample.
    std::string Written(ExportFormat format, bool labels, const std::vector<Sample>& samples) {
        ExportFile file;
        EXPECT_TRUE(file.Create(File().c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL));
        AnsiOutput output(file);
        // Bodies are their own text here.
        FieldTexts texts([](const CEBLOB& body, std::wstring& text) { text.assign(body.lpb, body.lpb + body.dwCount); },
                         [](CEOID category) { return category == 9 ? L"" : L"category " + std::to_wstring(category); });
        const auto writer = MakeExportWriter(format, labels, output, texts);
        writer->WriteHeader(fields_);
        for (const Sample& sample : samples) {
            Fill(fields_, sample);
            writer->WriteEntry(fields_);
        }
        output.Flush();
        file.Close();
        return Bytes(File());
    }
    std::string Csv(const std::vector<Sample>& samples, bool header = false) {
        return Written(ExportFormat::kCsv, header, samples);
    }
    std::string Text(const std::vector<Sample>& samples, bool labels = false) {
        return Written(ExportFormat::kText, labels, samples);
    }

    static Sample Full() {
        Sample sample = {L"Lunch"};
        sample.duration = DateTime(SYSTEMTIME{1601, 1, 0, 1, 1, 30, 0, 0});
        sample.type = 5;
        sample.priority = 2;
        sample.sensitivity = 3;
        sample.company = L"Talvern";
        sample.contacts = {L"Ada", L"Ben"};
        sample.categories = {2, 3};
        sample.body = "soup\r\nbread";
        return sample;
    }

    TSList<DbJItem> fields_;
};

}  // namespace

// ---- CSV ----

TEST_F(ExportWriterTest, CsvHasALineForEachEntryInTheOrderOfItsFields) {
    EXPECT_EQ(Csv({Full()}, true),
              kAllLabels + ("\"Lunch\",\"Meeting\",\"" + TimeOf(Full().start) +
                            "\",\"1 hour 30 min\",\"High\",\"Confidential\",\"Talvern\",\"Ada; Ben\","
                            "\"category 2, category 3\",\"soup\r\nbread\"\r\n"));
}

TEST_F(ExportWriterTest, CsvOfAnEntryWithoutValuesKeepsItsPlaces) {
    Sample empty;
    empty.start = DateTime();
    empty.type = empty.priority = empty.sensitivity = -1;
    EXPECT_EQ(Csv({empty}), "\"\",\"\",\"" + TimeOf(DateTime()) + "\",\"0 minutes\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
}

TEST_F(ExportWriterTest, CsvDoesNotDoubleQuotesOrRemoveLineBreaks) {
    Choose(fields_, {kPropSubject, kPropBody});
    Sample sample = {L"the \"big\" one, \"\""};
    sample.body = "a \"b\"\r\n\r\nc,\n";
    EXPECT_EQ(Csv({sample}), "\"the \"big\" one, \"\"\",\"a \"b\"\r\n\r\nc,\n\"\r\n");
}

TEST_F(ExportWriterTest, CsvOfOneFieldHasNoComma) {
    Choose(fields_, {kPropCompany});
    Sample sample;
    sample.company = L"Talvern";
    EXPECT_EQ(Csv({sample, sample}, true), "\"Company\"\r\n\"Talvern\"\r\n\"Talvern\"\r\n");
}

TEST_F(ExportWriterTest, CsvWithoutFieldsIsEmpty) {
    Choose(fields_, {});
    EXPECT_EQ(Csv({Full(), Full()}, true), "");
}

TEST_F(ExportWriterTest, CsvHeaderNamesTheChosenFieldsOnly) {
    Choose(fields_, {kPropBody, kPropSubject});
    EXPECT_EQ(Csv({}, true), "\"Subject\",\"Note\"\r\n");
    EXPECT_EQ(Csv({}, false), "");
}

// ---- Text ----

TEST_F(ExportWriterTest, TextHasALineForEachFieldAndNoneBetweenEntries) {
    const std::string entry =
        "Subject: Lunch\r\nEntry Type: Meeting\r\nStart: " + TimeOf(Full().start) +
        "\r\nDuration: 1 hour 30 min\r\nPriority: High\r\nSensitivity: Confidential\r\nCompany: Talvern\r\n"
        "Contacts: Ada; Ben\r\nCategories: category 2, category 3\r\nNote:\r\nsoup\r\nbread\r\n";
    EXPECT_EQ(Text({Full(), Full()}, true), entry + entry);
}

TEST_F(ExportWriterTest, TextWithoutLabelsIsBareValues) {
    EXPECT_EQ(Text({Full()}),
              "Lunch\r\nMeeting\r\n" + TimeOf(Full().start) +
                  "\r\n1 hour 30 min\r\nHigh\r\nConfidential\r\nTalvern\r\nAda; Ben\r\ncategory 2, category 3\r\n"
                  "soup\r\nbread\r\n");
}

TEST_F(ExportWriterTest, TextOfAnEmptyValueIsItsLabelOrAnEmptyLine) {
    Choose(fields_, {kPropSubject, kPropCategories, kPropBody});
    EXPECT_EQ(Text({{}}, true), "Subject: \r\nCategories: \r\nNote:\r\n\r\n");
    EXPECT_EQ(Text({{}}), "\r\n\r\n\r\n");
}

// ---- Values ----

TEST_F(ExportWriterTest, ACategoryThatIsGoneIsLeftOut) {
    Choose(fields_, {kPropCategories});
    Sample sample;
    sample.categories = {9, 4, 9, 5};
    EXPECT_EQ(Csv({sample}), "\"category 4, category 5\"\r\n");
    sample.categories = {9};
    EXPECT_EQ(Csv({sample}), "\"\"\r\n");
}

TEST_F(ExportWriterTest, ACodeOutsideItsTableIsEmpty) {
    Choose(fields_, {kPropEntryType, kPropPriority, kPropSensitivity});
    Sample sample;
    sample.type = 19;
    sample.priority = 3;
    sample.sensitivity = 4;
    EXPECT_EQ(Csv({sample}), "\"\",\"\",\"\"\r\n");
}

TEST_F(ExportWriterTest, EveryEntryHasItsOwnDateAndTime) {
    Choose(fields_, {kPropStart});
    std::vector<Sample> samples(3);
    samples[0].start = DateTime(SYSTEMTIME{2001, 5, 0, 7, 9, 15, 30, 0});
    samples[1].start = DateTime(SYSTEMTIME{2002, 1, 0, 1, 0, 5, 59, 0});
    samples[2].start = samples[0].start;
    EXPECT_EQ(Csv(samples), "\"" + TimeOf(samples[0].start) + "\"\r\n\"" + TimeOf(samples[1].start) + "\"\r\n\"" +
                                TimeOf(samples[0].start) + "\"\r\n");
}

TEST_F(ExportWriterTest, AStartIsWhatItsControlEdits) {
    FieldTexts texts({}, {});
    DbJItem date(kFieldStart, kPropStart, L"Start", kControlDate, 0, kItemValue, L"");
    const DateTime start(SYSTEMTIME{2001, 5, 0, 7, 15, 30, 0, 0});
    date.SetFileTime(start.ToFileTime());
    std::wstring expected;
    start.ShortDate(expected);
    EXPECT_EQ(texts.TextOf(date), expected);
    DbJItem time(kFieldStart, kPropStart, L"Start", kControlTime, 0, kItemValue, L"");
    time.SetFileTime(start.ToFileTime());
    start.Time(expected);
    EXPECT_EQ(texts.TextOf(time), expected);
    DbJItem both(kFieldStart, kPropStart, L"Start", kControlDateTime, 0, kItemValue, L"");
    both.SetFileTime(start.ToFileTime());
    start.DateAndTime(expected);
    EXPECT_EQ(texts.TextOf(both), expected);
    both.SetFileTime({0, 0x80000000});  // names no date
    EXPECT_EQ(texts.TextOf(both), L"");
    DbJItem text(kFieldStart, kPropStart, L"Start", kControlText, 0, kItemValue, L"");
    text.SetFileTime(start.ToFileTime());
    text.SetStrValue(L"on Monday");
    EXPECT_EQ(texts.TextOf(text), L"on Monday");
}

TEST_F(ExportWriterTest, WithoutAReaderBodiesAreEmpty) {
    FieldTexts texts({}, {});
    Fill(fields_, Full());
    EXPECT_EQ(texts.TextOf(*FindFieldByPropID(fields_, kPropBody)), L"");
}
