#include "DocumentError.h"
#include "PatchJson.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <initializer_list>

namespace {

using Json = nlohmann::json;

constexpr std::pair<const char*, DifferenceScope> kScopes[] = {{"value", DifferenceScope::Value},
                                                               {"row", DifferenceScope::Row},
                                                               {"constraint", DifferenceScope::Constraint},
                                                               {"rule", DifferenceScope::Rule}};

// A value of the JSON and where it stands: "differences[3].key".
class Place {
  public:
    Place(const Json& json, const std::string& patchName, std::string path = {})
        : m_json(json), m_patchName(patchName), m_path(std::move(path)) {}

    [[noreturn]] void Refuse(const std::string& reason) const {
        throw DocumentError(DocumentError::Kind::Unreadable,
                            m_patchName + ": " + (m_path.empty() ? "" : m_path + ": ") + reason);
    }

    // Exactly these members.
    void RequireMembers(std::initializer_list<const char*> names) const {
        if (!m_json.is_object()) Refuse("is no object");
        for (const char* name : names)
            if (!m_json.contains(name)) Refuse("\"" + std::string(name) + "\" is missing");
        for (const auto& [name, value] : m_json.items())
            if (std::ranges::find(names, name) == names.end()) Refuse("\"" + name + "\" is not known");
    }

    Place operator[](const char* name) const {
        return {m_json.at(name), m_patchName, m_path + (m_path.empty() ? "" : ".") + name};
    }

    std::vector<Place> Elements() const {
        if (!m_json.is_array()) Refuse("is no list");
        std::vector<Place> elements;
        for (const Json& element : m_json)
            elements.emplace_back(element, m_patchName, m_path + "[" + std::to_string(elements.size()) + "]");
        return elements;
    }

    bool IsNull() const { return m_json.is_null(); }

    std::string Text() const {
        if (!m_json.is_string()) Refuse("is no text");
        return m_json.get<std::string>();
    }
    std::string TextOrEmpty() const { return IsNull() ? "" : Text(); }

    int Number() const {
        if (!m_json.is_number_integer() || m_json.get<double>() < 0 || m_json.get<double>() > 1e9)
            Refuse("is no whole number");
        return m_json.get<int>();
    }
    int NumberOrZero() const { return IsNull() ? 0 : Number(); }

    // "-" is a value of a table that is not given.
    ValueContent Content(bool isOfTable) const {
        if (m_json.is_number()) return m_json.get<double>();
        const std::string text = Text();
        if (isOfTable && text == "-") return std::monostate();
        return text;
    }

