// The desktop's libraries keep what they have loaded to the end. The sanitizer's runtime looks for this name.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
// NOLINTEND(bugprone-reserved-identifier)
