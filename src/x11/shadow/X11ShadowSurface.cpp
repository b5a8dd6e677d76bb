#include "X11ShadowSurface.h"

#include "ShadowPictures.h"

#include <QImage>

#include <optional>

#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace nookle {

namespace {

inline constexpr std::uint8_t depth = 32;

[[nodiscard]] const xcb_screen_t& screenOf(xcb_connection_t* connection)
{
    return *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

/// The kind of windows with an opacity for each pixel.
[[nodiscard]] std::optional<xcb_visualid_t> transparentVisual(const xcb_screen_t& screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
        if (depths.data->depth != depth)
            continue;
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (visuals.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR)
                return visuals.data->visual_id;
        }
    }
    return std::nullopt;
}

[[nodiscard]] xcb_rectangle_t rectangle(const QRect& rect)
{
    return { static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
             static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()) };
}

/// A pixmap and the means to draw on it, as long as this object lives.
class Canvas {
public:
    Canvas(xcb_connection_t* connection, xcb_window_t sibling, const QSize& size)
        : m_connection(connection)
        , m_pixmap(xcb_generate_id(connection))
        , m_context(xcb_generate_id(connection))
    {
        xcb_create_pixmap(connection, depth, m_pixmap, sibling, static_cast<std::uint16_t>(size.width()),
                          static_cast<std::uint16_t>(size.height()));
        xcb_create_gc(connection, m_context, m_pixmap, 0, nullptr);
    }
    ~Canvas()
    {
        xcb_free_gc(m_connection, m_context);
        xcb_free_pixmap(m_connection, m_pixmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    [[nodiscard]] xcb_pixmap_t pixmap() const { return m_pixmap; }

    void clear(const QSize& size)
    {
        const std::uint32_t transparent = 0;
        xcb_change_gc(m_connection, m_context, XCB_GC_FOREGROUND, &transparent);
        const xcb_rectangle_t all = rectangle({ QPoint(), size });
        xcb_poly_fill_rectangle(m_connection, m_pixmap, m_context, 1, &all);
    }

    void put(const QImage& picture)
    {
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_pixmap, m_context,
                      static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(picture.height()), 0, 0,
                      0, depth, static_cast<std::uint32_t>(picture.sizeInBytes()), picture.constBits());
    }

    /// Fills `area` with copies of `picture`, beginning at its upper left.
    void tile(const QImage& picture, const QRect& area)
    {
        if (area.isEmpty())
            return;
        Canvas one(m_connection, m_pixmap, picture.size());
        one.put(picture);
        const std::uint32_t values[] = { XCB_FILL_STYLE_TILED, one.pixmap(), static_cast<std::uint32_t>(area.x()),
                                         static_cast<std::uint32_t>(area.y()) };
        xcb_change_gc(m_connection, m_context,
                      XCB_GC_FILL_STYLE | XCB_GC_TILE | XCB_GC_TILE_STIPPLE_ORIGIN_X | XCB_GC_TILE_STIPPLE_ORIGIN_Y,
                      values);
        const xcb_rectangle_t filled = rectangle(area);
        xcb_poly_fill_rectangle(m_connection, m_pixmap, m_context, 1, &filled);
    }

private:
    xcb_connection_t* m_connection;
    xcb_pixmap_t m_pixmap;
    xcb_gcontext_t m_context;
};

} // namespace

std::unique_ptr<X11ShadowSurface> X11ShadowSurface::tryCreate(xcb_connection_t* connection, const QRect& frame,
                                                              WindowPlacing placing)
{
    const auto visual = transparentVisual(screenOf(connection));
    if (!visual || frame.isEmpty())
        return nullptr;
    std::unique_ptr<X11ShadowSurface> made(new X11ShadowSurface(connection));
    made->create(frame, *visual, placing);
    return made;
}

X11ShadowSurface::X11ShadowSurface(xcb_connection_t* connection)
    : m_connection(connection)
    , m_window(xcb_generate_id(connection))
    , m_colors(xcb_generate_id(connection))
{
}

X11ShadowSurface::~X11ShadowSurface()
{
    xcb_destroy_window(m_connection, m_window);
    xcb_free_colormap(m_connection, m_colors);
    xcb_flush(m_connection);
}

void X11ShadowSurface::create(const QRect& frame, std::uint32_t visual, WindowPlacing placing)
{
    const xcb_window_t root = screenOf(m_connection).root;
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, m_colors, root, visual);
    const std::uint32_t isLeftAlone = placing == WindowPlacing::program ? 1 : 0;
    const std::uint32_t values[] = { 0, 0, isLeftAlone, m_colors };
    const xcb_rectangle_t place = rectangle(frame);
    xcb_create_window(m_connection, depth, m_window, root, place.x, place.y, place.width, place.height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP, values);
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_window, 0, 0,
                         0, nullptr);
}

// As the background, which the server paints by itself where it has to.
void X11ShadowSurface::draw(const ShadowPictures& pictures, const QRect& panel, const QSize& size)
{
    Canvas canvas(m_connection, m_window, size);
    canvas.clear(size);
    for (const ShadowPictures::Part& part : pictures.parts(panel))
        canvas.tile(part.picture, part.area);
    const std::uint32_t background = canvas.pixmap();
    xcb_change_window_attributes(m_connection, m_window, XCB_CW_BACK_PIXMAP, &background);
    xcb_clear_area(m_connection, 0, m_window, 0, 0, 0, 0);
}

} // namespace nookle
