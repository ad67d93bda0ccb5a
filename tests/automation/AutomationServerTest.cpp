#include "AutomationServer.h"

#include "support/Process.h"

#include <comdef.h>
#include <wrl/client.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <utility>

using namespace testing;
using Object = Microsoft::WRL::ComPtr<IDispatch>;

// A small client. The first member that fails is kept, and those that come then are left out, but for Close
// and Quit.
struct AutomationServerTest : Test {
    AutomationServerTest() { CoInitialize(nullptr); }
    ~AutomationServerTest() {
        Leave();
        CoUninitialize();
    }

    void Open(const wchar_t* pszFile) {
        CLSID id{};
        Check(L"ProgID", CLSIDFromProgID(L"Excel.Application", &id));
        if (failed.empty())
            Check(L"Create", CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&app)));
        books = Get(app, L"workbooks");
        book = Call(books, DISPATCH_METHOD, L"OPEN", (Wide(MFX_SAMPLES) + pszFile).c_str());
        sheet = Get(app, L"ActiveSheet");
    }
    // Type and value of a cell.
    std::string Value(const std::wstring& address) {
        static const std::map<int, std::string> kTypes = {
            {VT_EMPTY, ""}, {VT_R8, "R8 "},     {VT_BSTR, ""},       {VT_DATE, "DATE "},
            {VT_CY, "CY "}, {VT_BOOL, "BOOL "}, {VT_ERROR, "ERROR "}};
        Get(Get(sheet, L"Range", address.c_str()), L"value");
        const VARTYPE nType = result.vt;
        if (nType == VT_ERROR) result = _variant_t(result.scode & 0xFFFF);
        if (nType != VT_BSTR && nType != VT_EMPTY) result.ChangeType(VT_R8);
        VariantChangeTypeEx(&result, &result, LOCALE_INVARIANT, 0, VT_BSTR);
        return kTypes.at(nType) + Utf8(result.bstrVal);
    }
    // Ends the client; true when nothing of it remained.
    bool Leave() {
        Call(book, DISPATCH_METHOD, L"Close");
        Call(app, DISPATCH_METHOD, L"Quit");
        result.Clear();
        sheet = book = books = app = nullptr;
        const auto journal = server.Journal();
        return !journal.empty() && journal.back() == "objects 0";
    }

    Object Get(const Object& p, const wchar_t* pszMember, const wchar_t* pszArgument = nullptr) {
        return failed.empty() ? Call(p, DISPATCH_PROPERTYGET, pszMember, pszArgument) : Object();
    }
    Object Call(const Object& p, WORD nKind, const wchar_t* pszMember, const wchar_t* pszArgument = nullptr) {
        result.Clear();
        if (!p) return {};
        DISPID nId = 0;
        Check(pszMember, p->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(&pszMember), 1, 0, &nId));
        _variant_t argument(pszArgument);
        DISPPARAMS arguments{&argument, nullptr, pszArgument ? 1u : 0u, 0};
        Check(pszMember, p->Invoke(nId, IID_NULL, 0, nKind, &arguments, &result, nullptr, nullptr));
        return result.vt == VT_DISPATCH ? result.pdispVal : Object();
    }
    void Check(const std::wstring& member, HRESULT hResult) {
        if (FAILED(hResult) && failed.empty()) failed = member;
    }

    AutomationServer server;
    Object app, books, book, sheet;
    _variant_t result;
    std::wstring failed;
};

