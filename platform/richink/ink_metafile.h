// Ink as an enhanced metafile, which other programs show: black curves of one pen.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/richink/ink_picture.h"

std::string WriteInkMetafile(const InkPicture& picture);

// Nothing when the metafile is not one that WriteInkMetafile has written.
std::optional<InkPicture> ReadInkMetafile(std::string_view bytes);
