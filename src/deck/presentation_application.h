#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace quillora::deck {

enum class ReadOnly { no, yes };
enum class Untitled { no, yes };
enum class WithWindow { no, yes };
enum class EmbedTrueTypeFonts { no, yes };
/// The value is that of the interface.
enum class SaveAsFormat { png = 18 };

/// One slide of an open deck.
class Slide {
  public:
    virtual ~Slide() = default;
    /// Writes the slide as a picture of exactly @p scaleWidth by @p scaleHeight pixels, stretched to it.
    /// @p filterName is "jpg".
    virtual void Export(const std::filesystem::path& fileName, std::string_view filterName, int scaleWidth,
                        int scaleHeight) = 0;
};

/// An open deck. Hidden slides are slides like the others.
class Presentation {
  public:
    virtual ~Presentation() = default;
    /// `Slides.Count`
    virtual int slideCount() = 0;
    /// `Slides.Item`, from 1.
    virtual std::unique_ptr<Slide> slide(int number) = 0;
    /// Writes every slide as "Slide<n>.PNG" into @p folder, in a size of the converter's choice that keeps
    /// the deck's own ratio.
    virtual void SaveAs(const std::filesystem::path& folder, SaveAsFormat format,
                        EmbedTrueTypeFonts fonts) = 0;
};

/// A converter that is running. Letting go of it ends it.
class PresentationApplication {
  public:
    virtual ~PresentationApplication() = default;
    /// `Presentations.Open`
    virtual std::unique_ptr<Presentation> Open(const std::filesystem::path& fileName, ReadOnly readOnly,
                                               Untitled untitled, WithWindow withWindow) = 0;
};

/// The whole of what deck import asks of the outside: seven operations. Each blocks until it is done, and
/// each throws std::runtime_error when it fails, when the converter crashed, or when it took too long and was
/// ended.
class PresentationConverter {
  public:
    virtual ~PresentationConverter() = default;
    /// A deck is about to be chosen: what takes time to start can start behind the presenter's choice.
    /// Returns at once; a failure shows in createApplication().
    virtual void prepare() noexcept = 0;
    /// `create Application`, invisible.
    virtual std::unique_ptr<PresentationApplication> createApplication() = 0;
};

} // namespace quillora::deck
