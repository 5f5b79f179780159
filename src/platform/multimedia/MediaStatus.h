#pragma once

#include <optional>

namespace quillon {

/// Why a command to a multimedia device failed, under the numbers that Microsoft's mmsystem.h gives. Windows has many
/// more; these are passed on as their numbers.
enum class MediaError : int {
  kUnknownKeyword = 259,    ///< MCIERR_UNRECOGNIZED_KEYWORD
  kUnknownCommand = 261,    ///< MCIERR_UNRECOGNIZED_COMMAND
  kNotOpen = 263,           ///< MCIERR_INVALID_DEVICE_NAME: no such alias is open
  kTooManyOpen = 264,       ///< MCIERR_OUT_OF_MEMORY
  kMissingCommand = 267,    ///< MCIERR_MISSING_COMMAND_STRING: an empty command
  kBadNumber = 270,         ///< MCIERR_BAD_INTEGER
  kMissingParameter = 273,  ///< MCIERR_MISSING_PARAMETER
  kFileNotFound = 275,      ///< MCIERR_FILE_NOT_FOUND
  kNotReady = 276,          ///< MCIERR_DEVICE_NOT_READY
  kInternal = 277,          ///< MCIERR_INTERNAL
  kOutOfRange = 282,        ///< MCIERR_OUTOFRANGE: a position outside the file
  kAliasInUse = 289,        ///< MCIERR_DUPLICATE_ALIAS
  kMissingDevice = 292,     ///< MCIERR_MISSING_DEVICE_NAME: nothing behind the first word
  kNoClosingQuote = 294,    ///< MCIERR_NO_CLOSING_QUOTE
  kInvalidFile = 296,       ///< MCIERR_INVALID_FILE: nothing that can be played
  kNoPicture = 346,         ///< MCIERR_NO_WINDOW
};

/// The result of a command: success, or the error.
class MediaStatus {
 public:
  MediaStatus() = default;
  MediaStatus(MediaError error) : error_(error) {}  // NOLINT(google-explicit-constructor): `return error;` reads best

  [[nodiscard]] bool Ok() const { return !error_; }
  /// Precondition: !Ok().
  [[nodiscard]] MediaError Failure() const { return *error_; }

  friend bool operator==(const MediaStatus&, const MediaStatus&) = default;

 private:
  std::optional<MediaError> error_;
};

}  // namespace quillon
