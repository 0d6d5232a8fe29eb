#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillora::deck::libreoffice {

/// Bytes of a pixel in a slot: blue, green, red, unused.
inline constexpr int kBytesPerPixel = 4;

/// Memory that the recorder and its converter share, cut into slots of one picture each. The recorder owns it
/// and fixes its size before the converter may use it: sealed, so that a converter gone wrong can't shrink it
/// under the recorder's reads. What stands in it is pixels and nothing else; any bytes are a picture.
class PaintedSlots {
  public:
    /// An empty area, to be inherited by the converter. Throws std::runtime_error.
    PaintedSlots();
    /// The area that was inherited as @p descriptor, which it does not own. Throws std::runtime_error.
    explicit PaintedSlots(int descriptor);
    ~PaintedSlots();
    PaintedSlots(const PaintedSlots&) = delete;
    PaintedSlots& operator=(const PaintedSlots&) = delete;

    int descriptor() const { return m_descriptor; }

    /// Recorder's side, once: makes room for @p count pictures of up to @p bytesEach.
    void makeRoom(int count, std::size_t bytesEach);
    /// Converter's side: maps what the recorder made room for; again is harmless. @p count as in makeRoom().
    void map(int count);

    /// Empty where the area was not mapped or holds no such slot.
    std::span<std::uint8_t> slot(int number) const;

  private:
    void mapBytes(std::size_t size, int count);

    int m_descriptor;
    bool m_owned;
    std::uint8_t* m_bytes = nullptr;
    std::size_t m_size = 0;
    std::size_t m_slotSize = 0;
};

} // namespace quillora::deck::libreoffice
