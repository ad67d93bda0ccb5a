#include "DialogUser.h"

#include "WindowText.h"

#include <dlgs.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

constexpr DWORD kDialogAtom = 0x8002;  // the window class of dialogs
constexpr UINT kTickMs = 10;
constexpr ULONGLONG kPatienceMs = 20'000;
DialogUser* g_pUser = nullptr;

BOOL CALLBACK TakeOpenDialog(HWND hWindow, LPARAM pFound) {
    const bool bDialog = GetClassLongW(hWindow, GCW_ATOM) == kDialogAtom;
    if (!bDialog || !IsWindowVisible(hWindow) || !IsWindowEnabled(hWindow)) return TRUE;
    *reinterpret_cast<HWND*>(pFound) = hWindow;
    return FALSE;
}

INPUT KeyInput(WORD wKey, WORD wScan, DWORD dwFlags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = {wKey, wScan, dwFlags, 0, 0};
    return input;
}

INPUT ButtonInput(DWORD dwFlags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = dwFlags;
    return input;
}

bool IsProgramInFront() {
    DWORD dwProcess = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &dwProcess);
    return dwProcess == GetCurrentProcessId();
}

void Send(std::vector<INPUT> inputs) {
    const auto nInputs = static_cast<UINT>(inputs.size());
    EXPECT_EQ(SendInput(nInputs, inputs.data(), sizeof(INPUT)), nInputs);
}

}  // namespace

// A timer's message comes only when the queue has nothing else, so each tick finds the dialog idle.
DialogUser::DialogUser(const std::function<void(DialogUser&)>& act)
    : m_act(act),
      m_nTimer(SetTimer(nullptr, 0, kTickMs, OnTick)),
      m_pLoop(ConvertThreadToFiber(nullptr)),
      m_pActor(CreateFiber(0, OnFiber, this)) {
    g_pUser = this;
}

DialogUser::~DialogUser() {
    KillTimer(nullptr, m_nTimer);
    while (m_hDialog && !m_bDone) Act();  // what act does after the dialog has closed
    DeleteFiber(m_pActor);
    ConvertFiberToThread();
    g_pUser = nullptr;
    EXPECT_TRUE(m_hDialog) << "no dialog came";
}

void CALLBACK DialogUser::OnTick(HWND, UINT, UINT_PTR, DWORD) {
    if (g_pUser && !g_pUser->m_bActing) g_pUser->Tick();
}

void DialogUser::Tick() {
    if (GetTickCount64() - m_nStart > kPatienceMs) {
        ADD_FAILURE() << (m_hDialog ? "the dialog takes too long" : "no dialog came");
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 1);
    }
    if (!m_hDialog) Find();
    if (!m_hDialog) return;
    if (!m_bDone) {
        Act();
    } else if (IsOpen()) {
        ADD_FAILURE() << "the dialog is still open";
        PostMessageW(m_hDialog, WM_COMMAND, IDCANCEL, 0);
    }
}

// Ticks also come while act is at work, in the loop of a message box that it made come.
void DialogUser::Act() {
    m_bActing = true;
    SwitchToFiber(m_pActor);
    m_bActing = false;
}

void DialogUser::Find() {
    EnumThreadWindows(GetCurrentThreadId(), TakeOpenDialog, reinterpret_cast<LPARAM>(&m_hDialog));
    if (m_hDialog) SetForegroundWindow(m_hDialog);
}

void CALLBACK DialogUser::OnFiber(void* pUser) {
    auto& user = *static_cast<DialogUser*>(pUser);
    user.Idle();
    user.m_act(user);
    user.m_bDone = true;
    for (;;) SwitchToFiber(user.m_pLoop);
}

void DialogUser::Idle() {
    SwitchToFiber(m_pLoop);
}

// Or the input would go to somebody else's window. Right after a message box the system may still be at it.
void DialogUser::ComeToTheFront() {
    for (int i = 0; i < 100 && IsOpen() && !IsProgramInFront(); ++i) {
        SetForegroundWindow(m_hDialog);
        Idle();
    }
    EXPECT_TRUE(!IsOpen() || IsProgramInFront());
}

CString DialogUser::TextOf(int nControlId) const {
    return WindowText(Control(nControlId));
}

void DialogUser::Press(WORD wKey, WORD wHeldKey) {
    ComeToTheFront();
    std::vector<INPUT> inputs{KeyInput(wKey, 0, 0), KeyInput(wKey, 0, KEYEVENTF_KEYUP)};
    if (wHeldKey) {
        inputs.insert(inputs.begin(), KeyInput(wHeldKey, 0, 0));
        inputs.push_back(KeyInput(wHeldKey, 0, KEYEVENTF_KEYUP));
    }
    Send(inputs);
    Idle();
}

void DialogUser::Type(const CString& strText) {
    ComeToTheFront();
    for (int i = 0; i < strText.GetLength(); ++i) {
        Send({KeyInput(0, strText[i], KEYEVENTF_UNICODE),
              KeyInput(0, strText[i], KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
        Idle();
    }
}

void DialogUser::ClickAt(HWND hWindow, CPoint point) {
    ComeToTheFront();
    RECT rect{};
    GetClientRect(hWindow, &rect);
    if (point.x < 0) point = CPoint(rect.right / 2, rect.bottom / 2);
    ClientToScreen(hWindow, &point);
    SetCursorPos(point.x, point.y);
    Idle();  // the system moves the pointer in its own time
    Send({ButtonInput(MOUSEEVENTF_LEFTDOWN), ButtonInput(MOUSEEVENTF_LEFTUP)});
    Idle();
}

HWND DialogUser::WaitForNextDialog() {
    HWND hDialog = nullptr;
    for (int i = 0; i < 500 && !hDialog; ++i) {
        Idle();
        EnumThreadWindows(GetCurrentThreadId(), TakeOpenDialog, reinterpret_cast<LPARAM>(&hDialog));
        if (hDialog == m_hDialog) hDialog = nullptr;
    }
    EXPECT_TRUE(hDialog) << "no other dialog came";
    return hDialog;
}

void DialogUser::InNextDialog(const std::function<void()>& act) {
    const HWND hDialog = WaitForNextDialog();
    if (!hDialog) return;
    const HWND hBehind = std::exchange(m_hDialog, hDialog);
    act();
    EXPECT_FALSE(IsOpen());
    m_hDialog = hBehind;
    Idle();
}

void DialogUser::ChooseFile(const CString& strPath) {
    const HWND hFiles = WaitForNextDialog();
    ASSERT_TRUE(hFiles);
    SetDlgItemTextW(hFiles, cmb13, strPath);
    PostMessageW(hFiles, WM_COMMAND, IDOK, 0);
    while (IsWindow(hFiles)) Idle();
    Idle();
}

void DialogUser::Enter(int nControlId, const CString& strText) {
    SendMessageW(m_hDialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(nControlId)), TRUE);
    SendMessageW(Control(nControlId), EM_SETSEL, 0, -1);
    if (strText.IsEmpty()) Press(VK_DELETE);
    Type(strText);
}

void RunDialog(const std::function<void()>& open, const std::function<void(DialogUser&)>& act) {
    const DialogUser user(act);
    open();
}
