#include "platform/image/Jpeg.h"

#include "platform/base/Problem.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace murbo::Jpeg {
namespace {

constexpr long long maxPixels = 1LL << 28;
constexpr unsigned longestSide = 32768;
/// A progressive file can ask for pass after pass over the whole picture; honest ones have a dozen.
constexpr int maxScans = 64;

/// The library's way out is a call that must not return: it goes back to where the work began.
struct Errors {
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

[[noreturn]] void leave(j_common_ptr state) {
    std::longjmp(reinterpret_cast<Errors*>(state->err)->back, 1);
}

void quiet(j_common_ptr, int) {}

jpeg_error_mgr* prepared(Errors& errors) {
    auto* manager = jpeg_std_error(&errors.manager);
    manager->error_exit = leave;
    manager->emit_message = quiet;
    return manager;
}

void countScans(j_common_ptr state) {
    if (reinterpret_cast<j_decompress_ptr>(state)->input_scan_number > maxScans) leave(state);
}

// Nothing with a destructor lives between setjmp and longjmp: memory is held by the callers.

bool encodeInto(const Bitmap& bitmap, int quality, unsigned char** memory, unsigned long* size) {
    jpeg_compress_struct state{};
    Errors errors;
    state.err = prepared(errors);
    if (setjmp(errors.back)) {
        jpeg_destroy_compress(&state);
        return false;
    }
    jpeg_create_compress(&state);
    jpeg_mem_dest(&state, memory, size);
    state.image_width = bitmap.width();
    state.image_height = bitmap.height();
    state.input_components = 4;
    state.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&state);
    jpeg_set_quality(&state, quality, TRUE);
    state.optimize_coding = TRUE;
    if (quality >= 90) state.comp_info[0].h_samp_factor = state.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&state, TRUE);
    while (state.next_scanline < state.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(bitmap.row(int(state.next_scanline)));
        jpeg_write_scanlines(&state, &row, 1);
    }
    jpeg_finish_compress(&state);
    jpeg_destroy_compress(&state);
    return true;
}

bool holdable(const jpeg_decompress_struct& state) {
    return state.image_width <= longestSide && state.image_height <= longestSide &&
           static_cast<long long>(state.image_width) * state.image_height <= maxPixels;
}

/// CMYK is left out: no camera or screen writes it.
bool start(jpeg_decompress_struct& state, int largest) {
    if (jpeg_read_header(&state, TRUE) != JPEG_HEADER_OK || !holdable(state)) return false;
    if (std::max<long long>(state.image_width, state.image_height) > largest) return false;
    if (state.jpeg_color_space == JCS_CMYK || state.jpeg_color_space == JCS_YCCK) return false;
    state.out_color_space = JCS_EXT_BGRA;
    return jpeg_start_decompress(&state);
}

bool decodeInto(std::string_view bytes, int largest, std::optional<Bitmap>& bitmap) {
    jpeg_decompress_struct state{};
    Errors errors;
    jpeg_progress_mgr progress{};
    state.err = prepared(errors);
    if (setjmp(errors.back)) {
        jpeg_destroy_decompress(&state);
        return false;
    }
    jpeg_create_decompress(&state);
    progress.progress_monitor = countScans;
    state.progress = &progress;
    jpeg_mem_src(&state, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    if (!start(state, largest)) return jpeg_destroy_decompress(&state), false;
    bitmap.emplace(int(state.output_width), int(state.output_height));
    while (state.output_scanline < state.output_height) {
        JSAMPROW row = bitmap->row(int(state.output_scanline));
        jpeg_read_scanlines(&state, &row, 1);
    }
    jpeg_finish_decompress(&state);
    jpeg_destroy_decompress(&state);
    return true;
}

struct FreeMemory {
    void operator()(unsigned char* memory) const { std::free(memory); }
};

}

std::string encode(const Bitmap& bitmap, double quality) {
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    const int percent = int(std::lround(std::clamp(quality, 0.0, 1.0) * 100));
    const bool whole = !bitmap.empty() && encodeInto(bitmap, percent, &memory, &size);
    const std::unique_ptr<unsigned char, FreeMemory> held(memory);
    if (!whole) throw Problem("The picture could not be written as JPEG.");
    return {reinterpret_cast<const char*>(memory), size};
}

std::optional<Bitmap> decode(std::string_view bytes, int largest) {
    std::optional<Bitmap> bitmap;
    const bool whole = !bytes.empty() && decodeInto(bytes, largest, bitmap);
    return whole ? std::move(bitmap) : std::nullopt;
}

}
