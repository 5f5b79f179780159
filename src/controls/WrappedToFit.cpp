#include "controls/WrappedToFit.h"

#include <wx/dcclient.h>

#include <cstddef>

#include "base/Text.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr wchar_t kNotAtStart[] = L"、。，．・：；？！）」』】ー…､｡｣ゃゅょっャュョッ,.:;?!)]}%";
constexpr wchar_t kNotAtEnd[] = L"（「『【｢([{";

bool IsAscii(wxUniChar character) {
  return character < 0x80;
}

/// Whether a line may be broken before the character at `at`.
bool MayBreak(const wxString& line, std::size_t at) {
  const wxUniChar before = line[at - 1];
  const wxUniChar after = line[at];
  if (wxString(kNotAtStart).find(after) != wxString::npos) return false;
  if (wxString(kNotAtEnd).find(before) != wxString::npos) return false;
  return before == ' ' || !IsAscii(before) || !IsAscii(after);  // words stay whole
}

wxString Wrap(wxWindow& control, const wxString& line, int width) {
  wxArrayInt ends;  // the width of the text up to and including each character
  wxClientDC dc(&control);
  dc.SetFont(control.GetFont());
  if (!dc.GetPartialTextExtents(line, ends)) return line;
  wxString wrapped;
  std::size_t start = 0;
  std::size_t breakAt = 0;
  int startWidth = 0;
  for (std::size_t i = 1; i < line.length(); ++i) {
    if (MayBreak(line, i)) breakAt = i;
    if (ends[i] - startWidth <= width || breakAt <= start) continue;
    wrapped += line.Mid(start, breakAt - start) + '\n';
    start = breakAt;
    startWidth = ends[start - 1];
  }
  return wrapped + line.Mid(start);
}

}  // namespace

wxString WrappedToFit(wxWindow& control, std::string_view text, int width) {
  wxString wrapped;
  for (const std::string_view line : Split(text, '\n')) {
    if (!wrapped.empty()) wrapped += '\n';
    wrapped += Wrap(control, ToWx(line), width);
  }
  return wrapped;
}

}  // namespace quillon
