#include "DecoderProgram.h"

#include <QDir>
#include <QFileInfo>

namespace nookle {

QString decoderProgram(const QString& programFolder)
{
    const QDir folder(programFolder);
    const QString beside = folder.filePath(QStringLiteral("nookle-decode"));
    const QString installed = QDir::cleanPath(folder.filePath(QStringLiteral("../libexec/nookle/nookle-decode")));
    const bool isOnlyInstalled = !QFileInfo(beside).isExecutable() && QFileInfo(installed).isExecutable();
    return isOnlyInstalled ? installed : beside;
}

} // namespace nookle
