#include "TileMotion.h"

#include "ShelfItemView.h"

#include <utility>

namespace nookle {

namespace {

inline constexpr int milliseconds = 160;

} // namespace

TileMotion::TileMotion()
{
    m_animation.setDuration(milliseconds);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation,
                     [this](const QVariant& share) { advance(share.toDouble()); });
    QObject::connect(&m_animation, &QVariantAnimation::finished, &m_animation, [this] { done(); });
}

TileMotion::~TileMotion() = default;

void TileMotion::interrupt()
{
    m_animation.stop();
    std::erase_if(m_ways, [](const Way& way) { return !way.tile || way.to.presence > 0; });
    for (Way& way : m_ways)
        way.from = { way.tile->y(), way.tile->presence() };
}

void TileMotion::come(ShelfItemView& tile, const Place& from)
{
    m_ways.push_back({ &tile, from, { tile.y(), 1 } });
}

void TileMotion::leave(ShelfItemView& tile, int y)
{
    tile.setAttribute(Qt::WA_TransparentForMouseEvents);
    m_ways.push_back({ &tile, { tile.y(), tile.presence() }, { y, 0 } });
}

void TileMotion::start()
{
    if (m_ways.empty())
        return;
    advance(0);
    m_animation.start();
}

void TileMotion::finish()
{
    m_animation.stop();
    done();
}

void TileMotion::advance(double share)
{
    for (const Way& way : m_ways) {
        if (!way.tile)
            continue;
        way.tile->move(way.tile->x(), way.from.y + qRound(share * (way.to.y - way.from.y)));
        way.tile->setPresence(way.from.presence + share * (way.to.presence - way.from.presence));
    }
}

// A tile may be handling an event right now, so it is deleted later.
void TileMotion::done()
{
    advance(1);
    for (const Way& way : std::exchange(m_ways, {})) {
        if (!way.tile || way.to.presence > 0)
            continue;
        way.tile->hide();
        way.tile->deleteLater();
    }
}

} // namespace nookle
