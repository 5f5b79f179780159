#include "cli/BatchReport.h"

#include "cli/Messages.h"
#include "cli/Session.h"
#include "cli/Table.h"
#include "platform/Program.h"

namespace quillon::cli {

bool BatchReport::Continue() {
  interrupted_ = interrupted_ || Interrupted();
  return !interrupted_ && !output_.Closed();
}

void BatchReport::Moved(const std::string& from, const std::string& to, const Json& further) {
  ++done_;
  if (json_) {
    Json object;
    AddPath(object, "old", from);
    AddPath(object, "new", to);
    object.update(further);
    Write(object);
  } else if (!apply_) {
    output_.Line(OnOneLine(from) + " -> " + OnOneLine(to));
  }
}

void BatchReport::Deleted(const std::string& path) {
  ++done_;
  if (json_) {
    Json object;
    AddPath(object, "path", path);
    Write(object);
  } else if (!apply_) {
    output_.Line(OnOneLine(path));
  }
}

void BatchReport::Failed(const Json& paths, const std::string& path, const FileError& error,
                         const std::string& reason) {
  ++failed_;
  if (!json_) {
    output_.Line(OnOneLine(path) + ": " + OnOneLine(reason));
    return;
  }
  Json object = paths;
  object["code"] = error.number;
  object["reason"] = reason;
  if (!error.fileAt.empty()) AddPath(object, "file_at", error.fileAt);
  Write(object);
}

void BatchReport::Summary(const char* counted, const std::vector<std::string>& lines, const Json& further) {
  if (!apply_) return;
  if (json_) {
    Json object;
    object[counted] = done_;
    object["failed"] = failed_;
    object["interrupted"] = interrupted_;
    object.update(further);
    object["summary"] = lines;
    Write(object);
    return;
  }
  for (const std::string& line : lines) output_.Line(line);
  if (interrupted_) Complain(Localized(messages::kInterrupted));
}

int BatchReport::Status(bool complete) {
  return output_.Flush() && complete && failed_ == 0 && !interrupted_ ? kDone : kSomeFailed;
}

}  // namespace quillon::cli
