#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace quillora::deck::libreoffice {

// What the recorder and its converter program say to each other over a socket: lines of ASCII, a word and
// decimal numbers, parted by one blank. Lines rather than structures, so that a conversation can be read in a
// trace, and so that there is nothing in a message to be copied before it has been looked at. The converter
// has a stranger's deck in its memory: nothing it says is believed until it has passed through parseReply().

/// The other side broke the rules of the conversation; it is not to be talked to again.
class ProtocolError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

inline constexpr int kMaxSlides = 10000;
/// Of a page, in hundredths of a point. LibreOffice's own limit is 300 cm.
inline constexpr int kMaxPageLength = 2000000;
/// Of a picture, in pixels.
inline constexpr int kMaxPictureLength = 16384;
/// Pictures that are on their way at once: two being painted, one painted and waiting, one being copied out.
inline constexpr int kSlots = 4;

/// "ready": LibreOffice stands and waits for a deck.
struct Ready {
    bool operator==(const Ready&) const = default;
};
/// "opened SLIDES": the deck is a presentation.
struct Opened {
    int slides = 0;
    bool operator==(const Opened&) const = default;
};
/// "laid-out WIDTH HEIGHT": the slides can be painted; the size of the first in hundredths of a point.
struct LaidOut {
    int width = 0;
    int height = 0;
    bool operator==(const LaidOut&) const = default;
};
/// "painted SLIDE SLOT"
struct Painted {
    int slide = 0;
    int slot = 0;
    bool operator==(const Painted&) const = default;
};
/// "unpaintable SLIDE SLOT": this one slide could not be painted; the slot holds nothing.
struct Unpaintable {
    int slide = 0;
    int slot = 0;
    bool operator==(const Unpaintable&) const = default;
};
/// "refused": the deck is broken, encrypted, or no presentation.
struct Refused {
    bool operator==(const Refused&) const = default;
};
using Reply = std::variant<Ready, Opened, LaidOut, Painted, Unpaintable, Refused>;

/// "open": the deck lies in the agreed place.
struct OpenRequest {
    bool operator==(const OpenRequest&) const = default;
};
/// "lay-out": make the deck ready to be painted.
struct LayOutRequest {
    bool operator==(const LayOutRequest&) const = default;
};
/// "paint SLIDE SLOT WIDTH HEIGHT": in pixels, stretched to them.
struct PaintRequest {
    int slide = 0;
    int slot = 0;
    int width = 0;
    int height = 0;
    bool operator==(const PaintRequest&) const = default;
};
using Request = std::variant<OpenRequest, LayOutRequest, PaintRequest>;

/// One line, without its end. Throws ProtocolError for anything but a message with every number in its range.
Reply parseReply(std::string_view line);
Request parseRequest(std::string_view line);

/// The line, with its end.
std::string lineOf(const Reply& reply);
std::string lineOf(const Request& request);

/// Cuts a stream of bytes into lines. A line that does not end within the length of the longest message is a
/// ProtocolError, so a peer that never ends its line can't make the buffer grow.
class LineCutter {
  public:
    void add(std::string_view bytes);
    /// The next whole line, without its end.
    std::optional<std::string> next();

  private:
    std::string m_pending;
};

} // namespace quillora::deck::libreoffice
