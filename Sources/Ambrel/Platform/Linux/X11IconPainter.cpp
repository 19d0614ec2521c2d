#include "Platform/Linux/X11IconPainter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include <xcb/render.h>
#include <xcb/xcb_renderutil.h>

namespace ambrel {

namespace {

constexpr std::uint8_t alphaDepth = 32;

struct VisualInfo {
    std::uint8_t depth;
    const xcb_visualtype_t* type;
};

/// Depth 0 for a visual that the screen doesn't have.
VisualInfo findVisual(const xcb_screen_t& screen, xcb_visualid_t visual) {
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == visual) {
                return {depths.data->depth, visuals.data};
            }
        }
    }
    return {0, nullptr};
}

std::uint8_t channel(std::uint32_t pixel, std::uint32_t mask) {
    const auto value = mask == 0 ? 0 : (pixel & mask) >> std::countr_zero(mask);
    const auto highest = mask == 0 ? 1 : mask >> std::countr_zero(mask);
    return static_cast<std::uint8_t>(value * 255 / highest);
}

} // namespace

X11IconPainter::X11IconPainter(X11Connection& connection) : connection_(connection) {
    const auto* const render = xcb_get_extension_data(connection_.raw(), &xcb_render_id);
    hasRender_ = render != nullptr && render->present != 0;
}

X11IconPainter::~X11IconPainter() {
    // The library keeps what it has learned by the connection's address, which the next one may get.
    xcb_render_util_disconnect(connection_.raw());
}

xcb_window_t X11IconPainter::makeWindow(xcb_visualid_t visual, int size, std::uint32_t events) {
    auto* const raw = connection_.raw();
    const auto& screen = connection_.screen();
    const auto wanted = findVisual(screen, visual);
    const bool own = wanted.depth != 0 && visual != screen.root_visual;
    visual_ = own ? visual : screen.root_visual;
    xcb_create_window_value_list_t values{};
    values.background_pixmap = XCB_BACK_PIXMAP_PARENT_RELATIVE;
    // A tray that dies leaves the window to the root, where no window manager is to find it.
    values.override_redirect = 1;
    values.event_mask = events;
    values.colormap = screen.default_colormap;
    std::uint32_t mask = XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK;
    if (own) {
        values.colormap = xcb_generate_id(raw);
        xcb_create_colormap(raw, XCB_COLORMAP_ALLOC_NONE, values.colormap, connection_.root(), visual);
        mask |= XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP;
    } else {
        mask |= XCB_CW_BACK_PIXMAP;
    }
    const xcb_window_t window = xcb_generate_id(raw);
    xcb_create_window_aux(raw, own ? wanted.depth : screen.root_depth, window, connection_.root(), 0, 0,
                          static_cast<std::uint16_t>(size), static_cast<std::uint16_t>(size), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, visual_, mask, &values);
    if (own) {
        // The window keeps it.
        xcb_free_colormap(raw, values.colormap);
    }
    return window;
}

void X11IconPainter::draw(xcb_window_t window, int width, int height, const IconLook& look, IconColour foreground) {
    xcb_clear_area(connection_.raw(), 0, window, 0, 0, 0, 0);
    if (const auto* const mask = fittingMask(look.picture, std::min(width, height))) {
        composite(window, (width - mask->size) / 2, (height - mask->size) / 2, *mask, tinted(foreground, look.tint));
    }
    xcb_flush(connection_.raw());
}

void X11IconPainter::composite(xcb_window_t window, int x, int y, const IconMask& mask, IconColour colour) {
    auto* const raw = connection_.raw();
    const auto* const formats = hasRender_ ? xcb_render_util_query_formats(raw) : nullptr;
    const auto* const source =
        formats == nullptr ? nullptr : xcb_render_util_find_standard_format(formats, XCB_PICT_STANDARD_ARGB_32);
    const auto* const target = formats == nullptr ? nullptr : xcb_render_util_find_visual_format(formats, visual_);
    if (source == nullptr || target == nullptr) {
        return;
    }
    const auto pixels = paintIcon(mask, colour, AlphaForm::premultiplied);
    const auto size = static_cast<std::uint16_t>(mask.size);
    const xcb_pixmap_t pixmap = xcb_generate_id(raw);
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_pixmap(raw, alphaDepth, pixmap, window, size, size);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, size, size, 0, 0, 0, alphaDepth,
                  static_cast<std::uint32_t>(pixels.size() * sizeof pixels[0]),
                  reinterpret_cast<const std::uint8_t*>(pixels.data()));
    const xcb_render_picture_t from = xcb_generate_id(raw);
    const xcb_render_picture_t onto = xcb_generate_id(raw);
    xcb_render_create_picture(raw, from, pixmap, source->id, 0, nullptr);
    xcb_render_create_picture(raw, onto, window, target->format, 0, nullptr);
    xcb_render_composite(raw, XCB_RENDER_PICT_OP_OVER, from, XCB_RENDER_PICTURE_NONE, onto, 0, 0, 0, 0,
                         static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), size, size);
    xcb_render_free_picture(raw, from);
    xcb_render_free_picture(raw, onto);
    xcb_free_gc(raw, context);
    xcb_free_pixmap(raw, pixmap);
}

std::optional<IconColour> X11IconPainter::backgroundAt(int x, int y, xcb_window_t window) const {
    auto* const raw = connection_.raw();
    const auto visual = findVisual(connection_.screen(), visual_);
    if (visual.type == nullptr || visual.depth == alphaDepth || visual_ != connection_.screen().root_visual) {
        return std::nullopt;
    }
    xcb_clear_area(raw, 0, window, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1);
    const X11Message<xcb_get_image_reply_t> image(
        xcb_get_image_reply(raw,
                            xcb_get_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(x),
                                          static_cast<std::int16_t>(y), 1, 1, ~0U),
                            nullptr));
    std::uint32_t pixel = 0;
    if (!image || xcb_get_image_data_length(image.get()) < static_cast<int>(sizeof pixel)) {
        return std::nullopt;
    }
    std::memcpy(&pixel, xcb_get_image_data(image.get()), sizeof pixel);
    return IconColour{channel(pixel, visual.type->red_mask), channel(pixel, visual.type->green_mask),
                      channel(pixel, visual.type->blue_mask)};
}

} // namespace ambrel
