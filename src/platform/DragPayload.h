#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace nookle {

/// The data that a drag out of the shelf offers to other programs, in several formats. Texts are UTF-8. Main thread
/// only.
class DragPayload final {
public:
    using Maker = std::function<std::optional<QByteArray>()>;

    /// Adds a format behind the existing ones. `make` is called for each request for the bytes; it returns none if it
    /// cannot make them.
    void add(const QString& format, Maker make);

    /// The names of the formats, the best one first. Makes no bytes.
    [[nodiscard]] QStringList formats() const;

    /// The bytes in `format`; none when the format is not offered, or its bytes cannot be made.
    [[nodiscard]] std::optional<QByteArray> data(const QString& format) const;

private:
    std::vector<std::pair<QString, Maker>> m_formats;
};

} // namespace nookle
