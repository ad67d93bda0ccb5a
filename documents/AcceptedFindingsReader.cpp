#include "AcceptedFindingsReader.h"

#include "DocumentError.h"
#include "FindingTable.h"
#include "NearestKeys.h"
#include "Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace {

using Json = nlohmann::json;

constexpr int kVersion = 1;
constexpr char kVersionName[] = "version", kAcceptedName[] = "accepted", kKeyName[] = "key",
               kPlaceName[] = "place", kFileName[] = "file", kReasonName[] = "reason";

std::string Quoted(const std::string& text) {
    return Quoted(FromUtf8(text));
}

// A property that an object has twice, where the parser would keep the last one without a word.
class RepeatedPropertySearch {
  public:
    bool operator()(int, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start) m_names.emplace_back();
        if (event == Json::parse_event_t::object_end) m_names.pop_back();
        if (event == Json::parse_event_t::key && !m_names.back().insert(parsed).second)
            throw std::invalid_argument("the property " + Quoted(parsed.get<std::string>()) +
                                        " stands twice in an object");
        return true;
    }

  private:
    std::vector<std::set<std::string>> m_names;  // of the objects around the place
};

// Reads one file; its messages begin with the file's name.
class Reader {
  public:
    explicit Reader(const std::string& name) : m_where(name) {}

    std::vector<AcceptedFinding> Read(const std::string& bytes) {
        const Json root = Parse(bytes);
        CheckProperties(root, {kVersionName, kAcceptedName}, {});
        if (!root[kVersionName].is_number()) Refuse(Quoted(kVersionName) + " is not a number");
        if (root[kVersionName] != kVersion)
            Refuse("version " + root[kVersionName].dump() + " is not known; it must be " +
                   std::to_string(kVersion));
        if (!root[kAcceptedName].is_array()) Refuse(Quoted(kAcceptedName) + " is not an array");
        std::vector<AcceptedFinding> accepted;
        const std::string file = m_where;
        for (const Json& entry : root[kAcceptedName]) {
            m_where = file + ": entry " + std::to_string(accepted.size() + 1);
            accepted.push_back(ReadEntry(entry));
            accepted.back().number = accepted.size();
        }
        return accepted;
    }

  private:
    [[noreturn]] void Refuse(const std::string& reason) const {
        throw DocumentError(DocumentError::Kind::Unreadable, m_where + ": " + reason);
    }

    Json Parse(const std::string& bytes) const {
        try {
            return Json::parse(bytes, RepeatedPropertySearch());
        } catch (const Json::exception& error) {
            // The library's words begin with its own name for the error, in brackets.
            const std::string words = error.what();
            Refuse("it is not JSON: " + words.substr(words.find("] ") + 2));
        } catch (const std::invalid_argument& error) {
            Refuse(error.what());
        }
    }

    void CheckProperties(const Json& object, const std::set<std::string>& required,
                         const std::set<std::string>& optional) const {
        if (!object.is_object()) Refuse("it is not an object");
        for (const auto& [name, value] : object.items())
            if (!required.contains(name) && !optional.contains(name))
                Refuse("the property " + Quoted(name) + " is not known");
        for (const std::string& name : required)
            if (!object.contains(name)) Refuse(Quoted(name) + " is missing");
    }

    AcceptedFinding ReadEntry(const Json& entry) const {
        CheckProperties(entry, {kKeyName, kPlaceName, kReasonName}, {kFileName});
        AcceptedFinding accepted;
        accepted.key = ReadText(entry, kKeyName);
        CheckKey(accepted.key);
        if (!entry[kPlaceName].is_null()) accepted.place = ReadText(entry, kPlaceName);
        if (entry.contains(kFileName)) accepted.file = ReadText(entry, kFileName);
        accepted.reason = ReadText(entry, kReasonName);
        return accepted;
    }

    std::string ReadText(const Json& entry, const char* name) const {
        if (!entry[name].is_string()) Refuse(Quoted(name) + " is not a text");
        std::string text = entry[name];
        if (text.find_first_not_of(" \t\r\n") == std::string::npos) Refuse(Quoted(name) + " is empty");
        return text;
    }

    void CheckKey(const std::string& key) const {
        std::vector<std::string> keys;
        for (const FindingKind& kind : kFindingKinds) keys.emplace_back(kind.key);
        if (std::ranges::find(keys, key) == keys.end())
            Refuse("there is no finding " + Quoted(key) + "; the nearest keys are " + NearestKeys(keys, key));
    }

    std::string m_where;  // the file, and its entry
};

}  // namespace

std::vector<AcceptedFinding> ReadAcceptedFindings(const std::string& name, const std::string& bytes) {
    return Reader(name).Read(bytes);
}
