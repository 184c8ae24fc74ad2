// Contacts, appointments and tasks: their properties, saved and read again.
#include <pimdata.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "tests/support/fresh_store.h"
#include "tests/support/outlook.h"

namespace {

class ItemTest : public testing::Test {
protected:
    // The item as another program would read it.
    template <class Interface>
    Interface* Read(CEOID oid) {
        IDispatch* item = nullptr;
        EXPECT_EQ(outlook_->GetItemFromOid(oid, &item), S_OK);
        return static_cast<Interface*>(item);
    }

    // Sets each property to a value of its own, from its number in the list.
    template <class Interface>
    struct Property {
        const char* name;
        std::function<void(Interface*, int)> put;
        std::function<void(Interface*, int)> expect;
    };
    template <class Interface>
    CEOID RoundTrip(OlItemType type, const std::vector<Property<Interface>>& properties) {
        Interface* item = outlook_.template Create<Interface>(type);
        for (size_t i = 0; i < properties.size(); ++i)
            properties[i].put(item, static_cast<int>(i));
        const CEOID oid = Outlook::SaveAndRelease(item);
        item = Read<Interface>(oid);
        for (size_t i = 0; i < properties.size(); ++i) {
            SCOPED_TRACE(properties[i].name);
            properties[i].expect(item, static_cast<int>(i));
        }
        EXPECT_EQ(item->Release(), 0u);
        return oid;
    }

    FreshStore store_;
    Outlook outlook_;
};

std::wstring SampleText(int number) {
    return L"Text \x00E4\x4E2D " + std::to_wstring(number);
}
void Sample(int number, Bstr* value) {
    *value->Put() = SysAllocString(SampleText(number).c_str());
}

template <class Interface>
void PutSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*put)(BSTR), int number) {
    Bstr text;
    Sample(number, &text);
    EXPECT_EQ((item->*put)(text.Get()), S_OK);
}
template <class Interface>
void PutSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*put)(DATE), int number) {
    EXPECT_EQ((item->*put)(38000.25 + number), S_OK);
}
template <class Interface>
void PutSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*put)(long), int number) {
    EXPECT_EQ((item->*put)(number % 3), S_OK);
}
template <class Interface>
void PutSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*put)(VARIANT_BOOL), int) {
    EXPECT_EQ((item->*put)(VARIANT_TRUE), S_OK);
}

template <class Interface>
void ExpectSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*), int number) {
    EXPECT_EQ(TextOf(item, get), SampleText(number));
    EXPECT_EQ((item->*get)(nullptr), E_POINTER);
}
template <class Interface>
void ExpectSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*get)(DATE*), int number) {
    DATE date = 0;
    EXPECT_EQ((item->*get)(&date), S_OK);
    EXPECT_DOUBLE_EQ(date, 38000.25 + number);
    EXPECT_EQ((item->*get)(nullptr), E_POINTER);
}
template <class Interface>
void ExpectSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*get)(long*), int number) {
    long value = -1;
    EXPECT_EQ((item->*get)(&value), S_OK);
    EXPECT_EQ(value, number % 3);
    EXPECT_EQ((item->*get)(nullptr), E_POINTER);
}
template <class Interface>
void ExpectSample(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*get)(VARIANT_BOOL*), int) {
    VARIANT_BOOL value = VARIANT_FALSE;
    EXPECT_EQ((item->*get)(&value), S_OK);
    EXPECT_EQ(value, VARIANT_TRUE);
    EXPECT_EQ((item->*get)(nullptr), E_POINTER);
}

