#pragma once

#include <string>

namespace quillon {

inline constexpr const char* kUnexpectedError = "予期しないエラーが発生しました";

/// What is known of the exception that is being handled: that memory ran out, its own words, or its type. Called within
/// a catch block.
[[nodiscard]] std::string DescribeException();

/// kUnexpectedError and, on a line of its own, what is known. Called within a catch block.
[[nodiscard]] std::string UnexpectedErrorText();

}  // namespace quillon
