// SPDX-License-Identifier: MIT
#include "tools/png/RenderPng.h"

#include <cmath>
#include <librsvg/rsvg.h>
#include <memory>

namespace {

using Tarnex::Png::TakeBytes;

struct Unref {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

template <typename T>
using Owned = std::unique_ptr<T, Unref>;

struct Sink {
    TakeBytes take;
    void* context;
};

cairo_status_t Write(void* closure, const unsigned char* bytes, unsigned int size) {
    const Sink& sink = *static_cast<const Sink*>(closure);
    return sink.take(sink.context, bytes, size) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

const char* Draw(RsvgHandle& handle, double scale, Sink sink) {
    double width = 0.0;
    double height = 0.0;
    if (!rsvg_handle_get_intrinsic_size_in_pixels(&handle, &width, &height)) {
        return "the picture has no size";
    }
    // Whole pixels only: a part of one at the edge would be mixed with black.
    const RsvgRectangle area{0.0, 0.0, width * scale, height * scale};
    const double columns = std::floor(area.width);
    const double rows = std::floor(area.height);
    if (!(columns >= 1.0 && rows >= 1.0 && columns <= Tarnex::Png::kLongestEdge &&
          rows <= Tarnex::Png::kLongestEdge && columns * rows <= Tarnex::Png::kMostPixels)) {
        return "the picture is too small or too large";
    }
    const Owned<cairo_surface_t> surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(columns), static_cast<int>(rows)));
    const Owned<cairo_t> context(cairo_create(surface.get()));
    if (!rsvg_handle_render_document(&handle, context.get(), &area, nullptr)) {
        return "the picture could not be drawn";
    }
    cairo_surface_flush(surface.get());
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), Write, &sink);
    return status == CAIRO_STATUS_SUCCESS ? nullptr : cairo_status_to_string(status);
}

} // namespace

extern "C" __attribute__((visibility("default"))) const char*
VaultryRenderPng1(const char* svg, std::size_t size, double scale, TakeBytes take, void* context) {
    const Owned<RsvgHandle> handle(rsvg_handle_new_from_data(
        reinterpret_cast<const guint8*>(svg), static_cast<gsize>(size), nullptr));
    return handle ? Draw(*handle, scale, {take, context}) : "the picture could not be read";
}

static_assert(std::is_same_v<decltype(&VaultryRenderPng1), Tarnex::Png::RenderPng>);
