#pragma once

namespace quillora::deck::libreoffice {

/// In pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
    bool operator==(const PictureSize&) const = default;
};

/// The size of the PNG series for a page of these lengths, in any unit: 1280 wide in the page's own ratio,
/// which is sharper than the stage and still quick to load. A page so tall that this would pass 5120 pixels
/// is as much narrower.
PictureSize seriesSize(int pageWidth, int pageHeight);

} // namespace quillora::deck::libreoffice
