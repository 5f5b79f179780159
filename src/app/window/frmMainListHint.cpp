#include "app/window/frmMainListHint.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <string>

#include "app/CommandTable.h"
#include "controls/Pictures.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr int kPicture = 32;   // DIP
constexpr int kGap = 6;        // DIP
constexpr int kEdge = 3;       // DIP
constexpr int kHeadings = 28;  // DIP: the height of the list's headings, about

std::string WayBy(Command command) {
  return PlainCaption(command) + "： " + EntryOf(command).shortcut;
}

}  // namespace

ListHint::ListHint(wxWindow& parent, const std::function<wxDropTarget*()>& dropTarget)
    : panel_(new wxPanel(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)) {
  panel_->Hide();
  panel_->SetName("fraListHint");
  picture_ = new wxStaticBitmap(panel_, wxID_ANY, Picture("drop", kPicture, *wxBLACK));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(picture_, wxSizerFlags().Centre());
  for (const std::string& line : {std::string("ここにファイルやフォルダーをドロップ"),
                                  WayBy(Command::mnuFolderReference), WayBy(Command::mnuFileLoad)}) {
    column->Add(new wxStaticText(panel_, wxID_ANY, ToWx(line)),
                wxSizerFlags().Centre().Border(wxTOP, panel_->FromDIP(kGap)));
  }
  panel_->SetSizerAndFit(column);
  panel_->SetDropTarget(dropTarget());
  for (wxPanel*& edge : edges_) {
    edge = new wxPanel(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    edge->Hide();
    edge->SetName("fraDropEdge");
    edge->SetDropTarget(dropTarget());
  }
  UseColours();
}

void ListHint::UseColours() {
  const wxColour background = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX);
  const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT);
  panel_->SetBackgroundColour(background);
  picture_->SetBitmap(Picture("drop", kPicture, ink));
  for (wxWindow* child : panel_->GetChildren()) {
    child->SetBackgroundColour(background);
    child->SetForegroundColour(ink);
  }
  for (wxPanel* edge : edges_) edge->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
}

void ListHint::ShowFrame(bool shown) {
  for (wxPanel* edge : edges_) {
    edge->Show(shown);
    if (shown) edge->Raise();
  }
}

void ListHint::Show(bool shown) {
  wanted_ = shown;
  if (panel_->IsShown() == (wanted_ && fits_)) return;
  panel_->Show(wanted_ && fits_);
  if (panel_->IsShown()) panel_->Raise();
}

void ListHint::Place(const wxRect& list) {
  const int headings = panel_->FromDIP(kHeadings);
  const wxSize size = panel_->GetBestSize();
  fits_ = size.x <= list.width && size.y <= list.height - 2 * headings;
  panel_->SetSize(list.x + (list.width - size.x) / 2, list.y + headings + (list.height - headings - size.y) / 2, size.x,
                  size.y);
  const int edge = panel_->FromDIP(kEdge);
  edges_[0]->SetSize(list.x, list.y, list.width, edge);
  edges_[1]->SetSize(list.x, list.y + list.height - edge, list.width, edge);
  edges_[2]->SetSize(list.x, list.y, edge, list.height);
  edges_[3]->SetSize(list.x + list.width - edge, list.y, edge, list.height);
  Show(wanted_);
}

}  // namespace quillon
