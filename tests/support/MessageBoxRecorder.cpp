#include "MessageBoxRecorder.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

constexpr int kTextId = 0xFFFF;
constexpr int kIconIds[] = {20, 1088};  // Windows, Wine
constexpr wchar_t kAnswered[] = L"MessageBoxRecorder";

MessageBoxRecorder* g_pRecorder = nullptr;

CString WindowText(HWND hWindow) {
    CString strText;
    const int nLength = GetWindowTextLengthW(hWindow);
    GetWindowTextW(hWindow, strText.GetBuffer(nLength + 1), nLength + 1);
    strText.ReleaseBuffer();
    return strText;
}

// A program's own dialogs have the program's or a library's instance, and may have texts with the same id.
bool IsMessageBox(HWND hWindow) {
    const auto hInstance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(hWindow, GWLP_HINSTANCE));
    return GetDlgItem(hWindow, kTextId) && (!hInstance || hInstance == GetModuleHandleW(L"user32.dll"));
}

UINT IconOf(HWND hBox) {
    for (const int nId : kIconIds) {
        const LRESULT icon = SendDlgItemMessageW(hBox, nId, STM_GETICON, 0, 0);
        if (!icon) continue;
        for (const auto& [pszIcon, nIcon] : {std::pair{IDI_ERROR, MB_ICONERROR},
                                             {IDI_QUESTION, MB_ICONQUESTION},
                                             {IDI_WARNING, MB_ICONWARNING},
                                             {IDI_INFORMATION, MB_ICONINFORMATION}})
            if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, pszIcon))) return nIcon;
    }
    return 0;
}

}  // namespace

MessageBoxRecorder::MessageBoxRecorder()
    : m_hHook(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId())) {
    EXPECT_TRUE(m_hHook);
    EXPECT_FALSE(g_pRecorder);
    g_pRecorder = this;
}

MessageBoxRecorder::~MessageBoxRecorder() {
    UnhookWindowsHookEx(m_hHook);
    g_pRecorder = nullptr;
    Verify();
}

void MessageBoxRecorder::Expect(const CString& strText, UINT nIcon, int nAnswer) {
    m_expected.push_back({strText, nIcon, nAnswer});
}

void MessageBoxRecorder::Verify() {
    for (const Box& box : m_expected) ADD_FAILURE() << "no message box: " << box.strText.GetString();
    m_expected.clear();
}

LRESULT CALLBACK MessageBoxRecorder::OnHook(int nCode, WPARAM wParam, LPARAM lParam) {
    const HWND hWindow = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_ACTIVATE && IsMessageBox(hWindow) && !GetPropW(hWindow, kAnswered)) {
        SetPropW(hWindow, kAnswered, hWindow);  // a box can be activated again before it is gone
        g_pRecorder->OnBox(hWindow);
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

void MessageBoxRecorder::OnBox(HWND hBox) {
    m_strCaption = WindowText(hBox);
    const CString strText = WindowText(GetDlgItem(hBox, kTextId));
    int nAnswer = IDCANCEL;
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected message box: " << strText.GetString();
    } else {
        const Box box = m_expected.front();
        m_expected.pop_front();
        nAnswer = box.nAnswer;
        EXPECT_STREQ(strText, box.strText);
        EXPECT_EQ(IconOf(hBox), box.nIcon) << strText.GetString();
        // The only button of a box can have another id.
        EXPECT_TRUE(nAnswer == IDOK || GetDlgItem(hBox, nAnswer)) << strText.GetString();
    }
    EndDialog(hBox, nAnswer);
}
