#include "platform/windows/CopyAccessList.h"

#include <windows.h>

#include <aclapi.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

namespace quillon {
namespace {

struct LocalMemory {
  void operator()(void* memory) const { ::LocalFree(memory); }
};

/// The part of an access list that a file does not have from its folder.
struct OwnList {
  bool inherits = true;
  std::vector<std::byte> entries;  ///< one after the other, as the system keeps them

  bool operator==(const OwnList&) const = default;
  [[nodiscard]] bool Empty() const { return inherits && entries.empty(); }
};

std::optional<OwnList> ReadOwnList(const std::wstring& path) {
  ACL* list = nullptr;
  void* memory = nullptr;
  if (::GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr,
                              &memory) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  const std::unique_ptr<void, LocalMemory> descriptor(memory);
  OwnList own;
  if (list == nullptr) return own;  // no list at all: a volume without them
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (!::GetSecurityDescriptorControl(descriptor.get(), &control, &revision)) return std::nullopt;
  own.inherits = (control & SE_DACL_PROTECTED) == 0;
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (!::GetAce(list, i, &entry)) return std::nullopt;
    const auto* const header = static_cast<const ACE_HEADER*>(entry);
    if ((header->AceFlags & INHERITED_ACE) != 0) continue;
    const auto* const bytes = static_cast<const std::byte*>(entry);
    own.entries.insert(own.entries.end(), bytes, bytes + header->AceSize);
  }
  return own;
}

bool SetOwnList(const std::wstring& path, const OwnList& own) {
  const std::size_t size = sizeof(ACL) + own.entries.size();
  std::vector<DWORD> memory((size + sizeof(DWORD) - 1) / sizeof(DWORD));  // lists stand at multiples of four bytes
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  if (!::InitializeAcl(list, static_cast<DWORD>(memory.size() * sizeof(DWORD)), ACL_REVISION_DS)) return false;
  std::vector<std::byte> entries = own.entries;
  const auto length = static_cast<DWORD>(entries.size());
  if (!entries.empty() && !::AddAce(list, ACL_REVISION_DS, MAXDWORD, entries.data(), length)) return false;
  const DWORD protection = own.inherits ? UNPROTECTED_DACL_SECURITY_INFORMATION : PROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = path;
  return ::SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | protection, nullptr, nullptr,
                                 list, nullptr) == ERROR_SUCCESS;
}

}  // namespace

bool CopyAccessList(const std::wstring& from, const std::wstring& to) {
  const std::optional<OwnList> own = ReadOwnList(from);
  if (!own) return false;
  if (own->Empty() || ReadOwnList(to) == own) return true;
  return SetOwnList(to, *own) && ReadOwnList(to) == own;
}

}  // namespace quillon
