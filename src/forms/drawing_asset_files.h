#pragma once

#include "drawing/drawing_assets.h"

#include <QCursor>

#include <filesystem>
#include <map>
#include <string>

namespace quillora::forms {

/// The drawing board's cursors and sheets, from a folder. A file is read each time that it is asked for, so
/// that one that came or went since counts as it is.
class DrawingAssetFiles : public drawing::DrawingAssets {
  public:
    /// Pictures are cut to @p width by @p height pixels, which is all that a canvas of that size can show.
    DrawingAssetFiles(std::filesystem::path folder, int width, int height);

    void loadCursor(std::string_view fileName) override;
    drawing::RasterImage loadPicture(std::string_view fileName) override;

    /// A cursor that was loaded. Throws std::out_of_range for any other.
    const QCursor& cursor(const std::string& fileName) const { return m_cursors.at(fileName); }

  private:
    std::filesystem::path m_folder;
    int m_width;
    int m_height;
    std::map<std::string, QCursor> m_cursors;
};

} // namespace quillora::forms
