#include "DocumentEdit.h"
#include "LanguageUtil.h"
#include "PatchApplication.h"
#include "PatchJson.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <random>

using namespace testing;

namespace {

using Assignments = std::vector<std::pair<std::string, std::string>>;

// Changes of the sample, and the keys of the differences that they make.
const struct {
    Assignments changes;
    std::vector<std::string> keys;
} kAlignments[] = {
    {{{"19040/29183/1", "none"}}, {"19040/29183/1"}},
    {{{"19040/29183/2/angle1", "2"}}, {"19040/29183/2/angle1"}},
    {{{"19040/29183/2/to", "60"}, {"19040/29183/3/from", "60"}}, {"19040/29183/2/to", "19040/29183/3/from"}},
    {{{"19040/29183/1", "none"}, {"19040/29183/1/angle1", "2"}}, {"19040/29183/1", "19040/29183/2/angle1"}},
    {{{"19040/29183/2", "present"},
      {"19040/29183/1/to", "20"},
      {"19040/29183/2/from", "20"},
      {"19040/29183/2/to", "25.4"},
      {"19040/29183/2/angle1", "3"},
      {"19040/29183/2/angle2", "3"},
      {"19040/29183/2/angle3", "3"}},
     {"19040/29183/1/to", "19040/29183/2"}},
    {{{"19020/Steel/band/1", "none"}}, {"19020/Steel/band/1"}},
    {{{"19020/Steel/29120/1", "300"}, {"19020/Steel/29119/2", "300"}},
     {"19020/Steel/29120/1", "19020/Steel/29119/2"}},
};

Assignments Band(const std::string& lastAngle) {
    const std::string row = "19040/29183/5/";
    return {{row + "from", "203"},
            {row + "to", "300"},
            {row + "angle1", "1"},
            {row + "angle2", "1"},
            {row + "angle3", lastAngle}};
}
const Assignments kBand = Band("1"), kOtherBand = Band("2");

const struct {
    Assignments mine, theirs;
    std::string conflicts;
    Assignments merged;  // what is changed in the base without a conflict
} kMerges[] = {
    {{{"19010/10067", "5"}}, {}, "", {{"19010/10067", "5"}}},
    {{}, {{"19010/10067", "5"}}, "", {{"19010/10067", "5"}}},
    {{{"19010/10067", "5"}}, {{"19010/10067", "5"}}, "", {{"19010/10067", "5"}}},
    {{{"19010/10067", "5"}}, {{"19010/10067", "4"}}, "19010/10067: 6 mm | 5 mm | 4 mm\n", {}},
    {{{"19040/29183/1", "none"}},
     {{"19040/29183/3/angle1", "2"}},
     "",
     {{"19040/29183/3/angle1", "2"}, {"19040/29183/1", "none"}}},
    {{{"19040/29183/1", "none"}},
     {{"19040/29183/1/angle1", "2"}},
     "19040/29183/1: present | (none) | present, changed\n",
     {}},
    {{{"19040/29183/1/angle1", "2"}},
     {{"19040/29183/1", "none"}},
     "19040/29183/1: present | present, but 19040/29183/1/angle1 is 2 deg | (none)\n",
     {}},
    {{{"19010/Steel", "none"}}, {}, "", {{"19010/Steel", "none"}}},
    {{}, {{"19010/Steel", "none"}}, "", {{"19010/Steel", "none"}}},
    {{{"19010/Steel", "none"}},
     {{"19010/Steel/10067", "5"}},
     "19010/Steel: present | (none) | present, changed\n",
     {}},
    {kBand, kBand, "", kBand},
    {kBand, kOtherBand, "19040/29183/5: (none) | present, but 19040/29183/5/angle3 is 1 deg | present\n", {}},
    {{{"19020/Steel/29118/1", "6"}},
     {{"19020/Steel/29118/2", "8"}},
     "",
     {{"19020/Steel/29118/1", "6"}, {"19020/Steel/29118/2", "8"}}},
};

class PatchTest : public Test {
  protected:
    RuleDocument Read(const std::string& bytes) const { return RuleDocument(m_module, L"d.xml", bytes); }

    std::string Edited(const std::string& bytes, const Assignments& assignments) const {
        RuleDocument document = Read(bytes);
        DocumentEdit edit(document);
        for (const auto& [key, text] : assignments) edit.Set(key, text);
        edit.Finish();
        return document.ToUtf8();
    }

