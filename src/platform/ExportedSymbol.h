#pragma once

/// Marks a function that a shared library exports. The syntax depends on the compiler and, with GCC, on the system.
#if defined(_MSC_VER)
#define QUILLON_EXPORTED __declspec(dllexport)
#elif __has_cpp_attribute(gnu::dllexport)
#define QUILLON_EXPORTED [[gnu::dllexport]]
#else
#define QUILLON_EXPORTED [[gnu::visibility("default")]]
#endif
