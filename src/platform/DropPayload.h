#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace nookle {

/// What became of the request that a source saves what it carries.
enum class SaveAnswer {
    /// The files are there, or on their way.
    saved,
    refused,
    /// None in time. The files may come all the same.
    none,
};

/// What the source of a drop offers. It can be read only while the drop is being handled. Main thread only.
class DropPayload {
public:
    virtual ~DropPayload() = default;

    /// The names of the formats in the source's order. Costs the source nothing.
    [[nodiscard]] virtual QStringList formats() const = 0;

    /// The bytes in that format; empty when the source does not deliver them, or not within the limits of size and of
    /// time that hold for the whole drop.
    [[nodiscard]] virtual QByteArray data(const QString& format) const = 0;

    /// The name that the source suggests for a file of what it carries, in bytes of any encoding; empty when it
    /// suggests none.
    [[nodiscard]] virtual QByteArray suggestedName() const = 0;

    /// Whether the source can save what it carries as a file. Costs the source nothing.
    [[nodiscard]] virtual bool canSave() const = 0;

    /// Has the source save what it carries at that path, under which nothing exists, in a folder for it alone: some
    /// sources save several files there, under names of their own.
    [[nodiscard]] virtual SaveAnswer save(const QByteArray& path) const = 0;
};

} // namespace nookle
