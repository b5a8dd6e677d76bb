#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace nookle {

/// The source's answer to the request to save its data as a file.
enum class SaveAnswer {
    /// The files are there, or on their way.
    saved,
    refused,
    /// The source did not answer in time. The files may still arrive.
    none,
};

/// The data that the source of a drop offers. It can be read only while the drop is being handled. Main thread only.
class DropPayload {
public:
    virtual ~DropPayload() = default;

    /// The names of the formats in the source's order. Sends no request to the source.
    [[nodiscard]] virtual QStringList formats() const = 0;

    /// Tells which formats may be read, before any is. A payload whose source answers only once asks for them together;
    /// others do nothing.
    virtual void expect(const QStringList& /*formats*/) const {}

    /// The bytes in `format`. Empty when the source does not deliver them, or not within the limits of size and time;
    /// the time limit is for all calls on one payload together.
    [[nodiscard]] virtual QByteArray data(const QString& format) const = 0;

    /// The name that the source suggests for a file with its data. The bytes may have any encoding. Empty when the
    /// source suggests none.
    [[nodiscard]] virtual QByteArray suggestedName() const = 0;

    /// Whether the source can save its data as a file. Sends no request to the source.
    [[nodiscard]] virtual bool canSave() const = 0;

    /// Asks the source to save its data at `path`. Nothing may exist at `path`, and its folder must be empty: some
    /// sources save several files there, under names of their own.
    [[nodiscard]] virtual SaveAnswer save(const QByteArray& path) const = 0;
};

} // namespace nookle
