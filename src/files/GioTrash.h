#pragma once

#include "Trash.h"

#include <QByteArray>
#include <QSet>

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
    void rememberTrashOf(const QByteArray& path);
    /// Whether a Trash that has taken files from where `path` is is not there any more, as when its volume is not
    /// mounted.
    [[nodiscard]] bool isTrashAwayOf(const QByteArray& path) const;

    QByteArray m_dataHome;
    /// The folders of Trashes that have taken something.
    QSet<QByteArray> m_used;
    /// Parts of a path that show that the file is in a Trash.
    std::vector<QByteArray> m_fragments;
};

} // namespace nookle
