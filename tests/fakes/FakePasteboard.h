#pragma once

#include "FakeDropPayload.h"
#include "Pasteboard.h"

#include <QStringList>

namespace nookle {

/// Holds what a test gives it, and remembers every operation as one line.
class FakePasteboard final : public Pasteboard {
public:
    [[nodiscard]] std::unique_ptr<DropPayload> contents() const override
    {
        return std::make_unique<FakeDropPayload>(payload);
    }
    [[nodiscard]] std::unique_ptr<DropPayload> selection() const override
    {
        return std::make_unique<FakeDropPayload>(selected);
    }
    void clear() override { operations.append(QStringLiteral("clear")); }
    void writeFile(const QUrl& file) override { operations.append(QStringLiteral("file ") + file.toString()); }
    void writeText(const QString& text) override { operations.append(QStringLiteral("text ") + text); }
    void writeLink(const QString& address) override { operations.append(QStringLiteral("link ") + address); }
    void writeAddresses(const QStringList& addresses, const QString& text) override
    {
        operations.append(QStringLiteral("addresses %1 text %2").arg(addresses.join(QLatin1Char(' ')), text));
    }
    void writeImage(const QUrl& file) override { operations.append(QStringLiteral("image ") + file.toString()); }

    FakeDropPayload payload;
    FakeDropPayload selected;
    QStringList operations;
};

} // namespace nookle
