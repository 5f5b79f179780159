#pragma once

namespace quillon::test {

/// True when the Windows program runs under Wine, which behaves differently from Windows in a few places.
[[nodiscard]] bool RunsUnderWine();

}  // namespace quillon::test
