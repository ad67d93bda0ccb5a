#include "ResourceSwitch.h"

#include "SandCastingRulesApp.h"

ResourceSwitch::ResourceSwitch() : m_hPrevious(AfxGetResourceHandle()) {
    if (!g_pSandCastingRulesApp) return;
    // Without a library the module itself, which has no texts: the host's must not be taken for ours.
    const HINSTANCE hLibrary = g_pSandCastingRulesApp->m_hResDll;
    AfxSetResourceHandle(hLibrary ? hLibrary : g_pSandCastingRulesApp->m_hInstance);
}

ResourceSwitch::~ResourceSwitch() {
    if (m_hPrevious) AfxSetResourceHandle(m_hPrevious);
}
