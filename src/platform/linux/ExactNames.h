#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace quillon {

/// FileReads::ExactNamesIn for this system.
[[nodiscard]] std::optional<ExactNames> ListExactNames(const std::string& folder);

/// True, false, or nullopt when there is no answer.
using IsNameThere = std::function<std::optional<bool>(const std::string& name)>;

/// Asks for a listed name in another letter case; without a letter to try, false. An answer also shows that the folder
/// can be searched.
[[nodiscard]] bool TellsLetterCaseApart(const ExactNames& names, const IsNameThere& isThere);

}  // namespace quillon
