#pragma once

#include "base/dialogs.h"
#include "session/file_copier.h"
#include "session/session_fields.h"
#include "session/sleeper.h"
#include "session/workspace.h"
#include "session/zip_writer.h"

#include <string>
#include <string_view>

namespace quillora::session {

/// Packs a finished recording into one container, and has the presenter save it: there is no way out but to
/// give a name.
class Packaging {
  public:
    struct Ports {
        SessionFields& fields;
        const Workspace& workspace;
        ZipWriterFactory& zip;
        Sleeper& sleeper;
        base::CommonDialog& CommonDialog1;
        base::MessageBoxes& boxes;
        FileCopier& copier;
    };
    /// What the ports refer to must outlive this object.
    explicit Packaging(const Ports& ports) : m_ports(ports) {}

    /// Video, index and version file must be complete. Blocks until a name was given and the file copied. The
    /// first failure ends it by exception; the recording is then in the Workspace only.
    void ZipAsf();

  private:
    void pack();
    void askForName();
    void save();

    Ports m_ports;
};

/// @p title less its last four characters, whatever they are; nothing is left of a shorter one. Characters
/// are those of UTF-8, not bytes.
std::string withoutLastFour(std::string_view title);

} // namespace quillora::session
