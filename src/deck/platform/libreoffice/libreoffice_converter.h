#pragma once

#include "deck/platform/libreoffice/converter_launch.h"
#include "deck/presentation_application.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace quillora::deck::libreoffice {

class ConverterProcess;

/// How long the converter program may keep the presenter waiting for one deck, all its answers together; then
/// it is killed and the operation throws.
struct ConverterPatience {
    std::chrono::milliseconds forADeck = std::chrono::seconds(60);
    std::chrono::milliseconds forASlide = std::chrono::seconds(2);
};

/// What a LibreOfficeConverter needs to know of the machine.
struct LibreOfficeSetup {
    /// The program quillora-deck-converter.
    std::filesystem::path program;
    /// The folders in which LibreOffice's library is looked for.
    std::vector<std::filesystem::path> officeFolders;
    ConverterPatience patience{};
    /// The strongest to be tried. Where it does not let the program start, the program confines itself.
    Confinement confinement = strongestConfinement();
};

/// Decks by LibreOffice, in a child process for each deck: what a stranger's file can crash, hang or reach is
/// that process. Slides are painted by way of PDF, so they look as LibreOffice prints them, without the marks
/// of its editor. For one thread.
class LibreOfficeConverter final : public PresentationConverter {
  public:
    explicit LibreOfficeConverter(LibreOfficeSetup setup);
    ~LibreOfficeConverter() override;

    /// Starts the process for the next deck, which makes itself ready behind the presenter's choice.
    void prepare() noexcept override;

    /// Throws std::runtime_error where there is no LibreOffice or no converter program, or it does not start.
    std::unique_ptr<PresentationApplication> createApplication() override;

  private:
    friend class LibreOfficeApplication;
    std::unique_ptr<ConverterProcess> launch() const;
    /// A process that has said that it is ready.
    std::unique_ptr<ConverterProcess> readyProcess();

    LibreOfficeSetup m_setup;
    std::unique_ptr<ConverterProcess> m_prepared;
};

} // namespace quillora::deck::libreoffice
