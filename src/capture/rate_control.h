#pragma once

#include <cstdint>
#include <optional>

namespace quillora::capture {

/// Decides how finely each frame is quantised, so that a slide stands sharp at once and the average over the
/// recording still keeps to the bitrate.
///
/// It is a token bucket. A frame's share of the bitrate comes in with every frame; what stillness saves is
/// kept, up to some seconds' worth, and a picture that changes after stillness may spend all of it and a
/// little more (a debt that the next seconds pay). Where pictures go on changing, the savings are spread over
/// seconds instead, and frames get coarser until they fit. Arithmetic only; used from one thread.
class RateControl {
  public:
    /// The finest quantisers. The codec's coefficients end at 255 steps: a black stroke on white ground fits
    /// in there from 2 on, the difference between white and black from 4 on; finer, sharp edges would break.
    /// The errors that are left in an unchanged picture are small and always fit. @{
    static constexpr int kFinestForKeyFrame = 2;
    static constexpr int kFinestForChange = 4;
    static constexpr int kFinestForStill = 1;
    /// Of a film nobody sees what is finer (39 dB on average), and encoding it takes a sixth more time; what
    /// is saved pays for the next cut.
    static constexpr int kFinestForMotion = 10;
    /// @}
    static constexpr int kCoarsest = 31;

    RateControl(double bitsPerSecond, double framesPerSecond, std::int64_t pixels);

    /// The quantiser for a picture of which @p changedPixels have changed since the last one that was
    /// encoded. Nothing when not even the coarsest fits: then the frame before is to be repeated. @{
    std::optional<int> forChange(std::int64_t changedPixels) const
    {
        return fitting(changedPixels, kFinestForChange);
    }
    std::optional<int> forKeyFrame() const { return fitting(std::int64_t(m_pixels), kFinestForKeyFrame); }
    /// @}
    /// Whether pictures change as wholes one after the other, as those of a film do.
    bool inMotion() const { return m_motion > 2; }
    /// The quantiser for encoding the unchanged picture once more, finer. Nothing when that would not improve
    /// it, or can't be afforded yet.
    std::optional<int> forStill() const;
    /// Whether a key frame of the unchanged picture could be afforded at its finest.
    bool affordsKeyFrame() const;

    /// To be told of each frame, in order, with the bits that it took. @{
    void encodedChange(std::int64_t bits, int quantiser, std::int64_t changedPixels);
    void encodedStill(std::int64_t bits, int quantiser);
    void repeated(std::int64_t bits);
    /// The frame before was repeated although the picture had changed.
    void leftOut(std::int64_t bits, std::int64_t changedPixels);
    /// @}

    /// Bits saved up, or owed where negative.
    double savings() const { return m_savings; }

  private:
    std::optional<int> fitting(std::int64_t changedPixels, int finest) const;
    void pass(std::int64_t bits, double changedShare);
    double work(std::int64_t changedPixels, int quantiser) const;
    void learn(std::int64_t bits, double work);

    double m_bitsPerFrame;
    double m_framesPerSecond;
    double m_pixels;

    double m_savings = 0;
    /// How many whole pictures changed within about the last second.
    double m_motion = 0;
    /// Bits for one pixel at quantiser 1, as the last frames had it.
    double m_density;
    /// Quantiser of the coarsest part of what is shown.
    int m_shownQuantiser = kCoarsest;
    int m_refinements = 0;
};

} // namespace quillora::capture
