#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace quillora::tests {

/// What a player gets out of a media file: the luma of each frame, and the first channel of the sound.
struct DecodedMedia {
    struct Frame {
        int width = 0;
        int height = 0;
        double seconds = 0;
        /// Whether a player can start here.
        bool key = false;
        std::vector<std::uint8_t> luma{};
    };

    std::vector<Frame> frames{};
    std::vector<float> sound{};
    int soundRate = 0;
    /// Time of the first sample.
    double soundStart = 0;
    double declaredSeconds = 0;
    /// Places in the file at which a decoder complained.
    int errors = 0;

    double soundSeconds() const { return soundRate > 0 ? double(sound.size()) / soundRate : 0; }
};

/// Decodes @p path to its end. Throws std::runtime_error where it can't be opened at all.
DecodedMedia decodeMedia(const std::filesystem::path& path);

/// Peak signal-to-noise ratio of two planes in dB; 100 where they are the same.
double psnr(const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other);

} // namespace quillora::tests
