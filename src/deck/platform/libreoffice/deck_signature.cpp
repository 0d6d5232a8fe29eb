#include "deck/platform/libreoffice/deck_signature.h"

namespace quillora::deck::libreoffice {

bool deckSignature(std::string_view beginning)
{
    constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    constexpr std::string_view kZip = "PK\x03\x04";
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (beginning.starts_with(kCompoundFile) || beginning.starts_with(kZip))
        return true;
    if (beginning.starts_with(kByteOrderMark))
        beginning.remove_prefix(kByteOrderMark.size());
    return beginning.starts_with("<?xml") && beginning.find("<office:document") != std::string_view::npos;
}

} // namespace quillora::deck::libreoffice
