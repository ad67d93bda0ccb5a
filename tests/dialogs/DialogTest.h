#pragma once

#include "CastSizeAndWeightBand.h"
#include "FakeDatabase.h"
#include "RuleParameters.h"
#include "support/DialogUser.h"
#include "support/GuiObjects.h"
#include "support/LoadedModule.h"
#include "support/MessageBoxRecorder.h"

#include <algorithm>

using Bands = std::vector<CastSizeAndWeightBand>;

// Gives a size-and-weight rule of the loaded module a material group, as one that was read has it.
inline void AddGroupTo(CMfxRule& rule, const CString& strName, const Bands& bands) {
    CMFXConstraint* const pGroup = rule.CreateConstraintObject(ConstraintByMaterial, strName, true);
    for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
        CMfxParamStorage* const pList = rule.CreateParamStorageObject(
            TypeDouble, kBandParameterIds[cell], OperatorAtMost, ParamLimit, true, false);
        for (const CastSizeAndWeightBand& band : bands)
            pList->GetValues<double>().Add(band.*kBandValues[cell]);
        pGroup->AddParameter(pList);
    }
}

// Runs rules' dialogs as a host does: from the loaded module, through the rule's virtual operation. The host
// has a window, an application object and a resource handle of its own, which every dialog must leave as they
// are.
class DialogTest : public testing::Test {
  protected:
    explicit DialogTest(const CString& strLanguage) : m_module(strLanguage) {
        SetActiveWindow(m_hHostWindow);
    }
    ~DialogTest() override { DestroyWindow(m_hHostWindow); }

    // The module's rule with that id.
    CMfxRule& Rule(int nRuleId) {
        return **std::find_if(m_rules.begin(), m_rules.end(),
                              [=](const auto& pRule) { return pRule->GetRuleId() == nRuleId; });
    }

    // Opens the rule's dialog and acts in it; see RunDialog.
    void Configure(CMfxRule& rule, const std::function<void(DialogUser&)>& act) {
        const GuiObjects before = CountGuiObjects();
        RunDialog([&] { rule.ConfigureRuleDialog(); },
                  [&](DialogUser& user) {
                      EXPECT_FALSE(IsWindowEnabled(m_hHostWindow)) << "the host could delete the rule";
                      EXPECT_FALSE(IsWindowEnabled(m_hOwner));
                      EXPECT_EQ(GetWindow(user.Window(), GW_OWNER), m_hOwner);
                      act(user);
                  });
        EXPECT_TRUE(IsWindowEnabled(m_hHostWindow));
        EXPECT_TRUE(IsWindowEnabled(m_hOwner));
        EXPECT_EQ(GetActiveWindow(), m_hOwner);
        EXPECT_EQ(AfxGetResourceHandle(), LoadedModule::HostResources());
        EXPECT_EQ(CountGuiObjects().nWindows, before.nWindows);
    }

    const HWND m_hHostWindow = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                             300, 200, nullptr, nullptr, nullptr, nullptr);
    HWND m_hOwner = m_hHostWindow;  // of the dialogs
    FakeDatabase m_database;
    MessageBoxRecorder m_boxes;
    const LoadedModule m_module;
    const std::vector<LoadedModule::RulePtr> m_rules = m_module.GetAllRules();
};