TEST_F(AutomationServerTest, AnswersCellsWithTheirTypes) {
    const std::map<const wchar_t*, std::string> tables = {
        {L"cell-types.xls",
         "Integer|R8 42|R8 -7\nDecimal|R8 0.125|R8 12345.678\nDate|DATE 45351|DATE 0.25\n"
         "Currency|CY 12.5|CY -0.1\nPercent|R8 0.25|\nBoolean|BOOL -1|BOOL 0\nError|ERROR 2007|ERROR 2042\n"
         "Formula|R8 84|x42\nText|抜き勾配|Angle de dépouille\nEmpty||R8 1\n"},
        {L"draft-angles.xls",
         "H1|H2|A1\nR8 0|R8 25|R8 3\nR8 25|R8 50|R8 1.5\nR8 50|R8 101.6|R8 1\n"
         "R8 101.6|R8 203.2|R8 0.75\n||\n"},
        {L"second-sheet-active.xls", "second||\n||\n"},
        {L"empty-first-cell.xls", "|right|\nbelow||\n"}};
    for (const auto& [pszFile, table] : tables) {
        Open(pszFile);
        std::string text;
        for (int i = 1; i <= std::ranges::count(table, '\n'); ++i) {
            const std::wstring row = std::to_wstring(i);
            text += Value(L"A" + row) + "|" + Value(L"b" + row) + "|" + Value(L"C" + row) + "\n";
        }
        EXPECT_EQ(text, table);
        EXPECT_TRUE(Leave());
    }
    // The texts are more than one record holds.
    Open(L"cell-types.xls");
    EXPECT_EQ(Value(L"A11"), "Long");
    EXPECT_EQ(Value(L"B11"), std::string(6000, 'x'));
    EXPECT_EQ(Wide(Value(L"C11")), std::wstring(3000, L'抜'));
    EXPECT_EQ(Value(L"D11"), "end");
    EXPECT_EQ(Value(L"IV65536"), "");
    EXPECT_EQ(failed, L"");
}

TEST_F(AutomationServerTest, RefusesWhatExcelRefuses) {
    for (const wchar_t* pszFile : {L"none.xls", L"all-rules.xml", L""}) {
        Open(pszFile);
        EXPECT_TRUE(Leave());
        EXPECT_EQ(std::exchange(failed, L""), L"OPEN") << pszFile;
    }
    Open(L"draft-angles.xls");
    for (const wchar_t* pszAddress : {L"A65537", L"IW1", L"A0", L"1", L"A1:B2"}) {
        Value(pszAddress);
        EXPECT_EQ(std::exchange(failed, L""), L"Range") << pszAddress;
    }
    Call(app, DISPATCH_METHOD, L"ActiveSheet");  // a property
    EXPECT_EQ(std::exchange(failed, L""), L"ActiveSheet");
    Call(book, DISPATCH_METHOD, L"Close");
    Value(L"A1");
    EXPECT_EQ(failed, L"Range");
}

TEST_F(AutomationServerTest, FailsWhereItIsTold) {
    for (const std::wstring member :
         {L"Create", L"workbooks", L"OPEN", L"ActiveSheet", L"Range", L"value", L"Close", L"Quit"}) {
        server.FailAt(member, 1);
        Open(L"draft-angles.xls");
        Value(L"A1");
        EXPECT_TRUE(Leave());
        EXPECT_EQ(std::exchange(failed, L""), member);
    }
    server.FailAt(L"Range", 2);
    Open(L"draft-angles.xls");
    EXPECT_EQ(Value(L"A1"), "H1");
    Value(L"A2");
    EXPECT_EQ(std::exchange(failed, L""), L"Range");
    EXPECT_EQ(Value(L"A3"), "R8 25");
    EXPECT_TRUE(Leave());

    server.DieAt(L"value", 2);
    Open(L"draft-angles.xls");
    EXPECT_EQ(Value(L"A1"), "H1");
    EXPECT_EQ(server.Running(), 1);
    Value(L"A2");
    EXPECT_EQ(failed, L"value");
    EXPECT_EQ(server.Running(), 0);
}

TEST_F(AutomationServerTest, EndsAndCountsWhatIsNotReleased) {
    Open(L"empty-first-cell.xls");
    const Object kept = Get(sheet, L"Range", L"B1");
    EXPECT_THAT(server.Journal(),
                ElementsAre("Create", "id workbooks", "Workbooks", "id OPEN", StartsWith("Open Z:"),
                            "id ActiveSheet", "ActiveSheet", "id Range", "Range B1", "objects 5"));
    EXPECT_EQ(server.Running(), 0);

    // A client that releases everything has not to do more.
    app = books = book = sheet = nullptr;
    Open(L"empty-first-cell.xls");
    app = books = book = sheet = nullptr;
    result.Clear();
    for (int i = 0; i < 500 && server.Running() > 0; ++i) Sleep(10);
    EXPECT_EQ(server.Running(), 0);
    EXPECT_EQ(failed, L"");

    server.Unregister();
    Open(L"draft-angles.xls");
    EXPECT_EQ(failed, L"ProgID");
}
