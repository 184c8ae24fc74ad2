// Whether a picture inside rich text can be given to the system, which follows the lengths in it without a doubt.
#pragma once

#include <string_view>

// `group` is a whole {\pict ...} group. Metafiles, old and enhanced, must be a header and whole records up to the last;
// bitmaps must hold all the pixels they speak of. Other kinds are decoded with care by those who know them, and pass.
bool IsSoundPicture(std::string_view group);
