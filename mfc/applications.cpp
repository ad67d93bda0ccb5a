#include "applications.h"

#include "cwinapp.h"

CWinApp* mfx::CApplications::s_pFirst = nullptr;

void mfx::CApplications::Add(CWinApp* app) noexcept {
    app->m_pNext = s_pFirst;
    s_pFirst = app;
}

void mfx::CApplications::Remove(CWinApp* app) noexcept {
    CWinApp** link = &s_pFirst;
    while (*link && *link != app) link = &(*link)->m_pNext;
    if (*link) *link = app->m_pNext;
}

CWinApp* mfx::CApplications::Find(HMODULE module) noexcept {
    CWinApp* app = s_pFirst;
    while (app && app->m_hModule != module) app = app->m_pNext;
    return app;
}
