#include "SarifOutput.h"

#include "ValueKey.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace {

constexpr char kSchemaUri[] =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

const char* LevelOf(Severity severity) {
    return severity == Severity::Hint ? "note" : SeverityName(severity);
}

Json Message(const std::string& text) {
    return {{"text", text}};
}

// The kind's text with "..." for what differs from finding to finding.
std::string Description(const FindingKind& kind) {
    std::string text = kind.text;
    for (std::size_t at = text.find("{}"); at != std::string::npos; at = text.find("{}", at))
        text.replace(at, 2, "...");
    return text;
}

std::string PercentEncoded(const std::string& text, std::string_view plain) {
    constexpr char kHexDigits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (plain.find(character) != std::string_view::npos || (byte < 0x80 && std::isalnum(byte)))
            encoded += character;
        else
            encoded.append({'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]});
    }
    return encoded;
}

// A relative URI for a relative path, otherwise one with the scheme "file".
std::string PathToUri(const std::string& path) {
    std::string slashes = path;
    std::ranges::replace(slashes, '\\', '/');
    if (slashes.starts_with("//?/UNC/"))
        slashes.replace(2, 6, "");
    else if (slashes.starts_with("//?/"))
        slashes.erase(0, 4);
    constexpr std::string_view kPlain = "-._~/";
    if (slashes.starts_with("//")) return "file:" + PercentEncoded(slashes, kPlain);
    if (slashes.size() > 2 && slashes.substr(1, 2) == ":/")
        return "file:///" + PercentEncoded(slashes, "-._~/:");
    return PercentEncoded(slashes, kPlain);  // also the colon, which would end a scheme
}

Json PhysicalLocation(const std::string& file, int line) {
    Json location{{"artifactLocation", {{"uri", PathToUri(file)}}}};
    if (line > 0) location["region"] = {{"startLine", line}};
    return location;
}

Json LocationOf(const std::string& file, const Finding& finding) {
    Json location{{"physicalLocation", PhysicalLocation(file, finding.line)}};
    if (!finding.place.empty())
        location["logicalLocations"] = Json::array({{{"fullyQualifiedName", finding.place}}});
    return location;
}

// All results have the list, or a viewer would not know that there is none.
Json Suppressions(const AcceptedFinding* accepted) {
    Json suppressions = Json::array();
    if (accepted) suppressions.push_back({{"kind", "external"}, {"justification", accepted->reason}});
    return suppressions;
}

Json Unmatched(const AcceptedFinding* accepted) {
    return {{"level", "note"}, {"message", Message(DescribeUnmatched(*accepted))}};
}

}  // namespace

std::size_t SarifOutput::RuleIndex(const FindingKind& kind) {
    const auto [index, isNew] = m_ruleIndexes.try_emplace(kind.code, m_rules.size());
    if (isNew)
        m_rules.push_back({{"id", kind.key},
                           {"shortDescription", Message(Description(kind))},
                           {"defaultConfiguration", {{"level", LevelOf(kind.severity)}}}});
    return index->second;
}

void SarifOutput::Add(const CheckedFile& file) {
    if (!file.unreadable.empty())
        m_unreadable.push_back({{"level", "error"},
                                {"message", Message(file.unreadable)},
                                {"locations", {{{"physicalLocation", PhysicalLocation(file.file, 0)}}}}});
    KeyCounter fingerprints;  // several findings of a kind can be about one place
    for (const auto& [finding, accepted] : file.findings) {
        const FindingKind& kind = finding.Kind();
        Json result{{"ruleId", kind.key}, {"ruleIndex", RuleIndex(kind)}, {"level", LevelOf(kind.severity)}};
        result["message"] = Message(DescribeFinding(finding));
        result["locations"] = Json::array({LocationOf(file.file, finding)});
        result["partialFingerprints"] = {
            {"keyAndPlace/v1", fingerprints.Next(std::string(kind.key) + " " + finding.place)}};
        result["suppressions"] = Suppressions(accepted);
        m_results.push_back(std::move(result));
    }
}

void SarifOutput::Finish(const std::vector<const AcceptedFinding*>& unmatched) {
    const Json driver{{"name", "mfxhost"}, {"version", MFX_VERSION}, {"rules", m_rules}};
    const Json invocation{
        {"executionSuccessful", m_unreadable.empty()},
        {"properties",
         {{"severity", SeverityName(m_severities.shown)}, {"failOn", FailingName(m_severities)}}},
        {"toolExecutionNotifications", m_unreadable},
        {"toolConfigurationNotifications", ToArray(unmatched, Unmatched)}};
    const Json run{
        {"tool", {{"driver", driver}}}, {"invocations", Json::array({invocation})}, {"results", m_results}};
    PrintJson({{"$schema", kSchemaUri}, {"version", "2.1.0"}, {"runs", Json::array({run})}});
}
