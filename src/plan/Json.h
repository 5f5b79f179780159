#pragma once

#include <concepts>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// JSON objects, one per line, with paths in them.
namespace quillon {

/// Keeps the fields in the order in which they are added.
using Json = nlohmann::ordered_json;

/// Adds `field` with the path; where the path is not valid UTF-8 also `field`_bytes, its bytes in hexadecimal digits.
void AddPath(Json& object, const std::string& field, const std::string& path);

/// The path that AddPath has added; nullopt where there is none, or where its digits are damaged.
[[nodiscard]] std::optional<std::string> PathOf(const Json& object, const std::string& field);

/// The object on one line. Bytes that are not valid UTF-8 appear as U+FFFD.
[[nodiscard]] std::string OneLine(const Json& object);

/// A line of JSON, written field by field, for lines of which there are as many as files: the same bytes that OneLine
/// gives of an object with these fields, without the object. Names of fields are plain text, and each comes once.
class JsonLine {
 public:
  JsonLine();

  JsonLine& Text(std::string_view field, std::string_view text);
  JsonLine& Number(std::string_view field, std::integral auto number) {
    Begin(field);
    line_ += std::to_string(number);
    return *this;
  }
  JsonLine& True(std::string_view field);
  /// The same as AddPath.
  JsonLine& Path(std::string_view field, std::string_view path);

  /// Ends the line; it has no line break.
  [[nodiscard]] std::string Take();

 private:
  void Begin(std::string_view field);

  std::string line_;
};

/// The object that the line holds; nullopt where it holds none.
[[nodiscard]] std::optional<Json> ParseObject(std::string_view line);

/// The lines of a file that people write, too: without a byte-order mark, and without CR or LF at their ends. The last
/// line may have no line end.
[[nodiscard]] std::vector<std::string_view> TextLines(std::string_view text);

/// True for an empty line, or one of blanks and tabs.
[[nodiscard]] bool IsBlank(std::string_view line);

}  // namespace quillon
