#include "Commands.h"

#include "ConversionLoss.h"
#include "File.h"
#include "RecordCheck.h"
#include "RuleDocument.h"
#include "RuleJson.h"
#include "RuleTable.h"
#include "Text.h"
#include "TextTable.h"
#include "UnitNames.h"

namespace {

std::string Heading(const CString& strPath, const RuleDocument& document) {
    return ToUtf8(strPath) + ": " + Count(document.GetEntries().size(), "rule") + " in " +
           UnitWords(document.GetUnits()) + "\n";
}

void PrintTables(const CString& strPath, const RuleDocument& document) {
    Print(Heading(strPath, document));
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.pRule) Print("\n" + FormatRule(*entry.pRule));
}

std::string Joined(const CStringList& texts) {
    std::string joined;
    for (POSITION pos = texts.GetHeadPosition(); pos;)
        joined += (joined.empty() ? "" : ", ") + ToUtf8(texts.GetNext(pos));
    return joined;
}

int UnitOrThrow(std::optional<int> unit, const std::string& option, const std::string& name,
                const std::string& known) {
    if (!unit)
        throw HostError(
            ExitCode::Usage,
            option + ": \"" + name + "\" is not a unit that a rule document can be in; those are " + known);
    return *unit;
}

UnitPair TargetUnits(const UnitPair& own, const ConvertOptions& options) {
    UnitPair units = own;
    if (options.lengthUnit)
        units.m_nLengthUnit = UnitOrThrow(FindLengthUnit(*options.lengthUnit), "--length",
                                          *options.lengthUnit, LengthUnitSymbols());
    if (options.angleUnit)
        units.m_nAngleUnit =
            UnitOrThrow(FindAngleUnit(*options.angleUnit), "--angle", *options.angleUnit, AngleUnitSymbols());
    return units;
}

const RuleDocument::Entry& FindRule(const RuleDocument& document, const ConfigureOptions& options) {
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.pRule && entry.pRule->GetRuleId() == options.nRuleId) return entry;
    throw HostError(ExitCode::Usage, ToUtf8(options.strInput) + " has no rule " +
                                         std::to_string(options.nRuleId) + "; mfxhost show tells the ids");
}

void CheckDisplay() {
    const HWND hWindow =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    if (!hWindow) throw HostError(ExitCode::Missing, "there is no display on which a dialog can be shown");
    DestroyWindow(hWindow);
}

}  // namespace

ExitCode ListRules(const RuleModule& module) {
    Print(ToUtf8(module.GetName()) + "\n" + ToUtf8(module.GetSummary()) + "\n\n");
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    table.Add({"id", "rule", "process", "summary"});
    for (const RulePtr& pRule : module.CreateAllRules())
        table.Add({std::to_string(pRule->GetRuleId()), ToUtf8(pRule->m_strDisplayName),
                   Joined(pRule->m_processList), ToUtf8(pRule->m_strSummary)});
    Print(table.Format(0));
    return ExitCode::Done;
}

ExitCode NewDocument(const RuleModule& module, const CString& strPath, bool bForce) {
    if (!bForce && FileExists(strPath) && !IsFolder(strPath))
        throw HostError(ExitCode::Usage, ToUtf8(strPath) + " exists already; --force replaces it");
    RuleDocument document;
    for (RulePtr& pRule : module.CreateAllRules()) document.Append(std::move(pRule), module);
    document.Save(strPath);
    Print(Heading(strPath, document));
    return ExitCode::Done;
}

ExitCode ShowDocument(const RuleModule& module, const CString& strPath, bool bJson) {
    const RuleDocument document(strPath, module);
    if (bJson)
        PrintJson(DocumentToJson(ToUtf8(strPath), document));
    else
        PrintTables(strPath, document);
    return PrintUnread(document) ? ExitCode::Findings : ExitCode::Done;
}

ExitCode ConvertDocument(const RuleModule& module, const ConvertOptions& options) {
    if (!options.lengthUnit && !options.angleUnit)
        throw HostError(ExitCode::Usage, "convert: give the new units by --length, --angle or both");
    RuleDocument document(options.strInput, module);
    const UnitPair from = document.GetUnits();
    const UnitPair to = TargetUnits(from, options);
    const auto isRefused = [&] {
        const bool bUnread = PrintUnread(document);
        if (bUnread) PrintError("mfxhost: " + ToUtf8(options.strInput) + " was not converted\n");
        return bUnread;
    };
    if (isRefused()) return ExitCode::Findings;
    if (from == to && options.strOutput.IsEmpty()) {
        Print(ToUtf8(options.strInput) + " is in " + UnitWords(to) + " already\n");
        return ExitCode::Done;
    }
    const ConversionLoss loss(document);
    document.ConvertUnits(to, module);
    if (isRefused()) return ExitCode::Findings;  // a number that is too large in the new unit
    const CString& strOutput = options.strOutput.IsEmpty() ? options.strInput : options.strOutput;
    document.Save(strOutput);
    Print(ToUtf8(strOutput) + ": " + Count(document.GetEntries().size(), "rule") + " converted from " +
          UnitWords(from) + " to " + UnitWords(to) + "\n");
    loss.Print(document);
    return ExitCode::Done;
}

ExitCode ConfigureDocument(const RuleModule& module, const ConfigureOptions& options) {
    RuleDocument document(options.strInput, module);
    const RuleDocument::Entry& entry = FindRule(document, options);
    if (PrintUnread(document, options.nRuleId)) {
        PrintError("mfxhost: " + ToUtf8(options.strInput) + " was not changed\n");
        return ExitCode::Findings;
    }
    CheckDisplay();
    const CString& strOutput = options.strOutput.IsEmpty() ? options.strInput : options.strOutput;
    const std::string rule = ToUtf8(entry.pRule->m_strDisplayName);
    if (!document.ConfigureRule(entry, module)) {
        Print(rule + " was not changed\n");
        return ExitCode::Done;
    }
    document.Save(strOutput);
    Print(ToUtf8(strOutput) + ": " + rule + " changed\n");
    return ExitCode::Done;
}
