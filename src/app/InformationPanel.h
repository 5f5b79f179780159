#pragma once

#include <string>

#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/PathStyle.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The boxes of fraFileInfo that only show.
class InformationBoxes {
 public:
  virtual ~InformationBoxes() = default;
  virtual void SetTitle(const std::string& text) = 0;
  virtual void SetFileName(const std::string& text) = 0;
  virtual void SetSummary(const std::string& text) = 0;
  virtual void SetDetail(const std::string& text) = 0;
  /// How many characters of a path txtFileName has room for.
  [[nodiscard]] virtual std::size_t FileNameCharacters() const = 0;
};

/// What is known of the selected row's file, read from the file each time. It is the one that the player has chosen.
class InformationPanel {
 public:
  InformationPanel(const FileList& list, const OptionValues& options, InformationBoxes& boxes, PlayTimes& playTimes,
                   PathStyle style = SystemPathStyle());

  /// The texts of no file.
  void Clear();
  void ShowRow(int index);
  void ShowFileName(const std::string& path);
  /// The box has another width now.
  void RefillFileName();

 private:
  const FileList& list_;
  const OptionValues& options_;
  InformationBoxes& boxes_;
  PlayTimes& playTimes_;
  PathStyle style_;
};

}  // namespace quillon
