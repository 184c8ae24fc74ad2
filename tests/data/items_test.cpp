#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "data/dba_item.h"
#include "data/dbc_item.h"
#include "data/dbj_item.h"
#include "data/dbopt_item.h"
#include "data/field_ids.h"

namespace {

DbJItem Field(CEPROPID propid) {
    return DbJItem(HIWORD(propid), propid, L"Label", kControlText, 0, kItemValue, L"");
}

std::string Bytes(const DItemObject& item) {
    const CEBLOB* blob = item.GetBlob();
    return blob->dwCount ? std::string(reinterpret_cast<const char*>(blob->lpb), blob->dwCount) : std::string();
}

void SetBytes(DItemObject& item, std::string bytes) {
    const CEBLOB blob{static_cast<DWORD>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data())};
    item.SetBlob(&blob);
}

TEST(FieldIdsTest, PropertyIdsAreThoseOfStoredEntries) {
    EXPECT_EQ(kPropStart, 0x00650040u);
    EXPECT_EQ(kPropSubject, 0x0066001Fu);
    EXPECT_EQ(kPropBody, 0x00670041u);
    EXPECT_EQ(kPropCategories, 0x00680041u);
    EXPECT_EQ(kPropEntryType, 0x00690002u);
    EXPECT_EQ(kPropPriority, 0x006B0002u);
    EXPECT_EQ(kPropSensitivity, 0x006C0002u);
    EXPECT_EQ(kPropDuration, 0x006D0040u);
    EXPECT_EQ(kPropContacts, 0x006E0041u);
    EXPECT_EQ(kPropCompany, 0x006F001Fu);
    EXPECT_EQ(kPropCategoryName, 0x4001001Fu);
    EXPECT_EQ(kPropCategoryVisible, 0x40030002u);
    EXPECT_EQ(kPropCategoryJournalUses, 0x43EF0002u);
}

TEST(DItemObjectTest, HoldsAValueOfEveryTypeAtOnce) {
    DbJItem item = Field(kPropSubject);
    const FILETIME time{0x12345678, 0x01C0};
    item.SetStrValue(L"text");
    item.SetShort(-7);
    item.SetUShort(65535);
    item.SetLong(-70000);
    item.SetULong(4'000'000'000u);
    item.SetFileTime(time);
    item.SetBool(TRUE);
    item.SetDouble(2.5);
    SetBytes(item, std::string("\0\1\2", 3));
    EXPECT_STREQ(item.GetStrValue(), L"text");
    EXPECT_EQ(item.GetShort(), -7);
    EXPECT_EQ(item.GetUShort(), 65535);
    EXPECT_EQ(item.GetLong(), -70000);
    EXPECT_EQ(item.GetULong(), 4'000'000'000u);
    const FILETIME got = item.GetFileTime();
    EXPECT_EQ(CompareFileTime(&got, &time), 0);
    EXPECT_TRUE(item.GetBool());
    EXPECT_EQ(item.GetDouble(), 2.5);
    EXPECT_EQ(Bytes(item), std::string("\0\1\2", 3));
}

TEST(DItemObjectTest, CopiesTextAndBytesIn) {
    DbJItem item = Field(kPropSubject);
    wchar_t text[] = L"before";
    item.SetStrValue(text);
    text[0] = L'X';
    EXPECT_STREQ(item.GetStrValue(), L"before");
    BYTE bytes[] = {1, 2};
    const CEBLOB blob{2, bytes};
    item.SetBlob(&blob);
    bytes[0] = 9;
    EXPECT_EQ(item.GetBlob()->lpb[0], 1);
}

TEST(DItemObjectTest, NullTextAndNullBlobAreEmpty) {
    DbJItem item = Field(kPropSubject);
    item.SetStrValue(L"x");
    SetBytes(item, "x");
    item.SetStrValue(nullptr);
    item.SetBlob(nullptr);
    EXPECT_STREQ(item.GetStrValue(), L"");
    ASSERT_NE(item.GetBlob(), nullptr);
    EXPECT_EQ(item.GetBlob()->dwCount, 0u);
    const CEBLOB nowhere{10, nullptr};
    item.SetBlob(&nowhere);
    EXPECT_EQ(item.GetBlob()->dwCount, 0u);
}

TEST(DItemObjectTest, TakesItsOwnTextAndBytes) {
    DbJItem item = Field(kPropSubject);
    item.SetStrValue(L"a long text that lives on the heap");
    item.SetStrValue(item.GetStrValue() + 2);
    EXPECT_STREQ(item.GetStrValue(), L"long text that lives on the heap");
    SetBytes(item, "0123456789");
    const CEBLOB tail{3, item.GetBlob()->lpb + 7};
    item.SetBlob(&tail);
    EXPECT_EQ(Bytes(item), "789");
}

TEST(DItemObjectTest, CopyHasTextAndBytesOfItsOwn) {
    DbJItem item = Field(kPropBody);
    item.SetStrValue(L"text");
    SetBytes(item, "bytes");
    item.GetBlob();
    DbJItem copy = item;
    item.SetStrValue(L"other");
    SetBytes(item, "other");
    EXPECT_STREQ(copy.GetStrValue(), L"text");
    EXPECT_EQ(Bytes(copy), "bytes");
}

TEST(DItemObjectTest, PropertyIsOfTheTypeInItsId) {
    struct Case {
        WORD type;
        void (*check)(const CEPROPVAL&);
    };
    const Case cases[] = {
        {CEVT_I2, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.iVal, -2); }},
        {CEVT_UI2, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.uiVal, 2); }},
        {CEVT_I4, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.lVal, -4); }},
        {CEVT_UI4, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.ulVal, 4u); }},
        {CEVT_FILETIME, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.filetime.dwHighDateTime, 64u); }},
        {CEVT_BOOL, [](const CEPROPVAL& p) { EXPECT_TRUE(p.val.boolVal); }},
        {CEVT_R8, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.dblVal, 8.5); }},
        {CEVT_LPWSTR, [](const CEPROPVAL& p) { EXPECT_STREQ(p.val.lpwstr, L"31"); }},
        {CEVT_BLOB, [](const CEPROPVAL& p) { EXPECT_EQ(p.val.blob.dwCount, 2u); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        DbJItem item = Field(MakePropID(200, c.type));
        item.SetShort(-2);
        item.SetUShort(2);
        item.SetLong(-4);
        item.SetULong(4);
        item.SetFileTime({0, 64});
        item.SetBool(TRUE);
        item.SetDouble(8.5);
        item.SetStrValue(L"31");
        SetBytes(item, "65");
        CEPROPVAL property;
        ASSERT_TRUE(item.ToProperty(&property));
        EXPECT_EQ(property.propid, item.GetPropID());
        EXPECT_EQ(property.wFlags, 0);
        c.check(property);
        DbJItem other = Field(item.GetPropID());
        EXPECT_FALSE(other == item);
        other.FromProperty(property);
        EXPECT_TRUE(other == item);
    }
}

