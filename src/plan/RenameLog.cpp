#include "plan/RenameLog.h"

#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "plan/Json.h"

namespace quillon {
namespace {

JsonLine PathsOf(const std::string& from, const std::string& to) {
  JsonLine line;
  line.Path("old", from).Path("new", to);
  return line;
}

void AddIdentity(JsonLine& line, const FileIdentity& file) {
  line.Number("device", file.device).Number("file", file.file).Number("size", file.size).Number("mtime", file.modified);
}

template <class Number>
bool ReadNumber(const Json& object, const char* field, Number& number) {
  const auto found = object.find(field);
  if (found == object.end() || !found->is_number_integer()) return false;
  if (std::is_unsigned_v<Number> && !found->is_number_unsigned()) return false;
  number = found->template get<Number>();
  return true;
}

std::optional<FileIdentity> IdentityOf(const Json& object) {
  FileIdentity file;
  const bool whole = ReadNumber(object, "device", file.device) && ReadNumber(object, "file", file.file) &&
                     ReadNumber(object, "size", file.size) && ReadNumber(object, "mtime", file.modified);
  return whole ? std::optional<FileIdentity>(file) : std::nullopt;
}

class LogReader {
 public:
  // False for a line that is none of a log.
  bool Read(std::string_view line) {
    const std::optional<Json> object = ParseObject(line);
    if (!object) return false;
    std::optional<std::string> from = PathOf(*object, "old");
    std::optional<std::string> to = PathOf(*object, "new");
    if (!from || !to || from->empty() || to->empty()) return false;
    const std::string key = std::to_string(from->size()) + ':' + *from + *to;
    if (object->contains("failed")) return AddTo(key, [](LoggedRename& rename) { rename.failed = true; });
    const std::optional<FileIdentity> file = IdentityOf(*object);
    if (!file) return false;
    if (object->contains("copied")) return AddTo(key, [&](LoggedRename& rename) { rename.copy = file; });
    latest_[key] = renames_.size();
    renames_.push_back({.from = *std::move(from), .to = *std::move(to), .file = *file});
    return true;
  }

  [[nodiscard]] std::vector<LoggedRename> Take() { return std::move(renames_); }

 private:
  template <class Change>
  bool AddTo(const std::string& key, Change change) {
    const auto found = latest_.find(key);
    if (found == latest_.end()) return false;
    change(renames_[found->second]);
    return true;
  }

  std::vector<LoggedRename> renames_;
  std::unordered_map<std::string, std::size_t> latest_;  ///< by both paths
};

}  // namespace

std::string RenameLine(const std::string& from, const std::string& to, const FileIdentity& file) {
  JsonLine line = PathsOf(from, to);
  AddIdentity(line, file);
  return line.Take() + '\n';
}

std::string CopiedLine(const std::string& from, const std::string& to, const FileIdentity& copy) {
  JsonLine line = PathsOf(from, to);
  AddIdentity(line, copy);
  return line.True("copied").Take() + '\n';
}

std::string FailedLine(const std::string& from, const std::string& to, int error) {
  return PathsOf(from, to).Number("failed", error).Take() + '\n';
}

Result<RenameLog, std::size_t> ReadRenameLog(std::string_view text) {
  LogReader reader;
  std::size_t number = 0;
  while (!text.empty()) {
    ++number;
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return RenameLog{reader.Take(), true};
    if (!reader.Read(text.substr(0, end))) return number;
    text.remove_prefix(end + 1);
  }
  return RenameLog{reader.Take(), false};
}

}  // namespace quillon
