#pragma once

#include <afx.h>

#include <deque>

// Watches the message boxes of this thread, answers each at once, and fails the test when a box comes that was
// not expected, or comes with another text or icon, or when an expected one does not come. One at a time.
class MessageBoxRecorder {
  public:
    MessageBoxRecorder();
    ~MessageBoxRecorder();
    MessageBoxRecorder(const MessageBoxRecorder&) = delete;
    MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

    // The next box: its text, its icon (MB_ICONERROR and the like, 0 for none), the button that answers it.
    void Expect(const CString& strText, UINT nIcon = 0, int nAnswer = IDOK);

    // Fails the test for expected boxes that have not come, and forgets them.
    void Verify();

    // Caption of the last box.
    CString m_strCaption;

  private:
    struct Box {
        CString strText;
        UINT nIcon;
        int nAnswer;
    };

    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);
    void OnBox(HWND hBox);

    std::deque<Box> m_expected;
    HHOOK m_hHook;
};
