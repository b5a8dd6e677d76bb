#include "ShortPath.h"

namespace nookle {

namespace {

inline constexpr qsizetype longest = 72;

} // namespace

QString shortPath(const QString& path)
{
    if (path.size() <= longest)
        return path;
    const QChar slash = QLatin1Char('/');
    const qsizetype firstEnd = path.indexOf(slash, 1);
    qsizetype endStart = path.lastIndexOf(slash);
    if (firstEnd < 0 || firstEnd == endStart)
        return path;
    const QString start = path.left(firstEnd) + QStringLiteral("/\u2026");
    for (qsizetype previous = endStart; previous > firstEnd; previous = path.lastIndexOf(slash, previous - 1)) {
        if (start.size() + path.size() - previous > longest)
            break;
        endStart = previous;
    }
    return endStart == firstEnd ? path : start + path.mid(endStart);
}

} // namespace nookle
