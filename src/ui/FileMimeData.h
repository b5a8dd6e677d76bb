#pragma once

#include <QMimeData>
#include <QUrl>

namespace nookle {

class FileTransfers;

/// A file on its way to another program: its address, and where the desktop has a service for it, a key by which a
/// sandboxed program gets access. The key is made only when it is asked for.
class FileMimeData final : public QMimeData {
    Q_OBJECT

public:
    /// `transfers` must outlive the data.
    FileMimeData(const QUrl& file, FileTransfers& transfers);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString& format) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType preferredType) const override;

private:
    QUrl m_file;
    FileTransfers& m_transfers;
    bool m_offersTransfer;
};

} // namespace nookle
