#include "FileType.h"

#include "RegularFile.h"

#include <QFile>
#include <QMimeDatabase>

namespace nookle {

namespace {

[[nodiscard]] QMimeType typeOfContent(const QByteArray& path)
{
    const QMimeDatabase types;
    auto file = RegularFile::open(path, RegularFile::Links::follow);
    QFile content;
    if (!file || !content.open(file->descriptor.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return {};
    return types.mimeTypeForData(&content);
}

} // namespace

QString fileType(const QByteArray& path)
{
    const QMimeType byContent = typeOfContent(path);
    if (!byContent.isValid())
        return {};
    const QString name = QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
    const QMimeType byName = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    const bool isVague = byContent.isDefault() || byContent.name() == QLatin1String("text/plain");
    return isVague || byName.inherits(byContent.name()) ? byName.name() : byContent.name();
}

} // namespace nookle
