#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace nookle {

/// The data that another program hands over for the shelf.
struct ServicePasteboard {
    QList<QUrl> fileUrls;
    /// Texts and web addresses, none of them empty.
    QStringList strings;
};

/// Sorts addresses and a text (empty for none) into a pasteboard. If there is no text, the addresses that are not
/// of files take its place.
[[nodiscard]] ServicePasteboard servicePasteboard(const QStringList& uris, const QString& text);

/// The files and pages of a list of addresses, each in the order of the list.
struct AddressList {
    QList<QUrl> fileUrls;
    QStringList pages;
};

/// Sorts `uris`. Leaves out invalid addresses and files of other machines.
[[nodiscard]] AddressList addressList(const QStringList& uris);

} // namespace nookle
