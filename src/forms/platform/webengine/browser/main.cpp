// quillora-browser DESCRIPTOR: the browser of one surface of the stage. The recorder starts it; it reads
// orders from its standard input, writes reports to its standard output, and paints the page into the memory
// that DESCRIPTOR names.

#include "forms/platform/webengine/browser/browser.h"

#include <QApplication>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

using namespace quillora::forms::webengine;

namespace {

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