    std::string Converted(const std::string& bytes, const UnitPair& units) const {
        RuleDocument document = Read(bytes);
        document.ConvertUnits(units);
        return document.ToUtf8();
    }

    std::vector<std::string> KeysOfDifferences(const std::string& left, const std::string& right) const {
        std::vector<std::string> keys;
        for (const Difference& difference : CompareDocuments(Read(left), Read(right)))
            keys.push_back(difference.key);
        return keys;
    }

    // Through JSON; without conflicts.
    std::string Patched(const std::string& file, const std::string& left, const std::string& right) const {
        RuleDocument document = Read(file);
        const std::string json = FormatPatch(MakePatch(Read(left), Read(right)), "a", "b");
        EXPECT_THAT(ApplyPatch(document, ParsePatch("p", json), ConflictChoice::None), IsEmpty()) << json;
        return document.ToUtf8();
    }

    const bool m_isEnglish = (CLanguageUtil::SetMfxKitLang(L"english"), true);
    const TempFolder m_folder;
    const RuleModule m_module;
    const std::string m_all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    const std::string m_others = m_folder.Read(Wide(MFX_SAMPLES "other-module.xml"));
};

// Documents that differ in a random way. The seed alone decides.
class DocumentMaker {
  public:
    explicit DocumentMaker(unsigned seed) : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    // Changes that a dialog would take, mostly.
    Assignments MakeChange() { return Below(2) ? MakeChangeOfBands() : MakeOtherChange(); }

  private:
    Assignments MakeChangeOfBands() {
        const std::string row = std::to_string(1 + Below(4)), next = std::to_string(row[0] - '0' + 1);
        const std::string table = "19040/29183/", band = "19020/Steel/band/", number = Number(1, 9);
        const std::string joint = Number(26, 100);
        switch (Below(7)) {
            case 0:
                return {{table + row + "/angle" + std::to_string(1 + Below(3)), number}};
            case 1:
                return {{table + row + "/to", joint}, {table + next + "/from", joint}};
            case 2:
                return {{table + row, "none"}};
            case 3:  // splits the band
                return {{table + next, "present"},
                        {table + row + "/to", joint},
                        {table + next + "/from", joint},
                        {table + next + "/to", Number(100, 200)},
                        {table + next + "/angle1", number}};
            case 4:
                return {{band + row, "none"}};
            case 5:
                return {{band + "4", "present"},
                        {"19020/Steel/29119/4", "1500"},
                        {"19020/Steel/29120/4", Number(1501, 2000)},
                        {"19020/Steel/29118/4", number}};
            default:
                return {{"19020/Steel/29120/1", joint}, {"19020/Steel/29119/2", joint}};
        }
    }

    Assignments MakeOtherChange() {
        const std::string number = Number(1, 9), material = std::string(1, "ABC"[Below(3)]);
        switch (Below(6)) {
            case 0:
                return {{"19010/" + material, "present"},
                        {"19010/" + material + "/10067", number},
                        {"19010/" + material + "/10068", Number(10, 20)},
                        {"19010/" + material + "/active", Below(2) ? "yes" : "no"}};
            case 1:
                return {{"19010/Steel", "none"}};
            case 2:
                return {{"19020/" + material, "present"},
                        {"19020/" + material + "/29121/1", "0.5"},
                        {"19020/" + material + "/29122/1", number},
                        {"19020/" + material + "/29118/1", number}};
            case 3:
                return {{"19010/by-material", Below(2) ? "yes" : "no"}};
            case 4:
                return {{"19020/10165", Below(2) ? "g" : "t"}};
            default:
                return {{"19010/10067", number}, {"19010/severity", std::to_string(Below(4))}};
        }
    }

    std::string Number(int from, int to) {
        return std::to_string(from + Below(to - from)) + "." + std::to_string(1 + Below(99));
    }

    std::mt19937 m_random;
};

std::string TextOf(const std::vector<Conflict>& conflicts) {
    std::string text;
    for (const Conflict& conflict : conflicts)
        text +=
            conflict.key + ": " + conflict.expected + " | " + conflict.found + " | " + conflict.wanted + "\n";
    return text;
}

}  // namespace

TEST_F(PatchTest, AlignsBandsByTheirBounds) {
    for (const auto& [changes, keys] : kAlignments)
        EXPECT_EQ(KeysOfDifferences(m_all, Edited(m_all, changes)), keys);
    // A list that is shorter than the others says the same as one with marks for "not given".
    std::string ragged = m_all;
    const std::size_t list = ragged.find("Type=\"29121\"");
    ragged.erase(ragged.find("<Value>-1</Value>", list), 17);
    EXPECT_THAT(KeysOfDifferences(m_all, ragged), IsEmpty());
}

