#include "X11ShadowWindow.h"

#include "ShadowPictures.h"
#include "XcbAtoms.h"

#include <QImage>

#include <algorithm>
#include <vector>

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

    void put(const QImage& picture, const QPoint& at)
    {
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_pixmap, m_context,
                      static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(picture.height()),
                      static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()), 0, depth,
                      static_cast<std::uint32_t>(picture.sizeInBytes()), picture.constBits());
    }

    /// Fills `area` with copies of `picture`, beginning at its upper left.
    void tile(const QImage& picture, const QRect& area)
    {
        Canvas one(m_connection, m_pixmap, picture.size());
        one.put(picture, {});
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

std::unique_ptr<X11ShadowWindow> X11ShadowWindow::tryCreate(xcb_connection_t* connection,
                                                            const ShadowPictures& pictures, const QRect& panel)
{
    const auto visual = transparentVisual(screenOf(connection));
    const bool hasEdges = panel.width() > 0 && panel.height() > 2 * (pictures.corner - pictures.extent);
    if (!visual || !hasEdges)
        return nullptr;
    std::unique_ptr<X11ShadowWindow> made(new X11ShadowWindow(connection, pictures, panel.size()));
    made->create(*visual);
    made->draw(pictures, made->m_window);
    return made;
}

X11ShadowWindow::X11ShadowWindow(xcb_connection_t* connection, const ShadowPictures& pictures, const QSize& panel)
    : m_connection(connection)
    , m_extent(pictures.extent)
    , m_corner(pictures.corner)
    , m_panel(panel)
    , m_window(xcb_generate_id(connection))
    , m_colors(xcb_generate_id(connection))
{
}

X11ShadowWindow::~X11ShadowWindow()
{
    xcb_destroy_window(m_connection, m_window);
    xcb_free_colormap(m_connection, m_colors);
    xcb_flush(m_connection);
}

void X11ShadowWindow::create(std::uint32_t visual)
{
    const xcb_window_t root = screenOf(m_connection).root;
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, m_colors, root, visual);
    // The window manager leaves such a window alone.
    const std::uint32_t values[] = { 0, 0, 1, m_colors };
    xcb_create_window(m_connection, depth, m_window, root, 0, 0, static_cast<std::uint16_t>(m_extent + m_panel.width()),
                      static_cast<std::uint16_t>(m_panel.height() + 2 * m_extent), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      visual, XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
                      values);
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_window, 0, 0,
                         0, nullptr);
    // A kind of window to which compositing managers give no shadow of their own.
    const xcb_atom_t kind = xcbAtom(m_connection, "_NET_WM_WINDOW_TYPE_DND");
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, xcbAtom(m_connection, "_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &kind);
}

void X11ShadowWindow::draw(const ShadowPictures& pictures, std::uint32_t target)
{
    const QSize size(m_extent + m_panel.width(), m_panel.height() + 2 * m_extent);
    const int lower = size.height() - m_corner;
    Canvas canvas(m_connection, target, size);
    canvas.clear(size);
    canvas.put(pictures.upperLeft, { 0, 0 });
    canvas.put(pictures.lowerLeft, { 0, lower });
    canvas.tile(pictures.above, { m_corner, 0, size.width() - m_corner, m_extent });
    canvas.tile(pictures.below, { m_corner, size.height() - m_extent, size.width() - m_corner, m_extent });
    canvas.tile(pictures.left, { 0, m_corner, m_extent, lower - m_corner });
    const std::uint32_t background = canvas.pixmap();
    xcb_change_window_attributes(m_connection, target, XCB_CW_BACK_PIXMAP, &background);
}

void X11ShadowWindow::move(const QRect& panel, std::optional<int> limit)
{
    const QPoint at = panel.topLeft() - QPoint(m_extent, m_extent);
    setShape(limit ? std::optional(*limit - at.x()) : std::nullopt);
    const std::uint32_t values[] = { static_cast<std::uint32_t>(at.x()), static_cast<std::uint32_t>(at.y()) };
    xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    xcb_map_window(m_connection, m_window);
    xcb_flush(m_connection);
}

// Without the middle, so that the panel is never below the window, whichever was raised last.
void X11ShadowWindow::setShape(std::optional<int> width)
{
    const int whole = m_extent + m_panel.width();
    const int shown = std::clamp(width.value_or(whole), 0, whole);
    if (m_shownWidth == shown)
        return;
    m_shownWidth = shown;
    const int height = m_panel.height() + 2 * m_extent;
    std::vector<xcb_rectangle_t> parts;
    for (const QRect& part : { QRect(0, 0, shown, m_corner), QRect(0, height - m_corner, shown, m_corner),
                               QRect(0, m_corner, std::min(m_extent, shown), height - 2 * m_corner) })
        parts.push_back(rectangle(part));
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, m_window, 0,
                         0, static_cast<std::uint32_t>(parts.size()), parts.data());
}

} // namespace nookle
