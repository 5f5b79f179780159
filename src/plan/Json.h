#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace quillon::cli {

/// Keeps the fields in the order in which they are added.
using Json = nlohmann::ordered_json;

/// Adds `field` with the path; where the path is not valid UTF-8 also `field`_bytes, its bytes in hexadecimal digits.
void AddPath(Json& object, const std::string& field, const std::string& path);

/// The object on one line. Bytes that are not valid UTF-8 appear as U+FFFD.
[[nodiscard]] std::string OneLine(const Json& object);

}  // namespace quillon::cli
