#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <map>

namespace nookle {

/// One tag or title of a page, with its character references decoded.
namespace HtmlFragment {

using Attributes = std::map<QByteArray, QString>;

/// The attributes of the start tag `source`, by their names in lower case.
[[nodiscard]] Attributes attributes(QByteArrayView source);

/// The text `source`, in which no tag counts as one.
[[nodiscard]] QString text(QByteArrayView source);

} // namespace HtmlFragment

} // namespace nookle
