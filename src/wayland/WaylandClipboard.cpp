#include "WaylandClipboard.h"

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

const QMimeData* WaylandClipboard::content(Content which)
{
    return m_clipboard.mimeData(which == Content::selected ? QClipboard::Selection : QClipboard::Clipboard);
}

void WaylandClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (data)
        m_clipboard.setMimeData(data.release(), QClipboard::Clipboard);
    else
        m_clipboard.clear(QClipboard::Clipboard);
}

} // namespace nookle
