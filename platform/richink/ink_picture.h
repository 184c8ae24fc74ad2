// One picture inside a note: ink as strokes, or a picture from elsewhere, kept as it came.
#pragma once

#include <win.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// All lengths are twips (1/1440 inch) at 100 percent; the origin is the picture's upper left corner.
struct InkPicture {
    // Bezier curves in a row: a point, then three points for each curve. A dot is one curve on the spot.
    using Stroke = std::vector<POINT>;

    std::vector<Stroke> strokes;
    SIZE size{};
    std::string foreign;  // the whole {\pict ...} group of a picture that is no ink of ours; strokes is empty then

    bool IsInk() const { return foreign.empty(); }
};

constexpr LONG kPenTwips = 30;            // two pixels
constexpr LONG kTallestPicture = 30'000;  // what a line of text can be made to hold

// A smooth stroke through the points of the pen, without those that add nothing. Empty for no points.
InkPicture::Stroke SmoothStroke(const std::vector<POINT>& points);

// Adds a stroke. What reaches above or left of the origin moves the whole picture down or right; the size grows with
// it.
void AddStroke(InkPicture& picture, InkPicture::Stroke stroke);

// The {\pict ...} group that carries the picture in rich text: ink as an enhanced metafile, others as they came.
std::string PictureGroup(const InkPicture& picture);

// The picture in a {\pict ...} group that IsSoundPicture has found sound.
InkPicture ReadPictureGroup(std::string_view group);

// The bytes of the picture's metafile; empty when the group holds none.
std::string MetafileOf(const InkPicture& picture);
