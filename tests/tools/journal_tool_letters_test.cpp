// No letter is lost on the way into a store, out of it and in again.
#include <win.h>

#include "tests/support/letters.h"
#include "tests/tools/journal_tool_fixture.h"

namespace {

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(
        static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

using JournalToolLettersTest = JournalToolTest;

TEST_F(JournalToolLettersTest, ComeBackFromEveryColumn) {
    std::vector<std::string> wanted;
    for (const std::string& letters : Lines(Utf8(AllLetters(300, L"\n"))))
        wanted.push_back("2004-05-07 14:30\t5\tNote\tNormal\tNormal\ts" + letters + "e\tc" + letters + "y\tn" +
                         letters + "d|o\t\tb" + letters + "d");
    std::string file = "start\tduration\ttype\tpriority\tsensitivity\tsubject\tcompany\tcontacts\tcategories\tbody\n";
    for (const std::string& line : wanted)
        file += line + "\n";
    EXPECT_EQ(Load(file).exitCode, 0);
    const std::vector<std::string> listed = Listed();
    ASSERT_EQ(listed.size(), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i)
        ASSERT_TRUE(listed[i] == wanted[i]) << i << "\n" << listed[i] << "\n" << wanted[i];
}

TEST_F(JournalToolLettersTest, ComeBackFromCategories) {
    std::vector<std::string> names;
    std::string file = "start\tcategories\n";
    for (const std::string& letters : Lines(Utf8(AllLetters(45, L"\n")))) {
        // Numbered: to the order of names letters without a weight are no difference.
        names.push_back(std::to_string(names.size()) + letters + "s");
        file += "2004-05-07 14:30\t" + names.back() + "\n";
    }
    EXPECT_EQ(Load(file).exitCode, 0);
    const std::vector<std::string> listed = Listed();
    ASSERT_EQ(listed.size(), names.size());
    for (size_t i = 0; i < names.size(); ++i)
        ASSERT_NE(listed[i].find("\t" + names[i] + "\t"), std::string::npos) << i << "\n"
                                                                             << listed[i] << "\n"
                                                                             << names[i];
}

}  // namespace
