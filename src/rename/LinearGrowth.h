#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A name that becomes longer by the same texts at the same places with every application of a rule: "a-1", "a0-01",
/// "a00-001".
class LinearGrowth {
 public:
  /// The growth that three names in a row show; nullopt when they show another one, or none.
  [[nodiscard]] static std::optional<LinearGrowth> Of(std::string_view first, std::string_view second,
                                                      std::string_view third);

  /// The name so many applications after the first.
  [[nodiscard]] std::string NameAfter(std::size_t applications) const;

 private:
  struct Part {
    std::string fixed;
    std::string repeated;  ///< follows `fixed` once per application
  };

  std::vector<Part> parts_;
  std::string end_;
};

}  // namespace quillon
