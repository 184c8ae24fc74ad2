// The pictures of one note, by number, and how its text stands for them: a character without width in a font that is
// named after the picture, as large as the line must be high. So the rich edit undoes, moves and copies pictures as it
// does text. Pictures stay in the book while the note is loaded, as undoing may bring any of them back.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/richink/ink_picture.h"

constexpr wchar_t kInkCharacter = 0x200B;

class InkBook {
public:
    int Add(InkPicture picture);
    const InkPicture* Find(int id) const;
    bool IsEmpty() const { return pictures_.empty(); }
    void Clear() { pictures_.clear(); }

    // The font's name, and the picture of a font; 0 for another font.
    static std::wstring Face(int id);
    int IdOfFace(std::wstring_view face) const;
    static bool IsInkFace(std::wstring_view face);
    // The size of the font, in half points, whose line is as high as the picture.
    int HalfPoints(int id) const;

    // Rich text with {\pict} groups as the rich edit is to have it: each picture becomes its character, and joins the
    // book. Embedded objects are left out, and without `foreign` all pictures but ink.
    std::string TakePictures(std::string_view rtf, bool foreign);
    // Back again: each character of a picture becomes its group. `isPicture` tells for each U+200B in the text, in
    // order, whether it was one.
    std::string PutPictures(std::string_view rtf, std::vector<bool>* isPicture) const;
    // The character of a picture as rich text with the font table it needs; `before` and `after` are rich text around
    // it.
    std::string CharacterRtf(int id, std::string_view before, std::string_view after) const;

private:
    std::map<int, InkPicture> pictures_;
    int last_ = 0;
};
