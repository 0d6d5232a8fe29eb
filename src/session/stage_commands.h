#pragma once

namespace quillora::session {

/// Bringing in a deck, as the command asks for it.
class DeckOpening {
  public:
    virtual ~DeckOpening() = default;
    /// Asks for a deck and turns it into the slides on the stage. Never throws.
    virtual void openSlides() = 0;
};

/// What fills the stage, as the commands ask for it.
class StageMedia {
  public:
    virtual ~StageMedia() = default;
    /// Brings up the surface of `myMediaType`. Never throws.
    virtual void setMediaType() = 0;
};

} // namespace quillora::session
