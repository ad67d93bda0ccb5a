#include "MaterialEdits.h"

#include "DatabaseLibrary.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

using namespace testing;

namespace {

// Editors of a database in a file of the test's own.
struct MaterialEditsTest : Test {
    MaterialEditsTest() {
        m_library.GetDatabase().SetPath(m_folder.Path(L"m.db").c_str());
        Load(m_edits);
    }
    ~MaterialEditsTest() override { m_library.GetDatabase().SetPath(L""); }  // closes the file

    static IDatabaseCollector& Database() { return *mfx_db::MFXDataHelper::getInstance(); }
    static void Load(MaterialEdits& edits) { EXPECT_EQ(edits.Load(Database()).problem, DatabaseNoProblem); }
    static void Save(MaterialEdits& edits) {
        const MfxDatabaseResult result = edits.Save(Database());
        EXPECT_EQ(result.problem, DatabaseNoProblem) << result.strText.GetString();
    }

    static int Find(const MaterialEdits& edits, const CString& strName) {
        const auto& items = edits.GetItems();
        for (std::size_t i = 0; i < items.size(); ++i)
            if (items[i].material.strName == strName && !items[i].bDeleted) return static_cast<int>(i);
        return -1;
    }
    int Find(const CString& strName) const { return Find(m_edits, strName); }

    static MaterialFlaw Rename(MaterialEdits& edits, const CString& strName, const CString& strNewName) {
        MaterialTexts texts = edits.GetTexts(Find(edits, strName));
        texts.strName = strNewName;
        return edits.Change(Find(edits, strName), texts);
    }
    MaterialFlaw SetFigures(const CString& strName, const CString& strDensity, const CString& strMinimum,
                            const CString& strMaximum) {
        return m_edits.Change(Find(strName), {strName, strDensity, strMinimum, strMaximum});
    }

    const TempFolder m_folder;
    DatabaseLibrary m_library;
    MaterialEdits m_edits;
};

constexpr wchar_t kGray[] = L"Gray Cast Iron";  // 0.1251968503937008 to 0.1874015748031496 inches

}  // namespace

TEST_F(MaterialEditsTest, ShowsUnitsThereAndBack) {
    const MaterialTexts inMillimetres{kGray, L"", L"3.18", L"4.76"};
    EXPECT_EQ(m_edits.GetTexts(Find(kGray)), inMillimetres);
    m_edits.SetWallUnit(LengthInch);
    EXPECT_EQ(m_edits.GetTexts(Find(kGray)), (MaterialTexts{kGray, L"", L"0.125197", L"0.187402"}));
    EXPECT_EQ(SetFigures(kGray, L"0.26", L"0.125197", L"0.187402"), MaterialFlaw::None);
    EXPECT_EQ(m_edits.GetItems()[static_cast<std::size_t>(Find(kGray))].material.minimumWall,
              0.1251968503937008)
        << "a figure that was not changed keeps its digits";
    m_edits.SetWallUnit(LengthMillimetre);
    m_edits.SetDensityUnit(DensityPoundPerCubicInch);
    EXPECT_EQ(SetFigures(kGray, L"0.26", L"3.18", L"5"), MaterialFlaw::None);
    m_edits.SetDensityUnit(DensityKilogramPerCubicMetre);
    EXPECT_STREQ(m_edits.GetTexts(Find(kGray)).strDensity, L"7196.775225");
    m_edits.SetDensityUnit(DensityPoundPerCubicInch);
    EXPECT_EQ(m_edits.GetTexts(Find(kGray)), (MaterialTexts{kGray, L"0.26", L"3.18", L"5.0"}));
    const MfxMaterial& gray = m_edits.GetItems()[static_cast<std::size_t>(Find(kGray))].material;
    EXPECT_EQ(gray.wallUnit, LengthMillimetre);
    EXPECT_DOUBLE_EQ(gray.minimumWall.value_or(0), 3.18);
}

TEST_F(MaterialEditsTest, RefusesFlaws) {
    const struct {
        MaterialTexts texts;
        MaterialFlaw flaw;
    } kCases[] = {
        {{L"  ", L"", L"", L""}, MaterialFlaw::NoName},
        {{L"malleable cast iron", L"", L"", L""}, MaterialFlaw::NameTwice},
        {{kGray, L"0", L"", L""}, MaterialFlaw::Density},
        {{kGray, L"1.2.3", L"", L""}, MaterialFlaw::Density},
        {{kGray, L"", L".", L""}, MaterialFlaw::MinimumWall},
        {{kGray, L"", L"", L"0.0"}, MaterialFlaw::MaximumWall},
        {{kGray, L"", L"3", L"2.9"}, MaterialFlaw::MaximumBelowMinimum},
        {{kGray, L"", L"3.18", L"2"}, MaterialFlaw::MaximumBelowMinimum},
    };
    for (const auto& [texts, flaw] : kCases) EXPECT_EQ(m_edits.Change(Find(kGray), texts), flaw);
    EXPECT_EQ(Rename(m_edits, L"Iron", L"Iron; Steel"), MaterialFlaw::NameHasSemicolon);
    EXPECT_EQ(Rename(m_edits, L"Iron", L"steel"), MaterialFlaw::NameTwice);
    EXPECT_EQ(Rename(m_edits, kGray, L"\tGRAY cast\tiron "), MaterialFlaw::None) << "its own name";
    EXPECT_GE(Find(L"GRAY cast iron"), 0);
    EXPECT_EQ(m_edits.GetChanges().size(), 1u);
}

