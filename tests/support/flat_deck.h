#pragma once

#include <string>
#include <vector>

namespace quillora::tests {

/// A deck as one text, in flat OpenDocument, that LibreOffice reads like any other deck.
class FlatDeck {
  public:
    /// In centimetres.
    FlatDeck(double width, double height) : m_width(number(width)), m_height(number(height)) {}

    /// Adds a slide. @p shapes is OpenDocument; rectangle() and picture() make some.
    FlatDeck& slide(const std::string& shapes)
    {
        m_slides += "<draw:page draw:master-page-name=\"Plain\">" + shapes + "</draw:page>";
        return *this;
    }
    FlatDeck& hiddenSlide(const std::string& shapes)
    {
        m_slides += "<draw:page draw:style-name=\"hidden\" draw:master-page-name=\"Plain\">" + shapes +
                    "</draw:page>";
        return *this;
    }

    /// A rectangle without an outline. @p colour is "#rrggbb"; lengths are in centimetres.
    std::string rectangle(const std::string& colour, double x, double y, double width, double height)
    {
        const std::string style = "fill" + std::to_string(m_styleCount++);
        m_styles +=
            "<style:style style:name=\"" + style +
            "\" style:family=\"graphic\"><style:graphic-properties draw:fill=\"solid\" draw:fill-color=\"" +
            colour + "\" draw:stroke=\"none\"/></style:style>";
        return "<draw:rect draw:style-name=\"" + style + "\"" + place(x, y, width, height) + "/>";
    }
    /// A picture that the deck names and does not hold.
    std::string picture(const std::string& address, double x, double y, double width, double height)
    {
        return "<draw:frame" + place(x, y, width, height) + "><draw:image xlink:href=\"" + address +
               "\" xlink:type=\"simple\" xlink:show=\"embed\" xlink:actuate=\"onLoad\"/></draw:frame>";
    }
    /// A title that waits for its text: the editor shows a prompt there.
    std::string emptyTitle(double x, double y, double width, double height)
    {
        return "<draw:frame presentation:class=\"title\" presentation:placeholder=\"true\"" +
               place(x, y, width, height) + "><draw:text-box/></draw:frame>";
    }

    std::string text() const
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document"
               " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
               " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\""
               " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
               " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\""
               " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
               " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
               " xmlns:xlink=\"http://www.w3.org/1999/xlink\""
               " xmlns:presentation=\"urn:oasis:names:tc:opendocument:xmlns:presentation:1.0\""
               " office:version=\"1.2\" office:mimetype=\"application/vnd.oasis.opendocument.presentation\">"
               // Without a common style LibreOffice passes over the page's size.
               "<office:styles><style:style style:name=\"standard\" "
               "style:family=\"graphic\"/></office:styles>"
               "<office:automatic-styles><style:page-layout style:name=\"Page\"><style:page-layout-properties"
               " fo:page-width=\"" +
               m_width + "cm\" fo:page-height=\"" + m_height +
               "cm\" fo:margin=\"0cm\"/></style:page-layout>"
               "<style:style style:name=\"hidden\" "
               "style:family=\"drawing-page\"><style:drawing-page-properties"
               " presentation:visibility=\"hidden\"/></style:style>" +
               m_styles +
               "</office:automatic-styles><office:master-styles><style:master-page style:name=\"Plain\""
               " style:page-layout-name=\"Page\"/></office:master-styles><office:body><office:presentation>" +
               m_slides + "</office:presentation></office:body></office:document>";
    }

  private:
    static std::string number(double centimetres) { return std::to_string(centimetres); }
    static std::string place(double x, double y, double width, double height)
    {
        return " svg:x=\"" + number(x) + "cm\" svg:y=\"" + number(y) + "cm\" svg:width=\"" + number(width) +
               "cm\" svg:height=\"" + number(height) + "cm\"";
    }

    std::string m_width;
    std::string m_height;
    std::string m_styles{};
    std::string m_slides{};
    int m_styleCount = 0;
};

} // namespace quillora::tests
