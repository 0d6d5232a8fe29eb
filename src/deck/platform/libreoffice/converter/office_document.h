#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace quillora::deck::libreoffice {

/// LibreOffice, loaded into this process; and the one document that it opens. Never torn down: its own way
/// out is slower than the end of the process, and no safer.
class Office {
  public:
    /// Throws std::runtime_error.
    Office(const std::filesystem::path& officeFolder, const std::filesystem::path& profile);
    ~Office();

    /// Opens @p deck and returns its number of slides, hidden ones too. Throws std::runtime_error when it is
    /// broken, encrypted, or another kind of document.
    int openPresentation(const std::filesystem::path& deck);
    /// Writes all slides, hidden ones too, as the pages of a PDF. Throws std::runtime_error.
    void printTo(const std::filesystem::path& pdf);

  private:
    struct Kit;
    std::unique_ptr<Kit> m_kit;
};

} // namespace quillora::deck::libreoffice
