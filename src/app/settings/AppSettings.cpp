#include "AppSettings.h"

#include "UserDefaults.h"

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] QString autoExpandOnDragKey()
{
    return QStringLiteral("autoExpandOnDrag");
}

[[nodiscard]] QString expiryKey()
{
    return QStringLiteral("expiry");
}

[[nodiscard]] QString reserveSpaceKey()
{
    return QStringLiteral("reserveSpace");
}

[[nodiscard]] QString collectScreenshotsKey()
{
    return QStringLiteral("collectScreenshots");
}

[[nodiscard]] QString moveScreenshotsKey()
{
    return QStringLiteral("moveScreenshots");
}

[[nodiscard]] UserDefaults& withRegisteredDefaults(UserDefaults& defaults)
{
    defaults.registerDefaults({
        { autoExpandOnDragKey(), true },
        { expiryKey(), static_cast<qint64>(AppSettings::Expiry::day) },
        { collectScreenshotsKey(), false },
        { moveScreenshotsKey(), false },
    });
    return defaults;
}

} // namespace

AppSettings::AppSettings(UserDefaults& defaults)
    : m_defaults(withRegisteredDefaults(defaults))
    , m_autoExpandOnDrag(defaults.boolean(autoExpandOnDragKey()))
    , m_expiry(expiry(defaults.integer(expiryKey())).value_or(Expiry::day))
    , m_reservesSpace(defaults.boolean(reserveSpaceKey()))
    , m_collectScreenshots(defaults.boolean(collectScreenshotsKey()))
    , m_moveScreenshots(defaults.boolean(moveScreenshotsKey()))
{
}

std::optional<AppSettings::Expiry> AppSettings::expiry(qint64 rawValue)
{
    const auto candidate = static_cast<Expiry>(rawValue);
    const bool isKnown = std::find(allExpiries.begin(), allExpiries.end(), candidate) != allExpiries.end();
    return isKnown ? std::optional(candidate) : std::nullopt;
}

QString AppSettings::title(Expiry expiry)
{
    switch (expiry) {
    case Expiry::never:
        return tr("Never");
    case Expiry::hour:
        return tr("After 1 hour");
    case Expiry::day:
        return tr("After 24 hours");
    case Expiry::week:
        return tr("After 1 week");
    }
    Q_UNREACHABLE();
}

void AppSettings::setFlag(bool& flag, bool value, const QString& forKey, Signal changed)
{
    const bool isChange = flag != value;
    flag = value;
    m_defaults.set(value, forKey);
    if (isChange)
        Q_EMIT(this->*changed)();
}

void AppSettings::setAutoExpandOnDrag(bool autoExpandOnDrag)
{
    setFlag(m_autoExpandOnDrag, autoExpandOnDrag, autoExpandOnDragKey(), &AppSettings::autoExpandOnDragChanged);
}

void AppSettings::setExpiry(Expiry expiry)
{
    const bool isChange = m_expiry != expiry;
    m_expiry = expiry;
    m_defaults.set(static_cast<qint64>(expiry), expiryKey());
    if (isChange)
        Q_EMIT expiryChanged();
}

void AppSettings::setReservesSpace(bool reservesSpace)
{
    setFlag(m_reservesSpace, reservesSpace, reserveSpaceKey(), &AppSettings::reservesSpaceChanged);
}

void AppSettings::setCollectScreenshots(bool collectScreenshots)
{
    setFlag(m_collectScreenshots, collectScreenshots, collectScreenshotsKey(), &AppSettings::collectScreenshotsChanged);
}

void AppSettings::setMoveScreenshots(bool moveScreenshots)
{
    setFlag(m_moveScreenshots, moveScreenshots, moveScreenshotsKey(), &AppSettings::moveScreenshotsChanged);
}

} // namespace nookle
