#pragma once

#include <QByteArray>

namespace nookle {

enum class Compression { gzip, zlib, rawDeflate, brotli };

/// `bytes` as a server would send them.
[[nodiscard]] QByteArray compressed(const QByteArray& bytes, Compression compression);

} // namespace nookle
