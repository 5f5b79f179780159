#pragma once

#include <cstdint>
#include <string>

#include "app/InformationPanel.h"

namespace quillon::test {

/// Records the present texts of the information panel's boxes.
class InformationBoxRecorder final : public InformationBoxes {
 public:
  void SetTitle(const std::string& text) override { title = text; }
  void SetFileName(const std::string& text) override { fileName = text; }
  void SetSummary(const std::string& text) override { summary = text; }
  void SetDetail(const std::string& text) override { detail = text; }
  [[nodiscard]] std::size_t FileNameCharacters() const override { return room; }

  std::string title;
  std::string fileName;
  std::string summary;
  std::string detail;
  std::size_t room = 1000;
};

/// Gives every file the same playing time.
class PlayTimeRecorder final : public PlayTimes {
 public:
  std::int32_t LengthOfChosenFile() override {
    ++asked;
    return length;
  }

  std::int32_t length = 0;
  int asked = 0;
};

}  // namespace quillon::test
