#include "Workbook.h"
#include "WorkbookMaker.h"

#include <gtest/gtest.h>

namespace {

// The active one of two sheets with these states and a third without cells.
std::optional<std::string> ActiveSheet(const std::string& activeTab, const std::string& firstState = "",
                                       const std::string& secondState = "",
                                       const std::string& thirdType = "chartsheet") {
    Parts parts = MakeParts("");
    parts["xl/workbook.xml"] = "<workbook><bookViews><workbookView activeTab='" + activeTab +
                               "'/><workbookView/></bookViews><sheets><sheet f:id='s2' r:id='s0' state='" +
                               firstState + "'/><sheet rel:id='s1' f:state='' state='" + secondState +
                               "'/><sheet r:id='s2'/></sheets></workbook>";
    parts["xl/_rels/workbook.xml.rels"] =
        "<Relationships><Relationship Id='s0' Type='a/worksheet' Target='/xl/../xl/./worksheets/sheet1.xml'/>"
        "<Relationship Id='s1' Type='a/worksheet' Target='../Other%20sheet.XML'/>"
        "<Relationship Id='s2' Type='a/" +
        thirdType + "' Target='none.xml'/></Relationships>";
    const std::string bytes = MakeZip(parts);
    return Workbook(OpenBytes(bytes)).FindActiveSheet();
}

}  // namespace

TEST(WorkbookTest, FindsTheSheetThatExcelActivates) {
    const std::string first = "xl/worksheets/sheet1.xml", second = "Other%20sheet.XML";
    EXPECT_EQ(ActiveSheet("0"), first);
    EXPECT_EQ(ActiveSheet("1"), second);
    EXPECT_EQ(ActiveSheet("2"), std::nullopt);
    EXPECT_EQ(ActiveSheet("2", "", "", "dialogsheet"), std::nullopt);
    EXPECT_EQ(ActiveSheet("0", "hidden"), first);
    EXPECT_EQ(ActiveSheet("1", "", "veryHidden"), second);
    EXPECT_EQ(ActiveSheet("3", "hidden", "visible"), second);
}

TEST(WorkbookTest, OpensPartsByAllNamesThatWritersGiveThem) {
    for (const std::string entry : {"my/other Sheet.xml", "MY/OTHER%20sheet.xml", "my\\Other%20sheet.xml"}) {
        Parts parts = MakeParts("");
        parts[entry] = "<worksheet/>";
        const std::string bytes = MakeZip(parts);
        EXPECT_NO_THROW(Workbook(OpenBytes(bytes)).OpenPart("my/Other%20sheet.XML")) << entry;
    }
}
