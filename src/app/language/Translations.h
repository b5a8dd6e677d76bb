#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

namespace nookle {

/// The program's texts in the user's language, for as long as this object lives. Made after the application object and
/// before the first text is shown. Main thread only.
class Translations final {
public:
    /// Installs the catalogue of the first of `languages` (names as of QLocale::uiLanguages) that has one in `folder`,
    /// with the writing direction of that language and the toolkit's own texts where they are installed. If none has
    /// one, the English catalogue, which has only the words that the source texts say otherwise.
    Translations(const QString& folder, const QStringList& languages);

    /// The folder of the catalogues of a program in `programFolder`: beside the program (in a build) or where they are
    /// installed.
    [[nodiscard]] static QString folder(const QString& programFolder);

    /// The catalogue that is installed, such as "de" or "pt_BR"; empty if there is none at all.
    [[nodiscard]] const QString& catalogue() const { return m_catalogue; }

private:
    [[nodiscard]] bool load(const QString& folder, const QString& language);
    void followLanguage(const QString& language);

    QTranslator m_own;
    QTranslator m_toolkit;
    QString m_catalogue;
};

} // namespace nookle
