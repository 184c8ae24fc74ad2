// Streams and pictures with damage of every kind, the same in each run: they load, are drawn, and the control works on.
// RICHINK_ROUNDS in the environment asks for more rounds, for a long run by hand.
#include <cstring>
#include <random>
#include <utility>

#include "tests/richink/rich_ink_fixture.h"

namespace {

constexpr int kRounds = 150;

int Rounds() {
    wchar_t text[16]{};
    const DWORD length = GetEnvironmentVariableW(L"RICHINK_ROUNDS", text, ARRAYSIZE(text));
    return length > 0 && length < ARRAYSIZE(text) ? _wtoi(text) : kRounds;
}

std::string Hex(const std::string& bytes) {
    std::string hex;
    for (const char byte : bytes)
        for (const int digit : {byte >> 4 & 15, byte & 15})
            hex += "0123456789abcdef"[digit];
    return hex;
}

std::string Picture(const std::string& metafile) {
    return "{\\pict\\emfblip\\picwgoal900\\pichgoal900 " + Hex(metafile) + "}";
}

std::string Note(const std::string& text) {
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Tahoma;}{\\f1 Times;}}{\\colortbl ;\\red255\\green0"
           "\\blue0;}\\uc1\\pard\\f0\\fs18 " +
           text + "}";
}

// A metafile with every kind of record that is played.
std::string Drawing() {
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    const HPEN pen = CreatePen(PS_SOLID, 3, RGB(200, 0, 0));
    const HBRUSH brush = CreateSolidBrush(RGB(0, 200, 0));
    SelectObject(dc, pen);
    SelectObject(dc, brush);
    SaveDC(dc);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 100, 100, nullptr);
    SetViewportExtEx(dc, 90, 90, nullptr);
    MoveToEx(dc, 5, 5, nullptr);
    LineTo(dc, 40, 30);
    const POINT points[] = {{0, 0}, {10, 30}, {20, 5}, {30, 30}, {3, 4}, {50, 60}, {7, 7}};
    Polyline(dc, points, 7);
    Polygon(dc, points, 4);
    PolyBezier(dc, points, 7);
    const INT parts[] = {3, 4};
    PolyPolygon(dc, points, parts, 2);
    Ellipse(dc, 10, 10, 60, 50);
    Rectangle(dc, 20, 20, 30, 90);
    RoundRect(dc, 1, 2, 30, 40, 5, 5);
    Arc(dc, 10, 10, 60, 50, 10, 20, 60, 30);
    IntersectClipRect(dc, 0, 0, 80, 80);
    RestoreDC(dc, -1);
    SelectObject(dc, GetStockObject(BLACK_PEN));
    SelectObject(dc, GetStockObject(WHITE_BRUSH));
    DeleteObject(pen);
    DeleteObject(brush);
    const HENHMETAFILE picture = CloseEnhMetaFile(dc);
    std::string bytes(GetEnhMetaFileBits(picture, 0, nullptr), '\0');
    GetEnhMetaFileBits(picture, static_cast<UINT>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data()));
    DeleteEnhMetaFile(picture);
    return bytes;
}

class RichInkMutationTest : public RichInkTest {
protected:
    unsigned Random(size_t below) { return static_cast<unsigned>(random_() % below); }

    void Open(const std::string& stream) {
        Load(kRtf, stream);
        RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        const std::string saved = Save(kRtf);
        if (Random(4)) return;
        SelectAll();
        Send(EM_SETZOOMPERCENT, 0, 75 + Random(226));
        Write(L"x");
        Load(kRtf, saved);
        Send(EM_SETZOOMPERCENT, 0, 100);
    }
    void ExpectAlive() {
        LoadText(L"sound");
        Write(L"x");
        EXPECT_EQ(Text(), L"xsound");
    }

    std::mt19937 random_{20261122};
};

}  // namespace

