#pragma once

#include "RuleRecord.h"
#include "module/ModuleTestSupport.h"
#include "support/MessageBoxRecorder.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

// What tests of rules share; the application runs in French.
struct RuleTest : testing::Test {
    RuleTest() { SetRuleDocument(&m_document); }
    ~RuleTest() override { SetRuleDocument(nullptr); }

    // A record in a document whose root has the attributes; it lives until the next one.
    NodePtr Record(const std::string& content, const std::string& attributes = "Unit='1'") {
        EXPECT_TRUE(m_document.Parse("<R " + attributes + "><Rule>" + content + "</Rule></R>").bOk);
        return NodePtr(NodePtr(m_document.GetRootNode())->SelectSingleNode(L"Rule"));
    }
    static std::string Parameter(int nId, const std::string& values, int nOperator = 8, int nStatus = 1) {
        return "<Parameter Type='" + std::to_string(nId) + "' Status='" + std::to_string(nStatus) +
               "'><Operator>" + std::to_string(nOperator) + "</Operator><ParameterType>1</ParameterType>" +
               std::regex_replace(values, std::regex("\\S+"), "<Value>$&</Value>") + "</Parameter>";
    }
    static void Remove(MfxParamArray& params, int nIndex) {
        delete params[nIndex].m_pStorage;
        params.RemoveAt(nIndex);
    }

    // Parameters by their id, constraints by their name: " 10067: 6 -10068: 16 Steel{ 10067: 1 2 }". A minus
    // stands before what is inactive.
    static CString Values(const CMfxRule& rule) {
        CString strAll = Values(rule.m_paramArray);
        for (const CMFXConstraint* p : rule.m_constraintArray)
            strAll += (p->m_bActive ? L" " : L" -") + p->m_strName + L"{" + Values(p->m_paramArray) + L" }";
        return strAll;
    }
    static CString Values(const MfxParamArray& params) {
        std::wostringstream text;
        for (const auto& [type, p] : params) {
            text << (p->m_bStatus ? L" " : L" -") << p->m_nParamId << L":";
            if (type == TypeText) text << L" " << p->GetValues<CString>()[0].GetString();
            if (type == TypeDouble)
                for (const double value : p->GetValues<double>()) text << L" " << value;
        }
        return text.str().c_str();
    }

    // What the parameters of a constraint must be, in their order; all are lists of numbers.
    struct Kind {
        long nId;
        MfxOperator_e op;
        MfxParamType_e type;
    };
    static void ExpectKinds(const CMFXConstraint& constraint, const std::vector<Kind>& kinds) {
        EXPECT_EQ(constraint.m_type, ConstraintByMaterial);
        ASSERT_EQ(constraint.m_paramArray.GetCount(), static_cast<int>(kinds.size()));
        for (int i = 0; i < constraint.m_paramArray.GetCount(); ++i) {
            const CMfxParamStorage& storage = *constraint.m_paramArray[i].m_pStorage;
            const Kind& kind = kinds[static_cast<std::size_t>(i)];
            EXPECT_EQ(storage.m_nParamId, kind.nId);
            EXPECT_EQ(storage.m_operator, kind.op) << kind.nId;
            EXPECT_EQ(storage.m_paramType, kind.type) << kind.nId;
            EXPECT_EQ(constraint.m_paramArray[i].m_type, TypeDouble) << kind.nId;
            EXPECT_FALSE(storage.m_bReadOnly) << kind.nId;
        }
    }
    static UnitPair Units(const CMfxRule& rule) { return {rule.m_nLengthUnit, rule.m_nAngleUnit}; }

    MessageBoxRecorder m_boxes;
    StartedApp m_app{L"french"};
    MfxXMLDocument m_document;
};
