#pragma once

#include "drawing/drawing_ports.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillora::tests {

/// Has every file but those that a test takes away.
class FakeDrawingAssets : public drawing::DrawingAssets {
  public:
    std::vector<std::string> missing{};
    std::vector<std::string> loaded{};
    drawing::RasterImage picture{2, 2, drawing::rgb(0, 255, 0)};

    void loadCursor(std::string_view fileName) override { load(fileName); }
    drawing::RasterImage loadPicture(std::string_view fileName) override
    {
        load(fileName);
        return picture;
    }

  private:
    void load(std::string_view fileName)
    {
        if (std::find(missing.begin(), missing.end(), fileName) != missing.end())
            throw std::runtime_error("no such file");
        loaded.emplace_back(fileName);
    }
};

class FakeDrawingFocus : public drawing::DrawingFocus {
  public:
    std::string focused = "nothing";

    void focusCanvas() override { focused = "canvas"; }
    void focusText() override { focused = "text"; }
};

/// Chooses a colour, or is cancelled and keeps the one it had.
class FakeColourDialog : public drawing::ColourDialog {
  public:
    std::optional<drawing::Colour> choice{};
    int shown = 0;

    void ShowColor() override
    {
        ++shown;
        Color = choice.value_or(Color);
    }
};

} // namespace quillora::tests
