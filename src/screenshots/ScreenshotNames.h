#pragma once

#include <QByteArray>
#include <QString>

namespace nookle {

/// The word for a screenshot with which Xfce's tool begins the names of its files, in the user's language.
[[nodiscard]] QString translatedScreenshot();

/// Whether a file name has the default form of a screenshot tool that marks its files in no other way. `word` stands in
/// the user's language for the tools' "Screenshot".
[[nodiscard]] bool isScreenshotName(const QByteArray& name, const QString& word);

} // namespace nookle
