#include "HelperConfinement.h"

#include "Log.h"
#include "Sandbox.h"

#include <utility>

namespace nookle {

HelperConfinement::HelperConfinement(QString name, Confinement wanted)
    : m_name(std::move(name))
    , m_wanted(wanted)
{
}

HelperConfinement::Confinement HelperConfinement::next()
{
    const bool hasTry = m_failures < mostTries && !sandboxProgram().isEmpty();
    m_current = hasTry ? m_wanted : Confinement::none;
    return m_current;
}

void HelperConfinement::succeeded()
{
    m_failures = 0;
    if (m_current == Confinement::sandbox)
        m_hasTold = false;
}

bool HelperConfinement::failed()
{
    if (m_current == Confinement::none) {
        m_failures = 0;
        return false;
    }
    if (++m_failures == mostTries && !std::exchange(m_hasTold, true))
        logLine(QStringLiteral("the %1 does not start in a sandbox, and runs without").arg(m_name));
    return true;
}

} // namespace nookle
