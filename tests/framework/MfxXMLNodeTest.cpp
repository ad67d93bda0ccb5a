#include "MfxXMLNode.h"

#include "FrameworkTestSupport.h"

TEST(MfxXMLNodeTest, KeepsAttributesAndTextsAndFindsChildren) {
    MfxXMLDocument document;
    NodePtr pRoot = ParseRoot(document, "<a z='1' b='2'>x<!-- c -->y<![CDATA[z]]></a>");
    CString strMissing = L"unchanged";
    EXPECT_FALSE(pRoot->GetAttributeValue(L"c", strMissing));
    EXPECT_EQ(strMissing + pRoot->GetNodeValue(), L"unchangedxyz");
    for (const LPCWSTR pszName : {L"z", L"a"}) EXPECT_TRUE(pRoot->AddAttribute(pszName, L"3"));
    int nValue = 99;
    double dValue = 99;
    EXPECT_FALSE(pRoot->GetNodeValueInInt(nValue));
    EXPECT_FALSE(pRoot->GetNodeValueInDouble(dValue));
    EXPECT_EQ(nValue + dValue, 99 + 99) << "they stay as they were";
    pRoot->SetNodeValue(L" -7.25 ");
    EXPECT_TRUE(pRoot->GetNodeValueInInt(nValue));
    EXPECT_TRUE(pRoot->GetNodeValueInDouble(dValue));
    EXPECT_EQ(nValue, -7);
    EXPECT_EQ(dValue, -7.25);
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a z=\"3\" b=\"2\" a=\"3\">\n  <!-- c --> -7.25 </a>"));

    pRoot = ParseRoot(document, "<a>t<?b pi?><c/><b>1</b><c><b>deep</b></c><!--b--><b>2</b></a>");
    EXPECT_FALSE(NodePtr(pRoot->SelectSingleNode(L"B")));
    EXPECT_EQ(NodeListPtr(pRoot->GetNodeList(L""))->GetSize(), 4);
    const NodeListPtr pList(pRoot->GetNodeList(L"b"));
    ASSERT_EQ(pList->GetSize(), 2);
    EXPECT_EQ(NodePtr(pRoot->SelectSingleNode(L"b"))->GetNodeValue() + (*pList)[1]->GetNodeValue(), L"12");
    for (const int nOutside : {-1, 2}) EXPECT_FALSE((*pList)[nOutside]);
}

TEST(MfxXMLNodeTest, AppendsInsertsMovesAndRemovesElements) {
    MfxXMLDocument document, other;
    const NodePtr pRoot = ParseRoot(document, "<a x=\"1\" y=\"2\"><b><d/></b><c/></a>");
    const NodePtr pB(pRoot->SelectSingleNode(L"b")), pC(pRoot->SelectSingleNode(L"c"));
    const NodePtr pD(pB->SelectSingleNode(L"d")), pNew(document.CreateNode(L"n"));
    const NodePtr pForeign = ParseRoot(other, "<o><x y=\"1\"><z>t</z></x></o>");
    const NodePtr pX(pForeign->SelectSingleNode(L"x")), pDetached(other.CreateNode(L"w"));
    EXPECT_EQ(document.GetLine(*pNew), 0) << "it was never read";
    EXPECT_FALSE(NodePtr(pRoot->GetParentNode()));
    // Nothing, into itself, and behind an element of another parent.
    pRoot->AppendNode(static_cast<MfxXMLNode*>(nullptr));
    pD->AppendNode(pB.get());
    EXPECT_FALSE(pD->InsertAfter(pB.get(), nullptr));
    EXPECT_FALSE(pRoot->InsertAfter(pForeign.get(), pB.get()));
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a x=\"1\" y=\"2\">\n  <b>\n    <d />\n  </b>\n  <c />\n</a>"));

    pRoot->AppendNode(pB.get());
    pB->AppendNode(pX.get());
    pB->AppendNode(pDetached.get());
    EXPECT_TRUE(pRoot->InsertAfter(pNew.get(), pC.get()));
    EXPECT_TRUE(pRoot->InsertAfter(pD.get(), nullptr));
    EXPECT_EQ(other.ToUtf8(), AsDocument("<o />"));
    NodePtr(other.CreateRootNode(L"gone"));
    pX->AddAttribute(L"v", L"2");
    EXPECT_THAT(pRoot->GetAttributeNames(), testing::ElementsAre(CString(L"x"), CString(L"y")));
    pRoot->RemoveAttribute(L"x");
    pRoot->RemoveNode(*pC);
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a y=\"2\">\n  <d />\n  <n />\n  <b>\n    <x y=\"1\" v=\"2\">\n"
                                            "      <z>t</z>\n    </x>\n    <w />\n  </b>\n</a>"));
}
