#include "platform/windows/CopyAccessList.h"

#include <windows.h>

#include <aclapi.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quillon {
namespace {

struct LocalMemory {
  void operator()(void* memory) const { ::LocalFree(memory); }
};

using Entries = std::vector<std::byte>;  // access control entries in the system's layout, one after the other

/// The entries of an access list, by their origin.
struct AccessList {
  bool inherits = true;
  Entries own;
  Entries inherited;
};

std::optional<AccessList> ReadAccessList(const std::wstring& path) {
  ACL* list = nullptr;
  void* memory = nullptr;
  if (::GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr,
                              &memory) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  const std::unique_ptr<void, LocalMemory> descriptor(memory);
  AccessList read;
  if (list == nullptr) return read;  // the volume has no access lists
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (!::GetSecurityDescriptorControl(descriptor.get(), &control, &revision)) return std::nullopt;
  read.inherits = (control & SE_DACL_PROTECTED) == 0;
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (!::GetAce(list, i, &entry)) return std::nullopt;
    const auto* const header = static_cast<const ACE_HEADER*>(entry);
    const auto* const bytes = static_cast<const std::byte*>(entry);
    Entries& entries = (header->AceFlags & INHERITED_ACE) != 0 ? read.inherited : read.own;
    entries.insert(entries.end(), bytes, bytes + header->AceSize);
  }
  return read;
}

// Explicit entries come before inherited ones, as the system requires.
bool SetAccessList(const std::wstring& path, bool inherits, Entries entries) {
  std::vector<DWORD> memory((sizeof(ACL) + entries.size() + sizeof(DWORD) - 1) / sizeof(DWORD));  // aligned
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  if (!::InitializeAcl(list, static_cast<DWORD>(memory.size() * sizeof(DWORD)), ACL_REVISION_DS)) return false;
  const auto length = static_cast<DWORD>(entries.size());
  if (!entries.empty() && !::AddAce(list, ACL_REVISION_DS, MAXDWORD, entries.data(), length)) return false;
  SECURITY_DESCRIPTOR descriptor = {};
  if (!::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION)) return false;
  if (!::SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE)) return false;
  constexpr SECURITY_DESCRIPTOR_CONTROL kInheriting = SE_DACL_AUTO_INHERIT_REQ | SE_DACL_AUTO_INHERITED;
  constexpr SECURITY_DESCRIPTOR_CONTROL kAll = kInheriting | SE_DACL_PROTECTED;
  const SECURITY_DESCRIPTOR_CONTROL control = inherits ? kInheriting : SECURITY_DESCRIPTOR_CONTROL{SE_DACL_PROTECTED};
  if (!::SetSecurityDescriptorControl(&descriptor, kAll, control)) return false;
  const DWORD protection = inherits ? UNPROTECTED_DACL_SECURITY_INFORMATION : PROTECTED_DACL_SECURITY_INFORMATION;
  return ::SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION | protection, &descriptor) != 0;
}

bool HaveSameOwn(const AccessList& left, const AccessList& right) {
  return left.inherits == right.inherits && left.own == right.own;
}

}  // namespace

bool CopyAccessList(const std::wstring& from, const std::wstring& to) {
  const std::optional<AccessList> source = ReadAccessList(from);
  if (!source) return false;
  if (source->inherits && source->own.empty()) return true;
  const std::optional<AccessList> before = ReadAccessList(to);
  if (!before) return false;
  if (HaveSameOwn(*before, *source)) return true;
  Entries entries = source->own;
  if (source->inherits) entries.insert(entries.end(), before->inherited.begin(), before->inherited.end());
  if (!SetAccessList(to, source->inherits, std::move(entries))) return false;
  const std::optional<AccessList> now = ReadAccessList(to);
  return now && HaveSameOwn(*now, *source);
}

}  // namespace quillon
