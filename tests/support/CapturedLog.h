#pragma once

#include <QStringList>

namespace nookle {

/// Collects every line that is logged while it lives, and keeps them off standard error. One at a time.
class CapturedLog {
public:
    CapturedLog();
    ~CapturedLog();
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    [[nodiscard]] const QStringList& lines() const;
};

} // namespace nookle
