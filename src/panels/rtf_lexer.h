#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillora::panels {

/// One piece of an RTF stream.
struct RtfToken {
    enum class Kind {
        groupBegin,
        groupEnd,
        /// `name`, and `parameter` where it has one.
        controlWord,
        /// A backslash before something that is no letter: `name` is that one character.
        controlSymbol,
        /// `byte`, from \'hh.
        byte,
        /// `name`: bytes as they stand, without line ends.
        text,
        /// The data of \bin, already passed over.
        binary,
        end,
    };

    Kind kind = Kind::end;
    std::string_view name{};
    std::optional<int> parameter{};
    std::uint8_t byte = 0;
};

/// Cuts a stream in pieces. Anything is a stream: what is cut off in the middle of a piece gives that piece
/// as far as it goes. The text that is read must outlive the lexer and its tokens.
class RtfLexer {
  public:
    explicit RtfLexer(std::string_view stream) : m_rest(stream) {}

    RtfToken next();

  private:
    RtfToken control();
    RtfToken controlWord();
    std::optional<int> parameter();

    std::string_view m_rest;
};

} // namespace quillora::panels
