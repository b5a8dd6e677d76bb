#include "FileMimeData.h"

#include "FileTransfers.h"

namespace nookle {

namespace {

[[nodiscard]] QString transferFormat()
{
    return QStringLiteral("application/vnd.portal.filetransfer");
}

} // namespace

FileMimeData::FileMimeData(const QUrl& file, FileTransfers& transfers)
    : m_file(file)
    , m_transfers(transfers)
    , m_offersTransfer(transfers.isAvailable())
{
    setUrls({ file });
}

// First in the list: a program that understands both cannot tell whether it may open the address.
QStringList FileMimeData::formats() const
{
    const QStringList plain = QMimeData::formats();
    return m_offersTransfer ? QStringList{ transferFormat() } + plain : plain;
}

bool FileMimeData::hasFormat(const QString& format) const
{
    return formats().contains(format);
}

QVariant FileMimeData::retrieveData(const QString& format, QMetaType preferredType) const
{
    if (format != transferFormat())
        return QMimeData::retrieveData(format, preferredType);
    const auto key = m_offersTransfer ? m_transfers.offer({ m_file }) : std::nullopt;
    // Receivers expect the NUL.
    return key ? QVariant(*key + '\0') : QVariant();
}

} // namespace nookle
