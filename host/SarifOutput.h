// The findings of check as a SARIF 2.1.0 log. tests/docs/sarif.schema.json says what of SARIF is written.
#pragma once

#include "CheckOutput.h"
#include "JsonOutput.h"

#include <map>
#include <string>
#include <vector>

class SarifOutput : public CheckOutput {
  public:
    explicit SarifOutput(const CheckSeverities& severities) : m_severities(severities) {}
    void Add(const CheckedFile& file) override;
    void Finish(const std::vector<const AcceptedFinding*>& unmatched) override;

  private:
    std::size_t RuleIndex(const FindingKind& kind);

    const CheckSeverities m_severities;
    Json m_rules = Json::array();  // a rule of SARIF is a kind of finding
    std::map<FindingCode, std::size_t> m_ruleIndexes;
    Json m_results = Json::array();
    Json m_unreadable = Json::array();
};
