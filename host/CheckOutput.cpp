#include "CheckOutput.h"

#include "DocumentOutput.h"
#include "SarifOutput.h"

namespace {

class TextOutput : public CheckOutput {
  public:
    void Add(const CheckedFile& file) override {
        std::string text;
        for (const auto& [finding, accepted] : file.findings)
            text += file.file + ":" + std::to_string(finding.line) + ": " +
                    SeverityName(finding.Kind().severity) +
                    (accepted ? " (accepted: " + Escaped(accepted->reason) + ")" : "") + ": " +
                    Escaped(DescribeFinding(finding)) + "\n";
        Print(text);
    }
    void Finish(const std::vector<const AcceptedFinding*>&) override {}
};

Json AcceptedToJson(const AcceptedFinding* accepted) {
    return {{"entry", accepted->number},
            {"key", accepted->key},
            {"place", TextOrNull(accepted->place)},
            {"file", TextOrNull(accepted->file)},
            {"reason", accepted->reason}};
}

Json CheckedFindingToJson(const CheckedFinding& checked) {
    Json json = FindingToJson(checked.finding);
    json["accepted"] = checked.accepted ? Json(checked.accepted->reason) : Json(nullptr);
    return json;
}

class JsonOutput : public CheckOutput {
  public:
    explicit JsonOutput(const CheckSeverities& severities)
        : m_json{{"version", kVersion},
                 {"severity", SeverityName(severities.shown)},
                 {"failOn", FailingName(severities)},
                 {"files", Json::array()}} {}

    void Add(const CheckedFile& file) override {
        Json json{{"file", file.file}};
        if (file.unreadable.empty()) {
            json["units"] = UnitsToJson(file.units);
            json["rulesChecked"] = file.rules;
            json["findings"] = ToArray(file.findings, CheckedFindingToJson);
        } else {
            json["unreadable"] = file.unreadable;
        }
        m_json["files"].push_back(std::move(json));
    }

    void Finish(const std::vector<const AcceptedFinding*>& unmatched) override {
        m_json["unmatched"] = ToArray(unmatched, AcceptedToJson);
        PrintJson(m_json);
    }

  private:
    static constexpr int kVersion = 3;
    Json m_json;
};

}  // namespace

std::string FailingName(const CheckSeverities& severities) {
    return severities.failing ? SeverityName(*severities.failing) : kNever;
}

std::unique_ptr<CheckOutput> MakeCheckOutput(CheckFormat format, const CheckSeverities& severities) {
    switch (format) {
        case CheckFormat::Json:
            return std::make_unique<JsonOutput>(severities);
        case CheckFormat::Sarif:
            return std::make_unique<SarifOutput>(severities);
        case CheckFormat::Text:
            break;
    }
    return std::make_unique<TextOutput>();
}
