#include "Shelf.h"

#include "Waiting.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace nookle::e2e {

namespace {

inline constexpr int panelWidth = 112;
inline constexpr QPoint firstPreview(56, 60);

} // namespace

Shelf::Shelf(PrivateDesktop& desktop, QString program)
    : m_desktop(desktop)
    , m_program(std::move(program))
{
}

bool Shelf::start(const QStringList& arguments)
{
    m_process = m_desktop.start(m_program, arguments);
    // The last thing that it does before it waits for events.
    const XScreen& screen = m_desktop.screen();
    return waitFor([&screen] { return screen.isShortcutHeld(screen.keyFor('d')); });
}

bool Shelf::stop()
{
    return m_process->terminate() && m_process->waitForExit() == 0;
}

int Shelf::startAgain(const QStringList& arguments)
{
    return m_desktop.start(m_program, arguments)->waitForExit();
}

bool Shelf::hasEnded()
{
    return m_process->waitForExit() == 0;
}

std::optional<XWindow> Shelf::panel() const
{
    return m_desktop.screen().window("nookle", panelWidth);
}

bool Shelf::isAtRest(int rightEdge) const
{
    const auto window = panel();
    return window && window->frame.x() + panelWidth == rightEdge;
}

bool Shelf::isDropTarget() const
{
    const auto window = panel();
    if (!window)
        return false;
    // A frame of two pixels stands along the edge of the panel then, and else a line of one.
    constexpr int depth = 10;
    const QPoint edge(window->frame.center().x(), window->frame.bottom());
    const QImage picture = m_desktop.screen().picture(QRect(edge - QPoint(0, depth - 1), QSize(1, depth)));
    return picture.pixel(0, depth - 2) != picture.pixel(0, 0);
}

QPoint Shelf::firstTile() const
{
    const auto window = panel();
    return window ? window->frame.topLeft() + firstPreview : QPoint();
}

QList<QJsonObject> Shelf::savedItems() const
{
    QFile index(m_desktop.home(QStringLiteral("data/Nookle/index.json")));
    if (!index.open(QIODevice::ReadOnly))
        return {};
    QList<QJsonObject> items;
    const QJsonArray saved = QJsonDocument::fromJson(index.readAll()).object().value(QLatin1String("items")).toArray();
    for (const auto& item : saved)
        items.append(item.toObject());
    return items;
}

QStringList Shelf::savedFileNames() const
{
    QStringList names;
    for (const QJsonObject& item : savedItems()) {
        const QJsonObject file =
            item.value(QLatin1String("content")).toObject().value(QLatin1String("file")).toObject();
        if (!file.isEmpty())
            names.append(file.value(QLatin1String("name")).toString());
    }
    return names;
}

} // namespace nookle::e2e
