#include "HelperProgram.h"

#include <QDir>
#include <QFileInfo>

namespace nookle {

QString helperProgram(const QString& programFolder, const QString& name)
{
    const QDir folder(programFolder);
    const QString beside = folder.filePath(name);
    const QDir helpers(QDir::cleanPath(folder.filePath(QStringLiteral("../libexec/nookle"))));
    const QString installed = helpers.filePath(name);
    const bool isOnlyInstalled = !QFileInfo(beside).isExecutable() && QFileInfo(installed).isExecutable();
    return isOnlyInstalled ? installed : beside;
}

} // namespace nookle
