#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/MoveByCopying.h"
#include "platform/TemporaryMark.h"
#include "platform/windows/CopyFile.h"
#include "platform/windows/Handle.h"

namespace quillon {

class WindowsCopySteps final : public CopySteps {
 public:
  /// `progress` may be null.
  explicit WindowsCopySteps(Progress* progress = nullptr) : progress_(progress) {}

  FileOutcome Look(const std::string& path) override;
  FileOutcome OpenSource(const std::string& from) override;
  MoveOutcome CopyInto(const std::string& folder) override;
  [[nodiscard]] std::string Temporary() const override { return mark_ ? mark_->Path() : std::string(); }
  FileOutcome Publish(const std::string& to) override;
  FileOutcome FlushFolder(const std::string&) override;
  SourceNow LookAtSource() override;
  FileOutcome RemoveSource() override;
  FileOutcome RemoveCopy(const std::string& path) override;

 private:
  Progress* progress_;
  std::string from_;
  std::optional<Handle> source_;  // keeps writers out
  BY_HANDLE_FILE_INFORMATION opened_ = {};
  std::unique_ptr<TemporaryMark> mark_;
  MadeCopy copy_;
};

}  // namespace quillon
