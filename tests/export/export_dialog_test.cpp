// The dialog: what it asks and shows, what its choices write.
#include <note_text.h>
#include <richink.h>

#include "tests/export/export_screen.h"
#include "ui/rich_ink.h"

namespace {

using testing::ElementsAre;

constexpr wchar_t kOne[] = L"Exported 1 record";

class ExportDialogTest : public ExportScreen {
protected:
    // Leaves the subject as the only field.
    void OnlySubjects() const {
        for (const wchar_t* label : {L"Entry Type", L"Start", L"Duration", L"Priority", L"Sensitivity", L"Company",
                                     L"Contacts", L"Categories", L"Note"}) {
            TapField(label);
        }
    }
    // Subjects without a header.
    Script Subjects() const {
        return [this] {
            OnlySubjects();
            Click(IDC_EXPORT_LABELS);
        };
    }
};

}  // namespace

// ---- Start ----

TEST_F(ExportDialogTest, WithoutEntriesItSaysSoAndAsksForNoFile) {
    boxes_.Expect(L"Journal Export", L"No records to export!");
    EXPECT_EQ(OpenInVain(), IDCANCEL);
    EXPECT_TRUE(asked_.empty());
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
}

TEST_F(ExportDialogTest, AsksForTheFileBeforeItShowsItself) {
    AddDays(1);
    Open([&] { EXPECT_EQ(asked_.size(), 1u); });
    ASSERT_EQ(asked_.size(), 1u);
    EXPECT_EQ(asked_[0].filters, L"Comma Separated Values|*.CSV|Text Files|*.TXT|");
    EXPECT_EQ(asked_[0].flags & ~DWORD{OFN_NOCHANGEDIR}, static_cast<DWORD>(OFN_OVERWRITEPROMPT));
    EXPECT_EQ(asked_[0].filter, 1u);
    EXPECT_EQ(asked_[0].room, 260u);
    EXPECT_FALSE(asked_[0].extension);
    EXPECT_FALSE(asked_[0].screenVisible);
    wchar_t documents[MAX_PATH] = L"";
    SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, documents);
    EXPECT_EQ(asked_[0].folder, documents);
}

