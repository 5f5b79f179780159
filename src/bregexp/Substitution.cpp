#include "bregexp/Substitution.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/Text.h"
#include "bregexp/WorkingText.h"
#include "bregexp/bregexp.h"

namespace quillon::bregexp {
namespace {

// PCRE2's match limit applies to each starting position, so the limit is divided by the text's length: the whole search
// then takes less than about half a second. A name of 200 characters still gets a million steps per position.
constexpr std::size_t kStepsPerText = 200'000'000;
constexpr std::size_t kFewestSteps = 10'000;
constexpr std::size_t kMostSteps = 1'000'000;
constexpr std::uint32_t kHeapKibibytes = 64 * 1024;
constexpr std::size_t kSmallJitStack = std::size_t{32} * 1024;
constexpr std::size_t kLargestJitStack = std::size_t{4} * 1024 * 1024;

// The working form has at most four bytes per character, so this holds at least 65,536 characters.
constexpr std::size_t kLongestResult = std::size_t{4} * 65'536;

std::uint32_t MatchLimit(std::size_t length) {
  return static_cast<std::uint32_t>(std::clamp(kStepsPerText / (length + 1), kFewestSteps, kMostSteps));
}

std::uint32_t CompileOptions(Encoding encoding, bool ignoreCase) {
  std::uint32_t options = PCRE2_NEVER_UCP | PCRE2_NEVER_BACKSLASH_C;
  if (ignoreCase) options |= PCRE2_CASELESS;
  return options | (encoding == Encoding::kBytes ? PCRE2_NEVER_UTF : PCRE2_UTF);
}

/// The characters of the pattern in the command before this byte of the pattern that PCRE2 was given.
std::size_t OffsetInCommand(std::string_view pattern, std::size_t byte, Encoding encoding) {
  // PCRE2 can point into a character.
  const bool utf8 = encoding != Encoding::kBytes;
  while (utf8 && byte < pattern.size() && (static_cast<unsigned char>(pattern[byte]) & 0xC0u) == 0x80) --byte;
  const std::string_view before = pattern.substr(0, byte);
  // Every "/" was written as "\/".
  const auto slashes = static_cast<std::size_t>(std::count(before.begin(), before.end(), '/'));
  return (utf8 ? CharacterCount(before) : before.size()) + slashes;
}

// PCRE2 expects unsigned bytes.
PCRE2_SPTR Units(std::string_view text) {
  static constexpr char kEmpty = '\0';
  return reinterpret_cast<PCRE2_SPTR>(text.empty() ? &kEmpty : text.data());
}

}  // namespace

std::string_view ErrorText(const Defect& defect) {
  switch (defect.number) {
    case PCRE2_ERROR_MISSING_CLOSING_PARENTHESIS:
    case PCRE2_ERROR_UNMATCHED_CLOSING_PARENTHESIS:
    case PCRE2_ERROR_MISSING_COMMENT_CLOSING: return kUnmatchedParentheses;
    case PCRE2_ERROR_MISSING_SQUARE_BRACKET: return kUnmatchedBrackets;
    default: return kInvalid;
  }
}

Result<Substitution, Defect> Substitution::Compile(std::string_view command) {
  std::optional<Command> parsed = ParseCommand(command);
  if (!parsed) return Defect{kBregexpBadCommand};
  Substitution made;
  made.encoding_ = parsed->encoding;
  made.global_ = parsed->global;
  if (const auto error = made.CompilePattern(parsed->pattern, parsed->ignoreCase)) return *error;
  std::optional<std::vector<ReplacementPart>> replacement = ParseReplacement(parsed->replacement, parsed->encoding);
  if (!replacement) return Defect{kBregexpBadReplacement};
  if (!made.PrepareMatching()) return Defect{kBregexpOutOfMemory};
  made.replacement_ = *std::move(replacement);
  return made;
}

std::optional<Defect> Substitution::CompilePattern(std::string_view pattern, bool ignoreCase) {
  struct FreeContext {
    void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
  };
  const std::unique_ptr<pcre2_compile_context, FreeContext> context(pcre2_compile_context_create(nullptr));
  if (!context) return Defect{kBregexpOutOfMemory};
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
  int error = 0;
  PCRE2_SIZE offset = 0;
  code_.reset(pcre2_compile(Units(pattern), pattern.size(), CompileOptions(encoding_, ignoreCase), &error, &offset,
                            context.get()));
  if (code_) return std::nullopt;
  return Defect{error, OffsetInCommand(pattern, offset, encoding_)};
}

bool Substitution::PrepareMatching() {
  context_.reset(pcre2_match_context_create(nullptr));
  data_.reset(pcre2_match_data_create_from_pattern(code_.get(), nullptr));
  if (!context_ || !data_) return false;
  pcre2_set_heap_limit(context_.get(), kHeapKibibytes);
  // Where just-in-time compilation is not available, PCRE2 interprets the pattern with the same results.
  if (pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE) == 0) {
    stack_.reset(pcre2_jit_stack_create(kSmallJitStack, kLargestJitStack, nullptr));
    pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
  }
  return true;
}

