#pragma once

#include "session/zip_writer.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <fstream>
#include <stdexcept>
#include <vector>

namespace quillora::tests {

/// Writes "archives" that are lists: the name of each entry, a line each.
class FakeZipWriterFactory : public session::ZipWriterFactory {
  public:
    explicit FakeZipWriterFactory(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "create" or "Zip".
    FailingCalls failing{};
    /// Entries of the archive that was written last.
    std::vector<std::string> entries{};

    std::unique_ptr<session::ZipWriter> create() override;
};

class FakeZipWriter : public session::ZipWriter {
  public:
    explicit FakeZipWriter(FakeZipWriterFactory& factory) : m_factory(factory) {}

    void AddFileToZip(const std::filesystem::path& file) override
    {
        m_factory.log.add("zip.Add " + file.filename().string());
        if (!std::filesystem::exists(file))
            throw std::runtime_error("no such file: " + file.string());
        m_entries.push_back(file.filename().string());
    }
    void setDestinationZipFile(const std::filesystem::path& archive) override { m_archive = archive; }
    void Zip() override
    {
        m_factory.log.add("zip.Zip " + m_archive.filename().string());
        m_factory.failing.check("Zip");
        std::ofstream list(m_archive);
        for (const auto& entry : m_entries)
            list << entry << '\n';
        m_factory.entries = m_entries;
    }

  private:
    FakeZipWriterFactory& m_factory;
    std::filesystem::path m_archive{};
    std::vector<std::string> m_entries{};
};

inline std::unique_ptr<session::ZipWriter> FakeZipWriterFactory::create()
{
    failing.check("create");
    return std::make_unique<FakeZipWriter>(*this);
}

} // namespace quillora::tests
