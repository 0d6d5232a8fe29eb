#include "deck/platform/libreoffice/converter/painting_pool.h"

#include "deck/platform/libreoffice/converter/page_painter.h"

#include <algorithm>
#include <optional>

namespace quillora::deck::libreoffice {

namespace {

/// More would only raise the memory that is needed: with two, the recorder's compressing keeps pace.
constexpr unsigned kMostThreads = 3;

Reply paint(std::optional<PagePainter>& painter, const std::filesystem::path& pdf, const PaintedSlots& slots,
            const PaintRequest& request)
{
    try {
        if (!painter)
            painter.emplace(pdf);
        painter->paint(request.slide, {request.width, request.height}, slots.slot(request.slot));
        return Painted{request.slide, request.slot};
    } catch (const std::exception&) {
        return Unpaintable{request.slide, request.slot};
    }
}

} // namespace

PaintingPool::PaintingPool(std::filesystem::path pdf, const PaintedSlots& slots,
                           std::function<void(const Reply&)> answer)
    : m_pdf(std::move(pdf)), m_slots(slots), m_answer(std::move(answer))
{
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
    for (unsigned i = 0; i < count; ++i)
        m_threads.emplace_back([this] { work(); });
}

PaintingPool::~PaintingPool()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void PaintingPool::add(const PaintRequest& request)
{
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(request);
    }
    m_changed.notify_one();
}

void PaintingPool::work()
{
    std::optional<PagePainter> painter;
    PaintRequest request;
    while (takeRequest(request)) {
        const Reply reply = paint(painter, m_pdf, m_slots, request);
        const std::lock_guard lock(m_answering);
        m_answer(reply);
    }
}

bool PaintingPool::takeRequest(PaintRequest& request)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_ending || !m_requests.empty(); });
    if (m_ending)
        return false;
    request = m_requests.front();
    m_requests.pop_front();
    return true;
}

} // namespace quillora::deck::libreoffice
