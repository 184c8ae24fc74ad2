// The pictures on a menu bar's buttons: a strip of square images, scaled to this screen and drawn with soft edges.
#pragma once

#include <win.h>

class ButtonPictures {
public:
    ButtonPictures() = default;
    ~ButtonPictures();
    ButtonPictures(const ButtonPictures&) = delete;
    ButtonPictures& operator=(const ButtonPictures&) = delete;

    // Loads a BITMAP resource whose height is the images' side. A bitmap of 32 bits with alpha keeps it; in any other
    // the colour of the first pixel is transparent. False when there is no such bitmap.
    bool Load(HINSTANCE module, UINT id, int side);

    int Count() const { return count_; }
    int Side() const { return side_; }  // device pixels

    // Draws image `index`; nothing when the strip has no such image. `faint` for a button that is not enabled.
    void Draw(HDC dc, int index, POINT at, bool faint) const;

private:
    HBITMAP strip_ = nullptr;  // 32 bits, premultiplied alpha
    int count_ = 0;
    int side_ = 0;
};
