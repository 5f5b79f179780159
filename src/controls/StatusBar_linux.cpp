#include <wx/dc.h>

#include "controls/StatusBar.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

class StatusBarOnBaseline final : public wxStatusBar {
 public:
  using wxStatusBar::wxStatusBar;

 protected:
  void DrawFieldText(wxDC& dc, const wxRect& field, int panel, int textHeight) override {
    static const wxString kBothFonts = ToWx("0あ");
    wxRect place = field;
    place.y += Ascent(dc, kBothFonts) - Ascent(dc, GetStatusText(panel));
    wxStatusBar::DrawFieldText(dc, place, panel, textHeight);
  }

 private:
  static int Ascent(wxDC& dc, const wxString& text) {
    wxCoord width = 0;
    wxCoord height = 0;
    wxCoord descent = 0;
    dc.GetTextExtent(text, &width, &height, &descent);
    return height - descent;
  }
};

}  // namespace

wxStatusBar* MakeStatusBarOnBaseline(wxFrame& frame, long style) {
  return new StatusBarOnBaseline(&frame, wxID_ANY, style);
}

}  // namespace quillon
