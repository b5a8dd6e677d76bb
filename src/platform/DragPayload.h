#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace nookle {

/// What a drag out of the shelf offers to other programs. Texts are UTF-8. Main thread only.
class DragPayload final {
public:
    using Maker = std::function<std::optional<QByteArray>()>;

    /// Adds a format after those that are there. `make` is called each time somebody asks for its bytes, and returns
    /// nothing when it cannot make them.
    void add(const QString& format, Maker make);

    /// The names of the formats, the best one first. Costs nothing.
    [[nodiscard]] QStringList formats() const;

    /// The bytes in that format; nothing when it is not offered, or its bytes cannot be made.
    [[nodiscard]] std::optional<QByteArray> data(const QString& format) const;

private:
    std::vector<std::pair<QString, Maker>> m_formats;
};

} // namespace nookle
