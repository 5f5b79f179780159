#include <wx/app.h>
#include <wx/dataview.h>
#include <wx/frame.h>

/// The floor for programs with a window and a list: a frame with an empty list control like the main window's.
namespace quillon::benchmarks {
namespace {

class NoRows final : public wxDataViewVirtualListModel {
 public:
  void GetValueByRow(wxVariant& /*value*/, unsigned /*row*/, unsigned /*column*/) const override {}
  bool SetValueByRow(const wxVariant& /*value*/, unsigned /*row*/, unsigned /*column*/) override { return false; }
};

constexpr int kColumns = 6;

}  // namespace

class BareFrame final : public wxApp {
 public:
  bool OnInit() override {
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Bare frame", wxDefaultPosition, wxSize(635, 444));
    auto* list = new wxDataViewCtrl(frame, wxID_ANY);
    const wxObjectDataPtr<NoRows> model(new NoRows);
    list->AssociateModel(model.get());
    for (int i = 0; i < kColumns; ++i) list->AppendTextColumn(wxString::Format("%d", i), static_cast<unsigned>(i));
    frame->Show();
    return true;
  }
};

}  // namespace quillon::benchmarks

wxIMPLEMENT_APP(quillon::benchmarks::BareFrame);
