#include "data/category_blob.h"

#include <cstring>

std::vector<CEOID> ReadCategoryBlob(const CEBLOB& blob) {
    std::vector<CEOID> ids;
    if (!blob.lpb) return ids;
    for (DWORD at = 0; blob.dwCount - at >= sizeof(CEOID); at += sizeof(CEOID)) {
        CEOID id;
        std::memcpy(&id, blob.lpb + at, sizeof(id));  // the bytes need not be aligned
        if (id) ids.push_back(id);
    }
    return ids;
}

std::vector<BYTE> MakeCategoryBlob(std::span<const CEOID> ids) {
    std::vector<BYTE> bytes(ids.size_bytes());
    if (!ids.empty()) std::memcpy(bytes.data(), ids.data(), ids.size_bytes());
    return bytes;
}
