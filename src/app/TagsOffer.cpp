#include "app/TagsOffer.h"

#include "app/ShownProgress.h"
#include "base/Finally.h"
#include "base/Text.h"
#include "filelist/Registration.h"

namespace quillon {

TagsOffer::TagsOffer(const Session& session, FileReads& files, TagsBar& bar, ProgressDisplay& progress,
                     const Screen& screen)
    : session_(session), files_(files), bar_(bar), progress_(progress), screen_(screen) {}

void TagsOffer::Offer(std::size_t files) {
  if (state_ == State::kAnswered) return;
  if (session_.list.Count() == 0) {
    if (state_ == State::kShown) Decline();
    return;
  }
  if (session_.options.extra.readMoreTags) {
    if (state_ == State::kShown) Accept();  // switched on in the options
    return;
  }
  if (files == 0) return;
  count_ += files;
  state_ = State::kShown;
  bar_.ShowTagsOffer("新しい形式のタグを持つファイルが " + FormatThousands(count_) + " 個あります");
}

void TagsOffer::Accept() {
  Decline();
  session_.options.extra.readMoreTags = true;
  cancelled_ = false;
  {
    progress_.Begin("ファイル情報解析中...", "");
    const Finally ended([this] { progress_.End(); });
    ShownProgress progress(screen_.pending, progress_, {.indent = "  "}, [this] { return cancelled_; });
    ReadTitlesAnew(session_.list, files_, progress);
  }
  if (const int selected = session_.list.SelectedIndex(); selected != 0) screen_.filePanel.ShowRow(selected);
}

void TagsOffer::Decline() {
  state_ = State::kAnswered;
  bar_.HideTagsOffer();
}

}  // namespace quillon
