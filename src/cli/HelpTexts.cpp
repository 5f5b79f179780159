#include "cli/HelpTexts.h"

#include "platform/Program.h"

namespace quillon::cli {

std::string Localized(const HelpText& text) {
  return UserReadsJapanese() ? text.japanese : text.english;
}

}  // namespace quillon::cli
