#include "rename/LinearGrowth.h"

#include <algorithm>

namespace quillon {
namespace {

std::size_t CommonLength(std::string_view left, std::string_view right) {
  const std::size_t length = std::min(left.size(), right.size());
  return static_cast<std::size_t>(std::mismatch(left.begin(), left.begin() + length, right.begin()).first -
                                  left.begin());
}

}  // namespace

std::optional<LinearGrowth> LinearGrowth::Of(std::string_view first, std::string_view second, std::string_view third) {
  // At the first place, the names are "fx", "frx" and "frrx": the common prefix of the second and the third is longer
  // by "r" than that of the first and the second.
  LinearGrowth growth;
  for (;;) {
    const std::size_t fixed = CommonLength(first, second);
    if (fixed == first.size() && fixed == second.size()) break;
    const std::size_t common = CommonLength(second, third);
    if (common <= fixed) return std::nullopt;
    const std::string_view repeated = second.substr(fixed, common - fixed);
    if (third.substr(common, repeated.size()) != repeated) return std::nullopt;
    growth.parts_.push_back({std::string(first.substr(0, fixed)), std::string(repeated)});
    first.remove_prefix(fixed);
    second.remove_prefix(common);
    third.remove_prefix(common + repeated.size());
  }
  if (growth.parts_.empty() || third != second) return std::nullopt;
  growth.end_ = first;
  return growth;
}

std::string LinearGrowth::NameAfter(std::size_t applications) const {
  std::size_t length = end_.size();
  for (const Part& part : parts_) length += part.fixed.size() + applications * part.repeated.size();
  std::string name;
  name.reserve(length);
  for (const Part& part : parts_) {
    name += part.fixed;
    for (std::size_t i = 0; i < applications; ++i) name += part.repeated;
  }
  return name += end_;
}

}  // namespace quillon