TEST_F(ExportDialogTest, ACancelledFileDialogEndsIt) {
    AddDays(1);
    choice_.reset();
    EXPECT_EQ(OpenInVain(), IDCANCEL);
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(ExportDialogTest, StartsWithAllEntriesAllFieldsAndAHeader) {
    AddDays(1);
    Open([&] {
        wchar_t title[100] = L"";
        GetWindowTextW(Screen(), title, 100);
        EXPECT_STREQ(title, L"Export...");
        EXPECT_EQ(TextOf(IDC_EXPORT_FORMAT), L"Format\nComma Separated Value");
        EXPECT_EQ(TextOf(IDC_EXPORT_LABELS), L"Write column &header to file");
        EXPECT_TRUE(IsChecked(IDC_EXPORT_LABELS));
        EXPECT_TRUE(IsChecked(IDC_EXPORT_ALL));
        EXPECT_FALSE(IsChecked(IDC_EXPORT_SELECTED));
        EXPECT_FALSE(IsChecked(IDC_EXPORT_FILTERED));
        EXPECT_FALSE(IsEnabled(IDC_EXPORT_SELECTED));
        EXPECT_FALSE(IsEnabled(IDC_EXPORT_FILTERED));
        EXPECT_TRUE(IsEnabled(IDC_EXPORT_FIELDS));
        EXPECT_FALSE(IsWindowVisible(Item(IDC_EXPORT_PROGRESS)));
        EXPECT_THAT(FieldRows(), ElementsAre(L"Subject", L"Entry Type", L"Start", L"Duration", L"Priority",
                                             L"Sensitivity", L"Company", L"Contacts", L"Categories", L"Note"));
        EXPECT_EQ(ChosenFields(), FieldRows());
    });
}

TEST_F(ExportDialogTest, TheSecondFileTypeIsSimpleTextWithEveryField) {
    AddDays(1);
    choice_->filter = 2;
    Open([&] {
        EXPECT_EQ(TextOf(IDC_EXPORT_FORMAT), L"Format\nSimple Text");
        EXPECT_EQ(TextOf(IDC_EXPORT_LABELS), L"Write Labels to File");
        EXPECT_FALSE(IsEnabled(IDC_EXPORT_FIELDS));
        EXPECT_EQ(ChosenFields(), FieldRows());
    });
}

TEST_F(ExportDialogTest, OffersTheSelectedAndTheFilteredWhenThereAreAny) {
    selection_.Add(AddDays(1)[0]);
    filter_.active = TRUE;
    Open([&] {
        EXPECT_TRUE(IsEnabled(IDC_EXPORT_SELECTED));
        EXPECT_TRUE(IsEnabled(IDC_EXPORT_FILTERED));
        EXPECT_TRUE(IsChecked(IDC_EXPORT_ALL));
    });
}

TEST_F(ExportDialogTest, CancelWritesNothing) {
    AddDays(1);
    EXPECT_EQ(Open([&] { Command(IDCANCEL); }), IDCANCEL);
    EXPECT_FALSE(std::filesystem::exists(File()));
}

// ---- Export ----

TEST_F(ExportDialogTest, OneEntryIsExportedWholeWithItsHeader) {
    const CEOID garden = Category(L"Garden");
    Sample sample = {L"Two \"herons\""};
    sample.duration.AddMinutes(90);
    sample.type = 14;
    sample.company = L"Talvern";
    sample.contacts = {L"Ada", L"Ben"};
    sample.categories = {garden};
    sample.body = "{\\rtf1\\ansi at the weir\\par and caf\\'e9}";
    Add(sample);
    Export(kOne);
    EXPECT_EQ(Bytes(File()),
              "\"Subject\",\"Entry Type\",\"Start\",\"Duration\",\"Priority\",\"Sensitivity\",\"Company\",\"Contacts\","
              "\"Categories\",\"Note\"\r\n\"Two \"herons\"\",\"Phone call\",\"" +
                  TimeOf(sample.start) +
                  "\",\"1 hour 30 min\",\"Normal\",\"Normal\",\"Talvern\",\"Ada; Ben\",\"Garden\","
                  "\"at the weir\r\nand " +
                  Ansi(L"caf\u00e9") + "\"\r\n");
    EXPECT_EQ(application_.BusyCount(), 0);
}

namespace {

// Stands in for the box: can the file be opened by somebody who shares it with nobody?
struct Box {
    static inline std::wstring file;
    static inline std::wstring told;
    static inline bool closed = false;
    static int WINAPI Show(HWND, LPCWSTR text, LPCWSTR, UINT) {
        told = text;
        const HANDLE alone = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        closed = alone != INVALID_HANDLE_VALUE;
        if (closed) CloseHandle(alone);
        return IDOK;
    }
};

}  // namespace

// Whoever reads the box may go to the file at once.
TEST_F(ExportDialogTest, TheFileIsClosedWhenTheCountIsTold) {
    AddDays(1);
    Box::file = File();
    const ReplacedImport box(nullptr, "MessageBoxW", Box::Show);
    EXPECT_EQ(Open([&] { Command(IDOK); }), IDOK);
    EXPECT_EQ(Box::told, kOne);
    EXPECT_TRUE(Box::closed);
}

TEST_F(ExportDialogTest, SeveralEntriesAreRecords) {
    AddDays(3);
    Export(L"Exported 3 records", Subjects());
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n\"entry 1\"\r\n\"entry 2\"\r\n");
}

TEST_F(ExportDialogTest, TheSelectedComeInTheOrderOfTheirSelection) {
    const std::vector<CEOID> ids = AddDays(4);
    selection_.Add(ids[2]);
    selection_.Add(ids[0]);
    Export(L"Exported 2 records", [&] {
        Subjects()();
        Click(IDC_EXPORT_SELECTED);
    });
    EXPECT_EQ(Bytes(File()), "\"entry 2\"\r\n\"entry 0\"\r\n");
}

