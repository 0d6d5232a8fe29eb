#pragma once

#include "capture/capture_engine.h"

#include <memory>

namespace quillora::session {

/// The field `captureEngine`: the one engine that all recordings are made with. It is made at first use and
/// kept for the life of the process, whatever becomes of the form whose field it is.
class CaptureEngineField {
  public:
    /// @p engines must outlive this object.
    explicit CaptureEngineField(capture::CaptureEngineFactory& engines) : m_engines(engines) {}

    /// Throws what the factory throws; the next use then tries again.
    capture::CaptureEngine& get()
    {
        if (!m_engine)
            m_engine = m_engines.create();
        return *m_engine;
    }

  private:
    capture::CaptureEngineFactory& m_engines;
    std::unique_ptr<capture::CaptureEngine> m_engine{};
};

} // namespace quillora::session
