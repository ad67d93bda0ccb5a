#pragma once

#include <string>
#include <vector>

// The three keys that need the fewest changed characters: "19010/10067, 19010/10068, 19010/status".
std::string NearestKeys(const std::vector<std::string>& keys, const std::string& key);
