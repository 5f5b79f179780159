#pragma once

namespace quillon {

enum class TagFields {
  kTitleAndArtist,  ///< what a list row needs: other fields may stay empty
  kAll,
};

}  // namespace quillon
