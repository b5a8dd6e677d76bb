#pragma once

#include "DropPayload.h"

#include <QHash>

namespace nookle {

/// A drop that offers what a test gives it, and notes what is read of it.
class FakeDropPayload final : public DropPayload {
public:
    /// Offers one more format, after those before it. Empty bytes are a format that the source does not deliver.
    FakeDropPayload& offer(const QByteArray& format, const QByteArray& bytes)
    {
        m_formats.append(QString::fromLatin1(format));
        m_bytes.insert(m_formats.constLast(), bytes);
        return *this;
    }

    [[nodiscard]] QStringList formats() const override { return m_formats; }
    [[nodiscard]] QByteArray suggestedName() const override { return name; }

    void expect(const QStringList& formats) const override { expected = formats; }

    [[nodiscard]] QByteArray data(const QString& format) const override
    {
        read.append(format);
        return m_bytes.value(format);
    }

    [[nodiscard]] bool canSave() const override { return offersSaving; }

    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override
    {
        savedTo.append(path);
        return saveAnswer;
    }

    QByteArray name;
    bool offersSaving = false;
    SaveAnswer saveAnswer = SaveAnswer::saved;
    mutable QList<QByteArray> savedTo;
    mutable QStringList expected;
    mutable QStringList read;

private:
    QStringList m_formats;
    QHash<QString, QByteArray> m_bytes;
};

} // namespace nookle
