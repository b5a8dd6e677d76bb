#include "NameSearch.h"

#include <algorithm>

namespace nookle {

namespace {

/// In milliseconds.
inline constexpr quint64 longestPause = 1000;

} // namespace

bool NameSearch::isUnderWay(quint64 time) const
{
    return !m_typed.isEmpty() && time - m_lastTime <= longestPause;
}

std::optional<std::size_t> NameSearch::find(const QString& typed, quint64 time, std::optional<std::size_t> current,
                                            std::size_t rowCount, const std::function<QString(std::size_t row)>& name)
{
    if (!isUnderWay(time))
        m_typed.clear();
    m_typed += typed;
    m_lastTime = time;
    const bool isOneLetter = std::all_of(m_typed.begin(), m_typed.end(), [this](QChar letter) {
        return letter.toCaseFolded() == m_typed.front().toCaseFolded();
    });
    const QString beginning = isOneLetter ? m_typed.left(1) : m_typed;
    const std::size_t start = current ? *current + (isOneLetter ? 1 : 0) : 0;
    for (std::size_t step = 0; step < rowCount; ++step) {
        const std::size_t row = (start + step) % rowCount;
        if (name(row).startsWith(beginning, Qt::CaseInsensitive))
            return row;
    }
    return std::nullopt;
}

} // namespace nookle
