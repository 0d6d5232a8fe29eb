#include "drawing/palette_table.h"

namespace quillora::drawing {

const std::array<ColourCell, kColourCells> kColourPalette{{
    {rgb(0, 0, 0), {360, 240}, true},        {kWhite, {720, 720}, true},
    {rgb(128, 128, 128), {360, 720}, true},  {rgb(192, 192, 192), {1560, 720}, true},
    {rgb(128, 0, 0), {1800, 1200}, true},    {rgb(255, 0, 0), {1320, 240}, true},
    {rgb(128, 128, 0), {2040, 1080}, true},  {rgb(255, 255, 0), {1560, 960}, true},
    {rgb(0, 128, 0), {600, 960}, true},      {rgb(0, 192, 0), {1000, 240}, true},
    {rgb(0, 128, 128), {840, 840}, true},    {rgb(0, 255, 255), {1080, 840}, true},
    {rgb(0, 0, 128), {1320, 1080}, true},    {rgb(0, 0, 192), {680, 240}, true},
    {rgb(128, 0, 128), {1800, 840}, true},   {rgb(255, 0, 255), {1560, 1080}, true},
    {rgb(64, 64, 0), {2280, 1920}, true},    {rgb(255, 255, 192), {2040, 1080}, true},
    {rgb(0, 64, 0), {960, 1080}, true},      {rgb(128, 255, 128), {1320, 840}, true},
    {rgb(128, 128, 255), {1920, 840}, true}, {rgb(192, 255, 255), {1560, 2880}, false},
    {rgb(64, 0, 64), {120, 3480}, true},     {rgb(255, 128, 255), {360, 3480}, true},
    {rgb(128, 64, 0), {120, 3720}, true},    {rgb(255, 128, 0), {360, 3720}, true},
}};

} // namespace quillora::drawing
