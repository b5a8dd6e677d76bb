#pragma once

#include "HelperProcess.h"

#include <QString>

namespace nookle {

/// Decides for each start of a helper program whether it runs in the sandbox. A single failure may be chance, so the
/// sandbox gets a second try. If that fails too, or no sandbox is installed, the helper runs without one for this
/// start. The start after that tries the sandbox again.
class HelperConfinement final {
public:
    using Confinement = HelperProcess::Confinement;

    /// `name` is the helper's name in log lines.
    HelperConfinement(QString name, Confinement wanted);

    /// The confinement for the next start of the helper.
    [[nodiscard]] Confinement next();

    /// Call this when the helper has started successfully.
    void succeeded();

    /// Call this when the helper has ended before it was ready. True if the caller must start it again at once.
    [[nodiscard]] bool failed();

private:
    inline static constexpr int mostTries = 2;

    QString m_name;
    Confinement m_wanted;
    Confinement m_current = Confinement::none;
    int m_failures = 0;
    bool m_hasTold = false;
};

} // namespace nookle
