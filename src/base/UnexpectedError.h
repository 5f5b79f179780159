#pragma once

#include <string>

namespace quillon {

inline constexpr const char* kUnexpectedError = "予期しないエラーが発生しました";

/// Describes the exception being handled: that memory ran out, its what() text, or its type. Call it in a catch block.
[[nodiscard]] std::string DescribeException();

/// kUnexpectedError and, on the next line, DescribeException(). Call it in a catch block.
[[nodiscard]] std::string UnexpectedErrorText();

}  // namespace quillon
