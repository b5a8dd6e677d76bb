#include "SeveralItemsDesktop.h"

#include "Waiting.h"

#include <QFile>
#include <QStringList>
#include <QUrl>

#include <filesystem>

namespace nookle::e2e {

namespace {

/// From one tile to the next, in the font of the private desktop.
inline constexpr int tileDistance = 86;
/// From the upper right corner of the panel to the handle of all items.
inline constexpr QPoint intoHandle(-41, 17);

} // namespace

const std::vector<SeveralItemsDesktop::TestFile>& SeveralItemsDesktop::files()
{
    static const std::vector<TestFile> files{ { "letters", "a letter.txt", "Dear all,\n" },
                                              { "letters", "\xc3\xbc 100%.txt", "another\n" },
                                              { "bills", "bill.pdf", "%PDF-1.4 not really" },
                                              { "bills", "paid.csv", "a;b\n1;2\n" },
                                              { "pictures", "raw.bin", "\x01\x02\xff" } };
    return files;
}

QString SeveralItemsDesktop::pathOf(const TestFile& file)
{
    return QString::fromUtf8(file.folder) + QLatin1Char('/') + QString::fromUtf8(file.name);
}

QByteArray SeveralItemsDesktop::addressOf(const TestFile& file) const
{
    return QUrl::fromLocalFile(home(pathOf(file))).toEncoded();
}

bool SeveralItemsDesktop::startShelf()
{
    for (const char* folder : { "data/Nookle", "data/Trash", "target" })
        std::filesystem::remove_all(home(QLatin1String(folder)).toStdString());
    for (const TestFile& file : files())
        m_desktop->writeFile(pathOf(file), file.content);
    return m_shelf->start();
}

bool SeveralItemsDesktop::putFilesOnShelf()
{
    QStringList paths;
    for (const TestFile& file : files())
        paths.append(home(pathOf(file)));
    return m_shelf->startAgain(paths) == 0 && waitFor([this] { return m_shelf->savedItems().size() == 5; });
}

bool SeveralItemsDesktop::putTextOnShelf(const QByteArray& text)
{
    const auto before = m_shelf->savedItems().size();
    return offerToShelf(text, QStringLiteral("text/plain"))
        && waitFor([&] { return m_shelf->savedItems().size() == before + 1; });
}

bool SeveralItemsDesktop::showShelf()
{
    return m_shelf->startAgain() == 0 && waitFor([this] { return m_shelf->isAtRest(rightEdge()); });
}

QPoint SeveralItemsDesktop::handle() const
{
    return m_shelf->panel()->frame.topRight() + intoHandle;
}

QPoint SeveralItemsDesktop::tile(int row) const
{
    return m_shelf->firstTile() + QPoint(0, row * tileDistance);
}

void SeveralItemsDesktop::clickWithControl(const QPoint& place)
{
    screen().moveTo(place);
    screen().pressKey(XScreen::control);
    screen().press();
    screen().release();
    screen().releaseKey(XScreen::control);
}

bool SeveralItemsDesktop::dragTo(const QPoint& from, const QPoint& to)
{
    if (!screen().beginDrag(from))
        return false;
    constexpr int movements = 60;
    for (int movement = 0; movement < movements; ++movement)
        screen().moveTo(to + QPoint(movement % 2, 3));
    screen().release();
    return true;
}

QByteArray SeveralItemsDesktop::bytesOf(const QString& path) const
{
    QFile file(home(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace nookle::e2e
