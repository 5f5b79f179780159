// Prints the contents of a program's windows, for tests that drive it from outside.
//
// usage: WindowReader EXE-NAME
//
// Prints one JSON array with every visible or minimised top-level window of the processes whose file has this name: its
// class, title, rectangle and controls, including the rows of list views and the panels of status bars.

#include <windows.h>

#include <commctrl.h>
#include <tlhelp32.h>

#include <array>
#include <cstdio>
#include <cwchar>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillon::test {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kLongestText = 4096;
constexpr UINT kPatienceMs = 2000;

std::string ToUtf8(const std::wstring& wide) {
  if (wide.empty()) return {};
  const int length = static_cast<int>(wide.size());
  std::string text(static_cast<std::size_t>(length) * 3, '\0');
  const int bytes = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), static_cast<int>(text.size()),
                                          nullptr, nullptr);
  text.resize(static_cast<std::size_t>(bytes));
  return text;
}

/// Sends a message with a time limit, in case the program is busy; returns 0 then.
LRESULT Ask(HWND window, UINT message, WPARAM first, LPARAM second) {
  DWORD_PTR answer = 0;
  if (::SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kPatienceMs, &answer) == 0) return 0;
  return static_cast<LRESULT>(answer);
}

/// Convert a number, or an address in the other process, to a message parameter.
LPARAM AsParameter(const void* remote) {
  return reinterpret_cast<LPARAM>(remote);
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> text{};
  const int length = ::GetClassNameW(window, text.data(), static_cast<int>(text.size()));
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string TextOf(HWND window) {
  std::vector<wchar_t> text(kLongestText);
  const LRESULT length = Ask(window, WM_GETTEXT, text.size(), AsParameter(text.data()));
  return ToUtf8({text.data(), static_cast<std::size_t>(length)});
}

/// Memory in the process of a window, for messages that need a structure there.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, std::size_t size) {
    DWORD id = 0;
    ::GetWindowThreadProcessId(window, &id);
    process_ = ::OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    place_ = static_cast<char*>(::VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE));
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory() {
    ::VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    ::CloseHandle(process_);
  }

  [[nodiscard]] char* Place() const { return place_; }

  template <class Value>
  void Put(const Value& value) const {
    static_assert(std::is_trivially_copyable_v<Value>);
    ::WriteProcessMemory(process_, place_, &value, sizeof value, nullptr);
  }

  template <class Value>
  [[nodiscard]] Value Get() const {
    Value value{};
    ::ReadProcessMemory(process_, place_, &value, sizeof value, nullptr);
    return value;
  }

  [[nodiscard]] std::string GetText(std::size_t offset) const {
    std::vector<wchar_t> text(kLongestText);
    ::ReadProcessMemory(process_, place_ + offset, text.data(), (text.size() - 1) * sizeof(wchar_t), nullptr);
    return ToUtf8(text.data());
  }

 private:
  HANDLE process_ = nullptr;
  char* place_ = nullptr;
};

constexpr std::size_t kTextOffset = 256;  // behind the largest structure
constexpr std::size_t kRemoteSize = kTextOffset + kLongestText * sizeof(wchar_t);

int ColumnCount(HWND list) {
  const HWND header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER, 0, 0));
  return static_cast<int>(Ask(header, HDM_GETITEMCOUNT, 0, 0));
}

std::string CellText(HWND list, const RemoteMemory& memory, int row, int column) {
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = reinterpret_cast<wchar_t*>(memory.Place() + kTextOffset);
  item.cchTextMax = kLongestText;
  memory.Put(item);
  const LRESULT length = Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), AsParameter(memory.Place()));
  if (length == 0) return {};
  // Instead of copying the text, the list view may have set the pointer to its own buffer.
  const auto* text = reinterpret_cast<const char*>(memory.Get<LVITEMW>().pszText);
  return memory.GetText(static_cast<std::size_t>(text - memory.Place()));
}

