#pragma once

#include "Trash.h"

#include <QByteArray>

#include <vector>

namespace nookle {

/// The Trash that all programs of the desktop share, through GIO. Main thread only.
class GioTrash final : public Trash {
public:
    /// `dataHome` is the user's data folder, which holds the Trash of its volume.
    explicit GioTrash(const QByteArray& dataHome);

    std::optional<Failure> moveToTrash(const QUrl& url) override;
    std::optional<Failure> putBack(const QUrl& url) override;
    bool canPutBack(const QUrl& url) const override;
    bool contains(const QUrl& url) const override;

private:
    QByteArray m_dataHome;
    /// Parts of a path that show that the file is in a Trash.
    std::vector<QByteArray> m_fragments;
};

} // namespace nookle
