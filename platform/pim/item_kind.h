// The three kinds of items: what each is called, where it is kept, what properties it has.
#pragma once

#include <pimdata.h>

#include <span>
#include <string_view>

namespace pim {

struct PropertyName {
    const wchar_t* name;
    CEPROPID id;
};

struct ItemKind {
    OlDefaultFolders folder;
    OlItemType type;
    const wchar_t* database;
    DWORD databaseType;
    CEPROPID order;  // what its database, and a collection at first, is ordered by
    std::span<const PropertyName> properties;

    // The property of that name, without regard to letter case; 0 for none.
    CEPROPID FindProperty(std::wstring_view name) const;
};

extern const ItemKind kContactKind;
extern const ItemKind kAppointmentKind;
extern const ItemKind kTaskKind;

// Null for a folder, a type, or a database of another kind.
const ItemKind* KindOfFolder(int folder);
const ItemKind* KindOfType(int type);
const ItemKind* KindOfDatabase(std::wstring_view name);

// The database of a kind, open as long as the object lives; made when there is none. Throws.
class KindDatabase {
public:
    explicit KindDatabase(const ItemKind& kind);
    ~KindDatabase();
    KindDatabase(const KindDatabase&) = delete;
    KindDatabase& operator=(const KindDatabase&) = delete;

    HANDLE Handle() const { return handle_; }
    CEOID Oid() const { return oid_; }

private:
    CEOID oid_ = 0;
    HANDLE handle_;
};

}  // namespace pim
