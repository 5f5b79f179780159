#pragma once

#include <string>
#include <vector>

#include "cli/Output.h"
#include "plan/Json.h"
#include "platform/FileSystem.h"

namespace quillon::cli {

/// Reports a batch that moves or deletes: as text, what would be done or what failed; as JSON, every file. A summary
/// follows when files are really changed.
class BatchReport {
 public:
  BatchReport(bool apply, bool json) : apply_(apply), json_(json) {}

  /// Returns false once the user has interrupted the program or the output is closed; the batch must then end.
  [[nodiscard]] bool Continue();

  /// Reports a file that was moved, or would be. `further` holds its JSON object's fields besides the paths.
  void Moved(const std::string& from, const std::string& to, const Json& further);
  /// Reports a file that was deleted, or would be.
  void Deleted(const std::string& path);
  /// Reports a file that was not moved or deleted, or would not be.
  void Failed(const Json& paths, const std::string& path, const FileError& error, const std::string& reason);

  [[nodiscard]] int Done() const { return done_; }
  [[nodiscard]] int FailureCount() const { return failed_; }

  /// Writes the lines, or as JSON one object: the number done in the field `counted`, the fields of `further`, and the
  /// lines. Writes nothing without `apply`.
  void Summary(const char* counted, const std::vector<std::string>& lines, const Json& further);

  /// The exit status, after everything was written.
  [[nodiscard]] int Status(bool complete);

 private:
  void Write(const Json& object) { output_.Line(OneLine(object)); }

  bool apply_;
  bool json_;
  bool interrupted_ = false;
  int done_ = 0;
  int failed_ = 0;
  Output output_;
};

}  // namespace quillon::cli
