#include "app/composition.h"
#include "app/installed_files.h"
#include "app/user_folders.h"

#include "capture/platform/x11/x11_screen_source.h"
#include "forms/look.h"

#include <QApplication>
#include <QDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

using namespace quillora;

namespace {

std::optional<std::string> environmentVariable(const std::string& name)
{
    const char* value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

/// The toolkit ends the process by a signal when it finds no display. A presenter who starts the program from
/// a terminal is better served by a sentence.
bool displayAnswers()
{
    try {
        capture::X11ScreenSource().screen();
        return true;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "Quillora Recorder needs an X display: %s\n", failure.what());
        return false;
    }
}

} // namespace

int main(int argc, char** argv)
{
    // A converter that ends while it is written to is a failed import, not the end of the lecture.
    std::signal(SIGPIPE, SIG_IGN);
    // The recorder films the X screen. On a Wayland desktop its window must be on that screen too.
    if (!environmentVariable("QT_QPA_PLATFORM"))
        ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    if (!displayAnswers())
        return EXIT_FAILURE;

    QApplication application(argc, argv);
    // Every place that the pointer crosses is a point of a freehand stroke. The toolkit turns this on while
    // the application object is made.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    forms::applyLook(application);
    QApplication::setApplicationName("Quillora");
    QApplication::setQuitOnLastWindowClosed(true);

    const auto programFolder = QApplication::applicationDirPath().toStdString();
    app::Composition composition(app::findInstalledFiles(programFolder),
                                 app::findUserFolders(environmentVariable, QDir::homePath().toStdString()));
    composition.start();
    return QApplication::exec();
}
