#include "ExpirySweep.h"

#include "AppSettings.h"
#include "MainQueue.h"
#include "ShelfStore.h"

namespace nookle {

namespace {

inline constexpr double interval = 60;

} // namespace

ExpirySweep::ExpirySweep(const AppSettings& settings, ShelfStore& store, MainQueue& queue)
    : m_settings(settings)
    , m_store(store)
{
    sweep();
    m_timer = queue.every(interval, [this] { sweep(); });
}

ExpirySweep::~ExpirySweep() = default;

void ExpirySweep::sweep()
{
    if (m_settings.expiry() != AppSettings::Expiry::never)
        m_store.removeExpired(static_cast<double>(m_settings.expiry()));
}

} // namespace nookle
