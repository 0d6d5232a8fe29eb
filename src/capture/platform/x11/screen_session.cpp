#include "capture/platform/x11/screen_session.h"

#include "capture/image_difference.h"

#include <xcb/randr.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace quillora::capture {
namespace {

/// More than any screen has; a region beyond it is somebody's mistake, and its image would fill the memory.
constexpr std::int64_t kMostPixels = 64 * 1024 * 1024;

PixelPoint origin(const PixelRectangle& rectangle) { return {rectangle.left, rectangle.top}; }

PixelRectangle sizeOf(const PixelRectangle& rectangle) { return {0, 0, rectangle.width, rectangle.height}; }

std::uint8_t* rowAt(std::uint8_t* pixels, int width, const PixelRectangle& area, int row)
{
    return pixels + 4 * (static_cast<std::size_t>(area.top + row) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(area.left));
}

/// Copies what @p pixels, in rows of @p width, show in @p area.
void takeFrom(std::uint8_t* pixels, int width, const PixelRectangle& area, ScreenImage& part)
{
    part.resize(area.width, area.height);
    for (int row = 0; row < area.height; ++row)
        std::memcpy(rowAt(part.pixels.data(), area.width, sizeOf(area), row), rowAt(pixels, width, area, row),
                    4 * static_cast<std::size_t>(area.width));
}

void putInto(std::uint8_t* pixels, int width, const PixelRectangle& area, ScreenImage& part)
{
    for (int row = 0; row < area.height; ++row)
        std::memcpy(rowAt(pixels, width, area, row), rowAt(part.pixels.data(), area.width, sizeOf(area), row),
                    4 * static_cast<std::size_t>(area.width));
}

/// Without this a region without area would have many shapes, and none of them an image.
PixelRectangle usable(const PixelRectangle& region)
{
    if (region.empty())
        return {};
    if (std::int64_t{region.width} * region.height > kMostPixels)
        throw std::runtime_error("the region is too large to be captured");
    return region;
}

} // namespace

ScreenSession::ScreenSession(const std::optional<std::string>& displayName, Clock::time_point since)
    : m_connection(displayName, since)
{
    if (m_connection.extensions().randr)
        xcb_randr_select_input(m_connection.get(), m_connection.root(), XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE);
}

ScreenSource::Grab ScreenSession::grab(const PixelRectangle& asked, const PointerDrawing& drawing)
{
    const PixelRectangle region = usable(asked);
    bool whole = !m_imageValid || region != m_region;
    if (!whole)
        uncover();
    m_imageValid = false;
    m_region = region;
    PointerView pointer = lookAtPointer(drawing);
    const PixelRectangle changed = updatePicture(whole);
    pointer.area = pointerArea(pointer);

    // From here on nothing asks the server, so nothing fails half-way through the image.
    if (!handsOutPicture()) {
        if (whole) {
            m_composed.resize(region.width, region.height);
            std::fill(m_composed.pixels.begin(), m_composed.pixels.end(), std::uint8_t{0});
        }
        composeImage(changed);
    }
    const PointerView before = std::exchange(m_shownPointer, pointer);
    paintPointer(pointer);
    m_imageValid = true;

    const ScreenImageView image{region.width, region.height, imagePixels()};
    if (whole)
        return {sizeOf(region), image};
    const bool pointerChanged = pointer.newCursor || pointer.drawing != before.drawing ||
                                pointer.position != before.position || pointer.area != before.area;
    return {pointerChanged ? boundingBox(changed, boundingBox(before.area, pointer.area)) : changed, image};
}

PixelRectangle ScreenSession::screen()
{
    handleEvents();
    updateScreenSize();
    return m_screen;
}

PixelPoint ScreenSession::pointer()
{
    const std::optional<PixelPoint> position = m_pointer.position();
    if (!position)
        throw std::runtime_error("the pointer is on another screen");
    return *position;
}

