#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

/// One text of a catalogue.
struct CatalogueMessage {
    QString context;
    QString source;
    /// What tells two equal texts of a context apart.
    QString comment;
    bool hasPlural = false;
    bool isFinished = false;
    /// One text, or one for each plural form of the language.
    QStringList translations;

    /// Which text it is, whatever it reads in a language.
    [[nodiscard]] QString name() const { return context + QLatin1Char('|') + source + QLatin1Char('|') + comment; }
};

/// The messages of the catalogue's source (a .ts file) at `path`; none if it cannot be read.
[[nodiscard]] std::optional<QList<CatalogueMessage>> readCatalogue(const QString& path);

} // namespace nookle
