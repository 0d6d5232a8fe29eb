#pragma once

#include "messages/window_procedure.h"

#include <memory>

namespace quillora::messages {

/// The windows that a hook can be set on.
class Windows {
  public:
    virtual ~Windows() = default;

    virtual bool isWindow(WindowHandle window) const = 0;
    virtual bool belongsToThisProcess(WindowHandle window) const = 0;
    /// Puts @p procedure in the place of the window's own and gives the one that stood there. Nothing, with
    /// the system's last error set, when that can't be done. The window keeps its procedure alive.
    virtual std::shared_ptr<WindowProcedure>
    exchangeProcedure(WindowHandle window, std::shared_ptr<WindowProcedure> procedure) = 0;
};

} // namespace quillora::messages
