#pragma once

#include "Notifier.h"

namespace nookle {

/// Messages in the desktop's own way. Where nothing shows them, they go to the log. Main thread only.
class DesktopNotifier final : public Notifier {
public:
    void notify(const QString& text) override;
};

} // namespace nookle
