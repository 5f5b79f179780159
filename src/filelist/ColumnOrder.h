#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/Progress.h"
#include "filelist/RowStore.h"
#include "platform/Collation.h"

namespace quillon {

/// Sorts these rows by a column's display texts, ignoring letter case. Returns their 0-based places in `rows`. Rows
/// with equal texts stay in their order, in falling order too. nullopt when `progress` has ended it.
[[nodiscard]] std::optional<std::vector<std::uint32_t>> PlacesInOrder(const RowStore& store,
                                                                      const std::vector<RowStore::Id>& rows,
                                                                      Column column, bool falling,
                                                                      const Collation& collation, Progress& progress);

}  // namespace quillon
