#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "bregexp/bregexp.h"
#include "platform/SharedLibrary.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Why a command cannot be used; see BregexpCheck.
struct RegexDefect {
  int number = 0;
  std::size_t offset = 0;
};

/// Runs substitution commands.
class RegexEngine {
 public:
  virtual ~RegexEngine() = default;

  /// The answer to a command: the result text or an error text. Command, target and answer are in code page 932 when
  /// the command's flags hold "k" and in UTF-8 when they hold "u". Nullopt when there is no engine.
  virtual std::optional<std::string> Replace(std::string_view command, std::string_view target) = 0;

  /// What is wrong with a command; nullopt also when the engine cannot tell.
  virtual std::optional<RegexDefect> Check(std::string_view /*command*/) { return std::nullopt; }
};

/// The regular-expression library, found by name as FindLibrary does. It is available only when it reports the
/// interface version that is known here (bregexp.h); no other function of it is called before that.
class RegexLibrary final : public RegexEngine {
 public:
  RegexLibrary() : RegexLibrary("bregexp") {}
  /// For tests: a library of another name.
  explicit RegexLibrary(const std::string& name);
  RegexLibrary(const RegexLibrary&) = delete;
  RegexLibrary& operator=(const RegexLibrary&) = delete;
  ~RegexLibrary() override;

  [[nodiscard]] bool Available() const { return replace_ != nullptr; }

  /// An answer that is too long for every name (more than 32,767 characters) may be truncated beyond that.
  std::optional<std::string> Replace(std::string_view command, std::string_view target) override;
  std::optional<RegexDefect> Check(std::string_view command) override;

 private:
  /// A command and the library's own compiled form of it.
  struct Slot {
    std::string command;
    void* compiled = nullptr;
  };

  Slot& SlotOf(std::string_view command);

  SharedLibrary library_;
  BregexpReplace* replace_ = nullptr;
  BregexpCheck* check_ = nullptr;
  std::array<Slot, 2 * kReplaceRuleCount> slots_;  ///< each rule may be used in both encodings
  std::size_t nextSlot_ = 0;
  std::string buffer_;
};

/// The command of a rule.
[[nodiscard]] std::string RegexCommand(std::string_view pattern, std::string_view replacement, std::string_view flags);

/// Replaces the pattern's matches in the target. `flags` are those for text in code page 932 ("gk" or "gik"); when the
/// rule, the target or the result has no exact form in it, UTF-8 is used. Returns nullopt when the engine answers with
/// an error, or not at all: then the target stays unchanged.
[[nodiscard]] std::optional<std::string> RegexReplace(std::string_view target, std::string_view pattern,
                                                      std::string_view replacement, std::string_view flags,
                                                      RegexEngine& engine);

}  // namespace quillon
