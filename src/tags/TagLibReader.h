#pragma once

#include <string_view>
#include <vector>

#include "base/ByteSource.h"
#include "media/MediaType.h"
#include "media/TagFields.h"
#include "tags/SongDetails.h"

/// Tags as TagLib reads them.
namespace quillon {

/// True for the types whose files TagLib can read.
[[nodiscard]] bool HasMoreTags(const FileType& type);

/// True for those whose files TagLib alone can read and which nearly always have tags: music of the usual kinds.
[[nodiscard]] bool UsuallyHasMoreTags(const FileType& type);

/// The extensions of those types, in lower case.
[[nodiscard]] std::vector<std::string_view> UsualMusicExtensions();

/// Reads an opened file according to its type, or, where TagLib finds that it is no such file, according to its
/// contents (it takes any file for an MP3 file). Never reports errors: what is not known stays empty.
/// TagFields::kTitleAndArtist leaves out the playing time, which may take longer to find than the texts.
///
/// Texts without a stated encoding are StoredText::kUtf8OrAnsi.
[[nodiscard]] SongDetails ReadTagLibDetails(ByteSource& file, const FileType& type, TagFields wanted = TagFields::kAll);

}  // namespace quillon
