#include "deck/platform/libreoffice/converter/slide_list.h"

#include <zip.h>

#include <memory>
#include <optional>
#include <string>

namespace quillora::deck::libreoffice {

namespace {

struct CloseArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

/// The part of the archive in which a format lists its slides, and how each of them begins there
/// (ECMA-376 19.2.1.33, OpenDocument 1.2 10.2.4). Both formats' programs write these prefixes.
struct SlideList {
    const char* part;
    const char* slide;
};
constexpr SlideList kSlideLists[] = {{"ppt/presentation.xml", "<p:sldId "}, {"content.xml", "<draw:page "}};

/// A list that is longer has slides in it.
constexpr std::size_t kLongestList = std::size_t{1} << 20;

std::optional<std::string> contentsOf(zip_t* archive, const char* part)
{
    const Entry entry(zip_fopen(archive, part, 0));
    if (!entry)
        return std::nullopt;
    std::string text(kLongestList, '\0');
    const zip_int64_t size = zip_fread(entry.get(), text.data(), text.size());
    if (size < 0 || std::size_t(size) == text.size())
        return std::nullopt;
    text.resize(std::size_t(size));
    return text;
}

} // namespace

bool namesNoSlide(const std::filesystem::path& deck)
{
    const Archive archive(zip_open(deck.c_str(), ZIP_RDONLY, nullptr));
    if (!archive)
        return false;
    for (const SlideList& list : kSlideLists)
        if (const auto text = contentsOf(archive.get(), list.part))
            return text->find(list.slide) == std::string::npos;
    return false;
}

} // namespace quillora::deck::libreoffice
