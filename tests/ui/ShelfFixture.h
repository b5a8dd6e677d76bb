#pragma once

#include "FakeCompositing.h"
#include "FakeFileReferences.h"
#include "FakeFileTransfers.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakePasteboard.h"
#include "FakeThumbnailGenerator.h"
#include "FakeTrash.h"
#include "FakeUserDefaults.h"
#include "FakeWorkspace.h"
#include "FileUrl.h"
#include "ItemInteractionView.h"
#include "MimeDropPayload.h"
#include "PanelPinning.h"
#include "ShelfStore.h"
#include "ShelfView.h"

#include <QApplication>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

namespace nookle {

[[nodiscard]] inline ShelfStore::Environment environmentWith(FakeTrash& trash)
{
    ShelfStore::Environment environment;
    environment.moveToTrash = [&trash](const QUrl& file) { return trash.moveToTrash(file); };
    environment.putBack = [&trash](const QUrl& file) { return trash.putBack(file); };
    environment.fetchesLinkMetadata = false;
    return environment;
}

/// A shelf view in the panel's size with everything around it.
struct ShelfFixture {
    QTemporaryDir directory;
    FakeMainQueue queue;
    FakeUserDefaults defaults;
    FakeFileReferences references;
    FakeTrash trash;
    FakeLinkMetadataService metadata;
    FakeWorkspace workspace;
    FakePasteboard pasteboard{ queue };
    FakeCompositing compositing;
    FakeFileTransfers transfers;
    FakeThumbnailGenerator thumbnails;
    PanelPinning pinning{ defaults };
    ShelfStore store{
        fileUrl(directory.path().toUtf8() + "/Nookle"), environmentWith(trash), references, trash, metadata, queue
    };
    /// What becomes of a drag that begins with the mouse.
    std::function<DragOperation()> dragOutcome = [] { return DragOperation::none; };
    /// What the user was asked, and what happens when the last question is agreed to.
    QStringList questions;
    std::function<void()> agree;
    ShelfView view{ ShelfView::Services{
        store, pinning, workspace, pasteboard, trash, references, transfers, thumbnails, compositing, queue,
        [](const QMimeData& data) { return std::make_unique<MimeDropPayload>(data); },
        [this](QWidget&, const DragItem&) { return dragOutcome(); },
        [this](const QString& question, const QString&, std::function<void()> proceed) {
            questions.append(question);
            agree = std::move(proceed);
        } } };

    ShelfFixture()
    {
        view.resize(112, 752);
        view.show();
    }

    [[nodiscard]] const ShelfItem& top() const { return store.items().first(); }

    [[nodiscard]] QUrl addFile(const QByteArray& name)
    {
        const QUrl url = fileUrl("/somewhere/" + name);
        store.addFiles({ url });
        return url;
    }

    /// An image that the shelf owns, and its file.
    [[nodiscard]] QUrl addImage()
    {
        QFile source(directory.filePath(QStringLiteral("Shot.png")));
        if (!source.open(QIODevice::WriteOnly))
            return {};
        source.close();
        store.addImage(fileUrl(source.fileName().toUtf8()));
        return store.localURL(top()).value_or(QUrl());
    }

    /// Drags the top tile with the mouse.
    void dragTop()
    {
        const auto tiles = view.findChildren<ItemInteractionView*>();
        QVERIFY(!tiles.isEmpty());
        const auto top = [](const QWidget* widget) { return widget->mapToGlobal(QPoint()).y(); };
        ItemInteractionView* tile = *std::min_element(
            tiles.begin(), tiles.end(), [&](const auto* one, const auto* other) { return top(one) < top(other); });
        const QPoint start = tile->rect().center();
        QTest::mousePress(tile, Qt::LeftButton, {}, start);
        QMouseEvent move(QEvent::MouseMove, start + QPoint(20, 0), tile->mapToGlobal(start + QPoint(20, 0)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(tile, &move);
    }

    /// The menu of the top item in one line: "-" is a separator, brackets are a disabled entry.
    [[nodiscard]] QString menu()
    {
        QStringList entries;
        for (const auto& action : view.interaction(top()).menu()) {
            if (!action)
                entries.append(QStringLiteral("-"));
            else
                entries.append(action->isEnabled ? action->title : QStringLiteral("[%1]").arg(action->title));
        }
        return entries.join(QLatin1Char(' '));
    }

    void choose(const QString& title)
    {
        for (const auto& action : view.interaction(top()).menu()) {
            if (action && action->title == title) {
                action->action();
                return;
            }
        }
        QFAIL("no such entry");
    }
};

} // namespace nookle
