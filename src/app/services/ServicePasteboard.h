#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace nookle {

/// The data that another program hands over for the shelf.
struct ServicePasteboard {
    QList<QUrl> fileUrls;
    std::optional<QString> string;
};

/// Sorts addresses and a text (empty for none) into a pasteboard. If there is no text, the first address that is not a
/// file's takes its place.
[[nodiscard]] ServicePasteboard servicePasteboard(const QStringList& uris, const QString& text);

/// The files and pages of a list of addresses, each in the order of the list.
struct AddressList {
    QList<QUrl> fileUrls;
    QStringList pages;
};

/// Sorts `uris`. Leaves out invalid addresses and files of other machines.
[[nodiscard]] AddressList addressList(const QStringList& uris);

} // namespace nookle
