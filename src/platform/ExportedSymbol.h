#pragma once

/// Stands before a function that a shared library offers to whoever loads it. Each compiler has its own way, GCC's for
/// Windows another than the one for Linux.
#if defined(_MSC_VER)
#define QUILLON_EXPORTED __declspec(dllexport)
#elif __has_cpp_attribute(gnu::dllexport)
#define QUILLON_EXPORTED [[gnu::dllexport]]
#else
#define QUILLON_EXPORTED [[gnu::visibility("default")]]
#endif
