#pragma once

#include <string_view>

namespace quillora::panels {

/// Where the text of a group goes.
enum class RtfDestination {
    body,
    fontTable,
    colourTable,
    /// The bullet or number of a paragraph in a list, as text.
    marker,
    /// What kind of list the paragraph belongs to.
    numbering,
    skipped,
};

enum class RtfAction {
    /// Puts the character `value`.
    character,
    /// The group goes to the destination `value`.
    destination,
    paragraphEnd,
    unicode,
    fallbackLength,
    /// Known, and the group goes where the text around it goes.
    transparent,
    /// The next group says in another encoding what the one after it says in Unicode.
    outdatedGroup,
    /// The code page `value`, or for 0 that of the parameter.
    codePage,
    defaultFont,
    paragraphDefaults,
    /// The alignment `value`.
    alignment,
    bullet,
    characterDefaults,
    bold,
    italic,
    underline,
    noUnderline,
    hidden,
    font,
    halfPoints,
    twips,
    colour,
    fontCharset,
    fontCodePage,
    red,
    green,
    blue,
};

/// A control word or symbol that means something to the board.
struct RtfWord {
    std::string_view name;
    RtfAction action;
    int value = 0;
};

/// A word of ours beside \fs, which has no quarters of a point: other readers pass over it, as over all that
/// they don't know.
inline constexpr std::string_view kTwipsWord = "quilloratwips";

/// Null for a word that means nothing.
const RtfWord* findRtfWord(std::string_view name);

} // namespace quillora::panels
