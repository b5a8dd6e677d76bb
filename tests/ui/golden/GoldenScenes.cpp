#include "GoldenScenes.h"

#include "OmittingDevice.h"
#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLinearGradient>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStyleFactory>

namespace nookle {

namespace {

inline constexpr QSize shelfSize(112, 480);

[[nodiscard]] QPalette lightPalette()
{
    QPalette palette(QColor(0xf4, 0xf4, 0xf5));
    palette.setColor(QPalette::WindowText, QColor(0x1d, 0x1d, 0x1f));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x7c, 0xf6));
    return palette;
}

[[nodiscard]] QPalette darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2b, 0x2e));
    palette.setColor(QPalette::WindowText, QColor(0xf2, 0xf2, 0xf4));
    palette.setColor(QPalette::Base, QColor(0x1c, 0x1c, 0x1e));
    palette.setColor(QPalette::Highlight, QColor(0x4c, 0x92, 0xff));
    return palette;
}

[[nodiscard]] Picture picture(const QImage& image)
{
    return { image.width(), image.height(),
             QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()) };
}

/// A landscape, so that one sees whether its shape is kept.
[[nodiscard]] Picture landscape()
{
    constexpr QSize size(104, 70);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(0x6f, 0xb1, 0xfc));
    sky.setColorAt(1, QColor(0xff, 0xd9, 0xa0));
    painter.fillRect(image.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3f, 0x6d, 0x4e));
    painter.drawPolygon(QPolygon({ { 0, 70 }, { 34, 26 }, { 66, 70 } }));
    painter.setBrush(QColor(0x2c, 0x52, 0x3c));
    painter.drawPolygon(QPolygon({ { 40, 70 }, { 78, 36 }, { 104, 70 } }));
    painter.end();
    return picture(image);
}

[[nodiscard]] Picture siteIcon()
{
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xd6, 0x33, 0x6c));
    painter.drawEllipse(image.rect());
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPoint(32, 32), 13, 13);
    painter.end();
    return picture(image);
}

void addLinkWithIcon(ShelfFixture& shelf)
{
    shelf.store.addLink(*LinkUrl::parse(QStringLiteral("https://example.com/")), QStringLiteral("An example page"));
    shelf.store.updateLink(shelf.top().id, std::nullopt, true);
}

[[nodiscard]] std::optional<Picture> pictureOf(const QString& path)
{
    if (path.endsWith(QLatin1String("/icon.png")))
        return siteIcon();
    return path.endsWith(QLatin1String(".png")) ? std::optional(landscape()) : std::nullopt;
}

void addOneOfEach(ShelfFixture& shelf)
{
    // An empty line lies on the lower edge of the page: of any other a few pixels would show.
    shelf.store.addText(QStringLiteral("Dear all,\n\nthe train leaves at 9:40 from platform 7.\n\nBring a coat: it is "
                                       "going to be windy up there."));
    shelf.store.addText(QStringLiteral("https://example.org/without-an-icon"));
    addLinkWithIcon(shelf);
    (void)shelf.addImage();
    (void)shelf.addFile("Report.pdf");
}

/// The picture of every image and link that is on screen has come.
void deliverThumbnails(ShelfFixture& shelf)
{
    shelf.view.grab();
    for (qsizetype index = 0; index < shelf.thumbnails.asked.size(); ++index)
        shelf.thumbnails.finish(index, pictureOf(shelf.thumbnails.asked[index].file.path()));
}

void prepareShelf(ShelfFixture& shelf, const GoldenScene& scene)
{
    shelf.view.resize(shelfSize);
    scene.prepare(shelf);
    deliverThumbnails(shelf);
}

[[nodiscard]] QImage emptyPicture(const GoldenScene& scene)
{
    QImage picture(shelfSize * scene.scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scene.scale);
    picture.fill(Qt::transparent);
    return picture;
}

void showUnavailable(ShelfFixture& shelf)
{
    const QUrl image = shelf.addImage();
    QFile::remove(image.toLocalFile());
    const QUrl file = shelf.addFile("Lost.txt");
    shelf.store.togglePinned(shelf.top().id);
    shelf.references.removeFile(file);
    shelf.store.refreshFiles();
}

void showHovered(ShelfFixture& shelf)
{
    addOneOfEach(shelf);
    shelf.view.interaction(shelf.store.items()[1]).onHover(true);
}

void showFocused(ShelfFixture& shelf)
{
    addOneOfEach(shelf);
    shelf.view.findChild<TileList*>()->tilesInOrder()[2]->setFocused(true);
}