#define PROPERTY_OF(Interface, name)                                                    \
    {#name, [](Interface* item, int n) { PutSample(item, &Interface::put_##name, n); }, \
     [](Interface* item, int n) { ExpectSample(item, &Interface::get_##name, n); }},
#define CONTACT_PROPERTY(type, name) PROPERTY_OF(IContact, name)
#define APPOINTMENT_PROPERTY(type, name) PROPERTY_OF(IAppointment, name)
#define TASK_PROPERTY(type, name) PROPERTY_OF(ITask, name)
#define NO_PROPERTY(type, name)

TEST_F(ItemTest, EveryPropertyOfAContactIsKept) {
    RoundTrip<IContact>(olContactItem, {PIM_CONTACT_PROPERTIES(CONTACT_PROPERTY)});
}

TEST_F(ItemTest, EveryPropertyOfATaskIsKept) {
    RoundTrip<ITask>(olTaskItem, {PIM_TASK_PROPERTIES(TASK_PROPERTY, NO_PROPERTY)});
}

TEST_F(ItemTest, EveryPropertyOfAnAppointmentIsKept) {
    std::vector<Property<IAppointment>> properties = {PIM_APPOINTMENT_PROPERTIES(APPOINTMENT_PROPERTY, NO_PROPERTY, )};
    // The end decides over the duration: it has a test of its own.
    std::erase_if(properties, [](const auto& property) { return std::strcmp(property.name, "End") == 0; });
    RoundTrip<IAppointment>(olAppointmentItem, properties);
}

TEST_F(ItemTest, ANewItemHasNoIdAndIsNotInTheStoreUntilSaved) {
    IContact* contact = outlook_.Create<IContact>(olContactItem);
    long oid = -1;
    EXPECT_EQ(contact->get_Oid(&oid), S_OK);
    EXPECT_EQ(oid, 0);
    EXPECT_EQ(contact->get_Oid(nullptr), E_POINTER);
    EXPECT_EQ(contact->Delete(), E_INVALIDARG);
    EXPECT_EQ(contact->Save(), S_OK);
    EXPECT_EQ(contact->get_Oid(&oid), S_OK);
    EXPECT_NE(oid, 0);
    const long first = oid;
    EXPECT_EQ(contact->put_Title(Bstr(L"Dr.").Get()), S_OK);
    EXPECT_EQ(contact->Save(), S_OK);
    EXPECT_EQ(contact->get_Oid(&oid), S_OK);
    EXPECT_EQ(oid, first) << "saved again, it is the same";
    contact->Release();
}

TEST_F(ItemTest, WhatANewItemHasUnsaid) {
    ITask* task = Read<ITask>(Outlook::SaveAndRelease(outlook_.Create<ITask>(olTaskItem)));
    DATE date = 0;
    long number = -1;
    for (const auto get : {&ITask::get_StartDate, &ITask::get_DueDate, &ITask::get_DateCompleted}) {
        EXPECT_EQ((task->*get)(&date), S_OK);
        EXPECT_EQ(date, DATE_NONE);
    }
    EXPECT_EQ(task->get_Importance(&number), S_OK);
    EXPECT_EQ(number, olImportanceNormal);
    EXPECT_EQ(TextOf(task, &ITask::get_Subject), L"");
    task->Release();

    IAppointment* appointment =
        Read<IAppointment>(Outlook::SaveAndRelease(outlook_.Create<IAppointment>(olAppointmentItem)));
    EXPECT_EQ(appointment->get_BusyStatus(&number), S_OK);
    EXPECT_EQ(number, olBusy);
    EXPECT_EQ(appointment->get_Duration(&number), S_OK);
    EXPECT_EQ(number, 30);
    EXPECT_EQ(appointment->get_Start(&date), S_OK);
    EXPECT_GT(date, 40000);
    appointment->Release();

    IContact* contact = Read<IContact>(Outlook::SaveAndRelease(outlook_.Create<IContact>(olContactItem)));
    EXPECT_EQ(contact->get_Birthday(&date), S_OK);
    EXPECT_EQ(date, DATE_NONE);
    EXPECT_EQ(TextOf(contact, &IContact::get_FileAs), L"");
    contact->Release();
}

TEST_F(ItemTest, TextsAndDatesCanBeTakenAwayAgain) {
    const CEOID oid = outlook_.AddTask(L"Paint", 38001, 38002);
    ITask* task = Read<ITask>(oid);
    EXPECT_EQ(task->put_Subject(nullptr), S_OK);
    EXPECT_EQ(task->put_StartDate(DATE_NONE), S_OK);
    EXPECT_EQ(Outlook::SaveAndRelease(task), oid);
    task = Read<ITask>(oid);
    DATE date = 0;
    EXPECT_EQ(task->get_StartDate(&date), S_OK);
    EXPECT_EQ(date, DATE_NONE);
    EXPECT_EQ(task->get_DueDate(&date), S_OK);
    EXPECT_EQ(date, 38002);
    EXPECT_EQ(TextOf(task, &ITask::get_Subject), L"");
    task->Release();
}

TEST_F(ItemTest, ValuesThatCannotBeAreRefusedAndChangeNothing) {
    ITask* task = outlook_.Create<ITask>(olTaskItem);
    EXPECT_EQ(task->put_Importance(3), E_INVALIDARG);
    EXPECT_EQ(task->put_Sensitivity(-1), E_INVALIDARG);
    EXPECT_EQ(task->put_DueDate(3e6), E_INVALIDARG);
    EXPECT_EQ(task->put_DueDate(std::numeric_limits<double>::quiet_NaN()), E_INVALIDARG);
    long number = -1;
    EXPECT_EQ(task->get_Importance(&number), S_OK);
    EXPECT_EQ(number, olImportanceNormal);
    task->Release();
    IAppointment* appointment = outlook_.Create<IAppointment>(olAppointmentItem);
    EXPECT_EQ(appointment->put_BusyStatus(4), E_INVALIDARG);
    EXPECT_EQ(appointment->put_Duration(-1), E_INVALIDARG);
    EXPECT_EQ(appointment->put_Start(DATE_NONE), E_INVALIDARG);
    EXPECT_EQ(appointment->put_BodyInk(nullptr), E_POINTER);
    appointment->Release();
}

TEST_F(ItemTest, AContactWithoutFileAsIsFiledByItsNamesElseByItsCompany) {
    const struct {
        const wchar_t* first;
        const wchar_t* last;
        const wchar_t* company;
        const wchar_t* given;
        const wchar_t* filed;
    } cases[] = {
        {L"Anna", L"Abel", L"Talvern", L"", L"Abel, Anna"}, {L"Anna", L"", L"Talvern", L"", L"Anna"},
        {L"", L"Abel", L"Talvern", L"", L"Abel"},           {L"", L"", L"Talvern", L"", L"Talvern"},
        {L"Anna", L"Abel", L"Talvern", L"Anni", L"Anni"},   {L"", L"", L"", L"", L""},
    };
    for (const auto& c : cases) {
        IContact* contact = outlook_.Create<IContact>(olContactItem);
        contact->put_FirstName(Bstr(c.first).Get());
        contact->put_LastName(Bstr(c.last).Get());
        contact->put_CompanyName(Bstr(c.company).Get());
        contact->put_FileAs(Bstr(c.given).Get());
        contact = Read<IContact>(Outlook::SaveAndRelease(contact));
        EXPECT_EQ(TextOf(contact, &IContact::get_FileAs), c.filed);
        contact->Release();
    }
}

TEST_F(ItemTest, StartEndAndDurationOfAnAppointmentAgree) {
    IAppointment* appointment = outlook_.Create<IAppointment>(olAppointmentItem);
    DATE date = 0;
    long minutes = 0;
    appointment->put_Start(38000.5);
    appointment->put_Duration(90);
    EXPECT_EQ(appointment->get_End(&date), S_OK);
    EXPECT_NEAR(date, 38000.5625, 1e-9);
    appointment->put_Start(38001.5);
    EXPECT_EQ(appointment->get_End(&date), S_OK);
    EXPECT_NEAR(date, 38001.5625, 1e-9) << "the start takes the end with it";
    EXPECT_EQ(appointment->put_End(38002.5), S_OK);
    EXPECT_EQ(appointment->get_Duration(&minutes), S_OK);
    EXPECT_EQ(minutes, 1440);
    EXPECT_EQ(appointment->put_End(38001), E_INVALIDARG) << "it would end before it starts";
    EXPECT_EQ(appointment->get_Start(&date), S_OK);
    EXPECT_DOUBLE_EQ(date, 38001.5);
    appointment->Release();
}

TEST_F(ItemTest, ATaskThatIsCompleteIsSoFromToday) {
    ITask* task = outlook_.Create<ITask>(olTaskItem);
    SYSTEMTIME now;
    GetLocalTime(&now);
    DATE today = 0;
    SystemTimeToVariantTime(&now, &today);
    EXPECT_EQ(task->put_Complete(VARIANT_TRUE), S_OK);
    DATE date = 0;
    EXPECT_EQ(task->get_DateCompleted(&date), S_OK);
    EXPECT_NEAR(date, today, 1);
    EXPECT_EQ(date, std::floor(date));
    EXPECT_EQ(task->put_Complete(VARIANT_FALSE), S_OK);
    EXPECT_EQ(task->get_DateCompleted(&date), S_OK);
    EXPECT_EQ(date, DATE_NONE);
    task->Release();
}

TEST_F(ItemTest, ACopyIsAnItemOfItsOwn) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"Talvern");
    IContact* contact = Read<IContact>(oid);
    IContact* copy = nullptr;
    ASSERT_EQ(contact->Copy(&copy), S_OK);
    EXPECT_EQ(contact->Copy(nullptr), E_POINTER);
    copy->put_FileAs(Bstr(L"Abel, Ben").Get());
    const CEOID other = Outlook::SaveAndRelease(copy);
    EXPECT_NE(other, oid);
    EXPECT_EQ(TextOf(contact, &IContact::get_FileAs), L"Abel, Anna");
    EXPECT_EQ(contact->Release(), 0u);
    contact = Read<IContact>(other);
    EXPECT_EQ(TextOf(contact, &IContact::get_CompanyName), L"Talvern");
    contact->Release();
}

// Its uid names one item of a file: another import would take the copy for that item.
TEST_F(ItemTest, ACopyHasNotTheUidOfWhatItWasCopiedFrom) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"Talvern");
    const HANDLE folder = PimOpenDatabase(olFolderContacts);
    ASSERT_NE(folder, INVALID_HANDLE_VALUE);
    std::wstring uid = L"card-1";
    CEPROPVAL named = {};
    named.propid = kPimUid;
    named.val.lpwstr = uid.data();
    ASSERT_EQ(CeWriteRecordProps(folder, oid, 1, &named), oid);

    IContact* contact = Read<IContact>(oid);
    IContact* copy = nullptr;
    ASSERT_EQ(contact->Copy(&copy), S_OK);
    contact->Release();
    const CEOID other = Outlook::SaveAndRelease(copy);
    for (const auto& [record, hasUid] : {std::pair(oid, true), std::pair(other, false)}) {
        ASSERT_EQ(CeSeekDatabase(folder, CEDB_SEEK_CEOID, record, nullptr), record);
        CEPROPID id = kPimUid;
        WORD count = 1;
        BYTE* buffer = nullptr;
        DWORD size = 0;
        ASSERT_EQ(CeReadRecordProps(folder, CEDB_ALLOWREALLOC, &count, &id, &buffer, &size), record);
        EXPECT_EQ((reinterpret_cast<CEPROPVAL*>(buffer)->wFlags & CEDB_PROPNOTFOUND) == 0, hasUid);
        LocalFree(buffer);
    }
    CloseHandle(folder);
}