std::string Substitution::Apply(std::string_view target) {
  const std::optional<std::string> replaced = ReplaceMatches(ToWorkingText(target, encoding_));
  std::optional<std::string> result = replaced ? FromWorkingText(*replaced, encoding_) : std::nullopt;
  return result ? *std::move(result) : std::string(kInvalid);
}

std::optional<std::string> Substitution::ReplaceMatches(std::string_view text) {
  pcre2_set_match_limit(context_.get(), MatchLimit(text.size()));
  pcre2_set_depth_limit(context_.get(), MatchLimit(text.size()));
  std::string result;
  std::size_t done = 0;
  // After an empty match, another empty match at the same place is not allowed; otherwise the loop would not advance.
  for (bool allowEmpty = true; result.size() <= kLongestResult;) {
    const int groups = Find(text, done, allowEmpty);
    if (groups == PCRE2_ERROR_NOMATCH) break;
    if (groups < 0) return std::nullopt;
    const Match match = Found(0);
    // A \K inside a called group can put a match's start behind its end or before the last match.
    if (match.start < done || match.end < match.start) return std::nullopt;
    result += text.substr(done, match.start - done);
    AppendReplacement(result, text);
    allowEmpty = match.end > match.start;
    done = match.end;
    if (!global_) break;
  }
  result += text.substr(done);
  return result;
}

int Substitution::Find(std::string_view text, std::size_t from, bool allowEmpty) {
  // The text is valid UTF-8: ToWorkingText made it.
  const std::uint32_t options = PCRE2_NO_UTF_CHECK | (allowEmpty ? 0 : PCRE2_NOTEMPTY_ATSTART);
  return pcre2_match(code_.get(), Units(text), text.size(), from, options, data_.get(), context_.get());
}

Substitution::Match Substitution::Found(std::size_t group) const {
  const PCRE2_SIZE* const offsets = pcre2_get_ovector_pointer(data_.get());
  if (group >= pcre2_get_ovector_count(data_.get()) || offsets[2 * group] == PCRE2_UNSET) return {0, 0};
  return {offsets[2 * group], offsets[2 * group + 1]};
}

void Substitution::AppendReplacement(std::string& result, std::string_view text) const {
  using Kind = ReplacementPart::Kind;
  CaseWriter writer(result, encoding_);
  for (const ReplacementPart& part : replacement_) {
    if (result.size() > kLongestResult) return;
    switch (part.kind) {
      case Kind::kLiteral: writer.Append(part.text); break;
      case Kind::kGroup: {
        const Match group = Found(part.group);
        writer.Append(group.start < group.end ? text.substr(group.start, group.end - group.start) : std::string_view());
        break;
      }
      case Kind::kBefore: writer.Append(text.substr(0, Found(0).start)); break;
      case Kind::kAfter: writer.Append(text.substr(Found(0).end)); break;
      default: writer.Change(part.kind); break;
    }
  }
}

}  // namespace quillon::bregexp
