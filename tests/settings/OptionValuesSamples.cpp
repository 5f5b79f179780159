#include "settings/OptionValuesSamples.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <sstream>
#include <string_view>

namespace quillon::test {
namespace {

class Description {
 public:
  template <class Value>
  void Add(std::string_view name, const Value& value) {
    text_ << name << " = " << value << '\n';
  }

  void Add(std::string_view name, const std::string& value) { text_ << name << " = \"" << value << "\"\n"; }

  void Add(std::string_view name, FindMethod value) { Add(name, value == FindMethod::kRegex); }
  void Add(std::string_view name, DeleteTo value) { Add(name, value == DeleteTo::kRecycleBin); }

  void Add(std::string_view name, const std::optional<std::int32_t>& value) {
    Add(name, value ? std::to_string(*value) : std::string("none"));
  }

  [[nodiscard]] std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

void DescribeModify(Description& text, const OptionValues::Modify& modify) {
  text.Add("replaceInvalid", modify.replaceInvalid);
  text.Add("invalidReplacement", modify.invalidReplacement);
  for (const ReplaceRule& rule : modify.rules) {
    text.Add("rule active", rule.active);
    text.Add("rule find", rule.find);
    text.Add("rule replacement", rule.replacement);
  }
  text.Add("method", modify.method);
  text.Add("ignoreCase", modify.ignoreCase);
  text.Add("upper", modify.upper);
  text.Add("lower", modify.lower);
  text.Add("proper", modify.proper);
  text.Add("wide", modify.wide);
  text.Add("narrow", modify.narrow);
  text.Add("keepDialogOpen", modify.keepDialogOpen);
}

void DescribeWindow(Description& text, const OptionValues::Window& window) {
  text.Add("top", window.top);
  text.Add("left", window.left);
  text.Add("height", window.height);
  text.Add("width", window.width);
  for (const std::int32_t width : window.columnWidths) text.Add("column width", width);
}

void DescribeExtra(Description& text, const OptionValues::Extra& extra) {
  text.Add("readMoreTags", extra.readMoreTags);
  for (const std::string& pattern : extra.patterns) text.Add("pattern", pattern);
  text.Add("patternStart", extra.patternStart);
  text.Add("patternStep", extra.patternStep);
  text.Add("patternWidth", extra.patternWidth);
  text.Add("patternInvalid", static_cast<int>(extra.patternInvalid));
  text.Add("patternReplacement", extra.patternReplacement);
  text.Add("runRulesOnce", extra.runRulesOnce);
  text.Add("confirmPending", extra.confirmPending);
  text.Add("toolBarLabels", extra.toolBarLabels);
  text.Add("maximized", extra.maximized);
}

void DescribeFind(Description& text, const OptionValues::Find& find) {
  text.Add("filterByExtension", find.filterByExtension);
  text.Add("other.on", find.other.on);
  text.Add("html.on", find.html.on);
  text.Add("media.on", find.media.on);
  text.Add("text.on", find.text.on);
  text.Add("other.extensions", find.other.extensions);
  text.Add("html.extensions", find.html.extensions);
  text.Add("media.extensions", find.media.extensions);
  text.Add("text.extensions", find.text.extensions);
}

class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : engine_(seed) {}

  void operator()(std::int32_t& value) {
    value = Number(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
  }
  void operator()(std::optional<std::int32_t>& value) { (*this)(value.emplace()); }
  void operator()(bool& value) { value = Number(0, 1) == 1; }
  void operator()(FindMethod& value) { value = Number(0, 1) == 1 ? FindMethod::kRegex : FindMethod::kText; }
  void operator()(DeleteTo& value) { value = Number(0, 1) == 1 ? DeleteTo::kRecycleBin : DeleteTo::kNowhere; }
  void operator()(PatternInvalid& value) { value = static_cast<PatternInvalid>(Number(0, 3)); }
  void operator()(std::string& value) {
    static constexpr std::array<std::string_view, 24> kPieces = {"a",  "Z",  "0", " ",  "  ", "=", ";", "[",
                                                                 "]",  "\"", "'", "\\", "/",  "%", "#", "音",
                                                                 "表", "ソ", "ｱ", "①",  "\t", "é", "😀", "\xFF"};
    // Three of four texts are restricted to code page 932, so that both encodings occur often.
    const auto last = static_cast<int>(Number(0, 3) == 0 ? kPieces.size() - 1 : kPieces.size() - 4);
    value.clear();
    for (int left = Number(0, Number(0, 9) == 0 ? 60 : 8); left > 0; --left) {
      value += kPieces[static_cast<std::size_t>(Number(0, last))];
    }
    const std::size_t first = value.find_first_not_of(' ');
    value = first == std::string::npos ? "" : value.substr(first, value.find_last_not_of(' ') - first + 1);
  }
  void operator()(ReplaceRule& rule) {
    (*this)(rule.active);
    (*this)(rule.find);
    (*this)(rule.replacement);
    if (Number(0, 4) == 0) rule.find = " ";
    if (Number(0, 4) == 0) rule.replacement = " ";
  }

  template <class First, class... More>
  void All(First& first, More&... more) {
    (*this)(first);
    ((*this)(more), ...);
  }

 private:
  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine_); }

