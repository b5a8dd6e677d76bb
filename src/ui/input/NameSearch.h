#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <optional>

namespace nookle {

/// Finds rows by the beginning of their names, which the user types letter by letter. A pause begins a new search.
class NameSearch final {
public:
    /// Adds `typed`, in any case, at `time` (in milliseconds). Returns the next row whose name begins with everything
    /// typed so far, beginning at the current row, or below it for a new search and for one letter typed again and
    /// again. Goes on at the top. None if there is no such row.
    [[nodiscard]] std::optional<std::size_t> find(const QString& typed, quint64 time,
                                                  std::optional<std::size_t> current, std::size_t rowCount,
                                                  const std::function<QString(std::size_t row)>& name);

    /// Whether what is typed at `time` continues a search.
    [[nodiscard]] bool isUnderWay(quint64 time) const;

private:
    QString m_typed;
    quint64 m_lastTime = 0;
};

} // namespace nookle