TEST(DItemObjectTest, ItemWithoutAStoredTypeIsNoProperty) {
    CEPROPVAL property;
    EXPECT_FALSE(DbAItem().ToProperty(&property));
    EXPECT_FALSE(Field(MakePropID(200, 77)).ToProperty(&property));
}

TEST(DItemObjectTest, AbsentOrForeignPropertyChangesNothing) {
    DbJItem item = Field(kPropPriority);
    CEPROPVAL property{};
    property.propid = kPropPriority;
    property.wFlags = CEDB_PROPNOTFOUND;
    item.FromProperty(property);
    EXPECT_EQ(item.GetShort(), kUnset);
    property.wFlags = 0;
    property.propid = kPropSensitivity;
    item.FromProperty(property);
    EXPECT_EQ(item.GetShort(), kUnset);
}

TEST(DbJItemTest, ConstructorTakesIdPropertyLabelControlFlagsKindAndDefaultText) {
    const DbJItem item(102, kPropSubject, L"Subject", kControlList, kFieldSortable, kItemValue, L"No Subject");
    EXPECT_EQ(item.GetID(), 102);
    EXPECT_EQ(item.GetPropID(), kPropSubject);
    EXPECT_STREQ(item.GetLabel(), L"Subject");
    EXPECT_EQ(item.GetCtrlType(), kControlList);
    EXPECT_TRUE(item.IsFlag(kFieldSortable));
    EXPECT_EQ(item.GetItemType(), kItemValue);
    EXPECT_STREQ(item.GetDefaultText(), L"No Subject");
    EXPECT_STREQ(item.GetStrValue(), L"");
    EXPECT_EQ(item.GetLoc(), -1);
}

TEST(DbJItemTest, IsUnsetAtFirst) {
    EXPECT_EQ(Field(kPropEntryType).GetShort(), kUnset);
    const FILETIME time = Field(kPropStart).GetFileTime();
    EXPECT_EQ(time.dwLowDateTime | time.dwHighDateTime, 0u);
    EXPECT_EQ(Field(kPropBody).GetBlob()->dwCount, 0u);
}

