#pragma once

namespace quillon {

/// Makes TagLib decode texts without a stated encoding (ID3v1, Latin-1 frames of ID3v2, RIFF INFO) as
/// StoredText::kUtf8OrAnsi, and keeps it from writing to standard error. The same for the whole process; the first call
/// counts.
void UseStoredTagTexts();

}  // namespace quillon
