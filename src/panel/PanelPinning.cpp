#include "PanelPinning.h"

#include "UserDefaults.h"

namespace nookle {

namespace {

[[nodiscard]] QString pinnedKey()
{
    return QStringLiteral("panelPinned");
}

} // namespace

PanelPinning::PanelPinning(UserDefaults& defaults)
    : m_defaults(defaults)
    , m_isPinned(defaults.boolean(pinnedKey()))
{
}

void PanelPinning::setPinned(bool isPinned)
{
    m_isPinned = isPinned;
    m_defaults.set(isPinned, pinnedKey());
    Q_EMIT isPinnedChanged();
}

} // namespace nookle
