#include "LoadedLibrary.h"

namespace quillon::test {

LoadedLibrary::LoadedLibrary() {
  library_ = SharedLibrary::Find(SharedLibraryFileName("bregexp"));
  replace_ = reinterpret_cast<BregexpReplace*>(library_.Symbol("Replace"));
}

LoadedLibrary::~LoadedLibrary() {
  if (replace_ != nullptr) replace_(nullptr, 0, nullptr, 0, nullptr, 0, &slot_);
}

LoadedLibrary::Defect LoadedLibrary::Check(std::string_view command) {
  Defect defect = {0, 12345};
  defect.number =
      reinterpret_cast<BregexpCheck*>(Symbol("QuillonRegexCheck"))(command.data(), command.size(), &defect.offset);
  return defect;
}

std::string LoadedLibrary::Replace(std::string_view command, std::string_view target) {
  std::string result(256, '\0');
  for (;;) {
    const std::size_t length =
        replace_(command.data(), command.size(), target.data(), target.size(), result.data(), result.size(), &slot_);
    const bool complete = length <= result.size();
    result.resize(length);
    if (complete) return result;
  }
}

}  // namespace quillon::test
