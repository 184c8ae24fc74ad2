#include "platform/objectstore/open_database.h"

namespace store {

HANDLE HandleTable::Add(std::unique_ptr<OpenDatabase> database) {
    const HANDLE handle = NewHandle();
    databases_[handle] = std::move(database);
    return handle;
}

HANDLE HandleTable::Add(std::unique_ptr<Enumeration> enumeration) {
    const HANDLE handle = NewHandle();
    enumerations_[handle] = std::move(enumeration);
    return handle;
}

OpenDatabase* HandleTable::FindDatabase(HANDLE handle) {
    const auto found = databases_.find(handle);
    return found == databases_.end() ? nullptr : found->second.get();
}

Enumeration* HandleTable::FindEnumeration(HANDLE handle) {
    const auto found = enumerations_.find(handle);
    return found == enumerations_.end() ? nullptr : found->second.get();
}

void HandleTable::Remove(HANDLE handle) {
    databases_.erase(handle);
    enumerations_.erase(handle);
}

// The system's pseudo handles (-1, -2...) have other bits set, high up.
bool HandleTable::IsOurs(HANDLE handle) {
    const auto value = reinterpret_cast<ULONG_PTR>(handle);
    return (value & 3) == 3 && value <= MAXLONG;
}

}  // namespace store
