#pragma once

#include "FileTransfers.h"

#include <QObject>

namespace nookle {

/// File transfers through the desktop's document portal.
class PortalFileTransfers final : public QObject, public FileTransfers {
    Q_OBJECT

public:
    [[nodiscard]] bool isAvailable() override;
    [[nodiscard]] std::optional<QByteArray> offer(const QList<QUrl>& files) override;
    void retrieve(const QByteArray& key, Completion completion) override;
};

} // namespace nookle