TEST_F(ItemTest, ADeletedItemCanBeSavedAsANewOne) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"Talvern");
    IContact* contact = Read<IContact>(oid);
    EXPECT_EQ(contact->Delete(), S_OK);
    IContact* again = Read<IContact>(Outlook::SaveAndRelease(contact));
    EXPECT_EQ(TextOf(again, &IContact::get_CompanyName), L"Talvern");
    again->Release();
}

TEST_F(ItemTest, AnItemThatSomebodyElseDeletedAnswersAFailureToSave) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"Talvern");
    IContact* mine = Read<IContact>(oid);
    IContact* other = Read<IContact>(oid);
    EXPECT_EQ(other->Delete(), S_OK);
    other->Release();
    EXPECT_EQ(mine->put_Title(Bstr(L"Dr.").Get()), S_OK);
    EXPECT_EQ(mine->Save(), E_INVALIDARG);
    mine->Release();
}

TEST_F(ItemTest, InkIsKeptAsItsBytes) {
    BYTE bytes[] = {1, 0, 255, 7};
    CEBLOB ink = {sizeof(bytes), bytes};
    IContact* contact = outlook_.Create<IContact>(olContactItem);
    EXPECT_EQ(contact->put_BodyInk(&ink), S_OK);
    contact = Read<IContact>(Outlook::SaveAndRelease(contact));
    CEBLOB read = {};
    EXPECT_EQ(contact->get_BodyInk(&read), S_OK);
    ASSERT_EQ(read.dwCount, sizeof(bytes));
    EXPECT_EQ(std::memcmp(read.lpb, bytes, sizeof(bytes)), 0);
    LocalFree(read.lpb);
    EXPECT_EQ(contact->get_BodyInk(nullptr), E_POINTER);
    contact->Release();
}

