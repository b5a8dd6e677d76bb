#include "TrayFinder.h"

#include "Log.h"
#include "MainQueue.h"
#include "TrayHost.h"

#include <utility>

namespace nookle {

namespace {

inline constexpr double graceTime = 5;

} // namespace

TrayFinder::TrayFinder(TrayHost& notifier, TrayHost* embedding, MainQueue& queue)
    : m_notifier(notifier)
    , m_embedding(embedding)
    , m_queue(queue)
{
}

TrayFinder::~TrayFinder()
{
    m_notifier.onChanged = [] {};
    if (m_embedding)
        m_embedding->onChanged = [] {};
}

void TrayFinder::start()
{
    m_notifier.onChanged = [this] { look(); };
    if (m_embedding)
        m_embedding->onChanged = [this] { look(); };
    waitForBetter();
    look();
}

bool TrayFinder::hasEmbeddingTray() const
{
    return m_embedding && m_embedding->isPresent();
}

void TrayFinder::look()
{
    if (m_hasFound)
        return;
    if (m_notifier.isPresent()) {
        found();
        return;
    }
    if (hasEmbeddingTray() && !m_grace)
        waitForBetter();
}

void TrayFinder::waitForBetter()
{
    m_grace = m_queue.after(graceTime, [this] { settle(); });
}

void TrayFinder::settle()
{
    m_grace.reset();
    if (hasEmbeddingTray()) {
        found();
        return;
    }
    if (!std::exchange(m_hasSaidNone, true))
        logLine(QStringLiteral("no system tray: the shelf opens at the edge, by its shortcut and from file managers"));
}

void TrayFinder::found()
{
    m_grace.reset();
    m_hasFound = true;
    onFound();
}

} // namespace nookle
