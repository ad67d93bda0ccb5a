#pragma once

#include "ccmdtarget.h"

class CWnd;

class MFX_MFC_API CWinThread : public CCmdTarget {
  public:
    CWinThread();
    ~CWinThread() override;

    virtual BOOL InitInstance();  // FALSE gives up the start
    virtual int ExitInstance();   // exit code

    CWnd* m_pMainWnd = nullptr;  // not owned
};
