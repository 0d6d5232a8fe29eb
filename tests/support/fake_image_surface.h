#pragma once

#include "deck/image_surface.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <cstdio>
#include <stdexcept>

namespace quillora::tests {

/// Holds the name of a picture in place of its pixels, the size that it was given last, and the pen lines
/// that the picture got since it was loaded.
class FakeImageSurface : public deck::ImageSurface {
  public:
    FakeImageSurface(CallLog& callLog, std::string surfaceName) : log(callLog), name(std::move(surfaceName))
    {}

    CallLog& log;
    std::string name;
    /// Names of the interface.
    FailingCalls failing{};
    std::string picture{};
    int width = 0;
    int height = 0;
    base::Colour penColour = base::rgb(0, 0, 0);
    int penWidth = 1;
    std::vector<std::string> lines{};
    /// Colour and width of each of the lines, such as "0000ff 2" for red.
    std::vector<std::string> pens{};

    void LoadFile(const std::filesystem::path& file) override
    {
        log.add(name + ".LoadFile " + file.filename().string());
        failing.check("LoadFile");
        if (!std::filesystem::is_regular_file(file))
            throw std::runtime_error("no such picture: " + file.string());
        picture = file.filename().string();
        lines.clear();
        pens.clear();
    }
    void ResizeImage(int newWidth, int newHeight) override
    {
        log.add(name + ".ResizeImage " + std::to_string(newWidth) + "x" + std::to_string(newHeight));
        failing.check("ResizeImage");
        width = newWidth;
        height = newHeight;
    }
    void NewImage(int newWidth, int newHeight) override
    {
        log.add(name + ".NewImage " + std::to_string(newWidth) + "x" + std::to_string(newHeight));
        failing.check("NewImage");
        picture = "blank";
        width = newWidth;
        height = newHeight;
        lines.clear();
        pens.clear();
    }
    void setPenColor(base::Colour colour) override
    {
        log.add(name + ".PenColor " + hex(colour));
        failing.check("PenColor");
        penColour = colour;
    }
    void setPenWidth(int pixels) override
    {
        log.add(name + ".PenWidth " + std::to_string(pixels));
        failing.check("PenWidth");
        penWidth = pixels;
    }
    void DrawSegment(int x1, int y1, int x2, int y2) override
    {
        failing.check("DrawSegment");
        lines.push_back(std::to_string(x1) + "," + std::to_string(y1) + " " + std::to_string(x2) + "," +
                        std::to_string(y2));
        pens.push_back(hex(penColour) + " " + std::to_string(penWidth));
    }

  private:
    static std::string hex(base::Colour colour)
    {
        char text[9];
        std::snprintf(text, sizeof text, "%06x", static_cast<unsigned>(colour));
        return text;
    }
};

} // namespace quillora::tests
