#pragma once

namespace quillora::session {

/// Bringing in a deck, as the command asks for it.
class DeckOpening {
  public:
    virtual ~DeckOpening() = default;
    /// Asks for a deck and turns it into the slides on the stage. Never throws.
    virtual void openSlides() = 0;
};

/// What fills the stage, as the commands ask for it: they write the field first and call afterwards.
class StageMedia {
  public:
    virtual ~StageMedia() = default;
    /// Brings up the surface of `myMediaType`. Never throws.
    virtual void setMediaType() = 0;
};

/// How media and camera share the stage, likewise.
class StageMode {
  public:
    virtual ~StageMode() = default;
    /// Lays the stage out as `myWindowMode` says. Throws what a surface throws.
    virtual void setWindowMode() = 0;
};

} // namespace quillora::session
