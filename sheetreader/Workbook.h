#pragma once

#include "NumberFormats.h"
#include "Package.h"
#include "TextPool.h"

#include <optional>

// An .xlsx workbook, also of the strict variant of the format: a zip archive of XML parts. All throw
// std::runtime_error when it is none or damaged.
class Workbook {
  public:
    // Takes over the source, also when it throws.
    explicit Workbook(zip_source* pSource);

    // Name of the part of the sheet that is active when Excel opens the workbook; none when that is a chart
    // or a dialog, which have no cells.
    std::optional<std::string> FindActiveSheet();

    XmlScanner OpenPart(const std::string& part) { return m_package.Open(part); }
    NumberFormats ReadFormats();

    // The texts that cells share, in their order, from text 1 on.
    TextPool ReadSharedTexts();

  private:
    Package m_package;
    std::string m_part;
    std::vector<Relation> m_relations;
};

// Appends the text of an open element. Escapes such as _x000D_ become their characters; blanks around the
// text count only with xml:space="preserve".
void ReadPlainText(XmlScanner& xml, std::string& text);

// The same of rich text: of its <t>, or the <t> of its <r>, but of no phonetic guide.
void ReadRichText(XmlScanner& xml, std::string& text);
