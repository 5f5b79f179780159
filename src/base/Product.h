#pragma once

/// The product's name, version, address and copyright, set by the build (cmake/Product.cmake).
namespace quillon {

extern const char* const kProductName;       ///< "Quillon"
extern const char* const kProductVersion;    ///< "1.01"
extern const char* const kProductUrl;        ///< its web address
extern const char* const kProductCopyright;  ///< the copyright line

}  // namespace quillon
