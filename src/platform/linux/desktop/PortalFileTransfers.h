#pragma once

#include "FileTransfers.h"

#include <QObject>

namespace nookle {

/// File transfers through the desktop's document portal.
class PortalFileTransfers final : public QObject, public FileTransfers {
    Q_OBJECT

public:
    [[nodiscard]] std::optional<QByteArray> begin() override;
    [[nodiscard]] bool add(const QByteArray& key, const QUrl& file) override;
    void retrieve(const QByteArray& key, Completion completion) override;

private:
    /// The bus may start the portal, unless that failed before.
    bool m_mayStartPortal = true;
};

} // namespace nookle
