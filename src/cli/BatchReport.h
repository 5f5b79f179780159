#pragma once

#include <string>
#include <vector>

#include "cli/Json.h"
#include "cli/Output.h"
#include "platform/FileSystem.h"

namespace quillon::cli {

/// Writes what happens to each file of a batch that moves or deletes: what would be done, or what failed, as text;
/// every file as JSON. Ends with a summary when something was really done.
class BatchReport {
 public:
  BatchReport(bool apply, bool json) : apply_(apply), json_(json) {}

  /// False once the user has interrupted the program or nobody reads on: the batch ends there.
  [[nodiscard]] bool Continue();

  /// A file that was moved, or would be. `further` holds what its JSON object has besides the paths.
  void Moved(const std::string& from, const std::string& to, const Json& further);
  /// A file that was deleted, or would be.
  void Deleted(const std::string& path);
  /// A file that was left where it is.
  void Failed(const Json& paths, const std::string& path, const FileError& error, const std::string& reason);

  [[nodiscard]] int Done() const { return done_; }
  [[nodiscard]] int FailureCount() const { return failed_; }

  /// Writes the lines, and as JSON one object that holds them behind `counted`, the field of the number done, and what
  /// `further` says. Nothing without `apply`.
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
