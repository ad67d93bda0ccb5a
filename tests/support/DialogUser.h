#pragma once

#include <afxwin.h>

#include <functional>

// What a test does in a modal dialog, as a user would: with real keys and clicks, which take their way
// through the dialog's own message loop. It runs inside that loop, so it may also look at and send to the
// windows.
class DialogUser {
  public:
    HWND Window() const { return m_hDialog; }
    HWND Control(int nControlId) const { return GetDlgItem(m_hDialog, nControlId); }
    CString TextOf(int nControlId) const;

    // Lets the dialog work off everything that waits for it.
    void Idle();

    void Press(WORD wKey, WORD wHeldKey = 0);  // virtual keys
    void Type(const CString& strText);         // with the characters' own keys, whatever the keyboard
    void ClickOn(int nControlId) { ClickAt(Control(nControlId), CPoint(-1, -1)); }
    void ClickAt(HWND hWindow, CPoint point);  // client area; (-1, -1) is the middle
    // In a dialog for files that the last action has made come.
    void ChooseFile(const CString& strPath);
    // Acts in a dialog that the last action has made come, and that act closes.
    void InNextDialog(const std::function<void()>& act);
    // Selects all text of a box, then types.
    void Enter(int nControlId, const CString& strText);

    bool IsOpen() const { return IsWindowVisible(m_hDialog); }

  private:
    friend void RunDialog(const std::function<void()>&, const std::function<void(DialogUser&)>&);

    explicit DialogUser(const std::function<void(DialogUser&)>& act);
    ~DialogUser();
    static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD);
    static void CALLBACK OnFiber(void* pUser);
    void Tick();
    void Act();
    void ComeToTheFront();
    void Find();
    HWND WaitForNextDialog();

    const std::function<void(DialogUser&)>& m_act;
    HWND m_hDialog = nullptr;
    UINT_PTR m_nTimer;
    ULONGLONG m_nStart = GetTickCount64();
    void* m_pLoop;   // fiber of the dialog's message loop
    void* m_pActor;  // fiber of act
    bool m_bActing = false;
    bool m_bDone = false;
};

// Runs open, which shows a modal dialog, and act in it once it waits for its user. Fails the test when no
// dialog comes and when it is still open after act; it is cancelled then.
void RunDialog(const std::function<void()>& open, const std::function<void(DialogUser&)>& act);
