#include "MfxXMLNode.h"

#include "FrameworkTestSupport.h"

TEST(MfxXMLNodeTest, KeepsAttributesAndTexts) {
    MfxXMLDocument document;
    const NodePtr pRoot = ParseRoot(document, "<a z='1' b='2'>x<!-- c -->y<![CDATA[z]]></a>");
    CString strMissing = L"unchanged";
    EXPECT_FALSE(pRoot->GetAttributeValue(L"c", strMissing));
    EXPECT_EQ(strMissing + pRoot->GetNodeValue(), L"unchangedxyz");
    EXPECT_TRUE(pRoot->AddAttribute(L"z", L"3") && pRoot->AddAttribute(L"a", L"4"));
    int nValue = 99;
    double dValue = 99;
    EXPECT_FALSE(pRoot->GetNodeValueInInt(nValue) || pRoot->GetNodeValueInDouble(dValue));
    EXPECT_TRUE(nValue == 99 && dValue == 99);
    pRoot->SetNodeValue(L" -7.25 ");
    EXPECT_TRUE(pRoot->GetNodeValueInInt(nValue) && pRoot->GetNodeValueInDouble(dValue));
    EXPECT_TRUE(nValue == -7 && dValue == -7.25);
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a z=\"3\" b=\"2\" a=\"4\">\n  <!-- c --> -7.25 </a>"));
}

TEST(MfxXMLNodeTest, RefusesNamesThatCouldNotBeReadBack) {
    MfxXMLDocument document;
    const NodePtr pRoot(document.CreateRootNode(L"a"));
    for (const CString strName : {L"", L"a b", L"<a", L"1a", L"-a", L"a=", L"a/b", L"a&", L"a(b", L"a,b"}) {
        SCOPED_TRACE(strName.GetString());
        EXPECT_FALSE(NodePtr(document.CreateNode(strName)) || NodePtr(pRoot->AppendNode(strName)));
        EXPECT_FALSE(pRoot->AddAttribute(strName, L"1"));
    }
    EXPECT_FALSE(NodePtr(document.CreateRootNode(L"1")));
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a />")) << "the document stays as it was";
    EXPECT_TRUE(NodePtr(pRoot->AppendNode(CString(L"x:\u00e4\u9435-1.2")))->AddAttribute(L"_a", L"1"));
}

TEST(MfxXMLNodeTest, FindsChildElements) {
    MfxXMLDocument document;
    const NodePtr pRoot =
        ParseRoot(document, "<a>t<?b pi?><c/><b>1</b><c><b>deep</b></c><!--b--><b>2</b></a>");
    EXPECT_EQ(NodePtr(pRoot->SelectSingleNode(L"b"))->GetNodeValue(), L"1");
    EXPECT_FALSE(NodePtr(pRoot->SelectSingleNode(L"B")));
    EXPECT_EQ(NodeListPtr(pRoot->GetNodeList(L"d"))->GetSize(), 0);
    EXPECT_EQ(NodeListPtr(pRoot->GetNodeList(L""))->GetSize(), 4);
    const NodeListPtr pList(pRoot->GetNodeList(L"b"));
    ASSERT_EQ(pList->GetSize(), 2);
    EXPECT_EQ((*pList)[0]->GetNodeValue() + (*pList)[1]->GetNodeValue(), L"12");
    EXPECT_TRUE(!(*pList)[-1] && !(*pList)[2]);
}

TEST(MfxXMLNodeTest, AppendsAndMovesElements) {
    MfxXMLDocument document, other;
    const NodePtr pRoot = ParseRoot(document, "<a><b><d/></b><c/></a>");
    const NodePtr pB(pRoot->SelectSingleNode(L"b")), pD(pB->SelectSingleNode(L"d"));
    pRoot->AppendNode(static_cast<MfxXMLNode*>(nullptr));
    pD->AppendNode(pB.get());
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a>\n  <b>\n    <d />\n  </b>\n  <c />\n</a>"))
        << "not into itself";
    pRoot->AppendNode(pB.get());

    const NodePtr pForeign = ParseRoot(other, "<o><x y=\"1\"><z>t</z></x></o>");
    const NodePtr pX(pForeign->SelectSingleNode(L"x")), pDetached(other.CreateNode(L"w"));
    pB->AppendNode(pX.get());
    pB->AppendNode(pDetached.get());
    EXPECT_EQ(other.ToUtf8(), AsDocument("<o />"));
    NodePtr(other.CreateRootNode(L"gone"));
    pX->AddAttribute(L"v", L"2");
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a>\n  <c />\n  <b>\n    <d />\n    <x y=\"1\" v=\"2\">\n"
                                            "      <z>t</z>\n    </x>\n    <w />\n  </b>\n</a>"));
}

TEST(MfxXMLNodeTest, InsertsAndRemoves) {
    MfxXMLDocument document, other;
    const NodePtr pRoot = ParseRoot(document, "<a x=\"1\" y=\"2\"><b/><c><d/></c></a>");
    const NodePtr pB(pRoot->SelectSingleNode(L"b")), pC(pRoot->SelectSingleNode(L"c"));
    const NodePtr pD(pC->SelectSingleNode(L"d")), pForeign(other.CreateRootNode(L"f"));
    const NodePtr pNew(document.CreateNode(L"n"));
    EXPECT_FALSE(pRoot->InsertAfter(pForeign.get(), pB.get()));
    EXPECT_FALSE(pD->InsertAfter(pC.get(), nullptr)) << "not into an element that is in it";
    EXPECT_TRUE(pRoot->InsertAfter(pNew.get(), pB.get()));
    EXPECT_TRUE(pRoot->InsertAfter(pD.get(), nullptr));
    EXPECT_THAT(pRoot->GetAttributeNames(), testing::ElementsAre(CString(L"x"), CString(L"y")));
    pRoot->RemoveAttribute(L"x");
    pRoot->RemoveNode(*pB);
    EXPECT_EQ(document.ToUtf8(), AsDocument("<a y=\"2\">\n  <d />\n  <n />\n  <c />\n</a>"));
}
