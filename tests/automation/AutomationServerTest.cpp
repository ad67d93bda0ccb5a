#include "AutomationServer.h"

#include "support/Process.h"

#include <windows.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <gmock/gmock.h>

#include <map>
#include <utility>

using namespace testing;
using Object = Microsoft::WRL::ComPtr<IDispatch>;

// A client in small: once a call has failed, the others are left out, but for Close and Quit.
struct AutomationServerTest : Test {
    AutomationServerTest() { CoInitialize(nullptr); }
    ~AutomationServerTest() {
        Leave();
        CoUninitialize();
    }

    void Open(const wchar_t* pszFile) {
        failed.clear();
        CLSID id;
        Check(L"ProgID", CLSIDFromProgID(L"Excel.Application", &id));
        if (failed.empty())
            Check(L"Create", CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&app)));
        books = Get(app, L"workbooks");
        book = Call(books, DISPATCH_METHOD, L"OPEN", (Wide(MFX_SAMPLES) + pszFile).c_str());
        sheet = Get(app, L"ActiveSheet");
    }

    // Type and value of a cell.
    std::string Value(const wchar_t* pszAddress) {
        static const std::map<int, std::string> kTypes = {
            {VT_EMPTY, ""}, {VT_R8, "R8 "},     {VT_BSTR, "BSTR "},  {VT_DATE, "DATE "},
            {VT_CY, "CY "}, {VT_BOOL, "BOOL "}, {VT_ERROR, "ERROR "}};
        Get(Get(sheet, L"Range", pszAddress), L"value");
        const VARTYPE nType = V_VT(&result);
        if (nType == VT_ERROR) return kTypes.at(nType) + std::to_string(V_ERROR(&result) & 0xFFFF);
        if (nType != VT_BSTR && nType != VT_EMPTY) VariantChangeType(&result, &result, 0, VT_R8);
        VariantChangeTypeEx(&result, &result, LOCALE_INVARIANT, 0, VT_BSTR);
        return kTypes.at(nType) + Utf8(V_BSTR(&result));
    }

    void Leave() {
        Call(book, DISPATCH_METHOD, L"Close");
        Call(app, DISPATCH_METHOD, L"Quit");
        VariantClear(&result);
        sheet = book = books = app = nullptr;
    }

    Object Get(const Object& object, const wchar_t* pszMember, const wchar_t* pszArgument = nullptr) {
        return failed.empty() ? Call(object, DISPATCH_PROPERTYGET, pszMember, pszArgument) : nullptr;
    }
    Object Call(const Object& object, WORD nKind, const wchar_t* pszMember,
                const wchar_t* pszArgument = nullptr) {
        if (!object) return nullptr;
        DISPID nId = 0;
        Check(pszMember, object->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(&pszMember), 1, 0, &nId));
        VARIANT argument{};
        V_VT(&argument) = VT_BSTR;
        V_BSTR(&argument) = SysAllocString(pszArgument);
        DISPPARAMS arguments{&argument, nullptr, pszArgument ? 1u : 0u, 0};
        VariantClear(&result);
        Check(pszMember, object->Invoke(nId, IID_NULL, 0, nKind, &arguments, &result, nullptr, nullptr));
        VariantClear(&argument);
        return V_VT(&result) == VT_DISPATCH ? V_DISPATCH(&result) : nullptr;
    }
    void Check(const std::wstring& step, HRESULT hResult) {
        if (FAILED(hResult) && failed.empty()) failed = Utf8(step);
    }
    std::string LastNote() {
        const auto journal = server.Journal();
        return journal.empty() ? "" : journal.back();
    }

    AutomationServer server;
    Object app, books, book, sheet;
    VARIANT result{};
    std::string failed;
};

