#pragma once

#include <QString>

namespace nookle {

/// Shows the user a short message. Main thread only.
class Notifier {
public:
    virtual ~Notifier() = default;

    /// Does not wait until the message is shown.
    virtual void notify(const QString& text) = 0;
};

} // namespace nookle
