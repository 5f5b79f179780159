#include "platform/Shell.h"

#include <gio/gio.h>

#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

constexpr int kAccessDenied = 5;

int AnswerOf(const GError* error) {
  if (error == nullptr) return kShellOpened;
  if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_FOUND) != FALSE) return kShellFileNotFound;
  if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED) != FALSE) return kShellNoProgram;
  return kAccessDenied;
}

int Open(GFile* file) {
  const bool local = g_file_is_native(file) != FALSE;
  if (local && g_file_query_exists(file, nullptr) == FALSE) return kShellFileNotFound;
  char* const uri = g_file_get_uri(file);
  GError* error = nullptr;
  g_app_info_launch_default_for_uri(uri, nullptr, &error);
  const int answer = AnswerOf(error);
  g_clear_error(&error);
  g_free(uri);
  return answer;
}

}  // namespace

int OpenWithShell(const std::string& target, std::uintptr_t /*ownerWindow*/) {
  if (target.empty() || HoldsNul(target)) return kShellFileNotFound;
  GFile* const file = g_file_new_for_commandline_arg(target.c_str());
  const int answer = Open(file);
  g_object_unref(file);
  return answer;
}

std::string FileTypeDescription(const std::string& extension) {
  if (extension.empty() || HoldsNul(extension)) return {};
  const std::string name = "file." + extension;
  gboolean uncertain = FALSE;
  char* const type = g_content_type_guess(name.c_str(), nullptr, 0, &uncertain);
  std::string words;
  if (g_content_type_is_unknown(type) == FALSE) {
    char* const description = g_content_type_get_description(type);
    words = description;
    g_free(description);
  }
  g_free(type);
  return words;
}

}  // namespace quillon
