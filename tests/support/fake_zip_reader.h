#pragma once

#include "session/zip_reader.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace quillora::tests {

/// Reads the "archives" that the fake writer writes: lists of entries, a line each. Each comes out as a file
/// that holds the name of its archive.
class FakeZipReaderFactory : public session::ZipReaderFactory {
  public:
    explicit FakeZipReaderFactory(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "create" or "Unzip".
    FailingCalls failing{};

    std::unique_ptr<session::ZipReader> create() override;
};

class FakeZipReader : public session::ZipReader {
  public:
    explicit FakeZipReader(FakeZipReaderFactory& factory) : m_factory(factory) {}

    void setZipFileName(const std::filesystem::path& archive) override { m_archive = archive; }
    void setExtractDir(const std::filesystem::path& folder) override { m_folder = folder; }
    void setExtractList(int list) override { m_factory.log.add("ExtractList " + std::to_string(list)); }
    void Unzip() override
    {
        m_factory.log.add("Unzip " + m_archive.string());
        m_factory.failing.check("Unzip");
        std::ifstream list(m_archive);
        if (!list)
            throw std::runtime_error("no container: " + m_archive.string());
        for (std::string entry; std::getline(list, entry);)
            std::ofstream(m_folder / entry) << m_archive.filename().string();
    }

  private:
    FakeZipReaderFactory& m_factory;
    std::filesystem::path m_archive{};
    std::filesystem::path m_folder{};
};

inline std::unique_ptr<session::ZipReader> FakeZipReaderFactory::create()
{
    log.add("ZipReader");
    failing.check("create");
    return std::make_unique<FakeZipReader>(*this);
}

} // namespace quillora::tests