void AddList(HWND list, Json& control) {
  const RemoteMemory memory(list, kRemoteSize);
  const int columns = ColumnCount(list);
  const int rows = static_cast<int>(Ask(list, LVM_GETITEMCOUNT, 0, 0));
  Json texts = Json::array();
  Json selected = Json::array();
  for (int row = 0; row < rows; ++row) {
    Json cells = Json::array();
    for (int column = 0; column < columns; ++column) cells.push_back(CellText(list, memory, row, column));
    texts.push_back(std::move(cells));
    if (Ask(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0) selected.push_back(row);
  }
  Json widths = Json::array();
  for (int column = 0; column < columns; ++column) {
    widths.push_back(Ask(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
  }
  control["rows"] = std::move(texts);
  control["selected"] = std::move(selected);
  control["widths"] = std::move(widths);
  control["editing"] = Ask(list, LVM_GETEDITCONTROL, 0, 0) != 0;
}

void AddPanels(HWND bar, Json& control) {
  const RemoteMemory memory(bar, kRemoteSize);
  const LRESULT count = Ask(bar, SB_GETPARTS, 0, 0);
  Json panels = Json::array();
  for (LRESULT i = 0; i < count; ++i) {
    const LRESULT length = Ask(bar, SB_GETTEXTW, static_cast<WPARAM>(i), AsParameter(memory.Place() + kTextOffset));
    panels.push_back(LOWORD(length) == 0 ? std::string() : memory.GetText(kTextOffset));
  }
  control["panels"] = std::move(panels);
}

Json Place(HWND window) {
  RECT place{};
  ::GetWindowRect(window, &place);
  return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

Json Describe(HWND window) {
  const std::wstring kind = ClassOf(window);
  Json control = {{"class", ToUtf8(kind)}, {"text", TextOf(window)}, {"place", Place(window)}};
  control["enabled"] = ::IsWindowEnabled(window) != FALSE;
  if (kind == WC_LISTVIEWW) AddList(window, control);
  if (kind == STATUSCLASSNAMEW) AddPanels(window, control);
  return control;
}

HWND FocusOf(HWND window) {
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &information);
  return information.hwndFocus;
}

struct Found {
  std::vector<DWORD> processes;
  Json windows = Json::array();
};

struct Children {
  HWND focus;
  Json controls = Json::array();
};

BOOL CALLBACK AddChild(HWND child, LPARAM to) {
  auto& children = *reinterpret_cast<Children*>(to);
  if (::IsWindowVisible(child) == FALSE && ClassOf(child) != WC_LISTVIEWW) return TRUE;
  Json control = Describe(child);
  control["focused"] = child == children.focus;
  children.controls.push_back(std::move(control));
  return TRUE;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM to) {
  auto& found = *reinterpret_cast<Found*>(to);
  DWORD id = 0;
  ::GetWindowThreadProcessId(window, &id);
  bool ours = false;
  for (const DWORD process : found.processes) ours = ours || process == id;
  if (!ours || ::IsWindowVisible(window) == FALSE) return TRUE;
  Children children{FocusOf(window)};
  ::EnumChildWindows(window, AddChild, reinterpret_cast<LPARAM>(&children));
  Json description = Describe(window);
  description["minimised"] = ::IsIconic(window) != FALSE;
  description["active"] = ::GetForegroundWindow() == window;
  description["controls"] = std::move(children.controls);
  found.windows.push_back(std::move(description));
  return TRUE;
}

std::vector<DWORD> ProcessesOf(const std::wstring& fileName) {
  std::vector<DWORD> ids;
  const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32FirstW(all, &entry); more != FALSE; more = ::Process32NextW(all, &entry)) {
    if (fileName == &entry.szExeFile[0]) ids.push_back(entry.th32ProcessID);
  }
  ::CloseHandle(all);
  return ids;
}

}  // namespace
}  // namespace quillon::test

int wmain(int count, wchar_t** arguments) {
  using namespace quillon::test;
  if (count != 2) {
    std::fputs("usage: WindowReader EXE-NAME\n", stderr);
    return 2;
  }
  Found found{ProcessesOf(arguments[1])};
  ::EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&found));
  const std::string text = found.windows.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}