  private:
    const Json& m_json;
    const std::string& m_patchName;
    std::string m_path;
};

RuleValue ValueOf(const Place& json, const std::string& unit, bool isOfTable) {
    RuleValue value{.content = json.Content(isOfTable)};
    if (std::holds_alternative<double>(value.content)) value.unit = unit;
    return value;
}

// The part of a key behind that of the rule.
std::string RestOf(const Place& json, const std::string& ruleKey) {
    const std::string key = json.Text();
    if (!key.starts_with(ruleKey + "/")) json.Refuse("\"" + key + "\" is not of rule " + ruleKey);
    return key.substr(ruleKey.size() + 1);
}

// The table of a value in a whole row, constraint or rule, as its key tells.
void PutIntoTable(RuleValue& value) {
    const std::vector<std::string> parts = KeyParts(value.key);
    const auto isBand = [&](long id) { return parts[1] == std::to_string(id); };
    const auto toRow = [](const std::string& text) { return std::max(std::atoi(text.c_str()), 0); };
    if (parts.size() != 3) return;
    if (parts[0] == std::to_string(kDraftAngleTableId)) {
        value.table = parts[0];
        value.row = toRow(parts[1]);
    } else if (std::ranges::any_of(kBandParameterIds, isBand) && parts[2] != "active") {
        value.table = parts[0] + "/band";
        value.row = toRow(parts[2]);
    }
    if (!value.table.empty()) value.column = ColumnOfKey(value.table, value.key);
}

// Rows are numbered without gaps, so that no number makes a table too long.
void CheckRows(const Place& json, const std::vector<RuleValue>& values, DifferenceScope scope) {
    std::map<std::string, int> counts;
    for (const RuleValue& value : values) {
        if (value.table.empty()) continue;
        int& count = counts[value.table + "/" + value.column];
        if (scope == DifferenceScope::Row ? value.row < 1 : value.row != ++count)
            json.Refuse("the rows of " + value.table + " are not in order");
    }
}

std::vector<RuleValue> ReadValues(const Place& json, const std::string& ruleKey, DifferenceScope scope) {
    std::vector<RuleValue> values;
    for (const Place& element : json.Elements()) {
        element.RequireMembers({"key", "unit", "value"});
        RuleValue value{.key = RestOf(element["key"], ruleKey)};
        PutIntoTable(value);
        const RuleValue content =
            ValueOf(element["value"], element["unit"].TextOrEmpty(), !value.table.empty());
        value.content = content.content;
        value.unit = content.unit;
        values.push_back(value);
    }
    CheckRows(json, values, scope);
    return values;
}

DifferenceScope ReadScope(const Place& json) {
    const std::string name = json.Text();
    for (const auto& [word, scope] : kScopes)
        if (name == word) return scope;
    json.Refuse("\"" + name + "\" is no kind of difference");
}

void ReadPlace(const Place& json, const std::string& ruleKey, Difference& difference) {
    if (!json["table"].IsNull()) difference.table = RestOf(json["table"], ruleKey);
    difference.row = json["row"].NumberOrZero();
    difference.after = json["after"].NumberOrZero();
    if (!json["bounds"].IsNull()) json["bounds"].Elements();
    const bool isOfRow = !difference.table.empty() || difference.scope == DifferenceScope::Row;
    if (isOfRow && (difference.table.empty() || difference.row < 1))
        json.Refuse("the table or the row is missing");
}

void ReadSides(const Place& json, Difference& difference) {
    const std::string unit = json["unit"].TextOrEmpty();
    const bool isOfTable = !difference.table.empty();
    if (!json["left"].IsNull()) difference.left = ValueOf(json["left"], unit, isOfTable);
    if (!json["right"].IsNull()) difference.right = ValueOf(json["right"], unit, isOfTable);
    const bool isWhole = difference.scope != DifferenceScope::Value;
    if (isWhole ? difference.left.has_value() == difference.right.has_value()
                : !difference.left && !difference.right)
        json.Refuse("\"left\" or \"right\" is missing");
}

Difference ReadDifference(const Place& json) {
    json.RequireMembers({"kind", "rule", "ruleId", "key", "parameter", "constraint", "value", "table", "row",
                         "after", "bounds", "unit", "left", "right", "values"});
    Difference difference{.scope = ReadScope(json["kind"]),
                          .rule = json["rule"].Text(),
                          .ruleId = json["ruleId"].NumberOrZero(),
                          .key = json["key"].Text(),
                          .paramId = json["parameter"].NumberOrZero(),
                          .constraint = json["constraint"].TextOrEmpty(),
                          .label = json["value"].Text(),
                          .left = std::nullopt,
                          .right = std::nullopt};
    const std::string ruleKey = RuleKeyOf(difference);
    const bool hasValues = difference.scope != DifferenceScope::Value && difference.ruleId;
    if (difference.scope != DifferenceScope::Rule && difference.ruleId) RestOf(json["key"], ruleKey);
    ReadPlace(json, ruleKey, difference);
    ReadSides(json, difference);
    if (hasValues == json["values"].IsNull()) json["values"].Refuse("does not fit the kind");
    if (hasValues) difference.values = ReadValues(json["values"], ruleKey, difference.scope);
    if (hasValues && difference.values.empty()) json["values"].Refuse("is empty");
    return difference;
}

Patch::Table ReadTable(const Place& json) {
    json.RequireMembers({"key", "columns", "rows"});
    Patch::Table table{.key = json["key"].Text(), .rows = {}};
    const std::vector<Place> columns = json["columns"].Elements();
    for (const Place& row : json["rows"].Elements()) {
        const std::vector<Place> cells = row.Elements();
        if (cells.size() != columns.size()) row.Refuse("has not as many values as there are columns");
        BandRow& band = table.rows.emplace_back();
        for (std::size_t i = 0; i < cells.size(); ++i) {
            band.push_back(ValueOf(cells[i], "", true));
            band.back().column = columns[i].Text();
        }
    }
    return table;
}

// Every difference in a table refers to a row of it.
void CheckTables(const Patch& patch, const Place& json) {
    for (const Difference& difference : patch.differences) {
        if (difference.table.empty()) continue;
        const std::string key = RuleKeyOf(difference) + "/" + difference.table;
        const auto table = std::ranges::find(patch.tables, key, &Patch::Table::key);
        const int row = difference.left ? difference.row : difference.after;
        if (table == patch.tables.end() || row > static_cast<int>(table->rows.size()))
            json["tables"].Refuse("there is no row for " + difference.key);
    }
}

UnitPair ReadUnits(const Place& json) {
    json.RequireMembers({"length", "angle"});
    const auto length = FindLengthUnit(json["length"].Text()), angle = FindAngleUnit(json["angle"].Text());
    if (!length || !angle) json.Refuse("a unit is not known");
    return {*length, *angle};
}

Json ParseJson(const std::string& name, const std::string& text) {
    try {
        return Json::parse(text);
    } catch (const Json::exception& error) {
        const std::string reason = error.what();
        throw DocumentError(DocumentError::Kind::Unreadable,
                            name + ": is no patch: " + reason.substr(reason.find("] ") + 2));
    }
}

}  // namespace

Patch ParsePatch(const std::string& name, const std::string& text) {
    const Json parsed = ParseJson(name, text);
    const Place json(parsed, name);
    if (!parsed.is_object() || !parsed.contains("version"))
        json.Refuse("is no patch: \"version\" is missing");
    if (parsed["version"] != kPatchVersion)
        json.Refuse("version " + parsed["version"].dump() + " can't be read, only " +
                    std::to_string(kPatchVersion));
    json.RequireMembers({"version", "left", "right", "units", "differences", "tables", "records"});
    Patch patch{.units = ReadUnits(json["units"]), .differences = {}, .tables = {}, .records = {}};
    for (const Place& element : json["differences"].Elements())
        patch.differences.push_back(ReadDifference(element));
    for (const Place& element : json["tables"].Elements()) patch.tables.push_back(ReadTable(element));
    for (const Place& element : json["records"].Elements()) {
        element.RequireMembers({"key", "left", "right"});
        patch.records.push_back(
            {element["key"].Text(), element["left"].TextOrEmpty(), element["right"].TextOrEmpty()});
    }
    CheckTables(patch, json);
    return patch;
}
