#include "platform/desktop/FolderPicker.h"

// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <shobjidl.h>
#include <shlobj.h>
// clang-format on

#include <memory>

#include "platform/windows/Wide.h"

namespace quillon {
namespace {

struct Releaser {
  void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface>
using Com = std::unique_ptr<Interface, Releaser>;

std::wstring WideOrEmpty(const std::string& text) {
  return ToWide(text).value_or(std::wstring());
}

Com<IFileOpenDialog> MakeDialog() {
  IFileOpenDialog* dialog = nullptr;
  ::CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                     reinterpret_cast<void**>(&dialog));
  return Com<IFileOpenDialog>(dialog);
}

// If the folder no longer exists, Windows chooses the first folder shown.
void SetStart(IFileOpenDialog& dialog, const std::string& start) {
  IShellItem* folder = nullptr;
  if (FAILED(::SHCreateItemFromParsingName(WideOrEmpty(start).c_str(), nullptr, IID_IShellItem,
                                           reinterpret_cast<void**>(&folder)))) {
    return;
  }
  const Com<IShellItem> owned(folder);
  dialog.SetFolder(folder);
}

std::string ChosenPath(IFileOpenDialog& dialog) {
  IShellItem* item = nullptr;
  if (FAILED(dialog.GetResult(&item))) return {};
  const Com<IShellItem> owned(item);
  wchar_t* path = nullptr;
  if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) return {};
  std::string chosen = FromWide(path);
  ::CoTaskMemFree(path);
  return chosen;
}

}  // namespace

std::optional<std::string> PickFolder(void* owner, const std::string& title, const std::string& start,
                                      const std::string& confirm) {
  const Com<IFileOpenDialog> dialog = MakeDialog();
  if (!dialog || FAILED(dialog->SetOptions(FOS_PICKFOLDERS | FOS_NOCHANGEDIR | FOS_FORCEFILESYSTEM))) {
    return std::nullopt;
  }
  dialog->SetTitle(WideOrEmpty(title).c_str());
  dialog->SetOkButtonLabel(WideOrEmpty(confirm).c_str());
  SetStart(*dialog, start);
  const HRESULT shown = dialog->Show(static_cast<HWND>(owner));
  if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED)) return std::string();
  return SUCCEEDED(shown) ? std::optional(ChosenPath(*dialog)) : std::nullopt;
}

}  // namespace quillon
