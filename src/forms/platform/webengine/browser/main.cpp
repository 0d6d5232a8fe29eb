// quillora-browser DESCRIPTOR: the browser of one surface of the stage. The recorder starts it; it reads
// orders from its standard input, writes reports to its standard output, and paints the page into the memory
// that DESCRIPTOR names.

#include "forms/platform/webengine/browser/browser.h"

#include <QApplication>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

using namespace quillora::forms::webengine;

namespace {

/// What a few pages may share among the engine's processes at once, in bytes. A container has 64 MB by
/// default.
constexpr quint64 kSharedMemoryOfPages = 256 * 1024 * 1024;

bool sharedMemoryIsScarce()
{
    struct statvfs state = {};
    return ::access("/dev/shm", W_OK) != 0 || ::statvfs("/dev/shm", &state) != 0 ||
           quint64(state.f_bavail) * state.f_frsize < kSharedMemoryOfPages;
}

/// Takes the pipe to the recorder away from everything that prints: the engine's libraries may.
int keepReportsApart()
{
    const int reports = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    return reports;
}

int run(int argc, char** argv)
{
    const int reports = keepReportsApart();
    SharedPicture picture(std::atoi(argv[1]));
    ::fcntl(picture.descriptor(), F_SETFD, FD_CLOEXEC);
    // A page for which /dev/shm has no room stays blank, and nothing says why: then the folder for temporary
    // files takes its place, at the price of some writing to the disk.
    if (sharedMemoryIsScarce())
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-dev-shm-usage");
    // A window that a page was granted looks like what it belongs to.
    QApplication application(argc, argv);
    QApplication::setApplicationName("Quillora");
    QApplication::setQuitOnLastWindowClosed(false);
    RecorderLink recorder(STDIN_FILENO, reports);
    const Browser browser(recorder, picture);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGPIPE, SIG_IGN);
    if (argc != 2) {
        std::fputs("quillora-browser is started by the recorder\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "quillora-browser: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
