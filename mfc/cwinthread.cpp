#include "cwinthread.h"

CWinThread::CWinThread() = default;

CWinThread::~CWinThread() = default;

BOOL CWinThread::InitInstance() {
    return TRUE;
}

int CWinThread::ExitInstance() {
    return 0;
}
