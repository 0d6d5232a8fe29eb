#pragma once

#include "drawing/raster_image.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillora::tests {

/// What a letter of a grid stands for.
using PixelKey = std::map<char, drawing::Colour>;

inline constexpr drawing::Colour kPaper = drawing::rgb(255, 255, 255);
inline constexpr drawing::Colour kInk = drawing::rgb(0, 0, 0);
inline constexpr drawing::Colour kPaint = drawing::rgb(255, 0, 0);

/// '.' for paper, '#' for the pen, 'o' for what is filled.
inline const PixelKey kPlainKey{{'.', kPaper}, {'#', kInk}, {'o', kPaint}};

/// A grid as it stands in a test, between R"( and )", without its indentation and outer blank lines, so that
/// it compares with what pixelGrid gives.
inline std::string expectedGrid(std::string_view text)
{
    std::istringstream lines{std::string(text)};
    std::string grid;
    for (std::string line; std::getline(lines, line);) {
        const auto first = line.find_first_not_of(" \t");
        if (first != std::string::npos)
            grid += line.substr(first, line.find_last_not_of(" \t") - first + 1) + "\n";
    }
    return "\n" + grid;
}

/// @p part of @p image in letters, a row a line; a colour that @p key does not know is '?', a place outside '
/// '.
inline std::string pixelGrid(const drawing::RasterImage& image, const base::PixelRectangle& part,
                             const PixelKey& key = kPlainKey)
{
    std::string grid = "\n";
    for (int y = part.top; y < part.bottom(); ++y) {
        for (int x = part.left; x < part.right(); ++x) {
            const auto known = std::find_if(key.begin(), key.end(), [&](const auto& entry) {
                return image.contains(x, y) && entry.second == image.at(x, y);
            });
            grid += known != key.end() ? known->first : image.contains(x, y) ? '?' : ' ';
        }
        grid += '\n';
    }
    return grid;
}

inline std::string pixelGrid(const drawing::RasterImage& image, const PixelKey& key = kPlainKey)
{
    return pixelGrid(image, image.bounds(), key);
}

/// The picture that a grid shows. Throws std::invalid_argument for a letter without a colour or for rows of
/// different lengths.
inline drawing::RasterImage pictureOf(std::string_view text, const PixelKey& key = kPlainKey)
{
    std::istringstream lines(expectedGrid(text).substr(1));
    std::vector<std::string> rows;
    for (std::string line; std::getline(lines, line);)
        rows.push_back(line);
    drawing::RasterImage image(rows.empty() ? 0 : static_cast<int>(rows[0].size()),
                               static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        if (rows[y].size() != rows[0].size())
            throw std::invalid_argument("the rows of a grid differ in length");
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            const auto known = key.find(rows[y][x]);
            if (known == key.end())
                throw std::invalid_argument(std::string("no colour for the letter ") + rows[y][x]);
            image.at(static_cast<int>(x), static_cast<int>(y)) = known->second;
        }
    }
    return image;
}

} // namespace quillora::tests
