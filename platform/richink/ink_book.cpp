#include "platform/richink/ink_book.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/richink/rtf_words.h"

namespace {

constexpr std::wstring_view kFace = L"Rich Ink ";
constexpr std::string_view kNarrowFace = "Rich Ink ";
constexpr int kFirstFont = 5'000;  // above the numbers that writers use
constexpr int kMostHalfPoints = 3'276;

// Line height of the fonts that stand for pictures, in thousandths of their size: no such font exists, so it is that of
// the one the system takes instead.
int LineThousandths() {
    static const int height = [] {
        const HDC dc = CreateCompatibleDC(nullptr);
        const HFONT font = CreateFontW(-1000, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, VARIABLE_PITCH,
                                       InkBook::Face(1).c_str());
        const HGDIOBJ before = SelectObject(dc, font);
        TEXTMETRICW metrics{};
        const bool known = GetTextMetricsW(dc, &metrics) && metrics.tmHeight > 0;
        SelectObject(dc, before);
        DeleteObject(font);
        DeleteDC(dc);
        return known ? static_cast<int>(metrics.tmHeight) : 1'000;
    }();
    return height;
}

std::string FontEntry(int id) {
    return "{\\f" + std::to_string(kFirstFont + id) + "\\fnil " + std::string(kNarrowFace) + std::to_string(id) + ";}";
}

}  // namespace

int InkBook::Add(InkPicture picture) {
    pictures_[++last_] = std::move(picture);
    return last_;
}

const InkPicture* InkBook::Find(int id) const {
    const auto found = pictures_.find(id);
    return found == pictures_.end() ? nullptr : &found->second;
}

std::wstring InkBook::Face(int id) {
    return std::wstring(kFace) + std::to_wstring(id);
}

bool InkBook::IsInkFace(std::wstring_view face) {
    return face.starts_with(kFace);
}

int InkBook::IdOfFace(std::wstring_view face) const {
    if (!IsInkFace(face)) return 0;
    const int id = std::atoi(std::string(face.begin() + kFace.size(), face.end()).c_str());
    return Face(id) == face && pictures_.contains(id) ? id : 0;
}

int InkBook::HalfPoints(int id) const {
    const InkPicture* picture = Find(id);
    const LONG twips = picture ? picture->size.cy : 0;
    return std::clamp(MulDiv(twips, 1'000, LineThousandths() * 10), 2, kMostHalfPoints);
}

std::string InkBook::CharacterRtf(int id, std::string_view before, std::string_view after) const {
    return "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0\\fnil Tahoma;}" + FontEntry(id) + "}\\f0\\fs18" + std::string(before) +
           "{\\f" + std::to_string(kFirstFont + id) + "\\fs" + std::to_string(HalfPoints(id)) + "\\u8203?}" +
           std::string(after) + "}";
}

std::string InkBook::TakePictures(std::string_view rtf, bool foreign) {
    std::string text, fonts;
    text.reserve(rtf.size());
    for (size_t at = 0; at < rtf.size();) {
        if (rtf[at] == '\\') {
            const size_t end = RtfWordAt(rtf, at).end;
            text.append(rtf.substr(at, end - at));
            at = end;
            continue;
        }
        if (OpensRtfGroup(rtf, at, "pict")) {
            const size_t length = RtfGroupLength(rtf, at);
            InkPicture picture = ReadPictureGroup(rtf.substr(at, length));
            at += length;
            if (!foreign && !picture.IsInk()) continue;
            const int id = Add(std::move(picture));
            fonts += FontEntry(id);
            text +=
                "{\\uc1\\f" + std::to_string(kFirstFont + id) + "\\fs" + std::to_string(HalfPoints(id)) + "\\u8203?}";
            continue;
        }
        if (OpensRtfGroup(rtf, at, "object") || OpensRtfGroup(rtf, at, "nonshppict")) {
            at += RtfGroupLength(rtf, at);
            continue;
        }
        text += rtf[at++];
    }
    if (fonts.empty()) return text;
    constexpr std::string_view kTable = "{\\fonttbl";
    if (const size_t table = text.find(kTable); table != std::string::npos) {
        text.insert(table + kTable.size(), fonts);
    } else {
        text.insert(RtfWordAt(text, 1).end, "{\\fonttbl{\\f0\\fnil Tahoma;}" + fonts + "}");
    }
    return text;
}

std::string InkBook::PutPictures(std::string_view rtf, std::vector<bool>* isPicture) const {
    std::map<int, int> fonts;  // number of the font -> picture
    std::vector<int> outer;    // the font of each group around
    std::string whole;
    int font = 0;
    for (size_t at = 0; at < rtf.size();) {
        if (OpensRtfGroup(rtf, at, "fonttbl")) {
            const size_t end = at + RtfGroupLength(rtf, at);
            int number = 0;
            while (at < end) {
                if (rtf[at] == '\\') {
                    const RtfWord word = RtfWordAt(rtf, at);
                    if (word.name == "f") number = word.number;
                    whole.append(rtf.substr(at, word.end - at));
                    at = word.end;
                } else if (rtf.substr(at).starts_with(kNarrowFace)) {
                    const int id = std::atoi(std::string(rtf.substr(at + kNarrowFace.size(), 9)).c_str());
                    fonts[number] = id;
                    whole += "Tahoma";
                    at = std::min(rtf.find(';', at), end);
                } else {
                    whole += rtf[at++];
                }
            }
            continue;
        }
        if (rtf[at] == '\\') {
            const RtfWord word = RtfWordAt(rtf, at);
            if (word.name == "f" && word.hasNumber) font = word.number;
            if (word.name == "plain") font = 0;
            const auto found = fonts.find(font);
            const InkPicture* picture = found == fonts.end() ? nullptr : Find(found->second);
            const bool mayBe = word.name == "u" && word.number == kInkCharacter;
            if (mayBe) isPicture->push_back(picture != nullptr);
            if (mayBe && picture) {
                whole += PictureGroup(*picture);
                at = EndOfRtfFallback(rtf, word.end);
                continue;
            }
            whole.append(rtf.substr(at, word.end - at));
            at = word.end;
            continue;
        }
        if (rtf[at] == '{') outer.push_back(font);
        if (rtf[at] == '}' && !outer.empty()) {
            font = outer.back();
            outer.pop_back();
        }
        whole += rtf[at++];
    }
    return whole;
}
