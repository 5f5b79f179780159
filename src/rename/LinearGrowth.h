#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A name to which every application of a rule adds the same texts at the same places: "a-1", "a0-01", "a00-001".
class LinearGrowth {
 public:
  /// Finds the growth in three consecutive names; nullopt when they do not grow in this way.
  [[nodiscard]] static std::optional<LinearGrowth> Of(std::string_view first, std::string_view second,
                                                      std::string_view third);

  /// The name after this many applications, counted from the first name.
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
