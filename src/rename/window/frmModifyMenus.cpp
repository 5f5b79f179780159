#include "rename/window/frmModifyMenus.h"

#include <string>

#include "base/Text.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr const char* kControlCharacters[] = {
    "\\   エスケープ文字", "^   行の最初にマッチ", ".   すべての文字にマッチ (改行を除く)", "|   選択",
    "()  グループ化",      "[]  文字クラス",
};

constexpr const char* kSpecialCharacters[] = {
    "\\w  単語の構成文字 (英数字と \"_\") にマッチ",
    "\\W  単語の構成文字以外にマッチ",
    "\\s  空白文字にマッチ",
    "\\S  空白文字以外にマッチ",
    "\\d  数字にマッチ",
    "\\D  数字以外にマッチ",
};

template <std::size_t kCount>
wxMenu* MakeList(const char* const (&captions)[kCount]) {
  auto menu = std::make_unique<wxMenu>();
  for (const char* caption : captions) menu->Append(wxID_ANY, ToWx(caption));
  return menu.release();
}

void DeleteSelectionOrNext(wxTextCtrl& box) {
  long from = 0;
  long to = 0;
  box.GetSelection(&from, &to);
  if (from == to) {
    // Removes one character, which the control's text on Windows may hold as a pair of surrogates.
    const wxString rest = box.GetRange(from, box.GetLastPosition());
    if (rest.empty()) return;
    const std::string first(FirstCharacters(FromWx(rest), 1));
    to = from + static_cast<long>(ToWx(first).length());
  }
  box.Remove(from, to);
}

}  // namespace

std::unique_ptr<wxMenu> MakeEditMenu(const wxTextCtrl* box) {
  auto menu = std::make_unique<wxMenu>();
  const bool usable = box != nullptr && box->IsEnabled();
  const auto append = [&](int entry, const char* caption, bool enabled) {
    menu->Append(entry, ToWx(caption))->Enable(enabled);
  };
  append(kMnuUndo, "元に戻す(&U)\tCtrl+Z", usable && box->CanUndo());
  append(kMnuCut, "切り取り(&T)\tCtrl+X", usable && box->CanCut());
  append(kMnuCopy, "コピー(&C)\tCtrl+C", usable && box->CanCopy());
  append(kMnuPaste, "貼り付け(&P)\tCtrl+V", usable && box->CanPaste());
  append(kMnuDelete, "削除(&D)\tDel", usable && !box->IsEmpty());
  return menu;
}

void EditText(wxTextCtrl& box, int entry) {
  switch (entry) {
    case kMnuUndo: box.Undo(); break;
    case kMnuCut: box.Cut(); break;
    case kMnuCopy: box.Copy(); break;
    case kMnuPaste: box.Paste(); break;
    case kMnuDelete: DeleteSelectionOrNext(box); break;
    default: break;
  }
}

std::unique_ptr<wxMenu> MakeHelpMenu() {
  auto menu = std::make_unique<wxMenu>();
  menu->AppendSubMenu(MakeList(kControlCharacters), ToWx("制御文字(&C)"));
  menu->AppendSubMenu(MakeList(kSpecialCharacters), ToWx("特殊文字(&S)"));
  return menu;
}

}  // namespace quillon