TEST_F(PatchTest, MakesTheSecondDocumentOfTheFirst) {
    std::size_t differences = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(seed);
        DocumentMaker maker(seed);
        std::string documents[2] = {m_all, m_all};
        for (int i = 0; i < 12; ++i) try {
                std::string& document = documents[maker.Below(3) ? 1 : 0];
                document = Edited(document, maker.MakeChange());
            } catch (const EditError&) {  // a change that the dialog refuses
            }
        auto& [left, right] = documents;
        if (seed % 4 == 0) right = Converted(right, {LengthInch, AngleRadian});
        differences += KeysOfDifferences(left, right).size();
        EXPECT_THAT(KeysOfDifferences(Patched(left, left, right), right), IsEmpty());
        EXPECT_EQ(Patched(right, left, right), right);
        const std::string other = Converted(left, {LengthCentimetre, AngleRadian});
        EXPECT_THAT(KeysOfDifferences(Patched(other, left, right), right), IsEmpty());
    }
    EXPECT_GT(differences, 400u);
}

// Rules that one side lacks, records that the module does not know, and values that a rule may have or lack.
TEST_F(PatchTest, AddsAndRemovesWholeRules) {
    std::string criteria = m_all, moved = m_others;
    criteria.insert(criteria.find("<PercentDeviation />"),
                    "<PercentDeviation><Info><Value>2</Value><Value>3</Value></Info></PercentDeviation>");
    moved.replace(moved.find(">2.5<"), 5, ">3<");
    moved.replace(moved.find("Hole to Edge"), 12, "Slot to Edge");
    const std::string documents[] = {m_all,    Converted(m_all, {LengthInch, AngleRadian}),
                                     m_others, moved,
                                     criteria, m_folder.Read(Wide(MFX_SAMPLES "size-and-weight-metres.xml"))};
    for (const std::string& left : documents)
        for (const std::string& right : documents)
            EXPECT_THAT(KeysOfDifferences(Patched(left, left, right), right), IsEmpty());
}

TEST_F(PatchTest, Merges) {
    for (const auto& [mine, theirs, conflicts, merged] : kMerges) {
        SCOPED_TRACE(PrintToString(mine) + PrintToString(theirs));
        const RuleDocument base = Read(m_all);
        const std::string mineBytes = Edited(m_all, mine), theirBytes = Edited(m_all, theirs);
        RuleDocument mineDocument = Read(mineBytes), theirDocument = Read(theirBytes);
        const MergeResult result = MergeDocuments(base, mineDocument, theirDocument, MergeChoice::None);
        EXPECT_EQ(TextOf(result.conflicts), conflicts);
        EXPECT_THAT(
            KeysOfDifferences(result.merged->ToUtf8(), conflicts.empty() ? Edited(m_all, merged) : mineBytes),
            IsEmpty());
        if (conflicts.empty()) continue;
        MergeDocuments(base, mineDocument, theirDocument, MergeChoice::Mine);
        EXPECT_THAT(KeysOfDifferences(mineDocument.ToUtf8(), mineBytes), IsEmpty());
        MergeDocuments(base, mineDocument, theirDocument, MergeChoice::Theirs);
        EXPECT_THAT(KeysOfDifferences(theirDocument.ToUtf8(), theirBytes), IsEmpty());
    }
}

TEST_F(PatchTest, MergesDeletedRules) {
    RuleDocument mine = Read(m_all), theirs = Read(Edited(m_all, {{"19030/29167", "20"}}));
    mine.Remove(*mine.FindRule(19030));
    const std::string without = mine.ToUtf8();
    RuleDocument base = Read(m_all);
    EXPECT_EQ(TextOf(MergeDocuments(base, mine, theirs, MergeChoice::None).conflicts),
              "19030: present | (none) | present, changed\n");
    EXPECT_EQ(TextOf(MergeDocuments(base, theirs, mine, MergeChoice::None).conflicts),
              "19030: present | present, but 19030/29167 is 20 | (none)\n");
    RuleDocument unchanged = Read(m_all);
    EXPECT_EQ(MergeDocuments(base, unchanged, mine, MergeChoice::None).merged->ToUtf8(), without);
}
