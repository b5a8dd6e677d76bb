#pragma once

#include "FileTransfers.h"

#include <QObject>

#include <memory>

namespace nookle {

class Mounts;

/// File transfers through the desktop's document portal. Files that may not answer when they are opened are not
/// offered.
class PortalFileTransfers final : public QObject, public FileTransfers {
    Q_OBJECT

public:
    explicit PortalFileTransfers(std::shared_ptr<Mounts> mounts);

    [[nodiscard]] bool isAvailable() override;
    [[nodiscard]] std::optional<QByteArray> offer(const QList<QUrl>& files) override;
    void retrieve(const QByteArray& key, Completion completion) override;

private:
    std::shared_ptr<Mounts> m_mounts;
};

} // namespace nookle
