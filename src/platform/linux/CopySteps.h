#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/MoveByCopying.h"
#include "platform/TemporaryMark.h"
#include "platform/linux/CopyFile.h"

namespace quillon {

class LinuxCopySteps final : public CopySteps {
 public:
  /// `progress` may be null.
  explicit LinuxCopySteps(Progress* progress = nullptr) : progress_(progress) {}

  FileOutcome Look(const std::string& path) override;
  FileOutcome OpenSource(const std::string& from) override;
  MoveOutcome CopyInto(const std::string& folder) override;
  [[nodiscard]] std::string Temporary() const override { return mark_ ? mark_->Path() : std::string(); }
  FileOutcome Publish(const std::string& to) override;
  FileOutcome FlushFolder(const std::string& folder) override;
  SourceNow LookAtSource() override;
  FileOutcome RemoveSource() override;
  FileOutcome RemoveCopy(const std::string& path) override;

 private:
  Progress* progress_;
  std::string from_;
  std::optional<OpenedSource> source_;
  std::unique_ptr<TemporaryMark> mark_;
  MadeCopy copy_;
};

}  // namespace quillon