TEST_F(MaterialEditsTest, SavesAllChangesTogether) {
    const CString strName = L"Stahlguß, acier coulé, 鋳鉄, 주철, 铸铁";
    EXPECT_EQ(Rename(m_edits, L"Iron", L"Irons"), MaterialFlaw::None);
    EXPECT_EQ(SetFigures(kGray, L"7.2", L"", L"8"), MaterialFlaw::None);
    const int nGroup = m_edits.AddGroup(0, L"New group");
    const int nMaterial = m_edits.AddMaterial(nGroup, strName);
    EXPECT_EQ(m_edits.AddMaterial(nGroup, strName), nMaterial + 1);
    EXPECT_EQ(m_edits.GetTexts(nMaterial + 1).strName, strName + L" 2");
    m_edits.Delete(nMaterial);
    m_edits.Delete(Find(L"Steel"));
    MaterialEdits other;
    Load(other);
    EXPECT_GE(Find(other, L"Steel"), 0) << "nothing is saved yet";
    Save(m_edits);
    Load(other);
    EXPECT_EQ(Find(other, L"Steel"), -1);
    EXPECT_EQ(Find(other, strName), -1);
    EXPECT_EQ(other.GetItems()[static_cast<std::size_t>(Find(other, strName + L" 2"))].nParent,
              Find(other, L"New group"));
    EXPECT_EQ(other.GetTexts(Find(other, kGray)), (MaterialTexts{kGray, L"7.2", L"", L"8.0"}));
    EXPECT_STREQ(Database().FindMaterialGroups(L"Cast Iron"), L"Irons;") << "the family stays";
}

TEST_F(MaterialEditsTest, NoticesAnotherEditor) {
    MaterialEdits other;
    Load(other);
    EXPECT_EQ(Rename(other, L"Iron", L"Irons"), MaterialFlaw::None);
    EXPECT_EQ(SetFigures(kGray, L"7.2", L"3.18", L"4.76"), MaterialFlaw::None);
    EXPECT_EQ(Rename(m_edits, L"Malleable Cast Iron", L"Malleable"), MaterialFlaw::None);
    Save(m_edits);

    MaterialTexts texts = other.GetTexts(Find(other, kGray));
    texts.strMaximumWall = L"9";
    EXPECT_EQ(other.Change(Find(other, kGray), texts), MaterialFlaw::None);
    const MfxDatabaseResult result = other.Save(Database());
    EXPECT_EQ(result.problem, DatabaseRefused);
    EXPECT_STREQ(result.strText, L"another program has changed \"Gray Cast Iron\"");
    EXPECT_EQ(Database().FindMaterialGroups(L"Cast Iron"), L"Iron;") << "nothing of it was saved";
    Load(other);
    EXPECT_EQ(Rename(other, L"Malleable", L"B"), MaterialFlaw::None);
    EXPECT_EQ(SetFigures(kGray, L"7.3", L"3.18", L"4.76"), MaterialFlaw::None);
    Save(m_edits);  // another material, and one saved before
    Save(other);

    // A group goes only with the materials that were seen in it.
    Load(m_edits);
    other.AddMaterial(Find(other, L"Steel"), L"New");
    EXPECT_EQ(Rename(other, L"B", L"C"), MaterialFlaw::None);
    Save(other);
    for (const auto& [pszGroup, pszChanged] : {std::pair(L"Iron", L"B"), std::pair(L"Steel", L"Steel")}) {
        MaterialEdits late = m_edits;
        late.Delete(Find(late, pszGroup));
        EXPECT_EQ(late.Save(Database()).strText,
                  L"another program has changed \"" + CString(pszChanged) + L"\"");
    }
}

TEST_F(MaterialEditsTest, SavesNothingWhenOneChangeIsRefused) {
    MaterialEdits other;
    Load(other);
    for (const LPCWSTR pszName : {L"Before", L"Twice", L"Behind"}) other.AddMaterial(Find(L"Iron"), pszName);
    m_edits.AddMaterial(Find(L"Iron"), L"Twice");
    Save(m_edits);
    EXPECT_EQ(other.Save(Database()).problem, DatabaseRefused);
    Load(m_edits);
    EXPECT_EQ(Find(L"Before"), -1);
}
