#include "rename/RegexReplace.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/Ansi.h"

namespace quillon {
namespace {

// 32,768 characters of four bytes: an answer that does not fit has more characters than any name may have.
constexpr std::size_t kAnswerCapacity = std::size_t{4} * 32'768;

bool IsErrorText(std::string_view answer) {
  const std::string lower = ToLower(FirstCharacters(answer, 25));
  return lower == "invalidtargetparameter" || lower == "invalid target parameter" || lower.starts_with("unmatched");
}

std::optional<std::string> NameFromAnswer(std::optional<std::string> answer) {
  return answer && IsErrorText(*answer) ? std::nullopt : std::move(answer);
}

// Other libraries with this file name have had a `Replace` with other parameters.
bool HasOurInterface(const SharedLibrary& library) {
  const auto version = reinterpret_cast<BregexpVersion*>(library.Symbol("QuillonRegexVersion"));
  return version != nullptr && version() == kBregexpVersion;
}

std::string Utf8Flags(std::string_view flags) {
  std::string utf8(flags);
  std::replace(utf8.begin(), utf8.end(), 'k', 'u');
  return utf8;
}

}  // namespace

std::string RegexCommand(std::string_view pattern, std::string_view replacement, std::string_view flags) {
  std::string command;
  command.reserve(pattern.size() + replacement.size() + flags.size() + 4);
  command += "s/";
  command += pattern;
  command += '/';
  command += replacement;
  command += '/';
  command += flags;
  return command;
}

RegexLibrary::RegexLibrary(const std::string& name) {
  library_ = SharedLibrary::Find(SharedLibraryFileName(name));
  if (!HasOurInterface(library_)) {
    library_ = {};
    return;
  }
  replace_ = reinterpret_cast<BregexpReplace*>(library_.Symbol("Replace"));
  check_ = reinterpret_cast<BregexpCheck*>(library_.Symbol("QuillonRegexCheck"));
  if (replace_ != nullptr) buffer_.resize(kAnswerCapacity);
}

RegexLibrary::~RegexLibrary() {
  for (Slot& slot : slots_) {
    if (slot.compiled != nullptr) replace_(nullptr, 0, nullptr, 0, nullptr, 0, &slot.compiled);
  }
}

std::optional<std::string> RegexLibrary::Replace(std::string_view command, std::string_view target) {
  if (!Available()) return std::nullopt;
  const std::size_t length = replace_(command.data(), command.size(), target.data(), target.size(), buffer_.data(),
                                      buffer_.size(), &SlotOf(command).compiled);
  return buffer_.substr(0, std::min(length, buffer_.size()));
}

std::optional<RegexDefect> RegexLibrary::Check(std::string_view command) {
  if (check_ == nullptr) return std::nullopt;
  RegexDefect defect;
  defect.number = check_(command.data(), command.size(), &defect.offset);
  return defect.number == 0 ? std::nullopt : std::optional(defect);
}

RegexLibrary::Slot& RegexLibrary::SlotOf(std::string_view command) {
  const auto known =
      std::find_if(slots_.begin(), slots_.end(), [&](const Slot& slot) { return slot.command == command; });
  if (known != slots_.end()) return *known;
  Slot& slot = slots_[nextSlot_];
  nextSlot_ = (nextSlot_ + 1) % slots_.size();
  slot.command = command;
  return slot;
}

std::optional<std::string> RegexReplace(std::string_view target, std::string_view pattern, std::string_view replacement,
                                        std::string_view flags, RegexEngine& engine) {
  const std::optional<std::string> ansiTarget = Utf8ToAnsi(target);
  const std::optional<std::string> ansiCommand =
      ansiTarget ? Utf8ToAnsi(RegexCommand(pattern, replacement, flags)) : std::nullopt;
  if (ansiCommand) {
    std::optional<std::string> answer = engine.Replace(*ansiCommand, *ansiTarget);
    if (!answer) return std::nullopt;
    if (std::optional<std::string> name = NameFromAnswer(AnsiToUtf8(*answer))) return name;
    // The error may only mean that code page 932 cannot hold the result ("\x{e9}").
  }
  return NameFromAnswer(engine.Replace(RegexCommand(pattern, replacement, Utf8Flags(flags)), target));
}

}  // namespace quillon
