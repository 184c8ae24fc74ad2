// Entries in a file of their own, outside the store: for those that the store had no room for.
#pragma once

#include <deque>
#include <string>

#include "data/dbj_item.h"
#include "data/ts_list.h"

// The file, all numbers little-endian:
//
//     "QJENTRY1"                        8 bytes
//     for each entry: u32 size, u64 hash (FNV-1a) of the bytes that follow, then `size` bytes:
//         for each field: u32 property id, u32 size, `size` bytes of the value
//
// A value is stored as its type is (CEVT_I2, FILETIME), a text as UTF-16 without NUL, a blob as its bytes. A field that
// is not there is unset; property ids that nobody knows are passed over, so that more can be put in later.

using EntryFields = TSList<DbJItem>;

// Writes the entries in place of the file, flushed and in one step: the file is the old one or the new one, whole.
// False when that fails; then it is the old one. No entries: the file is deleted.
bool WriteEntryFile(const std::wstring& path, const std::deque<EntryFields>& entries);

// Reads what is sound in the file into `entries`, each with all fields of the journal; a missing file has none. False
// when something in it is not sound: the entries before and after that are read all the same.
bool ReadEntryFile(const std::wstring& path, std::deque<EntryFields>* entries);
