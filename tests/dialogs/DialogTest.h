#pragma once

#include "LanguageUtil.h"
#include "MfxRule.h"
#include "support/DialogUser.h"
#include "support/GuiObjects.h"
#include "support/MessageBoxRecorder.h"

#include <afxwin.h>

#include <gtest/gtest.h>

// Runs rules' dialogs as a host does: from the loaded module, through the rule's virtual operation. The host
// has a window, an application object and a resource handle of its own, which every dialog has to leave as
// they are.
class DialogTest : public testing::Test {
  protected:
    DialogTest();
    ~DialogTest() override;

    void LoadModule(const CString& strLanguage);
    void UnloadModule();

    // The module's rule with that id.
    CMfxRule& Rule(int nRuleId);

    // Opens the rule's dialog and acts in it; see RunDialog.
    void Configure(CMfxRule& rule, const std::function<void(DialogUser&)>& act);

    HWND m_hHostWindow;
    MessageBoxRecorder m_boxes;

  private:
    HMODULE m_hModule = nullptr;
    MfxRuleArray m_rules;
};
