#pragma once

#include <utility>
#include <variant>

namespace quillon {

/// Either a value or an error. Expected failures are returned as values, never thrown.
template <class Value, class Error>
class [[nodiscard]] Result {
 public:
  // Both conversions are implicit on purpose, so that functions can `return value;` and `return error;`.
  Result(Value value) : held_(std::in_place_index<0>, std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Result(Error error) : held_(std::in_place_index<1>, std::move(error)) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] bool Ok() const { return held_.index() == 0; }
  explicit operator bool() const { return Ok(); }

  /// Precondition: Ok().
  [[nodiscard]] const Value& operator*() const& { return *std::get_if<0>(&held_); }
  [[nodiscard]] Value& operator*() & { return *std::get_if<0>(&held_); }
  [[nodiscard]] const Value* operator->() const { return std::get_if<0>(&held_); }

  /// Precondition: !Ok().
  [[nodiscard]] const Error& Failure() const { return *std::get_if<1>(&held_); }

  bool operator==(const Result&) const = default;

 private:
  std::variant<Value, Error> held_;
};

}  // namespace quillon
