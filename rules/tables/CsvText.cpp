#include "CsvText.h"

#include "Text.h"

CsvHeading SplitCsvHeading(std::string_view text) {
    text = WithoutBlanks(text);
    const std::size_t bracket = text.find('[');
    if (bracket == text.npos || !text.ends_with(']')) return {text, ""};
    return {WithoutBlanks(text.substr(0, bracket)),
            WithoutBlanks(text.substr(bracket + 1, text.size() - bracket - 2))};
}

std::string CsvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == text.npos) return std::string(text);
    std::string quoted = "\"";
    for (const char ch : text) quoted.append(ch == '"' ? 2 : 1, ch);
    return quoted + "\"";
}

std::string FindSeparatorFlaw(const std::vector<std::string>& headings) {
    const bool hasSemicolons = headings.size() == 1 && headings[0].find(';') != std::string::npos;
    return hasSemicolons ? "the fields are separated by semicolons; save the file with commas" : "";
}
