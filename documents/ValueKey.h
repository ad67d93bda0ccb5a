// Keys of rules, constraints and values: the same in every language and version.
//
//   19010                  a rule by its id; 19010#2 is the second one of that id
//   19010/status           the rule's own status
//   19010/by-material      whether the limits by material are in force: whether the first material is active
//   19010/10067            the number of a parameter, by the parameter's id; 19010/10067/2 is the second one
//   19010/10067/active     whether the parameter is active
//   19010/Steel            a constraint by its name; Steel#2 is the second one of that name
//   19010/Steel/10068      a parameter of a constraint
//   19020/Steel/29120/3    row 3 of a list of bands
//   19020/Steel/band/3     that whole row
//   19040/29183/2/to       row 2 of a table, column "to"
//
// Names are written as they are, but for the characters / # % = and control characters, which become %2F and
// the like. So does the first character of a name that could be taken for something else: of a number,
// "status", "severity" or "by-material". A constraint without a name is called %.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

inline constexpr char kByMaterialKey[] = "by-material";

// Whether something stands in it that no name has.
bool HasControlCharacter(std::string_view name);

// A name as it stands in keys.
std::string KeyOfName(std::string_view name);

// The name that stands in a key, without the number that tells constraints of the same name apart; nothing
// else is understood than what KeyOfName writes.
std::string NameOfKey(std::string_view key);

// The rule's key, with which the key of a value in it begins.
std::string RuleOfKey(const std::string& key);

// What stands between the slashes.
std::vector<std::string> KeyParts(const std::string& key);

// Whether a part of a key is a constraint's, and no number, "status", "severity" or "by-material".
bool IsConstraintKey(std::string_view part);

// Tables of bands have keys too: "29183", "Steel/band". Of a whole row of one, and of the value in a column:
// "to" or "29120".
std::string RowKey(const std::string& table, int row);
std::string CellKey(const std::string& table, int row, const std::string& column);

// The column of a value in a table.
std::string ColumnOfKey(const std::string& table, const std::string& key);

// The constraint of a table; empty for a table of the rule itself.
std::string ConstraintOfTable(const std::string& table);

// Tells keys of the same name apart: "Steel", "Steel#2".
class KeyCounter {
  public:
    std::string Next(const std::string& key) {
        const int count = ++m_counts[key];
        return count > 1 ? key + "#" + std::to_string(count) : key;
    }

  private:
    std::map<std::string, int> m_counts;
};
