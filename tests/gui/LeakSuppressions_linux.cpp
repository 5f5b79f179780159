// The desktop's libraries keep what they have loaded to the end. The sanitizer's runtime looks for this name.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libfontconfig\n";
}
