#include "deck/platform/libreoffice/picture_files.h"

#include <csetjmp>
#include <cstdio>
// libjpeg's header needs the types of <cstdio> before it.
#include <jpeglib.h>
#include <png.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace quillora::deck::libreoffice {

namespace {

constexpr int kJpegQuality = 92;
/// Slides are flat: the lowest level finds nearly all that there is to find, and rows as they are pack better
/// than differences, and are read back faster.
constexpr int kPngLevel = 1;

void appendPngBytes(png_structp png, png_bytep bytes, png_size_t count)
{
    // Nothing may be thrown through libpng's frames; a failed allocation leaves by its own way out.
    try {
        auto& file = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
        file.insert(file.end(), bytes, bytes + count);
    } catch (const std::bad_alloc&) {
        png_error(png, "out of memory");
    }
}

/// False when libpng gave up. Holds nothing that a long jump would skip the destructor of.
bool encodePng(png_structp png, png_infop info, const RgbPicture& picture, std::vector<std::uint8_t>& file)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_write_fn(png, &file, appendPngBytes, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.size.width),
                 static_cast<png_uint_32>(picture.size.height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, kPngLevel);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(png, info);
    const std::size_t stride = static_cast<std::size_t>(picture.size.width) * 3;
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.size.height); ++y)
        png_write_row(png, picture.bytes.data() + y * stride);
    png_write_end(png, info);
    return true;
}

struct JpegFailure {
    jpeg_error_mgr manager;
    std::jmp_buf leave;
};

[[noreturn]] void leaveJpeg(j_common_ptr common)
{
    std::longjmp(reinterpret_cast<JpegFailure*>(common->err)->leave, 1);
}

/// False when libjpeg gave up. @p file is then to be freed all the same.
bool encodeJpeg(const RgbPicture& picture, unsigned char*& file, unsigned long& length)
{
    jpeg_compress_struct jpeg;
    JpegFailure failure;
    jpeg.err = jpeg_std_error(&failure.manager);
    failure.manager.error_exit = leaveJpeg;
    if (setjmp(failure.leave) != 0) {
        jpeg_destroy_compress(&jpeg);
        return false;
    }
    jpeg_create_compress(&jpeg);
    jpeg_mem_dest(&jpeg, &file, &length);
    jpeg.image_width = static_cast<JDIMENSION>(picture.size.width);
    jpeg.image_height = static_cast<JDIMENSION>(picture.size.height);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, kJpegQuality, TRUE);
    jpeg.comp_info[0].h_samp_factor = 1;
    jpeg.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&jpeg, TRUE);
    const std::size_t stride = static_cast<std::size_t>(picture.size.width) * 3;
    while (jpeg.next_scanline < jpeg.image_height) {
        // libjpeg takes rows that are not const, and leaves them as they are.
        JSAMPROW row = const_cast<JSAMPROW>(picture.bytes.data() + jpeg.next_scanline * stride);
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return true;
}

} // namespace

std::vector<std::uint8_t> pngOf(const RgbPicture& picture)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    std::vector<std::uint8_t> file;
    file.reserve(picture.bytes.size() / 8);
    const bool done = info != nullptr && encodePng(png, info, picture, file);
    png_destroy_write_struct(&png, &info);
    if (!done)
        throw std::runtime_error("a slide's PNG could not be made");
    return file;
}

std::vector<std::uint8_t> jpegOf(const RgbPicture& picture)
{
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    const bool done = encodeJpeg(picture, bytes, length);
    const std::unique_ptr<unsigned char, decltype(&std::free)> owner(bytes, &std::free);
    if (!done)
        throw std::runtime_error("a slide's JPEG could not be made");
    return {bytes, bytes + length};
}

void writeWhole(const std::filesystem::path& file, std::span<const std::uint8_t> bytes)
{
    std::filesystem::path unfinished = file;
    unfinished += ".part";
    std::error_code ignored;
    try {
        std::ofstream stream(unfinished, std::ios::binary | std::ios::trunc);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream)
            throw std::runtime_error("a slide's picture could not be written: " + file.string());
        std::filesystem::rename(unfinished, file);
    } catch (...) {
        std::filesystem::remove(unfinished, ignored);
        throw;
    }
}

} // namespace quillora::deck::libreoffice