TEST(DbJItemTest, CopiesItsLabel) {
    wchar_t label[] = L"Label";
    const DbJItem item(0, 0, label, kControlText, 0, kItemValue, nullptr);
    label[0] = L'X';
    EXPECT_STREQ(item.GetLabel(), L"Label");
    EXPECT_STREQ(item.GetDefaultText(), L"");
}

TEST(DbJItemTest, FlagsAreSetAndTakenAwayOneByOne) {
    DbJItem item = Field(kPropSubject);
    item.SetFlag(kFieldExported);
    item.SetFlag(kFieldSortable);
    EXPECT_TRUE(item.IsFlag(kFieldExported));
    item.DelFlag(kFieldExported);
    EXPECT_FALSE(item.IsFlag(kFieldExported));
    EXPECT_TRUE(item.IsFlag(kFieldSortable));
}

TEST(DbJItemTest, RemembersItsRow) {
    DbJItem item = Field(kPropSubject);
    item.SetLoc(4);
    EXPECT_EQ(item.GetLoc(), 4);
}

TEST(DbJItemTest, EqualsTheSameFieldWithTheSameStoredValue) {
    DbJItem one = Field(kPropPriority), other = Field(kPropPriority);
    other.SetStrValue(L"another display text");
    other.SetLoc(3);
    other.SetFlag(kFieldExported);
    EXPECT_TRUE(one == other);
    other.SetShort(2);
    EXPECT_FALSE(one == other);
    EXPECT_FALSE(Field(kPropPriority) == Field(kPropSensitivity));
}

TEST(DbJItemTest, CopyHasSubItemsOfItsOwn) {
    DbJItem item = Field(kPropCategories);
    item.Categories().Append(DbCItem(kPropCategoryName, L"Business"));
    DbJItem copy = item;
    item.Categories().RemoveAll();
    EXPECT_EQ(copy.Categories().GetCount(), 1);
    item = copy;
    EXPECT_STREQ(item.Categories().First()->GetStrValue(), L"Business");
}

TEST(FindFieldTest, AnswersTheFirstOfThatIdOrNull) {
    TSList<DbJItem> fields;
    DbJItem* subject = fields.Append(Field(kPropSubject));
    fields.Append(Field(kPropSubject));
    DbJItem* company = fields.Append(Field(kPropCompany));
    EXPECT_EQ(FindFieldByPropID(fields, kPropSubject), subject);
    EXPECT_EQ(FindFieldByID(fields, kFieldCompany), company);
    EXPECT_EQ(FindFieldByPropID(fields, kPropStart), nullptr);
    EXPECT_EQ(FindFieldByID(fields, 106), nullptr);
}

TEST(DbCItemTest, EqualsWhenTheNamesAreEqual) {
    const DbCItem business(kPropCategoryName, L"Business", 17);
    EXPECT_TRUE(business == DbCItem(kPropCategoryName, L"Business", 99));
    EXPECT_FALSE(business == DbCItem(kPropCategoryName, L"business", 17));
    EXPECT_FALSE(business == DbCItem(kPropCategoryName));
    const DbCItem copy = business;
    EXPECT_TRUE(copy == business);
    EXPECT_EQ(copy.GetOid(), 17u);
}

TEST(DbCItemTest, NameIsTheStringValue) {
    DbCItem item(kPropCategoryName);
    EXPECT_EQ(item.GetPropID(), kPropCategoryName);
    EXPECT_STREQ(item.GetStrValue(), L"");
    item.SetStrValue(L"Holiday");
    EXPECT_TRUE(item == DbCItem(kPropCategoryName, L"Holiday"));
}

TEST(DbAItemTest, EqualsWhenNameAndCompanyAreEqual) {
    const DbAItem ann(L"Ann Lee", L"Talvern");
    EXPECT_TRUE(ann == DbAItem(L"Ann Lee", L"Talvern"));
    EXPECT_FALSE(ann == DbAItem(L"Ann Lee", L""));
    EXPECT_FALSE(ann == DbAItem(L"Bob Lee", L"Talvern"));
}

TEST(DbAItemTest, IsMadeEmptyCopiedAndAssigned) {
    DbAItem item;
    EXPECT_STREQ(item.GetStrValue(), L"");
    EXPECT_STREQ(item.GetCompany(), L"");
    const DbAItem ann(L"Ann Lee", L"Talvern");
    item = ann;
    EXPECT_TRUE(item == ann);
    EXPECT_STREQ(DbAItem(ann).GetCompany(), L"Talvern");
}

}  // namespace
