#pragma once

#include "HelperProcess.h"

#include <QString>

namespace nookle {

/// How a helper program is confined, from one start to the next. A single failure may be chance, so the sandbox has a
/// second try; where that fails too, or there is no sandbox at all, the helper runs without, for that one start: the
/// next one tries the sandbox again.
class HelperConfinement final {
public:
    using Confinement = HelperProcess::Confinement;

    /// `name` is what the log calls the helper.
    HelperConfinement(QString name, Confinement wanted);

    /// What the helper is to be started with.
    [[nodiscard]] Confinement next();

    /// The helper has begun to work.
    void succeeded();

    /// The helper has ended before it began. True if it is to be started again at once.
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
