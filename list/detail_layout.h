// Where the lines of the detail view's header stand. Arithmetic only: no window, no font.
#pragma once

#include <win.h>

#include <px.h>

#include <array>
#include <functional>
#include <string>

// The lines that are there only when the entry has something to show in them, in their order from top to bottom.
enum DetailOption : size_t { kDetailCompany, kDetailContacts, kDetailCategories, kDetailOptions };

struct DetailLine {
    RECT label = {};
    RECT value = {};
};

// Device pixels, from the header's own upper left corner. A line that is not shown has empty places.
struct DetailLayout {
    RECT date = {};
    RECT priority = {};
    RECT sensitivity = {};
    RECT subject = {};
    RECT type = {};
    RECT duration = {};
    std::array<DetailLine, kDetailOptions> options;
    int subjectRoom = 0;  // the width that the subject's text has to fit into
    int height = 0;       // of the whole header, its border included
};

// Lays out a header `width` device pixels wide. `scale` makes device pixels of logical ones. In a header too narrow for
// its lines they are cut off at its right edge or empty, never of negative width.
DetailLayout LayOutDetail(int width, const std::array<bool, kDetailOptions>& shown, int (*scale)(int) = Px);

// Answers how many of the first `count` characters of a text fit into `width` device pixels.
using FitMeasure = std::function<int(const wchar_t* text, int count, int width)>;

// The subject as it fits into `width`: whole, or cut six characters before the last one that fits, with "..." behind.
// A character that takes two code units is never halved. No more than the first 240 characters are measured.
std::wstring FitSubject(const std::wstring& subject, int width, const FitMeasure& measure);
