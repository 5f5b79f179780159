// The sanitizer's runtime looks for these names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
  return "fast_unwind_on_malloc=0";  // else nothing is known of who called GLib
}

// The encoder and the muxer that make the MPEG samples do not free all that they need. GLib keeps the tables of names
// that it has outgrown, for threads that may be reading them; the first is made when the library is loaded.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libmpeg2encpp\nleak:libmjpegutils\nleak:libgstlibav\nleak:_dl_init\nleak:g_quark_from\nleak:g_intern\n";
}
// NOLINTEND(bugprone-reserved-identifier)
