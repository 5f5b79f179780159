#pragma once

namespace quillon::test {

/// True for the program for Windows on a Linux machine; Wine does a few things otherwise than Windows.
[[nodiscard]] bool RunsUnderWine();

}  // namespace quillon::test
