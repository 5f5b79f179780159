#include "filelist/FindRows.h"

#include <algorithm>
#include <string_view>

#include "base/FoldedText.h"

namespace quillon {
namespace {

constexpr char kBetweenColumns = '\0';

}  // namespace

void FindRows::SetText(const std::string& text) {
  text_ = text;
  folded_ = Folded(text);
}

int FindRows::Count() {
  Update();
  return static_cast<int>(found_.size());
}

int FindRows::NumberOf(int index) {
  Update();
  const auto place = std::lower_bound(found_.begin(), found_.end(), index);
  return place != found_.end() && *place == index ? static_cast<int>(place - found_.begin()) + 1 : 0;
}

int FindRows::From(int index) {
  Update();
  if (found_.empty()) return 0;
  const auto place = std::lower_bound(found_.begin(), found_.end(), index);
  return place == found_.end() ? found_.front() : *place;
}

int FindRows::Previous(int index) {
  Update();
  if (found_.empty()) return 0;
  const auto place = std::lower_bound(found_.begin(), found_.end(), index);
  return place == found_.begin() ? found_.back() : *(place - 1);
}

void FindRows::Update() {
  const bool sameRows = revision_ == list_.Revision();
  if (sameRows && searched_ == folded_) return;
  if (folded_.empty()) {
    found_.clear();
  } else if (sameRows && !searched_.empty() && folded_.find(searched_) != std::string::npos) {
    std::erase_if(found_, [this](int index) { return !Shows(index); });
  } else {
    found_.clear();
    for (int index = 1; index <= list_.Count(); ++index) {
      if (Shows(index)) found_.push_back(index);
    }
  }
  searched_ = folded_;
  revision_ = list_.Revision();
}

bool FindRows::Shows(int index) {
  const FileRow row = list_.Row(index);
  row_.clear();
  const auto append = [this](std::string_view text) {
    AppendFolded(row_, text);
    row_ += kBetweenColumns;
  };
  append(row.renameName);  // not by ColumnText, which copies: a hundred thousand rows are read between two keys
  append(row.title);
  append(row.artist);
  append(row.Location());
  append(ColumnText(row, Column::kType));
  append(ColumnText(row, Column::kSize));
  return row_.find(folded_) != std::string::npos;
}

}  // namespace quillon