void ScreenSession::handleEvents()
{
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        m_damage.handleEvent(*event);
        m_pointer.handleEvent(*event);
        const auto firstOfRandr = m_connection.extensions().randr;
        if (firstOfRandr && (event->response_type & 0x7f) == *firstOfRandr + XCB_RANDR_SCREEN_CHANGE_NOTIFY)
            m_screenSizeKnown = false;
    }
    m_connection.check();
}

void ScreenSession::updateScreenSize()
{
    if (m_screenSizeKnown)
        return;
    // The event's own size is that of the unrotated screen.
    const auto request = xcb_get_geometry(m_connection.get(), m_connection.root());
    const auto reply = m_connection.expect(xcb_get_geometry_reply(m_connection.get(), request, nullptr));
    m_screen = {0, 0, reply->width, reply->height};
    m_screenSizeKnown = true;
}

ScreenSession::PointerView ScreenSession::lookAtPointer(const PointerDrawing& drawing)
{
    PointerView pointer{drawing};
    if (drawing.cursor || drawing.highlight)
        pointer.position = m_pointer.position();
    // After the answer to the question above, so that what the server told before it is known too.
    handleEvents();
    if (pointer.position)
        *pointer.position = {pointer.position->x - m_region.left, pointer.position->y - m_region.top};
    if (drawing.cursor) {
        pointer.newCursor = m_pointer.imageChanged();
        m_pointer.image();
    }
    return pointer;
}

/// Brings the picture up to date and returns what changed of it, in pixels of the image. Sets @p whole when
/// the picture has to be shown anew from its beginning.
PixelRectangle ScreenSession::updatePicture(bool& whole)
{
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        updateScreenSize();
        whole = useScreenPart(intersection(m_region, m_screen)) || whole;
        const PixelRectangle damaged = intersection(m_damage.take(), m_visible);
        const bool full = whole || !m_damage.trusted() || Clock::now() - m_lastFullRead >= kSafetyPeriod;
        const PixelRectangle part = full ? m_visible : damaged;
        if (part.empty())
            return {};
        const bool compared = whole || !changesAllTheTime() || damaged != m_visible;
        if (m_reader.read(part, compared ? *m_fresh : *m_picture) == ScreenReader::Outcome::offScreen) {
            m_screenSizeKnown = false;
            whole = true;
            continue;
        }
        if (full)
            m_lastFullRead = Clock::now();
        if (whole) {
            m_wholeChanges = 0;
            std::swap(m_picture, m_fresh);
            return visibleInImage();
        }
        const PixelRectangle changed = compared ? compareAndKeep(part) : part;
        m_wholeChanges = changed == m_visible ? m_wholeChanges + 1 : 0;
        handleEvents();
        if (!changed.empty() && damaged.empty() && intersection(m_damage.pending(), m_visible).empty())
            m_damage.countMiss();
        return relativeTo(origin(m_region), changed);
    }
    throw std::runtime_error("the screen keeps changing its size");
}

/// Whether so much has changed, so often in a row, that it needn't be looked for: then one picture is enough,
/// and the server writes where it has written before. Every so often it is looked for all the same.
bool ScreenSession::changesAllTheTime() const
{
    return m_wholeChanges >= kMotionFrames && m_wholeChanges % kMotionFrames != 0;
}

/// Makes room for the picture of another part of the screen; false when it is the same part.
bool ScreenSession::useScreenPart(const PixelRectangle& visible)
{
    if (visible == m_visible)
        return false;
    m_visible = {};
    if (!visible.empty()) {
        m_reader.makeRoom(m_picture, visible.width, visible.height);
        m_reader.makeRoom(m_fresh, visible.width, visible.height);
    }
    m_visible = visible;
    return true;
}

