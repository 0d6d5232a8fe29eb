#pragma once

#include "panels/rich_text.h"

#include <cstddef>
#include <string>

namespace quillora::panels {

/// What a stream says of the look of the text that comes.
struct RtfLook {
    CharacterFormat character{};
    Alignment alignment = Alignment::left;
    bool bullet = false;
};

/// The paragraphs of a stream as their characters come, and the markers of its lists: the bullet or number
/// that writers put before an item as text. A marker that is a bullet makes the paragraph one with a bullet;
/// a number becomes part of its text.
class RtfBody {
  public:
    /// Of characters and paragraphs together; what comes after it is left out.
    explicit RtfBody(std::size_t limit) : m_builder(limit) {}

    bool full() const { return m_builder.full(); }

    /// What add() gets next may look other than what it got before. Without this call its look is that of
    /// before, which saves comparing.
    void changeLook() { m_lookChanged = true; }

    void beginMarker();
    void addToMarker(char32_t character);

    void add(char32_t character, const RtfLook& look);
    void endParagraph(const RtfLook& look);

    /// What was put in. The last paragraph's end stands in most streams, and makes no paragraph after it.
    RichText take(const RtfLook& look);

  private:
    void applyMarker(const RtfLook& look);

    RichTextBuilder m_builder;
    bool m_lookChanged = true;
    std::string m_marker{};
    bool m_markerIsBullet = false;
};

} // namespace quillora::panels
