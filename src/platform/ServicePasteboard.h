#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace nookle {

/// What another program hands over to be put on the shelf.
struct ServicePasteboard {
    QList<QUrl> fileUrls;
    std::optional<QString> string;
};

/// Sorts addresses and a text, which is empty when there is none, into what they are. An address that is no file's is
/// the text when nothing else is.
[[nodiscard]] ServicePasteboard servicePasteboard(const QStringList& uris, const QString& text);

} // namespace nookle