TEST_F(RichInkMutationTest, StreamsOfAnyWordsOpen) {
    constexpr const char* kPieces[] = {"{",
                                       "}",
                                       "{",
                                       "}",
                                       "\\par ",
                                       "\\tab ",
                                       "\\line ",
                                       "\\b ",
                                       "\\b0 ",
                                       "\\i",
                                       "\\ul ",
                                       "\\plain ",
                                       "\\pard ",
                                       "text ",
                                       "w",
                                       "\\tx",
                                       "\\li",
                                       "\\ri",
                                       "\\fi",
                                       "\\fs",
                                       "\\f",
                                       "\\cf",
                                       "\\cb",
                                       "\\u",
                                       "\\uc",
                                       "\\'",
                                       "\\~",
                                       "\\-",
                                       "\\_",
                                       "\\trowd",
                                       "\\cellx",
                                       "\\intbl ",
                                       "\\cell ",
                                       "\\row ",
                                       "\\itap",
                                       "\\nestcell ",
                                       "\\nestrow ",
                                       "{\\pict ",
                                       "{\\pict\\emfblip ",
                                       "{\\pict\\wmetafile8 ",
                                       "{\\pict\\dibitmap0 ",
                                       "{\\object ",
                                       "{\\field{\\*\\fldinst ",
                                       "{\\fldrslt ",
                                       "{\\*\\x ",
                                       "{\\fonttbl ",
                                       "{\\colortbl ",
                                       "{\\stylesheet ",
                                       "{\\pntext ",
                                       "{\\*\\pn\\pnlvlbody ",
                                       "\\sl",
                                       "\\sb",
                                       "\\sa",
                                       "\\up",
                                       "\\dn",
                                       "\\super ",
                                       "\\qc ",
                                       "\\qj ",
                                       "\\bin",
                                       "\\ansicpg",
                                       "\\deff",
                                       "\\sect ",
                                       "\\page ",
                                       "\\ltrpar ",
                                       "\\rtlpar ",
                                       "\\rtlch ",
                                       "\\v ",
                                       "\\protect ",
                                       "\\tb",
                                       "\\tqr",
                                       "\\tldot",
                                       "\\red",
                                       "\\s"};
    constexpr const char* kNumbers[] = {"-1",         "0",           "1",          "2",     "18",    "255",    "1000",
                                        "-1000",      "31680",       "32767",      "32768", "65535", "-32768", "99999",
                                        "2147483647", "-2147483648", "9999999999", "-",     ""};
    for (int round = 0, rounds = Rounds(); round < rounds; ++round) {
        SCOPED_TRACE(round);
        std::string text;
        for (unsigned i = 0, count = 1 + Random(120); i < count; ++i) {
            text += kPieces[Random(ARRAYSIZE(kPieces))];
            if (Random(2)) text += kNumbers[Random(ARRAYSIZE(kNumbers))];
            if (Random(3) == 0) text += ' ';
            if (Random(40) == 0) text += std::string(Random(300), static_cast<char>(random_()));
        }
        Open(Note(text));
    }
    ExpectAlive();
}

TEST_F(RichInkMutationTest, PicturesWithChangedNumbersAreDrawnOrFramed) {
    const std::string sound = Drawing();
    Open(Note("before " + Picture(sound) + " behind"));
    constexpr int32_t kOdd[] = {0, 1, -1, 2, 255, 0x7FFF, 0x8000, 0xFFFF, 0x10000, 0x7FFFFFFF, INT32_MIN, 14, 43, 84};
    for (int round = 0, rounds = Rounds(); round < rounds; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = sound;
        for (unsigned i = 0, count = 1 + Random(4); i < count; ++i) {
            const size_t at = Random(damaged.size() / 4) * 4;
            if (at == 40 || at == 48) continue;  // only the picture as a whole would be refused
            const int32_t number = Random(3) ? kOdd[Random(ARRAYSIZE(kOdd))] : static_cast<int32_t>(random_());
            std::memcpy(damaged.data() + at, &number, 4);
        }
        Open(Note("before " + Picture(damaged) + " behind"));
    }
    ExpectAlive();
}

// Whole records of any type and contents, so that only their fields can be wrong.
TEST_F(RichInkMutationTest, PicturesOfAnyRecordsAreDrawnOrFramed) {
    const std::string frame = Drawing().substr(0, 108);
    for (int round = 0, rounds = Rounds(); round < rounds; ++round) {
        SCOPED_TRACE(round);
        std::string bytes = frame;
        int32_t head = 108;
        std::memcpy(bytes.data() + 4, &head, 4);
        for (unsigned i = 0, count = 1 + Random(8); i < count; ++i) {
            const int32_t type = static_cast<int32_t>(2 + Random(121));
            const int32_t size = static_cast<int32_t>(8 + 4 * Random(40));
            if (type == EMR_EOF) continue;
            std::string record(static_cast<size_t>(size), '\0');
            for (size_t at = 8; at < record.size(); at += 4) {
                const int32_t number =
                    Random(3) ? static_cast<int32_t>(Random(60)) - 5 : static_cast<int32_t>(random_());
                std::memcpy(record.data() + at, &number, 4);
            }
            std::memcpy(record.data(), &type, 4);
            std::memcpy(record.data() + 4, &size, 4);
            bytes += record;
        }
        const int32_t end[] = {EMR_EOF, 20, 0, 0, 20};
        bytes.append(reinterpret_cast<const char*>(end), sizeof(end));
        const auto size = static_cast<int32_t>(bytes.size());
        std::memcpy(bytes.data() + 48, &size, 4);
        Open(Note("before " + Picture(bytes) + " behind"));
    }
    ExpectAlive();
}
