#pragma once

#include <afx.h>

#include <deque>

// Answers the message boxes of this thread, and fails the test when one comes that was not expected, with
// another text or icon than expected, or when an expected one does not come. One recorder at a time.
class MessageBoxRecorder {
  public:
    MessageBoxRecorder();
    ~MessageBoxRecorder();

    // The next box: its text, its icon (MB_ICONERROR and the like, 0 for none), the button that answers it.
    void Expect(const CString& strText, UINT nIcon = 0, int nAnswer = IDOK);

    // From now on answers any box with Cancel or its only button.
    void AnswerAll() { m_bAnswerAll = true; }

    // Fails the test for expected boxes that have not come, and forgets them.
    void Verify();

    // Of the last box.
    CString m_strCaption;
    HWND m_hOwner = nullptr;

  private:
    struct Box {
        CString strText;
        UINT nIcon;
        int nAnswer;
    };

    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);
    int OnBox(HWND hBox);

    std::deque<Box> m_expected;
    HHOOK m_hHook;
    bool m_bAnswerAll = false;
};
