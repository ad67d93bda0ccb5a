#include "ResourceSwitch.h"

#include "SandCastingRulesApp.h"

ResourceSwitch::ResourceSwitch() : m_hPrevious(AfxGetResourceHandle()) {
    if (g_pSandCastingRulesApp && g_pSandCastingRulesApp->m_hResDll)
        AfxSetResourceHandle(g_pSandCastingRulesApp->m_hResDll);
}

ResourceSwitch::~ResourceSwitch() {
    if (m_hPrevious) AfxSetResourceHandle(m_hPrevious);
}