TEST_F(ExportDialogTest, TheFilteredAreThoseThatPass) {
    AddDays(4);
    filter_.active = TRUE;
    filter_.byRange = TRUE;
    filter_.rangeStart = filter_.rangeEnd = DateTime(SYSTEMTIME{2001, 5, 0, 9, 0, 0, 0, 0});
    filter_.passed = 1;
    Export(kOne, [&] {
        Subjects()();
        Click(IDC_EXPORT_FILTERED);
    });
    EXPECT_EQ(Bytes(File()), "\"entry 2\"\r\n");
}

TEST_F(ExportDialogTest, AFilterThatNothingPassesExportsNoRecords) {
    AddDays(2);
    filter_.active = TRUE;  // no month is chosen
    WriteBytes(File(), "there before");
    Export(L"Exported 0 records", [&] {
        Subjects()();
        Click(IDC_EXPORT_FILTERED);
    });
    EXPECT_EQ(Bytes(File()), "");
}

TEST_F(ExportDialogTest, AFieldTappedTwiceIsExported) {
    AddDays(1);
    Export(kOne, [&] {
        Subjects()();
        TapField(L"Sensitivity");
        TapField(L"Subject");
        TapField(L"Subject");
    });
    EXPECT_EQ(Bytes(File()), "\"entry 0\",\"Normal\"\r\n");
}

TEST_F(ExportDialogTest, WithoutFieldsTheFileIsEmptyAndEveryEntryCounts) {
    AddDays(2);
    Export(L"Exported 2 records", [&] {
        OnlySubjects();
        TapField(L"Subject");
    });
    EXPECT_TRUE(std::filesystem::exists(File()));
    EXPECT_EQ(Bytes(File()), "");
}

TEST_F(ExportDialogTest, SimpleTextWithoutLabelsIsBareValues) {
    choice_->filter = 2;
    Sample sample = {L"Lunch"};
    sample.body = "{\\rtf1\\ansi soup}";
    Add(sample);
    Export(kOne, [&] { Click(IDC_EXPORT_LABELS); });
    EXPECT_EQ(Bytes(File()),
              "Lunch\r\nNote\r\n" + TimeOf(sample.start) + "\r\n0 minutes\r\nNormal\r\nNormal\r\n\r\n\r\n\r\nsoup\r\n");
}

TEST_F(ExportDialogTest, SimpleTextNamesItsFields) {
    choice_->filter = 2;
    Sample sample = {L"Lunch"};
    sample.body = "{\\rtf1\\ansi soup}";
    Add(sample);
    Export(kOne);
    EXPECT_EQ(Bytes(File()), "Subject: Lunch\r\nEntry Type: Note\r\nStart: " + TimeOf(sample.start) +
                                 "\r\nDuration: 0 minutes\r\nPriority: Normal\r\nSensitivity: Normal\r\nCompany: \r\n"
                                 "Contacts: \r\nCategories: \r\nNote:\r\nsoup\r\n");
}

