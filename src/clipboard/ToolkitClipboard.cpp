#include "ToolkitClipboard.h"

#include "ToolkitContent.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace nookle {

ToolkitClipboard::ToolkitClipboard()
{
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        if (onCopied)
            onCopied();
    });
}

std::unique_ptr<ClipboardContent> ToolkitClipboard::content(Content which)
{
    const auto mode = which == Content::selected ? QClipboard::Selection : QClipboard::Clipboard;
    return std::make_unique<ToolkitContent>(QGuiApplication::clipboard()->mimeData(mode));
}

void ToolkitClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (data)
        QGuiApplication::clipboard()->setMimeData(data.release());
    else
        QGuiApplication::clipboard()->clear();
}

} // namespace nookle
