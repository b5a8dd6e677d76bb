#pragma once

#include "Notifier.h"

namespace nookle {

/// Shows messages as desktop notifications. If the desktop cannot show a message, it goes to the log. Main thread only.
class DesktopNotifier final : public Notifier {
public:
    void notify(const QString& text) override;
};

} // namespace nookle
