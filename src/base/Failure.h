#pragma once

#include <QString>

namespace nookle {

/// Why something did not work, in the platform's plain words. Returned as an optional: none means that it worked.
struct Failure {
    QString description;
};

} // namespace nookle
