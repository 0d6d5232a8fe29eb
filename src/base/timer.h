#pragma once

namespace quillora::base {

/// A repeating timer whose interval and tick handler were given to it where it was made. Ticks arrive on the
/// one thread of forms and logic, never inside enable() or disable().
class Timer {
  public:
    virtual ~Timer() = default;
    /// Starts ticking. A timer that is already enabled keeps its phase.
    virtual void enable() = 0;
    virtual void disable() = 0;
};

} // namespace quillora::base
