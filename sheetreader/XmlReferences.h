#pragma once

#include <string>
#include <string_view>

// Appends the text with its references ("&amp;", "&#65;") resolved and its line ends as "\n". Throws
// std::runtime_error for an entity that XML does not define.
void AppendResolved(std::string& text, std::string_view raw);
