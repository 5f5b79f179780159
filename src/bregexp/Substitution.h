#pragma once

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "bregexp/Command.h"
#include "bregexp/Replacement.h"

namespace quillon::bregexp {

inline constexpr std::string_view kInvalid = "invalid target parameter";
inline constexpr std::string_view kUnmatchedParentheses = "unmatched () in regexp";
inline constexpr std::string_view kUnmatchedBrackets = "unmatched [] in regexp";

/// Why a command cannot be compiled, as `QuillonRegexCheck` answers it.
struct Defect {
  int number = 0;
  std::size_t offset = 0;
};

/// One of the texts above.
[[nodiscard]] std::string_view ErrorText(const Defect& defect);

/// A compiled command, ready for any number of targets.
class Substitution {
 public:
  static Result<Substitution, Defect> Compile(std::string_view command);

  /// Returns the target with its matches replaced, in the command's encoding, or one of the error texts on failure.
  [[nodiscard]] std::string Apply(std::string_view target);

 private:
  struct Free {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
    void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
    void operator()(pcre2_jit_stack* stack) const { pcre2_jit_stack_free(stack); }
  };
  struct Match {
    std::size_t start;
    std::size_t end;
  };

  Substitution() = default;

  [[nodiscard]] std::optional<Defect> CompilePattern(std::string_view pattern, bool ignoreCase);
  [[nodiscard]] bool PrepareMatching();
  [[nodiscard]] std::optional<std::string> ReplaceMatches(std::string_view text);
  [[nodiscard]] int Find(std::string_view text, std::size_t from, bool allowEmpty);
  [[nodiscard]] Match Found(std::size_t group) const;
  void AppendReplacement(std::string& result, std::string_view text) const;

  std::unique_ptr<pcre2_code, Free> code_;
  std::unique_ptr<pcre2_jit_stack, Free> stack_;  ///< outlives the context that refers to it
  std::unique_ptr<pcre2_match_context, Free> context_;
  std::unique_ptr<pcre2_match_data, Free> data_;
  std::vector<ReplacementPart> replacement_;
  Encoding encoding_ = Encoding::kBytes;
  bool global_ = false;
};

}  // namespace quillon::bregexp
