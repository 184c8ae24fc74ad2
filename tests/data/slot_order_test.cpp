// The order of the virtual operations, which programs call through their slots. Each test calls through an interface
// that states the order once more, and a class that notes down what arrives.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "data/ce_dbase.h"
#include "data/db_cats.h"
#include "data/db_journal.h"
#include "data/dbj_item.h"
#include "data/field_ids.h"

namespace {

using testing::ElementsAre;

std::vector<std::string> called;

template <typename Result>
Result Note(const char* name) {
    called.emplace_back(name);
    return Result();
}

// The object seen through another interface of the same shape.
template <typename Slots>
Slots* Through(void* object) {
    Slots* volatile slots = static_cast<Slots*>(object);
    return slots;
}

struct ItemSlots {
    virtual ~ItemSlots() = default;
    virtual const wchar_t* GetStrValue() = 0;
    virtual void SetStrValue(const wchar_t*) = 0;
    virtual short GetShort() = 0;
    virtual void SetShort(short) = 0;
    virtual unsigned short GetUShort() = 0;
    virtual void SetUShort(unsigned short) = 0;
    virtual long GetLong() = 0;
    virtual void SetLong(long) = 0;
    virtual unsigned long GetULong() = 0;
    virtual void SetULong(unsigned long) = 0;
    virtual FILETIME GetFileTime() = 0;
    virtual void SetFileTime(FILETIME) = 0;
    virtual BOOL GetBool() = 0;
    virtual void SetBool(BOOL) = 0;
    virtual double GetDouble() = 0;
    virtual void SetDouble(double) = 0;
    virtual const CEBLOB* GetBlob() = 0;
    virtual void SetBlob(const CEBLOB*) = 0;
};

struct NotingItem : DItemObject {
    NotingItem() : DItemObject(0) {}
    ~NotingItem() override { Note<void>("destructor"); }
    const wchar_t* GetStrValue() const override { return Note<const wchar_t*>("GetStrValue"); }
    void SetStrValue(const wchar_t*) override { Note<void>("SetStrValue"); }
    short GetShort() const override { return Note<short>("GetShort"); }
    void SetShort(short) override { Note<void>("SetShort"); }
    unsigned short GetUShort() const override { return Note<unsigned short>("GetUShort"); }
    void SetUShort(unsigned short) override { Note<void>("SetUShort"); }
    long GetLong() const override { return Note<long>("GetLong"); }
    void SetLong(long) override { Note<void>("SetLong"); }
    unsigned long GetULong() const override { return Note<unsigned long>("GetULong"); }
    void SetULong(unsigned long) override { Note<void>("SetULong"); }
    FILETIME GetFileTime() const override { return Note<FILETIME>("GetFileTime"); }
    void SetFileTime(FILETIME) override { Note<void>("SetFileTime"); }
    BOOL GetBool() const override { return Note<BOOL>("GetBool"); }
    void SetBool(BOOL) override { Note<void>("SetBool"); }
    double GetDouble() const override { return Note<double>("GetDouble"); }
    void SetDouble(double) override { Note<void>("SetDouble"); }
    const CEBLOB* GetBlob() const override { return Note<const CEBLOB*>("GetBlob"); }
    void SetBlob(const CEBLOB*) override { Note<void>("SetBlob"); }
};

TEST(SlotOrderTest, ItemsValuesStandInTheirFixedOrder) {
    called.clear();
    ItemSlots* slots = Through<ItemSlots>(new NotingItem);
    slots->GetStrValue();
    slots->SetStrValue(nullptr);
    slots->GetShort();
    slots->SetShort(0);
    slots->GetUShort();
    slots->SetUShort(0);
    slots->GetLong();
    slots->SetLong(0);
    slots->GetULong();
    slots->SetULong(0);
    slots->GetFileTime();
    slots->SetFileTime({});
    slots->GetBool();
    slots->SetBool(FALSE);
    slots->GetDouble();
    slots->SetDouble(0);
    slots->GetBlob();
    slots->SetBlob(nullptr);
    delete slots;
    EXPECT_THAT(called,
                ElementsAre("GetStrValue", "SetStrValue", "GetShort", "SetShort", "GetUShort", "SetUShort", "GetLong",
                            "SetLong", "GetULong", "SetULong", "GetFileTime", "SetFileTime", "GetBool", "SetBool",
                            "GetDouble", "SetDouble", "GetBlob", "SetBlob", "destructor"));
}

struct DatabaseSlots {
    virtual ~DatabaseSlots() = default;
    virtual BOOL Create(const wchar_t*, DWORD, WORD, SORTORDERSPEC*) = 0;
    virtual BOOL Open(const wchar_t*, CEPROPID, DWORD, HWND) = 0;
    virtual BOOL Close() = 0;
    virtual BOOL DeleteDatabase(CEOID) = 0;
    virtual BOOL SetSortOrder(const SORTORDERSPEC*, WORD) = 0;
    virtual void GetSortOrders(SORTORDERSPEC*) = 0;
    virtual BOOL Exists(const wchar_t*) = 0;
    virtual CEOID GetOid() = 0;
    virtual CEOID GetRecordParent(CEOID) = 0;
    virtual BOOL GetInfo(CEOIDINFO*) = 0;
    virtual int ReportError(int, const wchar_t*) = 0;
    virtual CEOID SeekToOid(CEOID) = 0;
    virtual CEOID SeekFromBeginning(DWORD) = 0;
    virtual CEOID SeekFirst() = 0;
    virtual CEOID SeekCurrent() = 0;
    virtual CEOID SeekNext() = 0;
    virtual CEOID SeekPrevious() = 0;
    virtual CEOID SeekValueFirstEqual(CEPROPVAL*) = 0;
    virtual CEOID SeekValueNextEqual(CEOID, CEPROPVAL*) = 0;
    virtual CEOID FindFirstDate(CEPROPID*, FILETIME) = 0;
    virtual CEOID FindDate(CEOID, CEPROPID*, FILETIME) = 0;
    virtual CEOID FindFirstString(CEPROPID*, const wchar_t*, BOOL) = 0;
    virtual CEOID FindString(CEOID, CEPROPID*, const wchar_t*, BOOL) = 0;
    virtual BOOL DeleteRecord(CEOID) = 0;
    virtual WORD GetRecordCount() = 0;
    virtual CEOID ReadRecordProps(WORD*, CEPROPID*, BYTE**) = 0;
    virtual CEOID WriteRecordProps(CEOID, WORD, CEPROPVAL*) = 0;
    virtual int SeekToOidIndex(CEOID) = 0;
    virtual HANDLE GetHandle() = 0;
};

struct NotingDatabase : CeDbase {
    ~NotingDatabase() override { Note<void>("destructor"); }
    BOOL Create(const wchar_t*, DWORD, WORD, SORTORDERSPEC*) override { return Note<BOOL>("Create"); }
    BOOL Open(const wchar_t*, CEPROPID, DWORD, HWND) override { return Note<BOOL>("Open"); }
    BOOL Close() override { return Note<BOOL>("Close"); }
    BOOL DeleteDatabase(CEOID) override { return Note<BOOL>("DeleteDatabase"); }
    BOOL SetSortOrder(const SORTORDERSPEC*, WORD) override { return Note<BOOL>("SetSortOrder"); }
    void GetSortOrders(SORTORDERSPEC*) override { Note<void>("GetSortOrders"); }
    BOOL Exists(const wchar_t*) override { return Note<BOOL>("Exists"); }
    CEOID GetOid() override { return Note<CEOID>("GetOid"); }
    CEOID GetRecordParent(CEOID) override { return Note<CEOID>("GetRecordParent"); }
    BOOL GetInfo(CEOIDINFO*) override { return Note<BOOL>("GetInfo"); }
    int ReportError(int, const wchar_t*) override { return Note<int>("ReportError"); }
    CEOID SeekToOid(CEOID) override { return Note<CEOID>("SeekToOid"); }
    CEOID SeekFromBeginning(DWORD) override { return Note<CEOID>("SeekFromBeginning"); }
    CEOID SeekFirst() override { return Note<CEOID>("SeekFirst"); }
    CEOID SeekCurrent() override { return Note<CEOID>("SeekCurrent"); }
    CEOID SeekNext() override { return Note<CEOID>("SeekNext"); }
    CEOID SeekPrevious() override { return Note<CEOID>("SeekPrevious"); }
    CEOID SeekValueFirstEqual(CEPROPVAL*) override { return Note<CEOID>("SeekValueFirstEqual"); }
    CEOID SeekValueNextEqual(CEOID, CEPROPVAL*) override { return Note<CEOID>("SeekValueNextEqual"); }
    CEOID FindFirstDate(CEPROPID*, FILETIME) override { return Note<CEOID>("FindFirstDate"); }
    CEOID FindDate(CEOID, CEPROPID*, FILETIME) override { return Note<CEOID>("FindDate"); }
    CEOID FindFirstString(CEPROPID*, const wchar_t*, BOOL) override { return Note<CEOID>("FindFirstString"); }
    CEOID FindString(CEOID, CEPROPID*, const wchar_t*, BOOL) override { return Note<CEOID>("FindString"); }
    BOOL DeleteRecord(CEOID) override { return Note<BOOL>("DeleteRecord"); }
    WORD GetRecordCount() override { return Note<WORD>("GetRecordCount"); }
    CEOID ReadRecordProps(WORD*, CEPROPID*, BYTE**) override { return Note<CEOID>("ReadRecordProps"); }
    CEOID WriteRecordProps(CEOID, WORD, CEPROPVAL*) override { return Note<CEOID>("WriteRecordProps"); }
    int SeekToOidIndex(CEOID) override { return Note<int>("SeekToOidIndex"); }
    HANDLE GetHandle() override { return Note<HANDLE>("GetHandle"); }
};

TEST(SlotOrderTest, DatabaseOperationsStandInTheirFixedOrder) {
    called.clear();
    DatabaseSlots* slots = Through<DatabaseSlots>(new NotingDatabase);
    slots->Create(nullptr, 0, 0, nullptr);
    slots->Open(nullptr, 0, 0, nullptr);
    slots->Close();
    slots->DeleteDatabase(0);
    slots->SetSortOrder(nullptr, 0);
    slots->GetSortOrders(nullptr);
    slots->Exists(nullptr);
    slots->GetOid();
    slots->GetRecordParent(0);
    slots->GetInfo(nullptr);
    slots->ReportError(0, nullptr);
    slots->SeekToOid(0);
    slots->SeekFromBeginning(0);
    slots->SeekFirst();
    slots->SeekCurrent();
    slots->SeekNext();
    slots->SeekPrevious();
    slots->SeekValueFirstEqual(nullptr);
    slots->SeekValueNextEqual(0, nullptr);
    slots->FindFirstDate(nullptr, {});
    slots->FindDate(0, nullptr, {});
    slots->FindFirstString(nullptr, nullptr, FALSE);
    slots->FindString(0, nullptr, nullptr, FALSE);
    slots->DeleteRecord(0);
    slots->GetRecordCount();
    slots->ReadRecordProps(nullptr, nullptr, nullptr);
    slots->WriteRecordProps(0, 0, nullptr);
    slots->SeekToOidIndex(0);
    slots->GetHandle();
    delete slots;
    EXPECT_THAT(
        called,
        ElementsAre("Create", "Open", "Close", "DeleteDatabase", "SetSortOrder", "GetSortOrders", "Exists", "GetOid",
                    "GetRecordParent", "GetInfo", "ReportError", "SeekToOid", "SeekFromBeginning", "SeekFirst",
                    "SeekCurrent", "SeekNext", "SeekPrevious", "SeekValueFirstEqual", "SeekValueNextEqual",
                    "FindFirstDate", "FindDate", "FindFirstString", "FindString", "DeleteRecord", "GetRecordCount",
                    "ReadRecordProps", "WriteRecordProps", "SeekToOidIndex", "GetHandle", "destructor"));
}

HMODULE ModuleOfTable(const void* object) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       *static_cast<const wchar_t* const*>(object), &module);
    return module;
}

TEST(SlotOrderTest, TablesAreInTheLibrary) {
    const HMODULE library = GetModuleHandleW(L"ORVANE.DLL");
    ASSERT_NE(library, nullptr);
    const DbJItem field(102, kPropSubject, L"", kControlText, 0, kItemValue, L"");
    const DbCItem category(kPropCategoryName);
    const DbAItem contact;
    const CeDbase database;
    const DbJournal journal;
    const DbCats categories;
    EXPECT_EQ(ModuleOfTable(&field), library);
    EXPECT_EQ(ModuleOfTable(&category), library);
    EXPECT_EQ(ModuleOfTable(&contact), library);
    EXPECT_EQ(ModuleOfTable(&database), library);
    EXPECT_EQ(ModuleOfTable(&journal), library);
    EXPECT_EQ(ModuleOfTable(&categories), library);
}

}  // namespace