/// One of the selected tiles has the keyboard, another one is under the pointer.
void showSelected(ShelfFixture& shelf)
{
    addOneOfEach(shelf);
    shelf.store.togglePinned(shelf.top().id);
    auto& list = *shelf.view.findChild<TileList*>();
    for (const qsizetype row : { 0, 2, 3, 4 })
        list.choose(shelf.store.items()[row].id, Qt::ControlModifier);
    list.tilesInOrder()[2]->setFocused(true);
    shelf.view.interaction(shelf.store.items()[3]).onHover(true);
}

void showLongNames(ShelfFixture& shelf)
{
    (void)shelf.addFile("Minutes of the general meeting of the association in Reykjavik.tar.gz");
    (void)shelf.addFile("averyveryverylongnamewithoutanyspaceinitatall.jpeg");
    (void)shelf.addFile("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd7\xa2\xd7\x95\xd7\x9c\xd7\x9d.txt");
}

/// More is hidden above and below.
void showScrolled(ShelfFixture& shelf)
{
    for (const char* name : { "Plan.txt", "Tickets.zip", "Map.jpeg" })
        (void)shelf.addFile(name);
    addOneOfEach(shelf);
    shelf.view.findChild<TileList*>()->verticalScrollBar()->setValue(40);
}

void showDropTarget(ShelfFixture& shelf)
{
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&shelf.view, &enter);
}

} // namespace

std::vector<GoldenScene> goldenScenes()
{
    return {
        { QStringLiteral("empty"), [](ShelfFixture&) {} },
        { QStringLiteral("kinds"), addOneOfEach },
        { QStringLiteral("kinds-dark"), addOneOfEach, true },
        { QStringLiteral("kinds-scale-1.5"), addOneOfEach, false, 1.5 },
        { QStringLiteral("kinds-scale-2"), addOneOfEach, false, 2 },
        { QStringLiteral("pinned"),
          [](ShelfFixture& shelf) {
              addOneOfEach(shelf);
              shelf.store.togglePinned(shelf.top().id);
              shelf.pinning.setPinned(true);
          } },
        { QStringLiteral("unavailable"), showUnavailable },
        { QStringLiteral("unavailable-dark"), showUnavailable, true },
        { QStringLiteral("hovered"), showHovered },
        { QStringLiteral("focused"), showFocused },
        { QStringLiteral("selected"), showSelected },
        { QStringLiteral("selected-dark"), showSelected, true },
        { QStringLiteral("long-names"), showLongNames },
        { QStringLiteral("drop-target"), showDropTarget },
        { QStringLiteral("drop-target-over-tiles-scale-2"),
          [](ShelfFixture& shelf) {
              shelf.compositing.change(Backdrop::translucent);
              addOneOfEach(shelf);
              showDropTarget(shelf);
          },
          false, 2 },
        { QStringLiteral("scrolled"), showScrolled },
        { QStringLiteral("scrolled-blurred-dark"),
          [](ShelfFixture& shelf) {
              shelf.compositing.change(Backdrop::blurred);
              showScrolled(shelf);
          },
          true },
        { QStringLiteral("blurred"),
          [](ShelfFixture& shelf) {
              shelf.compositing.change(Backdrop::blurred);
              addOneOfEach(shelf);
          } },
        { QStringLiteral("translucent-dark-scale-2"),
          [](ShelfFixture& shelf) {
              shelf.compositing.change(Backdrop::translucent);
              addOneOfEach(shelf);
          },
          true, 2 },
    };
}

void prepareGoldenLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(8.5);
    QApplication::setFont(font);
    // The offscreen platform knows no theme.
    QIcon::setThemeSearchPaths(QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                                         QStandardPaths::LocateDirectory));
    QIcon::setThemeName(QStringLiteral("hicolor"));
}

QImage drawScene(const GoldenScene& scene)
{
    QApplication::setPalette(scene.isDark ? darkPalette() : lightPalette());
    ShelfFixture shelf;
    prepareShelf(shelf, scene);
    QImage picture = emptyPicture(scene);
    shelf.view.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

std::vector<QImage> drawSceneWithoutOneThing(const GoldenScene& scene)
{
    QApplication::setPalette(scene.isDark ? darkPalette() : lightPalette());
    ShelfFixture shelf;
    prepareShelf(shelf, scene);
    std::vector<QImage> pictures;
    for (int omitted = 0;; ++omitted) {
        QImage picture = emptyPicture(scene);
        OmittingDevice device(picture, omitted);
        shelf.view.render(&device, QPoint(), QRegion(), QWidget::DrawChildren);
        pictures.push_back(picture);
        if (device.count() <= omitted)
            return pictures;
    }
}

} // namespace nookle
