#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace nookle {

class DropPayload;

/// The address of a dropped file or page, in ASCII.
struct DroppedAddress {
    QString url;
    /// The title of the page, if the source offers one. Never empty, and without white space around it.
    std::optional<QString> title;

    [[nodiscard]] bool isFile() const;
};

/// Whether a format carries addresses.
[[nodiscard]] bool isAddressFormat(const QString& format);

/// Whether a format holds the title of the page at an address beside it.
[[nodiscard]] bool isTitleFormat(const QString& format);

/// Whether a format marks a drag out of a web page.
[[nodiscard]] bool isPageFormat(const QString& format);

/// The addresses of a drop in the source's order, without titles. Invalid addresses are left out, and those of files if
/// a web page has chosen them.
[[nodiscard]] std::vector<DroppedAddress> loadDropAddresses(const DropPayload& payload);

/// The title of the page at `url`, which must be the only address of the drop.
[[nodiscard]] std::optional<QString> loadDropTitle(const DropPayload& payload, const QString& url);

} // namespace nookle