TEST_F(ExportDialogTest, NothingStaysOfALongerFile) {
    AddDays(1);
    WriteBytes(File(), std::string(10'000, 'x'));
    Export(kOne, Subjects());
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n");
}

TEST_F(ExportDialogTest, APathThatCannotBeOpenedEndsWithTheCountAllTheSame) {
    AddDays(2);
    choice_->path = (folder_.Path() / L"missing" / L"journal.csv").wstring();
    Export(L"Exported 2 records");
    EXPECT_FALSE(std::filesystem::exists(choice_->path));
}

TEST_F(ExportDialogTest, AFolderInPlaceOfAFileEndsWithTheCountAllTheSame) {
    AddDays(1);
    choice_->path = folder_.Path().wstring();
    Export(kOne);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(ExportDialogTest, AReadOnlyFileStaysAndTheCountIsTold) {
    const ReadOnlyRespected respected;
    AddDays(1);
    WriteBytes(File(), "kept");
    SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_READONLY);
    Export(kOne);
    EXPECT_EQ(Bytes(File()), "kept");
    SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_NORMAL);
}

// A device that takes nothing, as a disk without room; where there is none, it is one more path that cannot be opened.
TEST_F(ExportDialogTest, AFullDiskEndsWithTheCountAllTheSame) {
    AddDays(2);
    choice_->path = L"Z:\\dev\\full";
    Export(L"Exported 2 records");
}

TEST_F(ExportDialogTest, ManyEntriesWithQuotesLineBreaksAndForeignCharactersAreWrittenByteByByte) {
    std::string expected = "\"Subject\",\"Note\"\r\n";
    for (int i = 0; i < 300; ++i) {
        Sample sample = {L"\"" + std::to_wstring(i) + L"\", \u0416 \u4e2d caf\u00e9\u2026"};
        sample.start.AddDays(i);
        sample.body = "{\\rtf1\\ansi \"a\",\\par\\par \\u1046?b \\u20013?\\'e9\\par end " + std::to_string(i) + "}";
        Add(sample);
        expected += "\"" + Ansi(sample.subject) + "\",\"" +
                    Ansi(L"\"a\",\r\n\r\n\u0416b \u4e2d\u00e9\r\nend " + std::to_wstring(i)) + "\"\r\n";
    }
    Export(L"Exported 300 records", [&] {
        OnlySubjects();
        TapField(L"Note");
    });
    EXPECT_EQ(Bytes(File()), expected);
}

TEST_F(ExportDialogTest, AnEntryDeletedWhileTheDialogStoodIsNotCounted) {
    const std::vector<CEOID> ids = AddDays(3);
    selection_.Add(ids[0]);
    selection_.Add(ids[1]);
    Export(kOne, [&] {
        Subjects()();
        Click(IDC_EXPORT_SELECTED);
        DbJournal other;
        ASSERT_TRUE(other.Open(nullptr));
        EXPECT_TRUE(other.DeleteRecord(ids[0]));
        other.Close();
    });
    EXPECT_EQ(Bytes(File()), "\"entry 1\"\r\n");
}

TEST_F(ExportDialogTest, ABodyThatIsNoRichTextIsEmpty) {
    Sample sample = {L"odd"};
    sample.body = "no rich text";
    Add(sample);
    Export(kOne, [&] {
        Subjects()();
        TapField(L"Note");
    });
    EXPECT_EQ(Bytes(File()), "\"odd\",\"\"\r\n");
}

// As the note control reads it back; a soft line break is a character of its own to some systems.
TEST_F(ExportDialogTest, ASoftLineBreakIsWhatTheNoteControlMakesOfIt) {
    RichInk control;
    ASSERT_TRUE(control.CreateIn(stage_.Owner().GetHandle(), 1, ES_MULTILINE, {0, 0, 100, 100}));
    const std::string rich = "{\\rtf1\\ansi one\\line two\\par three}";
    ASSERT_TRUE(control.StreamIn(SF_RTF, {rich.begin(), rich.end()}));
    const std::wstring shown = control.StreamOutText();
    control.Destroy();
    Sample sample = {L"soft"};
    sample.body = rich;
    Add(sample);
    Export(kOne, [&] {
        Subjects()();
        TapField(L"Note");
    });
    EXPECT_EQ(Bytes(File()), "\"soft\",\"" + Ansi(shown) + "\"\r\n");
}

// A note that carries its plain text is not laid out; what comes is the same.
TEST_F(ExportDialogTest, ABodyThatCarriesItsTextReadsAsTheNoteControlReadsIt) {
    RichInk control;
    ASSERT_TRUE(control.CreateIn(stage_.Owner().GetHandle(), 1, ES_MULTILINE, {0, 0, 100, 100}));
    const std::string rich =
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}one {\\b two}\\par\\tab\\u1046?\\'e9\\{\\}\\\\\\par}";
    ASSERT_TRUE(control.StreamIn(SF_RTF, {rich.begin(), rich.end()}));
    const std::wstring shown = control.StreamOutText();
    const std::vector<BYTE> stored = control.StreamOut(SF_RTF);
    control.Destroy();
    std::wstring carried;
    ASSERT_TRUE(GetNoteText({reinterpret_cast<const char*>(stored.data()), stored.size()}, &carried));
    Sample sample = {L"carried"};
    sample.body.assign(stored.begin(), stored.end());
    Add(sample);
    Export(kOne, [&] {
        Subjects()();
        TapField(L"Note");
    });
    EXPECT_EQ(Bytes(File()), "\"carried\",\"" + Ansi(shown) + "\"\r\n");
}
