#pragma once

#include "deck/presentation_application.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <fstream>

namespace quillora::tests {

/// Opens "decks" that need not exist. Its pictures hold their size as text.
class FakePresentationConverter : public deck::PresentationConverter {
  public:
    explicit FakePresentationConverter(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "createApplication", "Open", "Count", "SaveAs", "Item", or "Export 2" for that of slide 2.
    FailingCalls failing{};
    int slideCount = 3;
    /// What an Export of any slide was told.
    std::string exportSize{};

    int prepared = 0;

    void prepare() noexcept override { ++prepared; }
    std::unique_ptr<deck::PresentationApplication> createApplication() override;
};

class FakeSlide : public deck::Slide {
  public:
    FakeSlide(FakePresentationConverter& converter, int number) : m_converter(converter), m_number(number) {}

    void Export(const std::filesystem::path& fileName, std::string_view filterName, int scaleWidth,
                int scaleHeight) override
    {
        m_converter.log.add("converter.Export " + fileName.filename().string());
        m_converter.failing.check("Export " + std::to_string(m_number));
        m_converter.exportSize =
            std::string(filterName) + " " + std::to_string(scaleWidth) + "x" + std::to_string(scaleHeight);
        std::ofstream(fileName) << m_converter.exportSize;
    }

  private:
    FakePresentationConverter& m_converter;
    int m_number;
};

class FakePresentation : public deck::Presentation {
  public:
    explicit FakePresentation(FakePresentationConverter& converter) : m_converter(converter) {}
    ~FakePresentation() override { m_converter.log.add("converter.presentation released"); }

    int slideCount() override
    {
        m_converter.log.add("converter.Count");
        m_converter.failing.check("Count");
        return m_converter.slideCount;
    }
    std::unique_ptr<deck::Slide> slide(int number) override
    {
        m_converter.failing.check("Item");
        return std::make_unique<FakeSlide>(m_converter, number);
    }
    void SaveAs(const std::filesystem::path& folder, deck::SaveAsFormat format,
                deck::EmbedTrueTypeFonts fonts) override
    {
        m_converter.log.add("converter.SaveAs " + std::to_string(static_cast<int>(format)) +
                            (fonts == deck::EmbedTrueTypeFonts::yes ? " fonts" : ""));
        m_converter.failing.check("SaveAs");
        for (int n = 1; n <= m_converter.slideCount; ++n)
            std::ofstream(folder / ("Slide" + std::to_string(n) + ".PNG")) << "png";
    }

  private:
    FakePresentationConverter& m_converter;
};

class FakePresentationApplication : public deck::PresentationApplication {
  public:
    explicit FakePresentationApplication(FakePresentationConverter& converter) : m_converter(converter) {}
    ~FakePresentationApplication() override { m_converter.log.add("converter.application released"); }

    std::unique_ptr<deck::Presentation> Open(const std::filesystem::path& fileName, deck::ReadOnly readOnly,
                                             deck::Untitled untitled, deck::WithWindow withWindow) override
    {
        m_converter.log.add("converter.Open " + fileName.filename().string() +
                            (readOnly == deck::ReadOnly::yes ? " read-only" : "") +
                            (untitled == deck::Untitled::yes ? " untitled" : "") +
                            (withWindow == deck::WithWindow::no ? " windowless" : ""));
        m_converter.failing.check("Open");
        return std::make_unique<FakePresentation>(m_converter);
    }

  private:
    FakePresentationConverter& m_converter;
};

inline std::unique_ptr<deck::PresentationApplication> FakePresentationConverter::createApplication()
{
    log.add("converter.createApplication");
    failing.check("createApplication");
    return std::make_unique<FakePresentationApplication>(*this);
}

} // namespace quillora::tests
