#include "RuleRecordCheck.h"

#include "ConstraintCheck.h"
#include "ElementCheck.h"
#include "LegacyTableCheck.h"
#include "ParameterCheck.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "Text.h"

#include <utility>

namespace {

// A conversion would change only the first of two equal attributes. Control characters stay as they are.
void AddFlaw(const Reporter& reporter, const MfxXmlFlaw& flaw) {
    const std::string element = Shortened(flaw.element.GetNodeName());
    const std::string attribute = Shortened(flaw.strAttribute);
    if (flaw.kind == MfxXmlFlaw::RepeatedAttribute)
        reporter.Add<FindingCode::RepeatedAttribute>(flaw.element, element, attribute);
    else
        reporter.Add<FindingCode::ControlCharacter>(flaw.element, element,
                                                    attribute.empty() ? std::string("the text") : attribute);
}

// Rules of other modules are valid, but their units are unknown here.
void AddUnknownRule(const Reporter& reporter) {
    const MfxXMLNode& record = *reporter.GetEntry().record;
    const CString module = record.GetAttribute(kModuleAttribute);
    if (module.CompareNoCase(kModuleName) == 0)
        reporter.Add<FindingCode::UnknownRule>(record, Quoted(module));
    else
        reporter.Add<FindingCode::ForeignRule>(record, Quoted(module));
}

void CheckRuleAttributes(const Reporter& reporter) {
    const MfxXMLNode& record = *reporter.GetEntry().record;
    for (const CString* name : {&kStatusAttribute, &kLifeStatusAttribute, &kSeverityAttribute}) {
        CString value;
        if (record.GetAttributeValue(*name, value))
            CheckWholeNumber(reporter, record, *name, value);
        else
            reporter.Add<FindingCode::MissingRuleNumber>(record, ToUtf8(*name));
    }
}

bool IsRepeated(const Reporter& reporter) {
    for (const RuleDocument::Entry& entry : reporter.GetDocument().GetEntries()) {
        if (&entry == &reporter.GetEntry()) break;
        if (entry.rule && entry.rule->GetRuleId() == reporter.GetRule().GetRuleId()) return true;
    }
    return false;
}

}  // namespace

void CheckDocumentAttributes(const Reporter& reporter) {
    const std::pair<const CString*, const char*> defaults[] = {
        {&kVersionAttribute, "1"}, {&kUnitAttribute, "millimetres"}, {&kAngleUnitAttribute, "degrees"}};
    const MfxXMLNode root = reporter.GetDocument().GetRoot();
    CString value;
    for (const auto& [name, takenFor] : defaults)
        if (!root.GetAttributeValue(*name, value))
            reporter.Add<FindingCode::MissingDocumentAttribute>(root, ToUtf8(*name), std::string(takenFor));
}

void CheckRuleRecord(const Reporter& reporter) {
    if (!reporter.GetEntry().rule) {
        AddUnknownRule(reporter);
        return;
    }
    const MfxXMLNode& record = *reporter.GetEntry().record;
    CheckRuleAttributes(reporter);
    if (IsRepeated(reporter)) reporter.Add<FindingCode::RepeatedRule>(record);
    CheckParameters(reporter, record, reporter.GetRule().m_paramArray);
    CheckConstraints(reporter);
    CheckLegacyTable(reporter);
    CheckMassUnit(reporter);
}

void CheckNestedRules(const Reporter& reporter) {
    const RuleDocument& document = reporter.GetDocument();
    for (const MfxXMLNode& rule : document.FindNestedRules())
        reporter.About(document.FindEntry(rule))
            .Add<FindingCode::NestedRule>(rule, Quoted(rule.GetAttribute(kNameAttribute)));
}

void CheckXmlFlaws(const Reporter& reporter) {
    const RuleDocument& document = reporter.GetDocument();
    for (const MfxXmlFlaw& flaw : document.FindFlaws())
        AddFlaw(reporter.About(document.FindEntry(flaw.element)), flaw);
}
