#pragma once

#include "deck/platform/libreoffice/picture_size.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace poppler {
class document;
}

namespace quillora::deck::libreoffice {

/// Paints the pages of one PDF. For one thread; several painters of one file may work side by side.
class PagePainter {
  public:
    /// Throws std::runtime_error.
    explicit PagePainter(const std::filesystem::path& pdf);
    ~PagePainter();

    int pageCount() const;
    /// Of the first page, in hundredths of a point.
    PictureSize pageSize() const;
    /// Paints page @p number, from 1, stretched to @p size, in four bytes a pixel. Throws std::runtime_error.
    void paint(int number, PictureSize size, std::span<std::uint8_t> slot) const;

  private:
    std::unique_ptr<poppler::document> m_document;
};

} // namespace quillora::deck::libreoffice
