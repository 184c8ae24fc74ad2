// The column of short dates, in lists of entries.
#pragma once

class ListView;

// In device pixels: wide enough for any short date of the user's locale in the list's font, and never narrower than the
// column is meant to be.
int DateColumnWidth(const ListView& list);
