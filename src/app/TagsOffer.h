#pragma once

#include <cstddef>
#include <string>

#include "app/Screen.h"
#include "platform/FileSystem.h"

namespace quillon {

/// A bar above the list with one line of text and the buttons 読み取る and 閉じる.
class TagsBar {
 public:
  virtual ~TagsBar() = default;
  /// Shows the bar, or changes its text.
  virtual void ShowTagsOffer(const std::string& text) = 0;
  virtual void HideTagsOffer() = 0;
};

/// Offers, once per start, to read the tags that only OptionValues::Extra::readMoreTags reads.
class TagsOffer {
 public:
  TagsOffer(const Session& session, FileReads& files, TagsBar& bar, ProgressDisplay& progress, const Screen& screen);

  /// Call it after each command, with the number of files with such tags that the command has added. The bar appears at
  /// the first one; while it shows, it counts on. It disappears with the last row. When the option is switched on
  /// elsewhere, the rows are read as by Accept.
  void Offer(std::size_t files);

  /// Switches the option on and reads the listed rows that have no title once more. Their rename names stay.
  void Accept();
  void Decline();
  /// Ends the reading that Accept has begun; the rows read so far keep their titles.
  void Cancel() { cancelled_ = true; }

 private:
  enum class State { kNotYet, kShown, kAnswered };

  Session session_;
  FileReads& files_;
  TagsBar& bar_;
  ProgressDisplay& progress_;
  Screen screen_;
  State state_ = State::kNotYet;
  std::size_t count_ = 0;
  bool cancelled_ = false;
};

}  // namespace quillon
