#pragma once

#include <string>

#include "settings/OptionValues.h"

namespace quillon::test {

/// Every member by name, for comparing whole records. Written without the settings' own table, on purpose.
[[nodiscard]] std::string Describe(const OptionValues& options);

/// Any values that a settings file can hold: texts of up to 127 characters without line breaks, NULs or surrounding
/// blanks, except that a replace text may be one blank. The same for the same seed.
[[nodiscard]] OptionValues RandomOptionValues(unsigned seed);

}  // namespace quillon::test
