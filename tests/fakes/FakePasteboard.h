#pragma once

#include "Pasteboard.h"

#include <QStringList>

namespace nookle {

/// Remembers every operation as one line.
class FakePasteboard final : public Pasteboard {
public:
    void clear() override { operations.append(QStringLiteral("clear")); }
    void writeFile(const QUrl& file) override { operations.append(QStringLiteral("file ") + file.toString()); }
    void writeText(const QString& text) override { operations.append(QStringLiteral("text ") + text); }
    void writeLink(const QString& address) override { operations.append(QStringLiteral("link ") + address); }
    void writeImage(const QUrl& file) override { operations.append(QStringLiteral("image ") + file.toString()); }

    QStringList operations;
};

} // namespace nookle
