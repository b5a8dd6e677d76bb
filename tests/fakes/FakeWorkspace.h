#pragma once

#include "Workspace.h"

#include <QList>

namespace nookle {

/// Remembers what it was asked to open and to reveal.
class FakeWorkspace final : public Workspace {
public:
    void open(const QUrl& url) override { opened.append(url); }
    void reveal(const QList<QUrl>& files) override { revealed.append(files); }

    QList<QUrl> opened;
    /// One list for each request.
    QList<QList<QUrl>> revealed;
};

} // namespace nookle
