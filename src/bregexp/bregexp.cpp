#include "bregexp/bregexp.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "bregexp/Substitution.h"
#include "platform/ExportedSymbol.h"

namespace quillon::bregexp {
namespace {

/// A caller's slot points to this: the last command and the result of compiling it.
struct Compiled {
  explicit Compiled(std::string_view text) : command(text), outcome(Substitution::Compile(text)) {}

  std::string command;
  Result<Substitution, Defect> outcome;
};

std::string Run(Compiled& compiled, std::string_view target) {
  return compiled.outcome.Ok() ? (*compiled.outcome).Apply(target) : std::string(ErrorText(compiled.outcome.Failure()));
}

void FreeSlot(void** slot) {
  if (slot == nullptr) return;
  delete static_cast<Compiled*>(*slot);
  *slot = nullptr;
}

std::string RunWithSlot(std::string_view command, std::string_view target, void** slot) {
  if (slot == nullptr) {
    Compiled once(command);
    return Run(once, target);
  }
  if (*slot == nullptr || static_cast<const Compiled*>(*slot)->command != command) {
    FreeSlot(slot);
    *slot = std::make_unique<Compiled>(command).release();
  }
  return Run(*static_cast<Compiled*>(*slot), target);
}

std::size_t Copy(std::string_view text, char* result, std::size_t capacity) {
  const std::size_t count = std::min(text.size(), capacity);
  if (count > 0) std::memcpy(result, text.data(), count);
  return text.size();
}

}  // namespace
}  // namespace quillon::bregexp

extern "C" QUILLON_EXPORTED BregexpReplace Replace;
extern "C" QUILLON_EXPORTED BregexpCheck QuillonRegexCheck;
extern "C" QUILLON_EXPORTED BregexpVersion QuillonRegexVersion;

int QuillonRegexVersion() {
  return kBregexpVersion;
}

int QuillonRegexCheck(const char* command, std::size_t commandLength, std::size_t* offset) {
  using namespace quillon::bregexp;
  *offset = 0;
  try {
    const auto outcome = Substitution::Compile({command, commandLength});
    if (outcome.Ok()) return 0;
    *offset = outcome.Failure().offset;
    return outcome.Failure().number;
  } catch (const std::bad_alloc&) {
    return kBregexpOutOfMemory;
  }
}

std::size_t Replace(const char* command, std::size_t commandLength, const char* target, std::size_t targetLength,
                    char* result, std::size_t capacity, void** compiled) {
  using namespace quillon::bregexp;
  if (command == nullptr) {
    FreeSlot(compiled);
    return 0;
  }
  // The caller may use another C++ runtime, so no exception may cross this boundary.
  try {
    return Copy(RunWithSlot({command, commandLength}, {target, targetLength}, compiled), result, capacity);
  } catch (const std::bad_alloc&) {
    return Copy(kInvalid, result, capacity);
  }
}
