#pragma once

#include "deck/platform/libreoffice/conversion_messages.h"
#include "deck/platform/libreoffice/painted_slots.h"

#include <condition_variable>
#include <deque>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace quillora::deck::libreoffice {

/// Paints slides on a few threads, each with the printed deck open for itself. Each request writes the slot
/// that it names; the recorder names no slot twice before it has its answer, so the threads never meet in
/// one.
class PaintingPool {
  public:
    /// @p answer is called on the pool's threads, one at a time.
    PaintingPool(std::filesystem::path pdf, const PaintedSlots& slots,
                 std::function<void(const Reply&)> answer);
    /// Waits for what is being painted; drops what is not begun.
    ~PaintingPool();
    PaintingPool(const PaintingPool&) = delete;
    PaintingPool& operator=(const PaintingPool&) = delete;

    void add(const PaintRequest& request);

  private:
    void work();
    bool takeRequest(PaintRequest& request);

    std::filesystem::path m_pdf;
    const PaintedSlots& m_slots;
    std::function<void(const Reply&)> m_answer;
    std::mutex m_answering{};
    /// Guards the two below.
    std::mutex m_mutex{};
    std::deque<PaintRequest> m_requests{};
    bool m_ending = false;
    std::condition_variable m_changed{};
    std::vector<std::thread> m_threads{};
};

} // namespace quillora::deck::libreoffice
