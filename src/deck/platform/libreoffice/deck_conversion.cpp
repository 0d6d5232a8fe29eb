#include "deck/platform/libreoffice/deck_conversion.h"

#include "deck/platform/libreoffice/converter_process.h"
#include "deck/platform/libreoffice/picture_files.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace quillora::deck::libreoffice {

namespace {

/// The size in which an import exports every slide after the series. These files are made along with the
/// series, while the process paints the next slide on the other core; made afterwards they would cost as much
/// again.
constexpr PictureSize kExpectedExport{560, 420};

template <typename Expected>
Expected expect(const Reply& reply)
{
    if (const Expected* expected = std::get_if<Expected>(&reply))
        return *expected;
    throw ProtocolError("the deck converter answers what was not asked");
}

} // namespace

/// A series under way.
struct DeckConversion::Series {
    std::filesystem::path folder;
    /// Which slide is being painted into each slot; 0: none.
    std::array<int, kSlots> slides{};
    int nextSlide = 1;
    int failures = 0;
    std::string firstFailure{};

    void fail(const std::string& why)
    {
        if (failures++ == 0)
            firstFailure = why;
    }
    bool isPainting() const
    {
        return std::any_of(slides.begin(), slides.end(), [](int slide) { return slide != 0; });
    }
    /// Frees the slot that @p slide was painted into.
    void take(int slide, int slot)
    {
        if (slot >= kSlots || slides[static_cast<std::size_t>(slot)] != slide)
            throw ProtocolError("the deck converter painted what was not asked");
        slides[static_cast<std::size_t>(slot)] = 0;
    }
};

DeckConversion::DeckConversion(std::unique_ptr<ConverterProcess> process,
                               std::chrono::milliseconds patienceForASlide)
    : m_process(std::move(process))
{
    m_process->send(OpenRequest{});
    const Reply reply = m_process->receive();
    if (std::holds_alternative<Refused>(reply))
        throw std::runtime_error("the deck is broken, encrypted, or no presentation");
    m_slideCount = expect<Opened>(reply).slides;
    m_process->addPatience(patienceForASlide * m_slideCount);
}

DeckConversion::~DeckConversion() = default;

void DeckConversion::saveSeries(const std::filesystem::path& folder)
{
    layOut();
    Series series{folder};
    const auto paintNext = [&](int slot) {
        if (series.nextSlide > m_slideCount)
            return;
        series.slides[static_cast<std::size_t>(slot)] = series.nextSlide;
        requestPainting(series.nextSlide++, slot);
    };
    for (int slot = 0; slot < kSlots; ++slot)
        paintNext(slot);
    while (series.isPainting()) {
        const Reply reply = m_process->receive();
        if (const Unpaintable* failed = std::get_if<Unpaintable>(&reply)) {
            series.take(failed->slide, failed->slot);
            series.fail("slide " + std::to_string(failed->slide) + " can't be painted");
            paintNext(failed->slot);
            continue;
        }
        const Painted painted = expect<Painted>(reply);
        series.take(painted.slide, painted.slot);
        const RgbPicture picture = rgbOf(m_process->slots().slot(painted.slot), m_size);
        paintNext(painted.slot);
        savePainted(painted.slide, picture, series);
    }
    if (series.failures > 0)
        throw std::runtime_error(series.firstFailure);
}

void DeckConversion::savePainted(int slide, const RgbPicture& picture, Series& series)
{
    try {
        m_expectedExports[slide] = jpegOf(stretched(picture, kExpectedExport));
        writeWhole(series.folder / ("Slide" + std::to_string(slide) + ".PNG"), pngOf(picture));
    } catch (const std::exception& failure) {
        series.fail(failure.what());
    }
}

void DeckConversion::exportSlide(int number, const std::filesystem::path& file, PictureSize size)
{
    const auto expected = m_expectedExports.find(number);
    if (size == kExpectedExport && expected != m_expectedExports.end())
        writeWhole(file, expected->second);
    else
        writeWhole(file, jpegOf(stretched(paintedAlone(number), size)));
}

void DeckConversion::layOut()
{
    if (m_size != PictureSize{})
        return;
    m_process->send(LayOutRequest{});
    const Reply reply = m_process->receive();
    if (std::holds_alternative<Refused>(reply))
        throw std::runtime_error("the deck can't be laid out");
    const LaidOut page = expect<LaidOut>(reply);
    const PictureSize size = seriesSize(page.width, page.height);
    m_process->slots().makeRoom(kSlots, static_cast<std::size_t>(size.width) *
                                            static_cast<std::size_t>(size.height) * kBytesPerPixel);
    m_size = size;
}

void DeckConversion::requestPainting(int slide, int slot)
{
    m_process->send(PaintRequest{slide, slot, m_size.width, m_size.height});
}

RgbPicture DeckConversion::paintedAlone(int slide)
{
    layOut();
    requestPainting(slide, 0);
    const Reply reply = m_process->receive();
    if (reply == Reply(Unpaintable{slide, 0}))
        throw std::runtime_error("slide " + std::to_string(slide) + " can't be painted");
    if (expect<Painted>(reply) != Painted{slide, 0})
        throw ProtocolError("the deck converter painted what was not asked");
    return rgbOf(m_process->slots().slot(0), m_size);
}

} // namespace quillora::deck::libreoffice
