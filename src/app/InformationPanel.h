#pragma once

#include <string>

#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/PathStyle.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The read-only boxes of fraFileInfo.
class InformationBoxes {
 public:
  virtual ~InformationBoxes() = default;
  virtual void SetTitle(const std::string& text) = 0;
  virtual void SetFileName(const std::string& text) = 0;
  virtual void SetSummary(const std::string& text) = 0;
  virtual void SetDetail(const std::string& text) = 0;
  /// The number of characters of a path that fit into txtFileName.
  [[nodiscard]] virtual std::size_t FileNameCharacters() const = 0;
};

/// Shows information about the selected row's file, read from the file each time. The play time is that of the player's
/// chosen file, which must be the same file.
class InformationPanel {
 public:
  InformationPanel(const FileList& list, const OptionValues& options, InformationBoxes& boxes, PlayTimes& playTimes,
                   PathStyle style = SystemPathStyle());

  /// Shows the texts for no file.
  void Clear();
  void ShowRow(int index);
  void ShowFileName(const std::string& path);
  /// Call it when the width of txtFileName has changed.
  void RefillFileName();

 private:
  const FileList& list_;
  const OptionValues& options_;
  InformationBoxes& boxes_;
  PlayTimes& playTimes_;
  PathStyle style_;
};

}  // namespace quillon
