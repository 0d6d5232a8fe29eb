#pragma once

#include "deck/platform/libreoffice/conversion_messages.h"
#include "deck/platform/libreoffice/converter_launch.h"
#include "deck/platform/libreoffice/painted_slots.h"
#include "deck/platform/libreoffice/private_folder.h"

#include <chrono>
#include <filesystem>

namespace quillora::deck::libreoffice {

/// One run of the converter program: started by the constructor, which does not wait for it, and killed with
/// all its descendants by the destructor. It converts one deck and is thrown away, so that nothing of a
/// stranger's deck outlives its import. For one thread; the program ends when that thread does.
class ConverterProcess {
  public:
    /// Throws std::runtime_error.
    ConverterProcess(Confinement confinement, const std::filesystem::path& program,
                     const std::filesystem::path& officeFolder);
    ~ConverterProcess();
    ConverterProcess(const ConverterProcess&) = delete;
    ConverterProcess& operator=(const ConverterProcess&) = delete;

    /// A folder that the program sees too.
    const std::filesystem::path& folder() const { return m_folder.path(); }
    PaintedSlots& slots() { return m_slots; }

    /// How long receive() may wait from now on, all calls together.
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    void addPatience(std::chrono::milliseconds more) { m_patience += more; }

    /// Throws std::runtime_error where the program is gone.
    void send(const Request& request);
    /// The next reply. Throws ProtocolError for a line that is none, and std::runtime_error when the program
    /// is gone or the patience is used up; the program is dead then.
    Reply receive();

  private:
    void start(const ConverterCommand& command);
    void readMore();
    void kill();

    PrivateFolder m_folder;
    PaintedSlots m_slots;
    LineCutter m_lines;
    std::chrono::milliseconds m_patience{0};
    int m_socket = -1;
    int m_process = -1;
};

} // namespace quillora::deck::libreoffice
