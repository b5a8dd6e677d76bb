#pragma once

#include <QCoreApplication>
#include <QString>

namespace nookle {

/// The reason of a failure. Functions return it as an optional: none means success.
struct Failure {
    /// For the log: the program's own words are English, the system's are as it gives them.
    QString description;
    /// The same in the user's language; empty where there is nothing to translate.
    QString translation = {};

    /// What a user is shown.
    [[nodiscard]] const QString& shown() const { return translation.isEmpty() ? description : translation; }
};

/// A failure in the program's own words, with strings for %1, %2 and so on. `text` is marked for the catalogues:
/// QT_TRANSLATE_NOOP("nookle::Failure", "…"). Any thread.
template <typename... Strings> [[nodiscard]] Failure translatedFailure(const char* text, const Strings&... strings)
{
    const QString description = QString::fromUtf8(text);
    const QString translation = QCoreApplication::translate("nookle::Failure", text);
    if constexpr (sizeof...(strings) == 0)
        return { description, translation };
    else
        return { description.arg(strings...), translation.arg(strings...) };
}

} // namespace nookle
