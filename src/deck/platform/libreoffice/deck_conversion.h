#pragma once

#include "deck/platform/libreoffice/conversion_messages.h"
#include "deck/platform/libreoffice/picture_size.h"
#include "deck/platform/libreoffice/rgb_picture.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <vector>

namespace quillora::deck::libreoffice {

class ConverterProcess;

/// One deck in one converter process: the recorder's half of the work. The process paints, this writes; so
/// the process needs no way to any folder of the presenter's, and compressing one slide goes on while the
/// next ones are painted.
class DeckConversion {
  public:
    /// Opens the deck that was copied into the folder of @p process, which must be ready. @p
    /// patienceForASlide is added once the number of slides is known. Throws std::runtime_error where it is
    /// not a sound presentation.
    DeckConversion(std::unique_ptr<ConverterProcess> process, std::chrono::milliseconds patienceForASlide);
    ~DeckConversion();

    int slideCount() const { return m_slideCount; }

    /// Writes "Slide<n>.PNG" for all n. A slide that fails does not keep the others from being written; it
    /// throws std::runtime_error at the end.
    void saveSeries(const std::filesystem::path& folder);
    /// Throws std::runtime_error.
    void exportSlide(int number, const std::filesystem::path& file, PictureSize size);

  private:
    struct Series;

    void layOut();
    void requestPainting(int slide, int slot);
    void savePainted(int slide, const RgbPicture& picture, Series& series);
    RgbPicture paintedAlone(int slide);

    std::unique_ptr<ConverterProcess> m_process;
    int m_slideCount = 0;
    /// Of the painted pictures; none before layOut().
    PictureSize m_size{};
    /// Files of the exports that are expected after a series, by slide.
    std::map<int, std::vector<std::uint8_t>> m_expectedExports{};
};

} // namespace quillora::deck::libreoffice
