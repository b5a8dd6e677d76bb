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

/// What a list of files and pages holds, each in the order of the list.
struct AddressList {
    QList<QUrl> fileUrls;
    QStringList pages;
};

/// Leaves out what is no address, and files that are not on this machine.
[[nodiscard]] AddressList addressList(const QStringList& uris);

} // namespace nookle
