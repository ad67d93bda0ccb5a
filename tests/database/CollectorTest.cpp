#include "DatabaseLibrary.h"
#include "MFXDataHelper.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

using namespace testing;

namespace {

// As a dialog finds the database: through the framework, from the library that the host has loaded.
struct CollectorTest : Test {
    CollectorTest() { m_library->GetDatabase().SetPath(Path()); }

    CString Path() const { return m_folder.Path(L"m.db").c_str(); }
    IDatabaseCollector& Collector() const { return *mfx_db::MFXDataHelper::getInstance(); }

    std::vector<CString> Names(const MfxGroupKey& group) const {
        std::vector<CString> names;
        for (const MfxMaterial& material : Materials(group)) names.push_back(material.strName);
        return names;
    }

    std::vector<MfxMaterial> Materials(const MfxGroupKey& group) const {
        std::vector<MfxMaterial> materials;
        EXPECT_EQ(Collector().GetMaterials(group, materials).problem, DatabaseNoProblem);
        return materials;
    }

    const TempFolder m_folder;
    std::unique_ptr<DatabaseLibrary> m_library = std::make_unique<DatabaseLibrary>();
};

MfxMaterial Named(const wchar_t* name) {
    MfxMaterial material;
    material.strName = name;
    return material;
}

const MfxGroupKey kIron{L"Sand Casting", L"Iron"};
const MfxGroupKey kNone{L"Sand Casting", L"Gold"};

// Changes that the default materials contradict, and the words for it.
struct RefusedChange {
    MfxMaterialChange change;
    const wchar_t* reason;
};

}  // namespace

TEST_F(CollectorTest, AnswersWhatDialogsAsk) {
    EXPECT_EQ(m_library->GetName(), L"Material Database");
    EXPECT_TRUE(Collector().IsAvailable());
    std::vector<CString> groups;
    for (const MfxMaterialEntry& entry : Collector().GetProcessEntries(L"Sand Casting"))
        groups.insert(groups.end(), entry.names.begin(), entry.names.end());
    EXPECT_THAT(groups,
                ElementsAre(L"Steel", L"Iron", L"Aluminium Alloys", L"Other Metals", L"Copper and its Alloys",
                            L"Zinc and its Alloys", L"Magnesium and its Alloys"));
    EXPECT_TRUE(Collector().GetProcessEntries(L"Forging").empty());
    EXPECT_EQ(Collector().FindMaterialGroups(L"cast iron"), L"Iron;");
    EXPECT_EQ(Collector().FindMaterialGroups(L"Titanium Alloys"), L"");

    EXPECT_THAT(Names(kIron), ElementsAre(L"Gray Cast Iron", L"Malleable Cast Iron"));
    const MfxMaterial gray = Materials(kIron).at(0);
    EXPECT_EQ(gray.density, std::nullopt);
    EXPECT_EQ(gray.minimumWall, 0.1251968503937008);
    EXPECT_EQ(gray.maximumWall, 0.1874015748031496);
    EXPECT_EQ(gray.wallUnit, LengthInch);
}

