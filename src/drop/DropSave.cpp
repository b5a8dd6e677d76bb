#include "DropSave.h"

#include "DropPayload.h"
#include "DropText.h"
#include "FileUrl.h"
#include "PlainText.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QString>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace nookle {

namespace {

/// In bytes. File systems allow 255, and a number may be appended.
inline constexpr qsizetype longestName = 200;

[[nodiscard]] QString fileName(const DropPayload& payload)
{
    const QString text = withoutControls(decodeName(payload.suggestedName()));
    QString name = text.section(QLatin1Char('/'), -1).trimmed();
    while (name.toUtf8().size() > longestName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name;
}

/// The name without its extension and without leading dots, which would hide the folder; empty if nothing is left.
[[nodiscard]] QString folderName(const QString& fileName)
{
    const auto begin =
        std::find_if(fileName.begin(), fileName.end(), [](QChar each) { return each != QLatin1Char('.'); });
    const QString name = fileName.mid(begin - fileName.begin()).trimmed();
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.left(dot) : name;
}

/// Makes a new folder with that name, or with that name and a number. Returns its path; empty when none can be made.
[[nodiscard]] QByteArray makeNewFolder(const QByteArray& parent, const QString& name)
{
    constexpr int mostTries = 1000;
    constexpr mode_t forTheUserAlone = 0700;
    for (int number = 1; number <= mostTries; ++number) {
        const QString numbered = number == 1 ? name : QStringLiteral("%1 (%2)").arg(name).arg(number);
        const QByteArray folder = parent + '/' + QFile::encodeName(numbered);
        if (::mkdir(folder.constData(), forTheUserAlone) == 0)
            return folder;
        if (errno != EEXIST)
            return {};
    }
    return {};
}

} // namespace

bool canSaveDrop(const DropPayload& payload)
{
    return payload.canSave() && !folderName(fileName(payload)).isEmpty();
}

std::optional<QUrl> saveDrop(const DropPayload& payload)
{
    if (!canSaveDrop(payload))
        return std::nullopt;
    const QString name = fileName(payload);
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    if (!QDir().mkpath(downloads))
        return std::nullopt;
    const QByteArray folder = makeNewFolder(QFile::encodeName(downloads), folderName(name));
    if (folder.isEmpty())
        return std::nullopt;
    if (payload.save(folder + '/' + QFile::encodeName(name)) != SaveAnswer::refused)
        return fileUrl(folder);
    ::rmdir(folder.constData());
    return std::nullopt;
}

} // namespace nookle
