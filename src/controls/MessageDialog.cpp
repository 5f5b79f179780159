#include "controls/MessageDialog.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/collpane.h>
#include <wx/dataobj.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "controls/AccessKeys.h"
#include "controls/Pictures.h"
#include "controls/WrappedToFit.h"
#include "controls/WxText.h"
#include "platform/desktop/AccessibleName.h"
#include "platform/desktop/MessageLook.h"

namespace quillon {
namespace {

// DIP
constexpr int kWidest = 480;
constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kButtonWidth = 88;

constexpr int kDetailLines = 5;

long IconStyle(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kExclamation: return wxICON_EXCLAMATION;
    case MessageIcon::kStop: return wxICON_ERROR;
    case MessageIcon::kQuestion: return wxICON_QUESTION;
    case MessageIcon::kInformation: break;
  }
  return wxICON_INFORMATION;
}

long ButtonStyle(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOkCancel: return wxOK | wxCANCEL;
    case MessageButtons::kYesNo: return wxYES_NO;
    case MessageButtons::kOk: break;
  }
  return wxOK;
}

wxBitmap PictureOf(MessageIcon icon) {
  const std::optional<Pixels> picture = MessagePicture(icon);
  return picture ? BitmapOf(*picture)
                 : wxArtProvider::GetBitmap(wxArtProvider::GetMessageBoxIconId(static_cast<int>(IconStyle(icon))),
                                            wxART_MESSAGE_BOX);
}

wxString Lines(const std::string& text) {
  wxString lines = ToWx(text);
  lines.Replace("\r\n", "\n");
  return lines;
}

}  // namespace

MessageDialog::MessageDialog(wxWindow* owner, const FailureMessage& content, std::string further)
    : wxMessageDialogBase(owner, Lines(content.message.text), ToWx(content.message.caption),
                          wxCENTRE | IconStyle(content.message.icon) | ButtonStyle(content.message.buttons)),
      content_(content),
      further_(std::move(further)) {
  wxDialog::Create(m_parent, wxID_ANY, m_caption);
  SetName("MessageDialog");
  SetIcons(ProgramIcons());
  SetAccessibleAlert(GetHandle());
  auto* column = new wxBoxSizer(wxVERTICAL);
  AddText(*column);
  if (content_.inBatch) {
    chkTellNoMore_ = new wxCheckBox(this, wxID_ANY, ToWx("以後のエラーを表示しない(&S)"));
    chkTellNoMore_->SetName("chkTellNoMore");
    column->Add(chkTellNoMore_, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kMargin)));
  }
  if (!content_.details.empty()) AddDetails(*column);
  AddButtons(*column);
  SetSizerAndFit(column);
  if (m_parent != nullptr) {
    CentreOnParent();
  } else {
    CentreOnScreen();
  }
  Bind(wxEVT_CHAR_HOOK, &MessageDialog::OnKey, this);
  ReachByAccessKeys(*this);
}

void MessageDialog::AddText(wxSizer& column) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  auto* picture = new wxStaticBitmap(this, wxID_ANY, PictureOf(content_.message.icon));
  picture->SetName("picIcon");
  row->Add(picture, wxSizerFlags().Border(wxRIGHT, FromDIP(kMargin)));
  auto* text = new wxStaticText(this, wxID_ANY, "");
  text->SetName("lblText");
  text->SetLabelText(WrappedToFit(*text, FromWx(m_message), FromDIP(kWidest)));
  row->Add(text, wxSizerFlags(1).CentreVertical());
  column.Add(row, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kMargin)));
}

void MessageDialog::AddDetails(wxSizer& column) {
  auto* pane = new wxCollapsiblePane(this, wxID_ANY, ToWx("詳細(&D)"));
  pane->SetName("paneDetails");
  auto* text = new wxTextCtrl(pane->GetPane(), wxID_ANY, Lines(content_.details), wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY);
  text->SetName("txtDetails");
  text->SetMinSize(wxSize(FromDIP(kWidest), kDetailLines * (text->GetCharHeight() + FromDIP(2)) + FromDIP(kGap)));
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(text, wxSizerFlags(1).Expand().Border(wxTOP, FromDIP(kGap)));
  pane->GetPane()->SetSizer(inside);
  column.Add(pane, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kMargin)));
}

void MessageDialog::AddButtons(wxSizer& column) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  // Buttons with the system's ids would get the system's captions.
  const auto add = [&](wxWindowID id, const char* name, const char* label) {
    auto* button = new wxButton(this, wxID_ANY, ToWx(label));
    button->SetName(name);
    button->SetMinSize(wxSize(std::max(FromDIP(kButtonWidth), button->GetBestSize().x), -1));
    button->Bind(wxEVT_BUTTON, [this, id](wxCommandEvent&) { EndModal(id); });
    row->Add(button, wxSizerFlags().Border(wxLEFT, row->IsEmpty() ? 0 : FromDIP(kGap)));
    return button;
  };
  if (!further_.empty()) add(wxID_MORE, "cmdFurther", further_.c_str());
  const bool yesNo = content_.message.buttons == MessageButtons::kYesNo;
  wxButton* const first = yesNo ? add(wxID_YES, "cmdYes", "はい(&Y)") : add(wxID_OK, "cmdOK", "OK");
  const wxButton* last = first;
  if (yesNo) {
    last = add(wxID_NO, "cmdNo", "いいえ(&N)");
  } else if (content_.message.buttons == MessageButtons::kOkCancel) {
    last = add(wxID_CANCEL, "cmdCancel", "キャンセル");
  }
  SetAffirmativeId(first->GetId());
  SetEscapeId(last->GetId());
  first->SetDefault();
  first->SetFocus();
  column.Add(row, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kMargin)));
}

int MessageDialog::ShowModal() {
  PlayMessageSound(content_.message.icon);
  // The owner may have been shown just now: the window system may then put it over the box.
  CallAfter([this] { Raise(); });
  return wxMessageDialogBase::ShowModal();
}

void MessageDialog::OnKey(wxKeyEvent& event) {
  const bool inDetails = dynamic_cast<wxTextCtrl*>(FindFocus()) != nullptr;
  const bool copies = event.GetKeyCode() == 'C' && event.GetModifiers() == wxMOD_CONTROL && !inDetails;
  if (copies && wxTheClipboard->Open()) {
    wxString text = m_caption + "\n\n" + m_message;
    if (!content_.details.empty()) text += "\n\n" + Lines(content_.details);
    wxTheClipboard->SetData(new wxTextDataObject(text));
    wxTheClipboard->Close();
  } else {
    event.Skip();
  }
}

}  // namespace quillon
