// Files brought to the journal for Pocket Outlook: the question, and what is told afterwards.
#include "outlook/file_import.h"

#include <filesystem>
#include <fstream>

#include "outlook/outlook_contacts.h"
#include "tests/pickers/picker_stage.h"
#include "tests/support/temp_folder.h"

using testing::ElementsAre;

namespace {

constexpr wchar_t kQuestion[] = L"Import the people, appointments and tasks in these files?\n";

class FileImportTest : public PickerStage {
protected:
    std::wstring MakeFile(const std::wstring& name, const std::string& bytes) const {
        std::ofstream(std::filesystem::path(files_.File(name)), std::ios::binary) << bytes;
        return files_.File(name);
    }
    static std::string Card(const std::string& name) {
        return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name + "\r\nFN:" + name + "\r\nEND:VCARD\r\n";
    }
    std::vector<std::wstring> People() {
        std::vector<std::wstring> people;
        contacts_.Open(nullptr);
        for (int i = 0; i < contacts_.GetCount(); ++i)
            people.push_back(contacts_.Get(i).fileAs);
        contacts_.Close();
        return people;
    }

    TempFolder files_;
    OutlookContacts contacts_;
};

TEST_F(FileImportTest, FilesAreImportedAfterAQuestionAndWhatCameOfEachIsTold) {
    const std::wstring people = MakeFile(L"people.VCF", Card("Ben") + Card("Ann") + "BEGIN:VCARD\r\nEND:VCARD\r\n");
    const std::wstring calendar = MakeFile(
        L"calendar.ics",
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VTODO\r\nUID:1\r\nSUMMARY:Soup\r\nEND:VTODO\r\nEND:VCALENDAR\r\n");
    boxes_.Expect(L"Import", kQuestion + std::wstring(L"\npeople.VCF\ncalendar.ics"), IDYES);
    boxes_.Expect(L"Import",
                  L"people.VCF: 2 added, 0 changed, 0 unchanged, 1 left out.\nLine 11: the person has no name\n"
                  L"calendar.ics: 1 added, 0 changed, 0 unchanged, 0 left out.");
    ImportFiles(stage_.Owner(), {people, MakeFile(L"letter.txt", "Dear"), calendar});
    EXPECT_THAT(People(), ElementsAre(L"Ann", L"Ben"));
}

TEST_F(FileImportTest, NoLeavesEverythingAsItIs) {
    boxes_.Expect(L"Import", kQuestion + std::wstring(L"\npeople.vcf"), IDNO);
    ImportFiles(stage_.Owner(), {MakeFile(L"people.vcf", Card("Ann"))});
    EXPECT_THAT(People(), testing::IsEmpty());
}

TEST_F(FileImportTest, WhatCannotBeImportedIsSaid) {
    boxes_.Expect(L"Import", L"Only vCard (.vcf) and iCalendar (.ics) files can be imported.");
    ImportFiles(stage_.Owner(), {MakeFile(L"letter.txt", "Dear")});
    boxes_.Expect(L"Import", kQuestion + std::wstring(L"\nempty.vcf\nmissing.ics"), IDYES);
    boxes_.Expect(L"Import",
                  L"empty.vcf: there are no people, appointments or tasks in it.\nmissing.ics cannot be read.");
    ImportFiles(stage_.Owner(), {MakeFile(L"empty.vcf", ""), files_.File(L"missing.ics")});
    ImportFiles(stage_.Owner(), {});
}

TEST_F(FileImportTest, ABrokenFileLeavesThoseBehindItAlone) {
    boxes_.Expect(L"Import", kQuestion + std::wstring(L"\nbroken.vcf\nnoise.ics\npeople.vcf"), IDYES);
    boxes_.Expect(L"Import",
                  L"broken.vcf: 0 added, 0 changed, 0 unchanged, 1 left out.\nLine 1: BEGIN:VCARD has no END\n"
                  L"noise.ics: 0 added, 0 changed, 0 unchanged, 0 left out.\n"
                  L"Line 1: this is no line of a vCard or iCalendar file\n"
                  L"people.vcf: 1 added, 0 changed, 0 unchanged, 0 left out.");
    ImportFiles(stage_.Owner(),
                {MakeFile(L"broken.vcf", "BEGIN:VCARD\r\nFN:Al"),
                 MakeFile(L"noise.ics", std::string("\0\xFF\xFE:;=\r", 7)), MakeFile(L"people.vcf", Card("Ann"))});
    EXPECT_THAT(People(), ElementsAre(L"Ann"));
}

TEST_F(FileImportTest, OfManyFilesTheFirstAreNamedAndAllAreCounted) {
    std::vector<std::wstring> files;
    std::wstring named;
    std::wstring told;
    for (int i = 0; i < 7; ++i) {
        const std::wstring name = std::to_wstring(i) + L".vcf";
        files.push_back(MakeFile(name, Card("Ann" + std::to_string(i))));
        if (i >= 5) continue;
        named += L"\n" + name;
        told += name + L": 1 added, 0 changed, 0 unchanged, 0 left out.\n";
    }
    boxes_.Expect(L"Import", kQuestion + named + L"\n...", IDYES);
    boxes_.Expect(L"Import", told + L"...\n7 files: 7 added, 0 changed, 0 unchanged, 0 left out.");
    ImportFiles(stage_.Owner(), files);
    EXPECT_EQ(People().size(), 7u);
}

}  // namespace