TEST_F(AutomationServerTest, AnswersCellsWithTheirTypes) {
    const std::string longText = [] {
        std::string text;
        for (int i = 0; i < 3000; ++i) text += "抜";
        return text;
    }();
    const std::map<std::wstring, std::map<std::wstring, std::string>> cells = {
        {L"cell-types.xls",
         {{L"A1", "BSTR Integer"},
          {L"B1", "R8 42"},
          {L"c1", "R8 -7"},
          {L"B2", "R8 0.125"},
          {L"C2", "R8 12345.678"},
          {L"B3", "DATE 45351"},
          {L"C3", "DATE 0.25"},
          {L"B4", "CY 12.5"},
          {L"C4", "CY -0.1"},
          {L"B5", "R8 0.25"},
          {L"B6", "BOOL -1"},
          {L"C6", "BOOL 0"},
          {L"B7", "ERROR 2007"},
          {L"C7", "ERROR 2042"},
          {L"B8", "R8 84"},
          {L"C8", "BSTR x42"},
          {L"B9", "BSTR 抜き勾配"},
          {L"C9", "BSTR Angle de dépouille"},
          {L"B10", ""},
          {L"C10", "R8 1"},
          {L"A11", "BSTR Long"},
          {L"B11", "BSTR " + std::string(6000, 'x')},
          {L"C11", "BSTR " + longText},
          {L"D11", "BSTR end"},
          {L"IV65536", ""}}},
        {L"draft-angles.xls",
         {{L"A1", "BSTR H1"},
          {L"E1", "BSTR A3"},
          {L"A2", "R8 0"},
          {L"E5", "R8 1"},
          {L"B4", "R8 101.6"},
          {L"A6", ""}}},
        {L"second-sheet-active.xls", {{L"A1", "BSTR second"}}},
        {L"empty-first-cell.xls", {{L"A1", ""}, {L"B1", "BSTR right"}, {L"A2", "BSTR below"}}}};
    for (const auto& [file, values] : cells) {
        SCOPED_TRACE(file);
        Open(file.c_str());
        for (const auto& [address, value] : values) EXPECT_EQ(Value(address.c_str()), value) << Utf8(address);
        Leave();
        EXPECT_EQ(failed, "");
        EXPECT_EQ(LastNote(), "objects 0");
    }
}

TEST_F(AutomationServerTest, RefusesWhatExcelRefuses) {
    for (const wchar_t* pszFile : {L"none.xls", L"all-rules.xml", L""}) {
        Open(pszFile);
        EXPECT_EQ(failed, "OPEN") << Utf8(pszFile);
        Leave();
    }
    Open(L"draft-angles.xls");
    for (const wchar_t* pszAddress : {L"A65537", L"IW1", L"A0", L"1", L"A1:B2"}) {
        Value(pszAddress);
        EXPECT_EQ(std::exchange(failed, ""), "Range") << Utf8(pszAddress);
    }
    Call(app, DISPATCH_METHOD, L"ActiveSheet");  // a property
    EXPECT_EQ(std::exchange(failed, ""), "ActiveSheet");
    Get(app, L"Visible");
    EXPECT_EQ(std::exchange(failed, ""), "Visible");
    Call(book, DISPATCH_METHOD, L"Close");
    Value(L"A1");
    EXPECT_EQ(failed, "Range");
}

TEST_F(AutomationServerTest, FailsWhereItIsTold) {
    for (const wchar_t* pszMember :
         {L"Create", L"Workbooks", L"Open", L"ActiveSheet", L"Range", L"value", L"Close", L"Quit"}) {
        server.FailAt(pszMember);
        Open(L"draft-angles.xls");
        Value(L"A1");
        Leave();
        EXPECT_STRCASEEQ(failed.c_str(), Utf8(pszMember).c_str());
        EXPECT_EQ(LastNote(), "objects 0");
    }
    server.FailAt(L"value", 3);
    Open(L"draft-angles.xls");
    EXPECT_EQ(Value(L"A1") + Value(L"A2"), "BSTR H1R8 0");
    EXPECT_EQ(failed, "");
    Value(L"A3");
    EXPECT_EQ(failed, "value");
}

TEST_F(AutomationServerTest, DiesWhereItIsTold) {
    server.DieAt(L"value", 2);
    Open(L"draft-angles.xls");
    EXPECT_EQ(Value(L"A1"), "BSTR H1");
    EXPECT_EQ(server.Running(), 1u);
    Value(L"A2");
    EXPECT_EQ(failed, "value");
    EXPECT_EQ(server.Running(), 0u);
}

TEST_F(AutomationServerTest, CountsWhatIsNotReleased) {
    Open(L"empty-first-cell.xls");
    const Object kept = Get(sheet, L"Range", L"B1");
    Leave();
    EXPECT_EQ(server.Running(), 1u);
    EXPECT_THAT(server.Journal(),
                ElementsAre("Create", "id workbooks", "Workbooks", "id OPEN", StartsWith("Open Z:"),
                            "id ActiveSheet", "ActiveSheet", "id Range", "Range B1", "id Close", "Close",
                            "id Quit", "Quit", "objects 1"));
    EXPECT_EQ(server.Running(), 0u);
}

TEST_F(AutomationServerTest, IsGoneWhenUnregistered) {
    server.Unregister();
    Open(L"draft-angles.xls");
    EXPECT_EQ(failed, "ProgID");
    EXPECT_THAT(server.Journal(), IsEmpty());
}
