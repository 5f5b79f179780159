#pragma once

#include <string>

#include "settings/OptionValues.h"

namespace quillon::test {

/// Lists every member by name, to compare whole records. Does not use the settings' table on purpose.
[[nodiscard]] std::string Describe(const OptionValues& options);

/// Random values that a settings file can hold: texts of up to 127 characters without line breaks, NULs or surrounding
/// blanks, except that a replace text may be one blank. The same seed gives the same values.
[[nodiscard]] OptionValues RandomOptionValues(unsigned seed);

}  // namespace quillon::test
