// The block that a record's properties are read into, freed when the object goes.
#pragma once

#include <win.h>

#include <windbase.h>

class RecordBuffer {
public:
    RecordBuffer() = default;
    ~RecordBuffer() { LocalFree(bytes_); }
    RecordBuffer(const RecordBuffer&) = delete;
    RecordBuffer& operator=(const RecordBuffer&) = delete;

    // Where a read puts its block; one read for each object.
    BYTE** Put() { return &bytes_; }

    // The properties of a read that succeeded, in the order asked for.
    const CEPROPVAL& operator[](size_t index) const { return reinterpret_cast<const CEPROPVAL*>(bytes_)[index]; }
    // Whether the record has that property; the value of one it lacks means nothing.
    bool Has(size_t index) const { return bytes_ && !((*this)[index].wFlags & CEDB_PROPNOTFOUND); }

private:
    BYTE* bytes_ = nullptr;
};
