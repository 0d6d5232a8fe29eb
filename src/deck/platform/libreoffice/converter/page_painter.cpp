#include "deck/platform/libreoffice/converter/page_painter.h"

#include "base/rounding.h"
#include "deck/platform/libreoffice/painted_slots.h"

#include <poppler/cpp/poppler-document.h>
#include <poppler/cpp/poppler-page-renderer.h>
#include <poppler/cpp/poppler-page.h>

#include <cstring>
#include <stdexcept>

namespace quillora::deck::libreoffice {

namespace {

std::unique_ptr<poppler::page> pageOf(const poppler::document& document, int number)
{
    std::unique_ptr<poppler::page> page(document.create_page(number - 1));
    if (page == nullptr)
        throw std::runtime_error("the deck has no such page");
    return page;
}

} // namespace

PagePainter::PagePainter(const std::filesystem::path& pdf)
    : m_document(poppler::document::load_from_file(pdf.string()))
{
    if (m_document == nullptr || m_document->pages() < 1)
        throw std::runtime_error("the printed deck can't be read");
}

PagePainter::~PagePainter() = default;

int PagePainter::pageCount() const { return m_document->pages(); }

PictureSize PagePainter::pageSize() const
{
    const poppler::rectf rectangle = pageOf(*m_document, 1)->page_rect();
    return {base::roundToInt(rectangle.width() * 100), base::roundToInt(rectangle.height() * 100)};
}

void PagePainter::paint(int number, PictureSize size, std::span<std::uint8_t> slot) const
{
    constexpr double kPointsPerInch = 72;
    const std::unique_ptr<poppler::page> page = pageOf(*m_document, number);
    const poppler::rectf rectangle = page->page_rect();
    poppler::page_renderer renderer;
    renderer.set_render_hint(poppler::page_renderer::antialiasing);
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    renderer.set_image_format(poppler::image::format_argb32);
    const poppler::image image = renderer.render_page(
        page.get(), kPointsPerInch * size.width / rectangle.width(),
        kPointsPerInch * size.height / rectangle.height(), 0, 0, size.width, size.height);
    const std::size_t bytesPerRow = static_cast<std::size_t>(size.width) * kBytesPerPixel;
    if (!image.is_valid() || image.width() != size.width || image.height() != size.height ||
        slot.size() < bytesPerRow * static_cast<std::size_t>(size.height))
        throw std::runtime_error("the page can't be painted");
    for (int y = 0; y < size.height; ++y)
        std::memcpy(slot.data() + static_cast<std::size_t>(y) * bytesPerRow,
                    image.const_data() + static_cast<std::ptrdiff_t>(y) * image.bytes_per_row(), bytesPerRow);
}

} // namespace quillora::deck::libreoffice
