#include "platform/shell/panel_keys.h"

#include <algorithm>

#include "px.h"

namespace {

constexpr int kRows = 5;
constexpr int kUnits = 24;  // the width of a row; a letter is two wide
constexpr int kLeastHeight = 80;
constexpr int kMostHeight = 160;

class RowBuilder {
public:
    RowBuilder(std::vector<PanelKey>& keys, SIZE panel, int row) : keys_(keys), panel_(panel), row_(row) {}

    void Add(PanelKeyKind kind, int units, wchar_t plain = 0, wchar_t shifted = 0) {
        const RECT place{Column(at_), Line(row_), Column(at_ + units), Line(row_ + 1)};
        keys_.push_back({kind, plain, shifted, place});
        at_ += units;
    }

    void Characters(const wchar_t* plain, const wchar_t* shifted) {
        for (; *plain; ++plain, ++shifted)
            Add(PanelKeyKind::kCharacter, 2, *plain, *shifted);
    }

    // Letters, whose shifted form is the capital.
    void Letters(const wchar_t* letters) {
        for (; *letters; ++letters) {
            const auto capital = static_cast<wchar_t>(LOWORD(CharUpperW(MAKEINTRESOURCEW(*letters))));
            Add(PanelKeyKind::kCharacter, 2, *letters, capital);
        }
    }

private:
    LONG Column(int units) const { return MulDiv(panel_.cx, units, kUnits); }
    LONG Line(int row) const { return MulDiv(panel_.cy, row, kRows); }

    std::vector<PanelKey>& keys_;
    SIZE panel_;
    int row_;
    int at_ = 0;
};

}  // namespace

std::vector<PanelKey> PlacePanelKeys(SIZE panel, PanelPage page) {
    using Kind = PanelKeyKind;
    const bool plain = page == PanelPage::kPlain;
    std::vector<PanelKey> keys;

    RowBuilder digits(keys, panel, 0);
    if (plain) {
        digits.Characters(L"1234567890", L"!\"#$%&*()=");
    } else {
        digits.Characters(L"[]{}~^\u00B0\u00A7\u00A3\u00A1", L"\u00AB\u00BB<>\u00B7\u00B4\u00B2\u00B3\u00A5\u00BF");
    }
    digits.Add(Kind::kBackspace, 4);

    RowBuilder upper(keys, panel, 1);
    upper.Letters(plain ? L"qwertyuiop" : L"\u00E0\u00E1\u00E2\u00E4\u00E3\u00E5\u00E6\u00E7\u00E8\u00E9");
    upper.Characters(L"'-", L"+_");

    RowBuilder middle(keys, panel, 2);
    middle.Add(Kind::kTab, 2);
    middle.Letters(plain ? L"asdfghjkl" : L"\u00EA\u00EB\u00ED\u00EE\u00EF\u00F1\u00F3\u00F4\u00F5");
    middle.Add(Kind::kEnter, 4);

    RowBuilder lower(keys, panel, 3);
    lower.Add(Kind::kShift, 4);
    lower.Letters(plain ? L"zxcvbnm" : L"\u00F6\u00F8\u0153\u00F9\u00FA\u00FC\u00DF");
    lower.Characters(L",.?", L"<>\\");

    RowBuilder bottom(keys, panel, 4);
    bottom.Add(Kind::kPage, 4);
    bottom.Characters(L"/@", L"|\u20AC");
    bottom.Add(Kind::kCharacter, 8, L' ', L' ');
    bottom.Characters(L":", L";");
    bottom.Add(Kind::kLeft, 3);
    bottom.Add(Kind::kRight, 3);
    return keys;
}

int PanelKeyAt(const std::vector<PanelKey>& keys, POINT point) {
    const auto found = std::find_if(keys.begin(), keys.end(),
                                    [&](const PanelKey& key) { return PtInRect(&key.place, point) != FALSE; });
    return found == keys.end() ? -1 : static_cast<int>(found - keys.begin());
}

int InputPanelHeight(int width, int height) {
    return std::max(0, std::min(std::clamp(width / 3, Px(kLeastHeight), Px(kMostHeight)), height / 2));
}
