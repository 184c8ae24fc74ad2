// Made-up entries that look like a person's.
#pragma once

#include "tools/journal_tool/entry_writer.h"

// The entry of that number: the same for the same number, on every machine. Starts lie in the ten years 2015 to 2024.
NewEntry MakeLifelikeEntry(int number);