TEST_F(ItemTest, WhatOnlyADeviceHasIsRefusedAsSuch) {
    IAppointment* appointment = outlook_.Create<IAppointment>(olAppointmentItem);
    IRecipients* recipients = reinterpret_cast<IRecipients*>(this);
    EXPECT_EQ(appointment->get_Recipients(&recipients), E_NOTIMPL);
    EXPECT_EQ(recipients, nullptr);
    IRecurrencePattern* pattern = reinterpret_cast<IRecurrencePattern*>(this);
    EXPECT_EQ(appointment->GetRecurrencePattern(&pattern), E_NOTIMPL);
    EXPECT_EQ(pattern, nullptr);
    EXPECT_EQ(appointment->Send(), E_NOTIMPL);
    EXPECT_EQ(appointment->Display(), E_NOTIMPL);
    DISPID id = 0;
    wchar_t name[] = L"Subject";
    LPOLESTR names[] = {name};
    EXPECT_EQ(appointment->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    appointment->Release();
}

// ---- Slots: other programs call methods by them ----

template <class Method>
size_t SlotOf(Method method) {
    // A pointer to a virtual method holds the offset of its slot, plus one.
    size_t offset = 0;
    std::memcpy(&offset, &method, sizeof(offset));
    return (offset - 1) / sizeof(void*);
}

TEST(SlotTest, MethodsStandInTheirSlots) {
    EXPECT_EQ(SlotOf(&IPOutlookApp::Logon), 7u);
    EXPECT_EQ(SlotOf(&IPOutlookApp::Logoff), 8u);
    EXPECT_EQ(SlotOf(&IPOutlookApp::GetItemFromOid), 12u);
    EXPECT_EQ(SlotOf(&IPOutlookApp::SystemTimeToVariantTime), 26u);
    EXPECT_EQ(SlotOf(&IFolder::get_Items), 7u);
    EXPECT_EQ(SlotOf(&IFolder::ReceiveFromInfrared), 12u);
    EXPECT_EQ(SlotOf(&IPOutlookItemCollection::Item), 11u);
    EXPECT_EQ(SlotOf(&IPOutlookItemCollection::get_Application), 18u);
    EXPECT_EQ(SlotOf(&IPOlItems::SetColumns), 19u);
    EXPECT_EQ(SlotOf(&IAppointment::get_Subject), 10u);
    EXPECT_EQ(SlotOf(&IAppointment::get_Start), 13u);
    EXPECT_EQ(SlotOf(&IAppointment::get_Recipients), 20u);
    EXPECT_EQ(SlotOf(&IAppointment::put_Subject), 26u);
    EXPECT_EQ(SlotOf(&IAppointment::put_ReminderOptions), 39u);
    EXPECT_EQ(SlotOf(&IAppointment::get_Application), 49u);
    EXPECT_EQ(SlotOf(&ITask::get_Subject), 10u);
    EXPECT_EQ(SlotOf(&ITask::get_StartDate), 12u);
    EXPECT_EQ(SlotOf(&ITask::get_DueDate), 13u);
    EXPECT_EQ(SlotOf(&ITask::put_Subject), 24u);
    EXPECT_EQ(SlotOf(&ITask::get_Application), 45u);
    EXPECT_EQ(SlotOf(&IContact::get_Birthday), 7u);
    EXPECT_EQ(SlotOf(&IContact::get_CompanyName), 10u);
    EXPECT_EQ(SlotOf(&IContact::get_FileAs), 52u);
    EXPECT_EQ(SlotOf(&IContact::get_Body), 53u);
    EXPECT_EQ(SlotOf(&IContact::put_Birthday), 57u);
    EXPECT_EQ(SlotOf(&IContact::put_YomiLastName), 106u);
    EXPECT_EQ(SlotOf(&IContact::get_Application), 114u);
}

TEST(SlotTest, PropertyNumbersAreThoseThatStoresHold) {
    EXPECT_EQ(kContactBirthday, 0x01000005u);
    EXPECT_EQ(kContactCompanyName, 0x0103001Fu);
    EXPECT_EQ(kContactFileAs, 0x012D001Fu);
    EXPECT_EQ(kAppointmentSubject, 0x0200001Fu);
    EXPECT_EQ(kAppointmentStart, 0x02030005u);
    EXPECT_EQ(kAppointmentAllDayEvent, 0x0206000Bu);
    EXPECT_EQ(kTaskSubject, 0x0300001Fu);
    EXPECT_EQ(kTaskDueDate, 0x03030005u);
    EXPECT_EQ(kTaskImportance, 0x03050003u);
}

}  // namespace
