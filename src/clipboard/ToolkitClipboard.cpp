#include "ToolkitClipboard.h"

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

const QMimeData* ToolkitClipboard::content(Content which)
{
    return QGuiApplication::clipboard()->mimeData(which == Content::selected ? QClipboard::Selection
                                                                             : QClipboard::Clipboard);
}

void ToolkitClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (data)
        QGuiApplication::clipboard()->setMimeData(data.release());
    else
        QGuiApplication::clipboard()->clear();
}

} // namespace nookle
