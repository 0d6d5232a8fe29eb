#pragma once

#include <string_view>

namespace quillora::deck::libreoffice {

/// How much of a file's beginning deckSignature() wants to see.
inline constexpr int kSignatureLength = 512;

/// Whether a file that begins so may be a deck, whatever its name says: a compound file (.ppt, .pps), a ZIP
/// archive (.pptx, .ppsx, .odp) or flat XML (.fodp). It keeps pictures, texts and programs, some named like a
/// deck, away from the many import filters that would take them.
bool deckSignature(std::string_view beginning);

} // namespace quillora::deck::libreoffice
