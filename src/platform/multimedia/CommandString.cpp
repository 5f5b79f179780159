#include "platform/multimedia/CommandString.h"

#include <array>
#include <charconv>
#include <system_error>
#include <utility>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr std::array<std::pair<std::string_view, Verb>, 12> kVerbs = {{
    {"open", Verb::kOpen},
    {"close", Verb::kClose},
    {"play", Verb::kPlay},
    {"pause", Verb::kPause},
    {"resume", Verb::kResume},
    {"stop", Verb::kStop},
    {"seek", Verb::kSeek},
    {"set", Verb::kSet},
    {"status", Verb::kStatus},
    {"where", Verb::kWhere},
    {"window", Verb::kWindow},
    {"put", Verb::kPut},
}};

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

/// Splits a command into words.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) { SkipBlanks(); }

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  /// The next word, or the unchanged text between quotes. Empty at the end.
  std::string_view Next() {
    const bool quoted = !rest_.empty() && rest_.front() == '"';
    if (quoted) rest_.remove_prefix(1);
    std::size_t length = 0;
    while (length < rest_.size() && (quoted ? rest_[length] != '"' : !IsBlank(rest_[length]))) ++length;
    const std::string_view word = rest_.substr(0, length);
    rest_.remove_prefix(length);
    quoteOpen_ = quoteOpen_ || (quoted && rest_.empty());
    if (quoted && !rest_.empty()) rest_.remove_prefix(1);
    SkipBlanks();
    return word;
  }

  std::string NextKeyword() { return ToLower(Next()); }

  /// A quoted path ends at the command's last quote: the path may contain quotes, the rest of the command has none.
  std::string_view NextPath() {
    if (rest_.empty() || rest_.front() != '"' || rest_.rfind('"') == 0) return Next();
    const std::size_t last = rest_.rfind('"');
    const std::string_view path = rest_.substr(1, last - 1);
    rest_.remove_prefix(last + 1);
    SkipBlanks();
    return path;
  }

  /// True when a word began with an unclosed quote.
  [[nodiscard]] bool QuoteOpen() const { return quoteOpen_; }

 private:
  void SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  std::string_view rest_;
  bool quoteOpen_ = false;
};

