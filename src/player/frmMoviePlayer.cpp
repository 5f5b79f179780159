#include "player/frmMoviePlayer.h"

#include <utility>

namespace quillon {

frmMoviePlayer::frmMoviePlayer(Surroundings surroundings)
    : wxFrame(&surroundings.owner, wxID_ANY, "Quillon"), surroundings_(std::move(surroundings)) {}

bool frmMoviePlayer::Load() {
  return false;
}

void frmMoviePlayer::SetPosition(std::int32_t /*position*/) {}

void frmMoviePlayer::SetTime(const std::string& /*text*/) {}

}  // namespace quillon
