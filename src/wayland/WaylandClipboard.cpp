#include "WaylandClipboard.h"

#include "ToolkitContent.h"

#include <KSystemClipboard>
#include <QMimeData>

namespace nookle {

WaylandClipboard::WaylandClipboard()
    : m_clipboard(*KSystemClipboard::instance())
{
    connect(&m_clipboard, &KSystemClipboard::changed, this, [this](QClipboard::Mode mode) {
        if (mode == QClipboard::Clipboard && onCopied)
            onCopied();
    });
}

std::unique_ptr<ClipboardContent> WaylandClipboard::content(Content which)
{
    const auto mode = which == Content::selected ? QClipboard::Selection : QClipboard::Clipboard;
    return std::make_unique<ToolkitContent>(m_clipboard.mimeData(mode));
}

void WaylandClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (data)
        m_clipboard.setMimeData(data.release(), QClipboard::Clipboard);
    else
        m_clipboard.clear(QClipboard::Clipboard);
}

} // namespace nookle
