// quillora-deck-converter OFFICE_FOLDER JOB_FOLDER WATCHED: opens the deck in JOB_FOLDER with LibreOffice and
// paints its slides into memory that it shares with the recorder, as the recorder asks over a socket. Started
// by the recorder only; ends with it.

#include "deck/platform/libreoffice/conversion_messages.h"
#include "deck/platform/libreoffice/converter/confinement.h"
#include "deck/platform/libreoffice/converter/office_document.h"
#include "deck/platform/libreoffice/converter/page_painter.h"
#include "deck/platform/libreoffice/converter/painting_pool.h"
#include "deck/platform/libreoffice/converter/slide_list.h"
#include "deck/platform/libreoffice/converter_launch.h"
#include "deck/platform/libreoffice/painted_slots.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <thread>

namespace {

using namespace quillora::deck::libreoffice;

constexpr const char* kPdfName = "slides.pdf";

void say(const Reply& reply)
{
    const std::string line = lineOf(reply);
    if (::send(kSocketDescriptor, line.data(), line.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(line.size()))
        std::_Exit(EXIT_FAILURE);
}

/// The next request; none when the recorder is gone.
std::optional<Request> nextRequest(LineCutter& lines)
{
    while (true) {
        if (const std::optional<std::string> line = lines.next())
            return parseRequest(*line);
        std::array<char, 512> bytes{};
        const ssize_t count = ::read(kSocketDescriptor, bytes.data(), bytes.size());
        if (count <= 0)
            return std::nullopt;
        lines.add({bytes.data(), static_cast<std::size_t>(count)});
    }
}

/// Ends this process as soon as the recorder is gone, whatever LibreOffice is doing. The signal that the
/// system sends at a parent's death is not enough: a recorder that is killed while bubblewrap is still
/// starting has no child yet that asked for it, and LibreOffice never looks at the socket.
void endWithTheRecorder()
{
    std::thread([] {
        pollfd socket{kSocketDescriptor, POLLRDHUP, 0};
        while (::poll(&socket, 1, -1) <= 0) {
        }
        std::_Exit(EXIT_FAILURE);
    }).detach();
}

/// What is done for each request, in the order in which a recorder may ask.
class Job {
  public:
    Job(Office& office, std::filesystem::path folder) : m_office(office), m_folder(std::move(folder)) {}

    void operator()(const OpenRequest&)
    {
        m_slides = m_office.openPresentation(m_folder / kDeckName);
        if (namesNoSlide(m_folder / kDeckName))
            m_slides = 0;
        say(Opened{m_slides});
    }
    void operator()(const LayOutRequest&)
    {
        const std::filesystem::path pdf = m_folder / kPdfName;
        m_office.printTo(pdf);
        const PagePainter painter(pdf);
        // Pages that are not the slides, one for one, would put a slide under another's number.
        if (painter.pageCount() != m_slides)
            throw std::runtime_error("the printed deck has other pages than the deck");
        const PictureSize page = painter.pageSize();
        m_pool.emplace(pdf, m_slots, say);
        say(LaidOut{page.width, page.height});
    }
    void operator()(const PaintRequest& request)
    {
        m_slots.map(kSlots);
        m_pool.value().add(request);
    }

  private:
    Office& m_office;
    std::filesystem::path m_folder;
    PaintedSlots m_slots{kSlotsDescriptor};
    int m_slides = 0;
    std::optional<PaintingPool> m_pool{};
};

void serve(Office& office, const std::filesystem::path& folder)
{
    LineCutter lines;
    Job job(office, folder);
    say(Ready{});
    while (const std::optional<Request> request = nextRequest(lines)) {
        try {
            std::visit(job, *request);
        } catch (const std::exception&) {
            say(Refused{});
        }
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 4 || !confine(std::atoi(arguments[3])))
        return EXIT_FAILURE;
    try {
        endWithTheRecorder();
        const std::filesystem::path folder = arguments[2];
        Office office(arguments[1], folder / kProfileName);
        serve(office, folder);
    } catch (const std::exception&) {
        std::_Exit(EXIT_FAILURE);
    }
    // LibreOffice's destructors run at exit, and are known to crash there.
    std::_Exit(EXIT_SUCCESS);
}
