#include "app/InformationPanel.h"

#include "filelist/Registration.h"
#include "paths/basFileControl.h"
#include "tags/SongReader.h"

namespace quillon {

InformationPanel::InformationPanel(const FileList& list, const OptionValues& options, InformationBoxes& boxes,
                                   PlayTimes& playTimes, PathStyle style)
    : list_(list), options_(options), boxes_(boxes), playTimes_(playTimes), style_(style) {}

void InformationPanel::Clear() {
  boxes_.SetTitle("");
  boxes_.SetFileName("");
  boxes_.SetSummary(std::string(kNoFileSummary));
  boxes_.SetDetail(std::string(kNoFileDetail));
}

void InformationPanel::ShowRow(int index) {
  const FileRow row = list_.Row(index);
  const std::string location = row.Location();
  std::optional<std::int32_t> playTime;
  if (options_.system.readPlayTimes && IsPlayableType(row.type)) playTime = playTimes_.LengthOfChosenFile();
  const FileInformation information = ReadInformation(location, row.type, row.size, playTime, TagSourcesOf(options_));
  boxes_.SetTitle(std::string(row.title));
  ShowFileName(location);
  boxes_.SetSummary(information.summary);
  boxes_.SetDetail(information.detail);
}

void InformationPanel::ShowFileName(const std::string& path) {
  boxes_.SetFileName(ShortenPath(path, boxes_.FileNameCharacters(), style_));
}

void InformationPanel::RefillFileName() {
  if (const int selected = list_.SelectedIndex(); selected != 0) ShowFileName(list_.Row(selected).Location());
}

}  // namespace quillon
