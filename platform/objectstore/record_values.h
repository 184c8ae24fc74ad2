// A property's value on its way between a CEPROPVAL and a column.
//
// Kept as                    | types
// a number                   | I2, I4, UI2, UI4, BOOL as they are; FILETIME less 2^63, so that it orders without sign;
//                            | R8 as its bits, turned so that they order as the number does
// bytes                      | LPWSTR as UTF-16 without the NUL, BLOB
// the number of a row in the | LPWSTR and BLOB of more than kLargestInside bytes that no sort order needs
// table large                |
// NULL                       | the record lacks the property
#pragma once

#include <windbase.h>

#include <cstdint>
#include <string>

#include "platform/objectstore/sql.h"

namespace store {

constexpr int kLargestInside = 1024;  // bytes

struct StoredValue {
    enum Kind { kNone, kNumber, kBytes };
    Kind kind = kNone;
    int64_t number = 0;
    Bytes bytes;  // of whoever made the value
};

bool IsKnownType(WORD type);
bool HasBytes(CEPROPID property);  // a string or a blob

// Whether a value handed in for writing can be one: known type, no null pointer, not too large.
bool IsWritable(const CEPROPVAL& value);

// The value to keep; the bytes are the CEPROPVAL's own.
StoredValue Encode(const CEPROPVAL& value);

// Puts a number that was kept back into a CEPROPVAL of that property.
void DecodeNumber(int64_t number, CEPROPVAL& value);

// The value in a column of the current row, which must not be kept outside.
StoredValue FromColumn(const Statement& row, int column);

// The column that keeps a property: "p" and its id in eight hexadecimal digits.
std::string ColumnName(CEPROPID property);

}  // namespace store
