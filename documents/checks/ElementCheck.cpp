#include "ElementCheck.h"

#include "NumberText.h"
#include "RecordNames.h"
#include "Text.h"
#include "ValueContent.h"
#include "XmlNumber.h"

#include <cmath>

namespace {

// Reading takes the number at the start of such a text, or 0.
void AddNotANumber(const Reporter& reporter, const MfxXMLNode& element, const CString& name,
                   const CString& text, double readAs) {
    if (std::isfinite(readAs))
        reporter.Add<FindingCode::NumberMisread>(element, ToUtf8(name), Quoted(text), FormatNumber(readAs));
    else
        reporter.Add<FindingCode::NotANumber>(element, ToUtf8(name), Quoted(text));
}

}  // namespace

void CheckWholeNumber(const Reporter& reporter, const MfxXMLNode& element, const CString& attribute,
                      const CString& value) {
    if (!IsInteger(value))
        reporter.Add<FindingCode::NotAWholeNumber>(
            element, ToUtf8(element.GetNodeName() + L": " + attribute) + "=" + Quoted(value));
}

void CheckStatus(const Reporter& reporter, const MfxXMLNode& element) {
    CString status;
    if (element.GetAttributeValue(kStatusAttribute, status) && status != L"0" && status != L"1")
        reporter.Add<FindingCode::StatusNotBoolean>(element, ToUtf8(element.GetNodeName()), Quoted(status));
}

void CheckStrayText(const Reporter& reporter, const MfxXMLNode& element) {
    const CString text = element.GetNodeValue();
    if (!CString(text).Trim().IsEmpty())
        reporter.Add<FindingCode::StrayText>(element, Shortened(element.GetNodeName()), Quoted(text));
}

int CheckReals(const Reporter& reporter, const MfxXMLNode& parent) {
    int count = 0;
    parent.ForEachChild(kValueTag, [&](const MfxXMLNode& element) {
        ++count;
        double number = 0.0;
        const CString text = element.GetNodeValue();
        const bool isRead = ParseReal(text, number);
        if (!isRead || !IsReal(text) || !std::isfinite(number))
            AddNotANumber(reporter, element, kValueTag, text, number);
    });
    return count;
}

void CheckCellNumber(const Reporter& reporter, const MfxXMLNode& row, const CString& cell,
                     const CString& text) {
    const double number = ParseDouble(text);
    if (!IsNumericText(text) || !IsReal(text) || !std::isfinite(number))
        AddNotANumber(reporter, row, cell, text, number);
}