  std::mt19937 engine_;
};

}  // namespace

std::string Describe(const OptionValues& options) {
  Description text;
  text.Add("loadFolder", options.system.loadFolder);
  text.Add("moveFolder", options.system.moveFolder);
  text.Add("readPlayTimes", options.system.readPlayTimes);
  text.Add("suppressConfirmations", options.system.suppressConfirmations);
  text.Add("alwaysOnTop", options.system.alwaysOnTop);
  DescribeWindow(text, options.window);
  text.Add("repeat", options.player.repeat);
  text.Add("continuous", options.player.continuous);
  DescribeModify(text, options.modify);
  text.Add("skipFailedRows", options.update.skipFailedRows);
  text.Add("checkFailedRows", options.update.checkFailedRows);
  text.Add("uncheckAppliedRows", options.update.uncheckAppliedRows);
  text.Add("automatic", options.update.automatic);
  text.Add("skipUntitledRows", options.rename.skipUntitledRows);
  text.Add("checkSkippedRows", options.rename.checkSkippedRows);
  text.Add("applyRules", options.rename.applyRules);
  text.Add("checkInvalidNames", options.rename.checkInvalidNames);
  text.Add("checkLoadedRows", options.list.checkLoadedRows);
  text.Add("deleteTo", options.list.deleteTo);
  text.Add("confirmDeletion", options.list.confirmDeletion);
  text.Add("clearBeforeLoading", options.list.clearBeforeLoading);
  text.Add("searchSubfolders", options.list.searchSubfolders);
  DescribeFind(text, options.find);
  text.Add("keepMovedRows", options.move.keepMovedRows);
  DescribeExtra(text, options.extra);
  return text.Text();
}

OptionValues RandomOptionValues(unsigned seed) {
  OptionValues options;
  RandomValues random(seed);
  auto& [system, window, player, modify, update, rename, list, find, move, extra, storedByDialog] = options;
  static_cast<void>(storedByDialog);
  random.All(system.loadFolder, system.moveFolder, system.readPlayTimes, system.suppressConfirmations,
             system.alwaysOnTop);
  random.All(window.top, window.left, window.height, window.width);
  for (std::int32_t& width : window.columnWidths) random(width);
  random.All(player.repeat, player.continuous);
  random.All(modify.replaceInvalid, modify.invalidReplacement, modify.method, modify.ignoreCase, modify.upper,
             modify.lower, modify.proper, modify.wide, modify.narrow, modify.keepDialogOpen);
  for (ReplaceRule& rule : modify.rules) random(rule);
  random.All(update.skipFailedRows, update.checkFailedRows, update.uncheckAppliedRows, update.automatic);
  random.All(rename.skipUntitledRows, rename.checkSkippedRows, rename.applyRules, rename.checkInvalidNames);
  random.All(list.checkLoadedRows, list.deleteTo, list.confirmDeletion, list.clearBeforeLoading, list.searchSubfolders);
  random.All(find.filterByExtension, find.other.on, find.html.on, find.media.on, find.text.on, find.other.extensions,
             find.html.extensions, find.media.extensions, find.text.extensions);
  random(move.keepMovedRows);
  random.All(extra.readMoreTags, extra.patternStart, extra.patternStep, extra.patternWidth, extra.patternInvalid,
             extra.patternReplacement, extra.runRulesOnce, extra.confirmPending, extra.toolBarLabels, extra.maximized);
  for (std::string& pattern : extra.patterns) random(pattern);
  return options;
}

}  // namespace quillon::test
