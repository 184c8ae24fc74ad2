// Pocket Outlook as another program uses it, and a few items in it. Wants a store of the test's own (FreshStore) that
// was made before and goes after.
#pragma once

#include <gtest/gtest.h>
#include <pimstore.h>

#include <string>

// A BSTR of the test's own.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(const wchar_t* text) : text_(SysAllocString(text)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR Get() const { return text_; }
    BSTR* Put() { return &text_; }
    std::wstring Text() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }

private:
    BSTR text_ = nullptr;
};

// What a method that hands out a text hands out.
template <class Interface>
std::wstring TextOf(Interface* item, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*)) {
    Bstr text;
    EXPECT_EQ((item->*get)(text.Put()), S_OK);
    return text.Text();
}

// Registers Pocket Outlook, makes its application object and logs on; logs off and gives all back at the end.
class Outlook {
public:
    Outlook() {
        EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        EXPECT_EQ(PimRegisterServer(), S_OK);
        EXPECT_EQ(CoCreateInstance(CLSID_Application, nullptr, CLSCTX_INPROC_SERVER, IID_IPOutlookApp,
                                   reinterpret_cast<void**>(&application_)),
                  S_OK);
        EXPECT_EQ(application_->Logon(0), S_OK);
    }
    ~Outlook() {
        EXPECT_EQ(application_->Logoff(), S_OK);
        EXPECT_EQ(application_->Release(), 0u) << "an object of Pocket Outlook was not released";
        CoUninitialize();
    }
    Outlook(const Outlook&) = delete;
    Outlook& operator=(const Outlook&) = delete;

    IPOutlookApp* operator->() const { return application_; }

    // A new item of that kind, not saved yet; the caller releases it.
    template <class Interface>
    Interface* Create(OlItemType type) const {
        IDispatch* item = nullptr;
        EXPECT_EQ(application_->CreateItem(type, &item), S_OK);
        return static_cast<Interface*>(item);
    }

    // Items that are in the store at once; each answers its object id.
    CEOID AddContact(const wchar_t* fileAs, const wchar_t* company) const {
        IContact* contact = Create<IContact>(olContactItem);
        EXPECT_EQ(contact->put_FileAs(Bstr(fileAs).Get()), S_OK);
        EXPECT_EQ(contact->put_CompanyName(Bstr(company).Get()), S_OK);
        return SaveAndRelease(contact);
    }
    CEOID AddAppointment(const wchar_t* subject, DATE start) const {
        IAppointment* appointment = Create<IAppointment>(olAppointmentItem);
        EXPECT_EQ(appointment->put_Subject(Bstr(subject).Get()), S_OK);
        EXPECT_EQ(appointment->put_Start(start), S_OK);
        return SaveAndRelease(appointment);
    }
    CEOID AddTask(const wchar_t* subject, DATE start, DATE due) const {
        ITask* task = Create<ITask>(olTaskItem);
        EXPECT_EQ(task->put_Subject(Bstr(subject).Get()), S_OK);
        EXPECT_EQ(task->put_StartDate(start), S_OK);
        EXPECT_EQ(task->put_DueDate(due), S_OK);
        return SaveAndRelease(task);
    }

    template <class Interface>
    static CEOID SaveAndRelease(Interface* item) {
        long oid = 0;
        EXPECT_EQ(item->Save(), S_OK);
        EXPECT_EQ(item->get_Oid(&oid), S_OK);
        item->Release();
        return static_cast<CEOID>(oid);
    }

private:
    IPOutlookApp* application_ = nullptr;
};
