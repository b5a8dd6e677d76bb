#include "UseCount.h"

namespace nookle {

void UseCount::change(bool begins)
{
    const bool wasInUse = m_count > 0;
    m_count += begins ? 1 : -1;
    const bool isInUse = m_count > 0;
    if (onChanged && wasInUse != isInUse)
        onChanged(isInUse);
}

std::function<void(bool begins)> UseCount::listener()
{
    return m_lifetime.guarded([this](bool begins) { change(begins); });
}

} // namespace nookle
