#include "X11Clipboard.h"

#include "X11ClipboardContent.h"

#include <QMimeData>

namespace nookle {

X11Clipboard::X11Clipboard(std::chrono::milliseconds patience)
    : m_patience(patience)
{
    m_toolkit.onCopied = [this] {
        if (onCopied)
            onCopied();
    };
}

std::unique_ptr<ClipboardContent> X11Clipboard::content(Content which)
{
    return std::make_unique<X11ClipboardContent>(which == Content::selected ? "PRIMARY" : "CLIPBOARD", m_patience);
}

void X11Clipboard::copy(std::unique_ptr<QMimeData> data)
{
    m_toolkit.copy(std::move(data));
}

} // namespace nookle
