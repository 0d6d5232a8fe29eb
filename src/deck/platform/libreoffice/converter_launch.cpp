#include "deck/platform/libreoffice/converter_launch.h"

#include <unistd.h>

#include <array>
#include <cstdlib>

namespace quillora::deck::libreoffice {

namespace {

namespace fs = std::filesystem;

constexpr const char* kBubblewrap = "/usr/bin/bwrap";
/// Where the job folder stands for a program in bubblewrap.
constexpr const char* kInnerJobFolder = "/job";

std::string environmentOr(const char* name, const std::string& otherwise)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

std::vector<std::string> environmentFor(const std::string& jobFolder)
{
    // svp paints in memory; the others are what fonts, languages and dates depend on.
    std::vector<std::string> environment{"PATH=/usr/bin:/bin", "SAL_USE_VCLPLUGIN=svp",
                                         "TMPDIR=" + jobFolder + "/" + kTemporaryName};
    for (const char* name : {"HOME", "LANG", "LC_ALL", "LC_CTYPE", "TZ", "XDG_DATA_HOME", "ASAN_OPTIONS",
                             "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name); value != nullptr)
            environment.push_back(std::string(name) + "=" + value);
    }
    return environment;
}

/// Read-only, under the same path, if it is there.
void show(std::vector<std::string>& arguments, const fs::path& path)
{
    arguments.insert(arguments.end(), {"--ro-bind-try", path.string(), path.string()});
}

/// Folders at the root that are links into /usr on most systems, and folders on some.
void showRootFolders(std::vector<std::string>& arguments)
{
    for (const char* path : {"/bin", "/sbin", "/lib", "/lib64"}) {
        std::error_code error;
        if (fs::is_symlink(path, error))
            arguments.insert(arguments.end(), {"--symlink", fs::read_symlink(path, error).string(), path});
        else
            show(arguments, path);
    }
}

void showFonts(std::vector<std::string>& arguments)
{
    const fs::path home = environmentOr("HOME", "/nonexistent");
    show(arguments, "/etc/fonts");
    show(arguments, "/var/cache/fontconfig");
    show(arguments, fs::path(environmentOr("XDG_DATA_HOME", home / ".local/share")) / "fonts");
    show(arguments, home / ".fonts");
    show(arguments, home / ".cache/fontconfig");
}

std::vector<std::string> bubblewrapArguments(const fs::path& program, const fs::path& officeFolder,
                                             const fs::path& jobFolder)
{
    std::vector<std::string> arguments{kBubblewrap, "--unshare-all", "--die-with-parent",
                                       "--ro-bind", "/usr",          "/usr"};
    showRootFolders(arguments);
    for (const char* path : {"/etc/ld.so.cache", "/etc/alternatives", "/etc/localtime", "/etc/libreoffice",
                             "/var/lib/libreoffice"})
        show(arguments, path);
    showFonts(arguments);
    arguments.insert(arguments.end(), {"--proc", "/proc", "--dev", "/dev", "--tmpfs", "/tmp"});
    // After /tmp: a program that is being developed may lie there.
    show(arguments, officeFolder.parent_path());
    show(arguments, program);
    arguments.insert(arguments.end(),
                     {"--bind", jobFolder.string(), kInnerJobFolder, "--chdir", kInnerJobFolder});
    return arguments;
}

} // namespace

Confinement strongestConfinement()
{
    return ::access(kBubblewrap, X_OK) == 0 ? Confinement::bubblewrap : Confinement::programOnly;
}

ConverterCommand converterCommand(Confinement confinement, const fs::path& program,
                                  const fs::path& officeFolder, const fs::path& jobFolder)
{
    const bool wrapped = confinement == Confinement::bubblewrap;
    const std::string seenJobFolder = wrapped ? kInnerJobFolder : jobFolder.string();
    ConverterCommand command;
    if (wrapped)
        command.arguments = bubblewrapArguments(program, officeFolder, jobFolder);
    // bubblewrap ends the program with the recorder; on its own the program must know whom to watch.
    const std::string watched = wrapped ? "0" : std::to_string(::getpid());
    command.arguments.insert(command.arguments.end(),
                             {program.string(), officeFolder.string(), seenJobFolder, watched});
    command.environment = environmentFor(seenJobFolder);
    return command;
}

} // namespace quillora::deck::libreoffice
