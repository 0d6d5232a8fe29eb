#include "deck/platform/libreoffice/libreoffice_converter.h"

#include "deck/platform/libreoffice/converter_process.h"
#include "deck/platform/libreoffice/deck_conversion.h"
#include "deck/platform/libreoffice/deck_signature.h"
#include "deck/platform/libreoffice/office_location.h"

#include <array>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace quillora::deck::libreoffice {

namespace {

/// A copy under a plain name: what a path may hold, LibreOffice's addresses may not, and the sandbox needs to
/// show the program one file only.
void copyDeck(const std::filesystem::path& deck, const std::filesystem::path& copy)
{
    // A pipe or a device would be read for ever.
    if (!std::filesystem::is_regular_file(deck))
        throw std::runtime_error("there is no deck at " + deck.string());
    std::ifstream stream(deck, std::ios::binary);
    std::array<char, kSignatureLength> beginning{};
    stream.read(beginning.data(), beginning.size());
    if (!deckSignature({beginning.data(), static_cast<std::size_t>(stream.gcount())}))
        throw std::runtime_error("this is not a deck: " + deck.string());
    std::filesystem::copy_file(deck, copy);
}

class LibreOfficeSlide final : public Slide {
  public:
    LibreOfficeSlide(std::shared_ptr<DeckConversion> conversion, int number)
        : m_conversion(std::move(conversion)), m_number(number)
    {}
    void Export(const std::filesystem::path& fileName, std::string_view filterName, int scaleWidth,
                int scaleHeight) override
    {
        if (filterName != "jpg")
            throw std::runtime_error("slides are exported as jpg only");
        m_conversion->exportSlide(m_number, fileName, {scaleWidth, scaleHeight});
    }

  private:
    std::shared_ptr<DeckConversion> m_conversion;
    int m_number;
};

class LibreOfficePresentation final : public Presentation {
  public:
    explicit LibreOfficePresentation(std::shared_ptr<DeckConversion> conversion)
        : m_conversion(std::move(conversion))
    {}
    int slideCount() override { return m_conversion->slideCount(); }
    std::unique_ptr<Slide> slide(int number) override
    {
        if (number < 1 || number > m_conversion->slideCount())
            throw std::runtime_error("the deck has no slide " + std::to_string(number));
        return std::make_unique<LibreOfficeSlide>(m_conversion, number);
    }
    // Pictures carry no fonts, whatever is asked.
    void SaveAs(const std::filesystem::path& folder, SaveAsFormat, EmbedTrueTypeFonts) override
    {
        m_conversion->saveSeries(folder);
    }

  private:
    std::shared_ptr<DeckConversion> m_conversion;
};

} // namespace

/// Holds a process that is ready until a deck is opened in it.
class LibreOfficeApplication final : public PresentationApplication {
  public:
    explicit LibreOfficeApplication(LibreOfficeConverter& converter)
        : m_converter(converter), m_process(converter.readyProcess())
    {}

    // The converter works on a copy and has no window, so every deck is opened read-only, untitled and
    // unseen.
    std::unique_ptr<Presentation> Open(const std::filesystem::path& fileName, ReadOnly, Untitled,
                                       WithWindow) override
    {
        // A process that has seen a deck is not used for another.
        std::unique_ptr<ConverterProcess> process = std::exchange(m_process, nullptr);
        if (process == nullptr)
            process = m_converter.readyProcess();
        copyDeck(fileName, process->folder() / kDeckName);
        return std::make_unique<LibreOfficePresentation>(
            std::make_shared<DeckConversion>(std::move(process), m_converter.m_setup.patience.forASlide));
    }

  private:
    LibreOfficeConverter& m_converter;
    std::unique_ptr<ConverterProcess> m_process;
};

LibreOfficeConverter::LibreOfficeConverter(LibreOfficeSetup setup) : m_setup(std::move(setup)) {}

LibreOfficeConverter::~LibreOfficeConverter() = default;

void LibreOfficeConverter::prepare() noexcept
{
    try {
        if (m_prepared == nullptr)
            m_prepared = launch();
    } catch (const std::exception&) {
        m_prepared = nullptr;
    }
}

std::unique_ptr<PresentationApplication> LibreOfficeConverter::createApplication()
{
    return std::make_unique<LibreOfficeApplication>(*this);
}

std::unique_ptr<ConverterProcess> LibreOfficeConverter::launch() const
{
    const std::optional<std::filesystem::path> office = officeFolder(m_setup.officeFolders);
    if (!office)
        throw std::runtime_error("LibreOffice is not installed");
    return std::make_unique<ConverterProcess>(m_setup.confinement, m_setup.program, *office);
}

std::unique_ptr<ConverterProcess> LibreOfficeConverter::readyProcess()
{
    std::unique_ptr<ConverterProcess> process = std::exchange(m_prepared, nullptr);
    while (true) {
        if (process == nullptr)
            process = launch();
        process->setPatience(m_setup.patience.forADeck);
        try {
            if (process->receive() == Reply(Ready{}))
                return process;
            throw ProtocolError("the deck converter speaks before it is ready");
        } catch (const std::exception&) {
            // No deck has been near the process yet, so this is the system's doing: bubblewrap may be
            // installed and yet be forbidden to make namespaces. Remembered, so that the next deck is not
            // delayed by it.
            if (m_setup.confinement == Confinement::programOnly)
                throw;
            m_setup.confinement = Confinement::programOnly;
            process = nullptr;
        }
    }
}

} // namespace quillora::deck::libreoffice
