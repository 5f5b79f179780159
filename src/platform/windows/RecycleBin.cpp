#include "platform/windows/RecycleBin.h"

#include <shellapi.h>
#include <sherrors.h>

#include <memory>

#include "platform/FileSystem.h"
#include "platform/WindowsPath.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

// FOF_ALLOWUNDO makes a deletion go to the bin.
constexpr FILEOP_FLAGS kToTheBin = FOF_ALLOWUNDO | FOF_WANTNUKEWARNING;

FILEOP_FLAGS CommonFlags(BinQuestions questions) {
  return questions == BinQuestions::kOnlyBeforeLoss ? kToTheBin | FOF_NOCONFIRMATION : kToTheBin;
}

/// Initialises COM on this thread during its lifetime; nesting is allowed.
class Apartment {
 public:
  Apartment() : entered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() {
    if (entered_) ::CoUninitialize();
  }

  [[nodiscard]] bool Entered() const { return entered_; }

 private:
  bool entered_;
};

struct Releasing {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using ComPointer = std::unique_ptr<Interface, Releasing>;

ComPointer<IFileOperation> MakeFileOperation() {
  IFileOperation* made = nullptr;
  ::CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_PPV_ARGS(&made));
  return ComPointer<IFileOperation>(made);
}

ComPointer<IShellItem> ShellItem(const std::wstring& path) {
  IShellItem* made = nullptr;
  ::SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&made));
  return ComPointer<IShellItem>(made);
}

// The plain path, because the shell does not accept "\\?\". Returns nullopt when the system would normalise the plain
// path to another one, so that another file would be deleted ("a." is "a", and "nul.mid" a device).
std::optional<std::wstring> ShellPath(const std::string& path) {
  const std::optional<std::wstring> literal = ExistingPath(path);
  if (!literal) return std::nullopt;
  std::optional<std::wstring> plain = ToWide(PlainWindowsPath(FromWide(*literal)));
  std::wstring read(plain->size() + 1, L'\0');
  read.resize(::GetFullPathNameW(plain->c_str(), static_cast<DWORD>(read.size()), read.data(), nullptr));
  if (read != *plain) plain.reset();
  return plain;
}

HRESULT Prepare(IFileOperation& operation, IShellItem* file, HWND owner, DWORD flags) {
  HRESULT result = operation.SetOperationFlags(flags);
  if (SUCCEEDED(result) && owner != nullptr) result = operation.SetOwnerWindow(owner);
  if (SUCCEEDED(result)) result = operation.DeleteItem(file, nullptr);
  return result;
}

// True when the user declined the confirmation. That is no failure: the caller checks whether the file is still there.
bool IsDeclined(HRESULT result, IFileOperation& operation) {
  BOOL aborted = FALSE;
  const bool known = SUCCEEDED(operation.GetAnyOperationsAborted(&aborted));
  return (known && aborted != FALSE) || result == COPYENGINE_E_USER_CANCELLED ||
         result == HRESULT_FROM_WIN32(ERROR_CANCELLED);
}

// The older interface, for shells without IFileOperation. It only supports paths of less than 260 characters.
int RecycleByRequest(std::wstring path, HWND owner, BinQuestions questions) {
  if (path.size() >= MAX_PATH) return kRecycleNotDone;
  path.push_back(L'\0');  // a list of one, ended by an empty entry
  SHFILEOPSTRUCTW request = {};
  request.hwnd = owner;
  request.wFunc = FO_DELETE;
  request.pFrom = path.c_str();
  request.fFlags = CommonFlags(questions);
  const int result = ::SHFileOperationW(&request);
  return request.fAnyOperationsAborted != FALSE || result == ERROR_CANCELLED ? 0 : result;
}

}  // namespace

std::optional<int> RecycleBy(IFileOperation& operation, IShellItem* file, HWND owner, BinQuestions questions) {
  const DWORD flags = CommonFlags(questions) | FOFX_RECYCLEONDELETE | FOFX_ADDUNDORECORD;
  const HRESULT prepared = Prepare(operation, file, owner, flags);
  if (prepared == E_NOTIMPL) return std::nullopt;
  if (FAILED(prepared)) return kRecycleNotDone;
  const HRESULT done = operation.PerformOperations();
  if (done == E_NOTIMPL) return std::nullopt;
  return SUCCEEDED(done) || IsDeclined(done, operation) ? 0 : static_cast<int>(done);
}

int MoveToRecycleBin(const std::string& path, std::uintptr_t ownerWindow, BinQuestions questions) {
  // The handle is passed as a number, so that portable headers need not know its type.
  const auto owner = reinterpret_cast<HWND>(ownerWindow);  // NOLINT(performance-no-int-to-ptr)
  const std::optional<std::wstring> shellPath = ShellPath(path);
  const Apartment apartment;
  if (!shellPath || !apartment.Entered()) return kRecycleNotDone;
  const ComPointer<IFileOperation> operation = MakeFileOperation();
  if (operation) {
    // For plain paths of 260 characters and more this only succeeds where long paths are enabled; otherwise the file
    // stays.
    const ComPointer<IShellItem> file = ShellItem(*shellPath);
    if (!file) return kRecycleNotDone;
    if (const std::optional<int> result = RecycleBy(*operation, file.get(), owner, questions)) return *result;
  }
  return RecycleByRequest(*shellPath, owner, questions);
}

}  // namespace quillon
