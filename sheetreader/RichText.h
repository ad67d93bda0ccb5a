#pragma once

#include "XmlScanner.h"

#include <string>

// Appends the text of the open element, such as <t>. Escapes such as _x000D_ become their characters. Blanks
// around the text count only with xml:space="preserve".
void ReadPlainText(XmlScanner& xml, std::string& text);

// Appends the texts of the open element's <t> and of the <t> in its runs <r>; not those of phonetic guides.
void ReadRichText(XmlScanner& xml, std::string& text);
