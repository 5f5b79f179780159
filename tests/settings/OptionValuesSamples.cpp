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

  void Add(std::string_view name, const std::optional<std::int32_t>& value) {
    Add(name, value ? std::to_string(*value) : std::string("none"));
  }

  [[nodiscard]] std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

void DescribeModify(Description& text, const OptionValues::Modify& modify) {
  text.Add("reviceFlag", modify.reviceFlag);
  text.Add("reviceText", modify.reviceText);
  for (const ReplaceRule& rule : modify.rules) {
    text.Add("rule active", rule.active);
    text.Add("rule find", rule.find);
    text.Add("rule replacement", rule.replacement);
  }
  text.Add("findCtrl", modify.findCtrl);
  text.Add("ignoreCase", modify.ignoreCase);
  text.Add("upper", modify.upper);
  text.Add("lower", modify.lower);
  text.Add("proper", modify.proper);
  text.Add("wide", modify.wide);
  text.Add("narrow", modify.narrow);
  text.Add("nonUnload", modify.nonUnload);
}

void DescribeWindow(Description& text, const OptionValues::Window& window) {
  text.Add("top", window.top);
  text.Add("left", window.left);
  text.Add("height", window.height);
  text.Add("width", window.width);
  for (const std::int32_t width : window.columnWidths) text.Add("column width", width);
}

void DescribeFind(Description& text, const OptionValues::Find& find) {
  text.Add("filterChk", find.filterChk);
  text.Add("extEtc", find.extEtc);
  text.Add("extHtml", find.extHtml);
  text.Add("extMusic", find.extMusic);
  text.Add("extText", find.extText);
  text.Add("extEtcText", find.extEtcText);
  text.Add("extHtmlText", find.extHtmlText);
  text.Add("extMusicText", find.extMusicText);
  text.Add("extTextText", find.extTextText);
}

class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : engine_(seed) {}

  void operator()(std::int16_t& value) { value = static_cast<std::int16_t>(Number(-32768, 32767)); }
  void operator()(std::int32_t& value) {
    value = Number(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
  }
  void operator()(std::optional<std::int32_t>& value) { (*this)(value.emplace()); }
  void operator()(bool& value) { value = Number(0, 1) == 1; }
  void operator()(std::string& value) {
    static constexpr std::array<std::string_view, 24> kPieces = {"a",  "Z",  "0", " ",  "  ", "=", ";", "[",
                                                                 "]",  "\"", "'", "\\", "/",  "%", "#", "音",
                                                                 "表", "ソ", "ｱ", "①",  "\t", "é", "😀", "\xFF"};
    // Three texts of four stay inside code page 932, so that both encodings are met often.
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
  text.Add("dirPath", options.system.dirPath);
  text.Add("movePath", options.system.movePath);
  text.Add("loadTime", options.system.loadTime);
  text.Add("msgbox", options.system.msgbox);
  text.Add("front", options.system.front);
  DescribeWindow(text, options.window);
  text.Add("repeat", options.player.repeat);
  text.Add("allPlay", options.player.allPlay);
  DescribeModify(text, options.modify);
  text.Add("errSkip", options.update.errSkip);
  text.Add("updateErrChk", options.update.updateErrChk);
  text.Add("updateRemChk", options.update.updateRemChk);
  text.Add("autoUpdate", options.update.autoUpdate);
  text.Add("noTitleSkip", options.rename.noTitleSkip);
  text.Add("renameErrChk", options.rename.renameErrChk);
  text.Add("renameModify", options.rename.renameModify);
  text.Add("injusticeChk", options.rename.injusticeChk);
  text.Add("loadChk", options.list.loadChk);
  text.Add("delToTrashBox", options.list.delToTrashBox);
  text.Add("delCompMsg", options.list.delCompMsg);
  text.Add("loadRemove", options.list.loadRemove);
  text.Add("subFolder", options.list.subFolder);
  DescribeFind(text, options.find);
  text.Add("remainList", options.move.remainList);
  return text.Text();
}

OptionValues RandomOptionValues(unsigned seed) {
  OptionValues options;
  RandomValues random(seed);
  auto& [system, window, player, modify, update, rename, list, find, move] = options;
  random.All(system.dirPath, system.movePath, system.loadTime, system.msgbox, system.front);
  random.All(window.top, window.left, window.height, window.width);
  for (std::int32_t& width : window.columnWidths) random(width);
  random.All(player.repeat, player.allPlay);
  random.All(modify.reviceFlag, modify.reviceText, modify.findCtrl, modify.ignoreCase, modify.upper, modify.lower,
             modify.proper, modify.wide, modify.narrow, modify.nonUnload);
  for (ReplaceRule& rule : modify.rules) random(rule);
  random.All(update.errSkip, update.updateErrChk, update.updateRemChk, update.autoUpdate);
  random.All(rename.noTitleSkip, rename.renameErrChk, rename.renameModify, rename.injusticeChk);
  random.All(list.loadChk, list.delToTrashBox, list.delCompMsg, list.loadRemove, list.subFolder);
  random.All(find.filterChk, find.extEtc, find.extHtml, find.extMusic, find.extText, find.extEtcText, find.extHtmlText,
             find.extMusicText, find.extTextText);
  random(move.remainList);
  return options;
}

}  // namespace quillon::test
