#pragma once

#include "NumberFormats.h"
#include "Package.h"
#include "TextPool.h"

#include <optional>

// An .xlsx workbook (ECMA-376, also its strict variant): a zip archive of XML parts. All throw
// std::runtime_error when it is none or damaged.
class Workbook {
  public:
    // Takes over the source, also when it throws.
    explicit Workbook(zip_source* pSource);

    // Name of the part of the sheet that is active when Excel opens the workbook; none when that is a chart,
    // which has no cells.
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

// Appends the text of an open element of rich text: <t>, or <r> with a <t> each, but no phonetic guide.
// Escapes such as _x000D_ become their characters; blanks around a text count only with xml:space="preserve".
void ReadRichText(XmlScanner& xml, std::string& text);

// Makes characters of escapes such as _x000D_, but of _x005F_ just the underscore.
void Unescape(std::string& text);
