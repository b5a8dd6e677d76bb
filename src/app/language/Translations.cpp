#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>

namespace nookle {

namespace {

/// The catalogues that suit a language, the best first: of its country, of its script, of the language alone.
[[nodiscard]] QStringList catalogues(const QString& language)
{
    const QLocale locale(language);
    const QString code = QLocale::languageToCode(locale.language());
    // Without a country or a script the locale has those that most speakers have, which need not be the user's.
    if (!language.contains(QLatin1Char('-')) && !language.contains(QLatin1Char('_')))
        return { code };
    return { locale.name(), QString(code + QLatin1Char('_') + QLocale::scriptToCode(locale.script())), code };
}

} // namespace

Translations::Translations(const QString& folder, const QStringList& languages)
{
    const auto found = std::find_if(languages.begin(), languages.end(),
                                    [&](const QString& language) { return load(folder, language); });
    if (found != languages.end())
        followLanguage(*found);
    else if (!load(folder, QStringLiteral("en")))
        return;
    QCoreApplication::installTranslator(&m_own);
}

QString Translations::folder(const QString& programFolder)
{
    const QDir folder(programFolder);
    const QString beside = folder.filePath(QStringLiteral("translations"));
    return QFileInfo(beside).isDir() ? beside
                                     : QDir::cleanPath(folder.filePath(QStringLiteral("../share/nookle/translations")));
}

bool Translations::load(const QString& folder, const QString& language)
{
    for (const QString& name : catalogues(language)) {
        const QString path = folder + QStringLiteral("/nookle_") + name + QStringLiteral(".qm");
        if (QFileInfo::exists(path) && m_own.load(path)) {
            m_catalogue = name;
            return true;
        }
    }
    return false;
}

void Translations::followLanguage(const QString& language)
{
    const QLocale locale(language);
    if (locale.language() == QLocale::English)
        return;
    // Of the toolkit's own texts only the keys' names are seen, in menus.
    const QString installed = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (m_toolkit.load(QStringLiteral("qtbase_") + locale.name(), installed))
        QCoreApplication::installTranslator(&m_toolkit);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

} // namespace nookle
