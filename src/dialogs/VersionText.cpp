#include "dialogs/VersionText.h"

#include "base/Product.h"

namespace quillon {

std::string VersionText() {
  return std::string("Ver ") + kProductVersion;
}

std::string InformationText(bool regexAvailable) {
  return std::string(
             "このプログラムは､大量にあるファイルに適切なファイル名をつけ､整理するためのプログラムです\n"
             "特にマルチメディアファイル（MP3、MIDIなど）に関しては、タイトルやアーティスト情報などを取得し\n"
             "ファイル名に付け替えることや､リストに登録されたファイルを連続再生することも可能です\n"
             "[プログラムの状態]\n"
             "BREGEXP.DLL : ") +
         (regexAvailable ? "TRUE" : "FALSE");
}

}  // namespace quillon
