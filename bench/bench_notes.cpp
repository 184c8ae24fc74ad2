// What the plain text of the entries' bodies costs, as finding and exporting read it.
#include <win.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bare_list.h"
#include "bench/bench.h"
#include "data/field_ids.h"
#include "ui/note_reader.h"

namespace {

constexpr unsigned kForeign = 100;
constexpr int kId = 1;
constexpr DWORD kHiddenStyle = WS_VSCROLL | ES_DISABLENOSCROLL | ES_MULTILINE | ES_AUTOVSCROLL;

// Every character is looked at, as the bound looks at every byte.
class Texts {
public:
    void Take(std::wstring_view text) {
        unsigned sum = 0;
        for (const wchar_t c : text)
            sum += c;
        seen_ = seen_ + sum;
        characters_ += text.size();
    }
    size_t Characters() const { return characters_; }

private:
    volatile unsigned seen_ = 0;
    size_t characters_ = 0;
};

using Visit = std::function<void(const CEBLOB& body)>;

BOOL CALLBACK VisitBody(CEOID, WORD, const CEPROPVAL* values, void* context) {
    (*static_cast<const Visit*>(context))(values[0].val.blob);
    return TRUE;
}

}  // namespace

void Bench::NoteTexts() {
    InitRichInkDLL();
    const HWND parent = MakeFrame();
    NoteReader reader(parent, kId);
    RichInk control;
    Require(control.CreateIn(parent, kId, kHiddenStyle, {0, 0, 640, 480}), "making the control");
    std::wstring text;
    const size_t characters = entries_ * MakeSampleEntry(0).bodyText.size();

    const auto forAll = [&](const Visit& visit) {
        const CEPROPID body = kPropBody;
        Visit copy = visit;
        Require(journal_.Scan(1, &body, VisitBody, &copy), "scanning the bodies");
    };
    const auto read = [&] {
        Texts texts;
        forAll([&](const CEBLOB& body) {
            Require(reader.Read(body.lpb, body.dwCount, text), "reading a text");
            texts.Take(text);
        });
        Require(texts.Characters() == characters, "reading all texts");
    };
    const auto readByControl = [&] {
        Texts texts;
        std::vector<BYTE> bytes;
        forAll([&](const CEBLOB& body) {
            bytes.assign(body.lpb, body.lpb + body.dwCount);
            Require(control.StreamIn(SF_RTF, bytes), "loading a note");
            texts.Take(control.StreamOutText());
        });
        Require(texts.Characters() == characters, "reading all texts by a control");
    };
    const auto readForeign = [&] {
        for (unsigned number = 0; number < kForeign; ++number) {
            const std::wstring words = MakeSampleEntry(number).bodyText;
            const std::string stream =
                "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 " + std::string(words.begin(), words.end()) + "}";
            Require(reader.Read(reinterpret_cast<const BYTE*>(stream.data()), stream.size(), text), "reading a note");
        }
    };
    const auto bound = [&] { bare_.ReadBodies(entries_); };
    Add("note texts", MeasurePair(kFewRuns, read, bound), "scan of their bytes");
    Add("note texts, control", MeasurePair(kFewRuns, readByControl, bound), "scan of their bytes");
    Add("100 foreign notes", MeasurePair(3, readForeign, [&] { bare_.ReadBodies(kForeign); }), "scan of 100 bodies");
    ::DestroyWindow(parent);
}
