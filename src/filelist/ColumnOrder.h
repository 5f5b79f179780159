#pragma once

#include <cstdint>
#include <vector>

#include "filelist/RowStore.h"
#include "platform/Collation.h"

namespace quillon {

/// Sorts these rows by a column's display texts, ignoring letter case. Returns their 0-based places in `rows`. Rows
/// with equal texts stay in their order, in falling order too.
[[nodiscard]] std::vector<std::uint32_t> PlacesInOrder(const RowStore& store, const std::vector<RowStore::Id>& rows,
                                                       Column column, bool falling, const Collation& collation);

}  // namespace quillon
