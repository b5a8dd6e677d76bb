#pragma once

#include "FileTransfers.h"

#include <QObject>

#include <memory>

namespace nookle {

class Mounts;

/// File transfers through the desktop's document portal. Files on file systems that may not answer are not offered.
class PortalFileTransfers final : public QObject, public FileTransfers {
    Q_OBJECT

public:
    explicit PortalFileTransfers(std::shared_ptr<Mounts> mounts);

    [[nodiscard]] bool canHandOver(const QList<QUrl>& files) override;
    [[nodiscard]] std::optional<QByteArray> begin() override;
    [[nodiscard]] bool add(const QByteArray& key, const QList<QUrl>& files) override;
    void retrieve(const QByteArray& key, Completion completion) override;

private:
    std::shared_ptr<Mounts> m_mounts;
    /// Whether the bus may start the portal: not after the last attempt to use it has failed.
    bool m_mayStartPortal = true;
};

} // namespace nookle