TEST_F(CollectorTest, MakesTheChangesOfAnEditor) {
    MfxMaterial ductile{L"Ductile", 7.1, DensityGramPerCubicCentimetre, 4.0, std::nullopt, LengthMillimetre};
    const MfxGroupKey nodular{L"Forging", L"Nodular"};
    const MfxDatabaseResult result = Collector().ApplyChanges({
        MfxAddGroup{{L"Forging", L"Iron", L""}},
        MfxAddMaterial{{L"Forging", L"Iron"}, Named(L"Any")},
        MfxChangeGroup{{L"Forging", L"Iron"}, {L"", L"Nodular", L"Cast Iron"}},
        MfxChangeMaterial{{nodular, L"Any"}, ductile},
        MfxAddMaterial{nodular, Named(L"Other")},
        MfxDeleteMaterial{{nodular, L"other"}},
        MfxDeleteGroup{kIron},
    });
    EXPECT_EQ(result.problem, DatabaseNoProblem) << result.strText.GetString();
    EXPECT_EQ(Collector().FindMaterialGroups(L"Cast Iron"), L"Nodular;");
    EXPECT_TRUE(Names(kIron).empty());
    const std::vector<MfxMaterial> materials = Materials(nodular);
    ASSERT_EQ(materials.size(), 1u);
    EXPECT_EQ(materials[0].strName, L"Ductile");
    EXPECT_EQ(materials[0].density, 7.1);
    EXPECT_EQ(materials[0].densityUnit, DensityGramPerCubicCentimetre);
    EXPECT_EQ(materials[0].minimumWall, 4.0);
    EXPECT_EQ(materials[0].maximumWall, std::nullopt);
    std::vector<MfxMaterialGroup> groups;
    EXPECT_EQ(Collector().GetGroups(groups).problem, DatabaseNoProblem);
    EXPECT_EQ(groups.back().strProcess, L"Forging");
}

TEST_F(CollectorTest, MakesNoChangeOrAll) {
    MfxMaterial thin = Named(L"Thin");
    thin.minimumWall = 5;
    thin.maximumWall = 4;
    const RefusedChange kRefused[] = {
        {MfxAddGroup{{L"Sand Casting", L"iron", L""}}, L"is refused: the name is there already"},
        {MfxAddGroup{{L"Sand Casting", L"A;B", L""}}, L"is refused: the name of the group has a semicolon"},
        {MfxChangeGroup{kNone, {L"", L"Silver", L""}}, L"Gold\" is not in the database any more"},
        {MfxDeleteGroup{kNone}, L"Gold\" is not in the database any more"},
        {MfxAddMaterial{kNone, Named(L"A")}, L"Gold\" is not in the database any more"},
        {MfxAddMaterial{kIron, Named(L"gray cast iron")}, L"is refused: the name is there already"},
        {MfxAddMaterial{kIron, Named(L" A")}, L"is refused: the name of the material has blanks at its ends"},
        {MfxAddMaterial{kIron, thin}, L"is refused: the minimum wall thickness is above the maximum"},
        {MfxChangeMaterial{{kIron, L"A"}, Named(L"B")}, L"Iron/A\" is not in the database any more"},
        {MfxDeleteMaterial{{kIron, L"A"}}, L"Iron/A\" is not in the database any more"},
    };
    for (const auto& [change, reason] : kRefused) {
        const MfxDatabaseResult result =
            Collector().ApplyChanges({MfxAddMaterial{kIron, Named(L"Before")}, change});
        EXPECT_EQ(result.problem, DatabaseRefused);
        EXPECT_THAT(std::wstring(result.strText), HasSubstr(reason));
        EXPECT_THAT(Names(kIron), ElementsAre(L"Gray Cast Iron", L"Malleable Cast Iron"));
    }
}

TEST_F(CollectorTest, TellsWhyNothingCanBeChanged) {
    EXPECT_EQ(Collector().GetWriteProblem().problem, DatabaseNoProblem);
    m_library->GetDatabase().SetPath(Path());  // closes the file
    SetFileAttributesW(Path(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(Collector().IsAvailable());
    EXPECT_EQ(Collector().GetWriteProblem().problem, DatabaseReadOnly);
    EXPECT_EQ(Collector().ApplyChanges({MfxDeleteGroup{kIron}}).problem, DatabaseReadOnly);

    m_library->GetDatabase().SetPath(m_folder.Write(L"text.db", std::string(1000, 'x')).c_str());
    EXPECT_FALSE(Collector().IsAvailable());
    EXPECT_EQ(Collector().GetWriteProblem().problem, DatabaseForeign);
    EXPECT_EQ(Collector().FindMaterialGroups(L"Cast Iron"), L"Iron;");
    EXPECT_TRUE(Collector().GetProcessEntries(L"Sand Casting").empty());

    m_library.reset();
    EXPECT_EQ(Collector().GetWriteProblem().problem, DatabaseNotLoaded);
}