/// Takes what was read of @p part of the screen into the picture; returns what of it is new, in screen
/// pixels.
PixelRectangle ScreenSession::compareAndKeep(const PixelRectangle& part)
{
    const PixelLayout& layout = m_connection.layout();
    const auto pixelBytes = static_cast<std::size_t>(layout.bytesPerPixel());
    const std::size_t pictureStride = layout.rowBytes(m_visible.width);
    const std::size_t freshStride = layout.rowBytes(part.width);
    const PixelRectangle inPicture = relativeTo(origin(m_visible), part);
    std::uint8_t* kept = m_picture->data() + static_cast<std::size_t>(inPicture.top) * pictureStride +
                         static_cast<std::size_t>(inPicture.left) * pixelBytes;
    const PixelRectangle changed = changedPart({kept, pictureStride}, {m_fresh->data(), freshStride},
                                               part.width, part.height, layout.bytesPerPixel());
    if (changed.empty())
        return {};
    if (part == m_visible) {
        std::swap(m_picture, m_fresh);
    } else {
        const std::size_t skipped = static_cast<std::size_t>(changed.left) * pixelBytes;
        for (auto row = static_cast<std::size_t>(changed.top);
             row < static_cast<std::size_t>(changed.bottom()); ++row)
            std::memcpy(kept + row * pictureStride + skipped, m_fresh->data() + row * freshStride + skipped,
                        static_cast<std::size_t>(changed.width) * pixelBytes);
    }
    return {part.left + changed.left, part.top + changed.top, changed.width, changed.height};
}

PixelRectangle ScreenSession::visibleInImage() const
{
    return m_visible.empty() ? PixelRectangle{} : relativeTo(origin(m_region), m_visible);
}

PixelRectangle ScreenSession::pointerArea(const PointerView& pointer)
{
    if (!pointer.position)
        return {};
    PixelRectangle area;
    if (pointer.drawing.highlight)
        area = highlightArea(*pointer.position, pointer.drawing.highlightSize);
    if (pointer.drawing.cursor)
        area = boundingBox(area, cursorArea(m_pointer.image(), *pointer.position));
    // What is off the screen stays black, under the highlight too.
    return intersection(area, visibleInImage());
}

/// Whether the image is the picture itself.
bool ScreenSession::handsOutPicture() const
{
    const PixelLayout& layout = m_connection.layout();
    return m_visible == m_region && layout.kind == PixelLayout::Kind::bgrx &&
           layout.rowBytes(m_region.width) == 4 * static_cast<std::size_t>(m_region.width);
}

std::uint8_t* ScreenSession::imagePixels()
{
    return handsOutPicture() && m_picture ? m_picture->data() : m_composed.pixels.data();
}

void ScreenSession::composeImage(const PixelRectangle& area)
{
    if (area.empty())
        return;
    const PixelLayout& layout = m_connection.layout();
    const PixelRectangle visible = visibleInImage();
    const PixelRectangle part = intersection(area, visible);
    const PixelRectangle from = relativeTo(origin(visible), part);
    const std::size_t stride = layout.rowBytes(m_visible.width);
    for (int row = 0; row < part.height; ++row) {
        const std::size_t target =
            static_cast<std::size_t>(part.top + row) * static_cast<std::size_t>(m_composed.width) +
            static_cast<std::size_t>(part.left);
        layout.convert(m_picture->data() + static_cast<std::size_t>(from.top + row) * stride +
                           static_cast<std::size_t>(from.left * layout.bytesPerPixel()),
                       m_composed.pixels.data() + 4 * target, part.width);
    }
}

/// Takes the pointer away.
void ScreenSession::uncover()
{
    if (!m_shownPointer.area.empty())
        putInto(imagePixels(), m_region.width, m_shownPointer.area, m_covered);
}

void ScreenSession::paintPointer(const PointerView& pointer)
{
    const PixelRectangle& area = pointer.area;
    if (area.empty())
        return;
    takeFrom(imagePixels(), m_region.width, area, m_covered);
    ScreenImage painted = m_covered;
    const PixelPoint position{pointer.position->x - area.left, pointer.position->y - area.top};
    if (pointer.drawing.highlight)
        paintHighlight(painted, sizeOf(area), position, pointer.drawing.highlightSize);
    if (pointer.drawing.cursor)
        paintCursor(painted, sizeOf(area), m_pointer.image(), position);
    putInto(imagePixels(), m_region.width, area, painted);
}

} // namespace quillora::capture
