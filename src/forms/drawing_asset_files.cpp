#include "forms/drawing_asset_files.h"

#include "forms/cursor_file.h"
#include "forms/picture_file.h"

#include <algorithm>
#include <utility>

namespace quillora::forms {

DrawingAssetFiles::DrawingAssetFiles(std::filesystem::path folder, int width, int height)
    : m_folder(std::move(folder)), m_width(width), m_height(height)
{}

void DrawingAssetFiles::loadCursor(std::string_view fileName)
{
    m_cursors.insert_or_assign(std::string(fileName), readCursor(m_folder / fileName));
}

drawing::RasterImage DrawingAssetFiles::loadPicture(std::string_view fileName)
{
    const QImage picture = readPicture(m_folder / fileName);
    drawing::RasterImage pixels(std::min(picture.width(), m_width), std::min(picture.height(), m_height));
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::transform(from, from + pixels.width(), pixels.row(y).begin(),
                       [](QRgb pixel) { return drawing::rgb(qRed(pixel), qGreen(pixel), qBlue(pixel)); });
    }
    return pixels;
}

} // namespace quillora::forms
