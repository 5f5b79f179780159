#include "rename/BuiltInPresets.h"

#include <algorithm>
#include <initializer_list>

#include "base/Text.h"

namespace quillon {
namespace {

struct Rule {
  const char* find;
  const char* replacement;
};

OptionValues::Modify Rules(FindMethod method, std::initializer_list<Rule> rules) {
  OptionValues::Modify made;
  made.method = method;
  std::size_t index = 0;
  for (const Rule& rule : rules) made.rules.at(index++) = {true, rule.find, rule.replacement};
  return made;
}

OptionValues::Modify Regex(std::initializer_list<Rule> rules) {
  return Rules(FindMethod::kRegex, rules);
}

OptionValues::Modify Text(std::initializer_list<Rule> rules) {
  return Rules(FindMethod::kText, rules);
}

// The second rule finds the one mark that the first has put between the parts, and the first no name with a mark.
OptionValues::Modify SwappedParts() {
  return Regex({{"^(?!.*＠⇔＠)(.+?) - (.+)$", "$2＠⇔＠$1"}, {"^(?!.*＠⇔＠.*＠⇔＠)(.+)＠⇔＠(.+)$", "$1 - $2"}});
}

// What would become a character that file names cannot hold is replaced before the conversion.
OptionValues::Modify HalfWidth() {
  OptionValues::Modify made = Regex({{"[？：／＊＜＞｜＼＂“”]", "_"}});
  made.narrow = true;
  return made;
}

OptionValues::Modify ProperCase() {
  OptionValues::Modify made;
  made.proper = true;
  return made;
}

}  // namespace

const std::vector<Preset>& BuiltInPresets() {
  static const std::vector<Preset> presets = {
      // A number is not removed from a number: of "03 99" the next row would remove the rest.
      {"先頭のトラック番号を取り除く", Regex({{"^\\d+[\\s　._-]+(?=[^\\d\\s　._-])", ""}})},
      {"先頭の一桁の番号を二桁にする", Regex({{"^[0-9](?=[\\s　._-])", "0$&"}})},
      {"「アーティスト - タイトル」を入れ替える", SwappedParts()},
      {"全角を半角にする", HalfWidth()},
      {"語の先頭を大文字にする", ProperCase()},
      {"「_」を空白にする", Text({{"_", " "}})},
      {"余分な空白を取り除く", Regex({{"[\\s　]{2,}", " "}, {"^[\\s　]+|[\\s　]+$", ""}})},
      {"角かっこに囲まれた部分を取り除く", Regex({{"[\\s　]*(?:\\[[^\\]]*\\]|【[^】]*】)", ""}, {"^[\\s　]+", ""}})},
      {"複製に付いた番号を取り除く", Regex({{"(?<=\\S)(?:\\s*\\(\\d+\\)| - コピー| - Copy)+$", ""}})},
      {"使えない記号を全角にする", Text({{"?", "？"}, {":", "："}, {"/", "／"}, {"*", "＊"}, {"\"", "＂"}})},
  };
  return presets;
}

const Preset* FindBuiltInPreset(std::string_view name) {
  const std::vector<Preset>& presets = BuiltInPresets();
  const auto found =
      std::ranges::find_if(presets, [&](const Preset& preset) { return EqualIgnoringCase(preset.name, name); });
  return found == presets.end() ? nullptr : &*found;
}

}  // namespace quillon
