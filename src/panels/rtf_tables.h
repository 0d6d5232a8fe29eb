#pragma once

#include "base/colour.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillora::panels {

/// A font of a stream, as its table names it.
struct RtfFont {
    std::string name{};
    /// Unset: that of the document.
    std::optional<int> codePage{};
};

/// The fonts of a stream by their number, gathered while the table is read.
class RtfFontTable {
  public:
    explicit RtfFontTable(std::size_t limit) : m_limit(limit) {}

    /// From here on it is this font that is told about.
    void begin(int number);
    void setCodePage(std::optional<int> page) { m_font.codePage = page; }
    std::optional<int> codePage() const { return m_font.codePage; }
    /// A character of the name; ";" ends the font.
    void add(char32_t character);
    /// Ends a font that has a name and wasn't ended.
    void end();

    /// Null for a font that isn't there.
    const RtfFont* find(int number) const;

  private:
    std::size_t m_limit;
    std::unordered_map<int, RtfFont> m_fonts{};
    int m_number = 0;
    RtfFont m_font{};
};

/// The colours of a stream, gathered likewise.
class RtfColourTable {
  public:
    explicit RtfColourTable(std::size_t limit) : m_limit(limit) {}

    void setRed(int part);
    void setGreen(int part);
    void setBlue(int part);
    /// Ends a colour; one that nothing was told about is black, which is what "automatic" means here.
    void end();

    /// Black for a colour that isn't there.
    base::Colour at(int index) const;

  private:
    std::size_t m_limit;
    std::vector<base::Colour> m_colours{};
    int m_red = 0;
    int m_green = 0;
    int m_blue = 0;
};

} // namespace quillora::panels
