// The conversions between plain and escaped text, one replacement at a time.
#pragma once

#include <cstddef>
#include <string>

namespace oxa_test::model {

// Tells whether one of the three known entities begins there.
bool is_entity_at(const std::string& text, std::size_t at);

std::string escaped(std::string text);
std::string unescaped(std::string text);

}  // namespace oxa_test::model
