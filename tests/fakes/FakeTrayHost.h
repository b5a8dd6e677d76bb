#pragma once

#include "TrayHost.h"

namespace nookle {

/// A tray that comes and goes as a test says.
class FakeTrayHost : public TrayHost {
public:
    bool isPresent() const override { return m_isPresent; }

    void setPresent(bool isPresent)
    {
        m_isPresent = isPresent;
        onChanged();
    }

private:
    bool m_isPresent = false;
};

} // namespace nookle
