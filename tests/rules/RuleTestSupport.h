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

    // The parameters by their id: " 10067=4/7/1/0", with type, operator, kind and whether it is read-only.
    static CString Kinds(const MfxParamArray& params) {
        std::wostringstream text;
        for (const auto& [type, p] : params)
            text << L" " << p->m_nParamId << L"=" << type << L"/" << p->m_operator << L"/" << p->m_paramType
                 << L"/" << p->m_bReadOnly;
        return text.str().c_str();
    }
    static UnitPair Units(const CMfxRule& rule) { return {rule.m_nLengthUnit, rule.m_nAngleUnit}; }

    MessageBoxRecorder m_boxes;
    StartedApp m_app{L"french"};
    MfxXMLDocument m_document;
};
