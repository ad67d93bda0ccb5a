#include "MessageBoxRecorder.h"

#include "WindowText.h"

#include <gtest/gtest.h>

namespace {

constexpr int kTextId = 0xFFFF;
constexpr wchar_t kAnswered[] = L"MessageBoxRecorder";
MessageBoxRecorder* g_pRecorder = nullptr;

// Other dialogs may have a text with that id too, but are of the module that shows them.
bool IsMessageBox(HWND hWindow) {
    const auto hModule = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(hWindow, GWLP_HINSTANCE));
    return GetDlgItem(hWindow, kTextId) && (!hModule || hModule == GetModuleHandleW(L"user32.dll"));
}

UINT IconOf(HWND hBox) {
    for (const int nChildId : {20, 1088})  // Windows, Wine
        for (const auto& [pszIcon, nIcon] : {std::pair{IDI_ERROR, MB_ICONERROR},
                                             {IDI_QUESTION, MB_ICONQUESTION},
                                             {IDI_WARNING, MB_ICONWARNING},
                                             {IDI_INFORMATION, MB_ICONINFORMATION}})
            if (SendDlgItemMessageW(hBox, nChildId, STM_GETICON, 0, 0) ==
                reinterpret_cast<LRESULT>(LoadIconW(nullptr, pszIcon)))
                return nIcon;
    return 0;
}

}  // namespace

MessageBoxRecorder::MessageBoxRecorder()
    : m_hHook(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId())) {
    g_pRecorder = this;
}

MessageBoxRecorder::~MessageBoxRecorder() {
    UnhookWindowsHookEx(m_hHook);
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
    const HWND hBox = reinterpret_cast<HWND>(wParam);
    // A box can be activated again before it is gone.
    if (nCode == HCBT_ACTIVATE && IsMessageBox(hBox) && !GetPropW(hBox, kAnswered)) {
        SetPropW(hBox, kAnswered, hBox);
        EndDialog(hBox, g_pRecorder->OnBox(hBox));
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

int MessageBoxRecorder::OnBox(HWND hBox) {
    m_strCaption = WindowText(hBox);
    m_hOwner = GetWindow(hBox, GW_OWNER);
    const CString strText = WindowText(GetDlgItem(hBox, kTextId));
    if (m_expected.empty()) {
        if (m_bAnswerAll) return IDCANCEL;
        ADD_FAILURE() << "unexpected message box: " << strText.GetString();
        return IDCANCEL;
    }
    const Box box = m_expected.front();
    m_expected.pop_front();
    EXPECT_STREQ(strText, box.strText);
    EXPECT_EQ(IconOf(hBox), box.nIcon) << strText.GetString();
    // The only button of a box can have another id.
    EXPECT_TRUE(box.nAnswer == IDOK || GetDlgItem(hBox, box.nAnswer)) << strText.GetString();
    return box.nAnswer;
}