template <class Number>
std::optional<Number> ReadNumber(std::string_view word) {
  Number number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (word.empty() || error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

template <class Number>
MediaStatus TakeNumber(Words& words, Number& into) {
  if (words.AtEnd()) return MediaError::kMissingParameter;
  const std::optional<Number> number = ReadNumber<Number>(words.Next());
  if (!number) return MediaError::kBadNumber;
  into = *number;
  return {};
}

/// Succeeds when the next word is `keyword`.
MediaStatus Expect(Words& words, std::string_view keyword) {
  if (words.AtEnd()) return MediaError::kMissingParameter;
  return words.NextKeyword() == keyword ? MediaStatus() : MediaError::kUnknownKeyword;
}

/// A type may follow even an unknown keyword.
MediaStatus ParseOpen(Words& words, ParsedCommand& command) {
  MediaStatus status;
  command.alias = ToLower(command.path);
  while (!words.AtEnd()) {
    const std::string keyword = words.NextKeyword();
    if (keyword != "alias" && keyword != "type") {
      status = MediaError::kUnknownKeyword;
      continue;
    }
    if (words.AtEnd()) return status.Ok() ? MediaError::kMissingParameter : status;
    const std::string value = words.NextKeyword();
    if (keyword == "alias") {
      command.alias = value;
    } else {
      command.typed = true;
    }
  }
  return status;
}

MediaStatus ParsePlay(Words& words, ParsedCommand& command) {
  if (words.AtEnd()) return {};
  if (const MediaStatus status = Expect(words, "from"); !status.Ok()) return status;
  return TakeNumber(words, command.milliseconds.emplace());
}

MediaStatus ParseSeek(Words& words, ParsedCommand& command) {
  if (const MediaStatus status = Expect(words, "to"); !status.Ok()) return status;
  Words ahead = words;
  const std::string place = ahead.NextKeyword();
  if (place != "start" && place != "end") return TakeNumber(words, command.milliseconds.emplace());
  command.target = place == "start" ? SeekTarget::kStart : SeekTarget::kEnd;
  words = ahead;
  return {};
}

MediaStatus ParseSet(Words& words) {
  if (const MediaStatus status = Expect(words, "time"); !status.Ok()) return status;
  if (const MediaStatus status = Expect(words, "format"); !status.Ok()) return status;
  if (words.AtEnd()) return MediaError::kMissingParameter;
  const std::string format = words.NextKeyword();
  return format == "milliseconds" || format == "ms" ? MediaStatus() : MediaError::kUnknownKeyword;
}

MediaStatus ParseStatus(Words& words, ParsedCommand& command) {
  constexpr std::array<std::pair<std::string_view, StatusItem>, 4> kItems = {{
      {"mode", StatusItem::kMode},
      {"position", StatusItem::kPosition},
      {"length", StatusItem::kLength},
      {"ready", StatusItem::kReady},
  }};
  if (words.AtEnd()) return MediaError::kMissingParameter;
  const std::string item = words.NextKeyword();
  command.status = StatusItem::kTimeFormat;
  if (item == "time") return Expect(words, "format");
  for (const auto& [name, value] : kItems) {
    if (item != name) continue;
    command.status = value;
    return {};
  }
  return MediaError::kUnknownKeyword;
}

MediaStatus ParseWhere(Words& words, ParsedCommand& command) {
  if (words.AtEnd()) return MediaError::kMissingParameter;
  const std::string area = words.NextKeyword();
  command.area = area == "destination" ? PictureArea::kDestination : PictureArea::kSource;
  return area == "source" || area == "destination" ? MediaStatus() : MediaError::kUnknownKeyword;
}

MediaStatus ParseWindow(Words& words, ParsedCommand& command) {
  if (const MediaStatus status = Expect(words, "handle"); !status.Ok()) return status;
  return TakeNumber(words, command.window);
}

MediaStatus ParsePut(Words& words, ParsedCommand& command) {
  if (const MediaStatus status = Expect(words, "destination"); !status.Ok()) return status;
  command.area = PictureArea::kDestination;
  if (words.AtEnd()) return {};
  if (const MediaStatus status = Expect(words, "at"); !status.Ok()) return status;
  PictureRectangle& rectangle = command.rectangle.emplace();
  for (int* const side : {&rectangle.left, &rectangle.top, &rectangle.width, &rectangle.height}) {
    if (const MediaStatus status = TakeNumber(words, *side); !status.Ok()) return status;
  }
  return {};
}

MediaStatus ParseRest(Words& words, ParsedCommand& command) {
  switch (command.verb) {
    case Verb::kOpen: return ParseOpen(words, command);
    case Verb::kPlay: return ParsePlay(words, command);
    case Verb::kSeek: return ParseSeek(words, command);
    case Verb::kSet: return ParseSet(words);
    case Verb::kStatus: return ParseStatus(words, command);
    case Verb::kWhere: return ParseWhere(words, command);
    case Verb::kWindow: return ParseWindow(words, command);
    case Verb::kPut: return ParsePut(words, command);
    case Verb::kClose:
    case Verb::kPause:
    case Verb::kResume:
    case Verb::kStop: return {};
  }
  return MediaError::kInternal;
}

std::optional<Verb> VerbOf(std::string_view word) {
  for (const auto& [name, verb] : kVerbs) {
    if (name == word) return verb;
  }
  return std::nullopt;
}

}  // namespace

ParseOutcome ParseCommand(std::string_view text, PathStyle style) {
  Words words(text);
  if (words.AtEnd()) return {MediaError::kMissingCommand};
  const std::optional<Verb> verb = VerbOf(words.NextKeyword());
  const std::string_view device = verb == Verb::kOpen && style == PathStyle::kLinux ? words.NextPath() : words.Next();
  if (words.QuoteOpen()) return {MediaError::kNoClosingQuote};
  if (device.empty()) return {MediaError::kMissingDevice};
  if (!verb) return {MediaError::kUnknownCommand};
  ParseOutcome outcome;
  outcome.command.verb = *verb;
  outcome.command.alias = ToLower(device);
  if (*verb == Verb::kOpen) outcome.command.path = device;
  outcome.status = ParseRest(words, outcome.command);
  if (words.QuoteOpen()) outcome.status = MediaError::kNoClosingQuote;
  if (outcome.status.Ok() && !words.AtEnd()) outcome.status = MediaError::kUnknownKeyword;
  return outcome;
}

}  // namespace quillon
