#include "MFXConstraint.h"

#include "FrameworkTestSupport.h"
#include "MfxRule.h"

TEST(MFXConstraintTest, TakesParametersAndKeepsThemInItsElement) {
    CMfxRule rule;
    const auto addLimit = [&rule](CMFXConstraint& constraint, long nId, MfxOperator_e op) {
        CMfxParamStorage* pStorage =
            rule.CreateParamStorageObject(TypeDouble, nId, op, ParamLimit, true, false);
        pStorage->GetValues<double>().Add(0.1);
        constraint.AddParameter(pStorage);
        return pStorage;
    };
    CMFXConstraint& constraint = *rule.CreateConstraintObject(ConstraintByMaterial, L"Steel", false);
    EXPECT_FALSE(NodePtr(constraint.GetXMLNode())) << "no current document";
    MfxXMLDocument document;
    const CurrentDocumentScope scope(&document);
    const NodePtr pRoot(document.CreateRootNode(L"Rule"));
    pRoot->AppendNode(NodePtr(constraint.GetXMLNode()).get());
    EXPECT_EQ(document.ToUtf8(),
              AsDocument("<Rule>\n  <Constraint Type=\"1\" Value=\"Steel\" Status=\"0\" />\n</Rule>"));

    CMfxParamStorage* const pKept =
        rule.CreateParamStorageObject(TypeText, 1, OperatorEqual, ParamText, true, false);
    CMfxParamStorage* const pMoved = addLimit(constraint, 2, OperatorAtMost);
    addLimit(constraint, 3, OperatorNone);
    addLimit(constraint, 4, OperatorTransient);
    addLimit(constraint, 5, OperatorAtLeast);
    constraint.AddParameter(nullptr);
    EXPECT_TRUE(constraint.FindParameterInArray(2) == pMoved && !constraint.FindParameterInArray(1));
    EXPECT_TRUE(rule.m_paramArray.GetCount() == 1 && rule.FindParameterInArray(1) == pKept);

    MfxXMLNode *pNone = nullptr, *pNode = constraint.GetXMLNode();
    const NodePtr pOwner(pNode);
    EXPECT_EQ(NodeListPtr(pNode->GetNodeList(L""))->GetSize(), 2) << "those that are saved";
    CMFXConstraint& read = *rule.CreateConstraintObject(ConstraintByMaterial, L"Bronze", true);
    CMfxParamStorage* const pLimit = addLimit(read, 5, OperatorEqual);
    pLimit->GetValues<double>()[0] = 7;
    read.PopulateFromXML(pNone);
    EXPECT_EQ(pLimit->GetValues<double>()[0], 7);
    read.PopulateFromXML(pNode);
    EXPECT_TRUE(pLimit->GetValues<double>()[0] == 0.1 && pLimit->m_operator == OperatorAtLeast);
    EXPECT_TRUE(read.m_strName == L"Bronze" && read.m_bActive);
}
