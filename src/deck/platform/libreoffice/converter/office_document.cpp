#include "deck/platform/libreoffice/converter/office_document.h"

// The number of slides and the type of a document are in the part of the interface that is called unstable;
// it has been the same since 2014.
#define LOK_USE_UNSTABLE_API
#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <LibreOfficeKit/LibreOfficeKitEnums.h>

#include <cctype>
#include <stdexcept>

namespace quillora::deck::libreoffice {

namespace {

/// Notes and bookmarks are nothing that a picture shows. Pictures in the slides are left as they come out by
/// default, so that the pages are those that a presenter gets by exporting the deck.
constexpr const char* kPrintOptions = R"({"ExportHiddenSlides":{"type":"boolean","value":"true"},)"
                                      R"("ExportNotes":{"type":"boolean","value":"false"},)"
                                      R"("ExportBookmarks":{"type":"boolean","value":"false"}})";

std::string fileUrl(const std::filesystem::path& path)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char letter : path.string()) {
        const unsigned char byte = static_cast<unsigned char>(letter);
        if (byte < 128 &&
            (std::isalnum(byte) != 0 || std::string_view("/-._~").find(letter) != std::string_view::npos))
            url += letter;
        else
            url = url + '%' + kDigits[byte >> 4] + kDigits[byte & 15];
    }
    return url;
}

} // namespace

struct Office::Kit {
    lok::Office* office = nullptr;
    lok::Document* document = nullptr;
};

Office::Office(const std::filesystem::path& officeFolder, const std::filesystem::path& profile)
    : m_kit(std::make_unique<Kit>())
{
    m_kit->office = lok::lok_cpp_init(officeFolder.c_str(), fileUrl(profile).c_str());
    if (m_kit->office == nullptr)
        throw std::runtime_error("LibreOffice does not start");
}

Office::~Office() = default;

int Office::openPresentation(const std::filesystem::path& deck)
{
    m_kit->document = m_kit->office->documentLoad(fileUrl(deck).c_str());
    if (m_kit->document == nullptr)
        throw std::runtime_error("LibreOffice can't open the deck");
    if (m_kit->document->getDocumentType() != LOK_DOCTYPE_PRESENTATION)
        throw std::runtime_error("the file is no presentation");
    return m_kit->document->getParts();
}

void Office::printTo(const std::filesystem::path& pdf)
{
    if (!m_kit->document->saveAs(fileUrl(pdf).c_str(), "pdf", kPrintOptions))
        throw std::runtime_error("LibreOffice can't print the deck");
}

} // namespace quillora::deck::libreoffice
