#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillora::deck::libreoffice {

/// What keeps the converter from the rest of the machine. Both have the limits and the system call filter
/// that the program puts on itself.
enum class Confinement {
    /// A namespace of its own by bubblewrap: no network device, no files but system and fonts.
    bubblewrap,
    /// Where the system has no bubblewrap, or forbids it to make namespaces.
    programOnly,
};

/// The descriptors that the program inherits.
inline constexpr int kSocketDescriptor = 3;
inline constexpr int kSlotsDescriptor = 4;

/// What lies where in the job folder.
inline constexpr const char* kDeckName = "deck";
inline constexpr const char* kProfileName = "profile";
inline constexpr const char* kTemporaryName = "tmp";

/// The program to start, its arguments, and its whole environment.
struct ConverterCommand {
    std::vector<std::string> arguments{};
    std::vector<std::string> environment{};
};

/// bubblewrap, where it is installed.
Confinement strongestConfinement();

ConverterCommand converterCommand(Confinement confinement, const std::filesystem::path& program,
                                  const std::filesystem::path& officeFolder,
                                  const std::filesystem::path& jobFolder);

} // namespace quillora::deck::libreoffice
