#pragma once

#include <QString>

namespace nookle {

/// The reason of a failure, in the words of the system. Functions return it as an optional: none means success.
struct Failure {
    QString description;
};

} // namespace nookle
