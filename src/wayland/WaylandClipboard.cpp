#include "WaylandClipboard.h"

#include "ChildReader.h"
#include "ToolkitContent.h"

#include <KSystemClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

namespace nookle {

namespace {

/// For one format, in bytes.
inline constexpr qsizetype largestContent = qsizetype{ 256 } * 1024 * 1024;

} // namespace

ClipboardAccess clipboardAccess(const QByteArrayList& interfaces)
{
    // The one that the library for the clipboard knows.
    return interfaces.contains("zwlr_data_control_manager_v1") ? ClipboardAccess::always : ClipboardAccess::withFocus;
}

WaylandClipboard::WaylandClipboard(std::function<bool()> flush, ClipboardAccess access)
    : m_flush(std::move(flush))
    , m_access(access)
    , m_clipboard(*KSystemClipboard::instance())
{
    connect(&m_clipboard, &KSystemClipboard::changed, this, [this](QClipboard::Mode mode) {
        if (mode == QClipboard::Clipboard && onCopied)
            onCopied();
    });
}

std::unique_ptr<ClipboardContent> WaylandClipboard::content(Content which)
{
    const auto mode = which == Content::selected ? QClipboard::Selection : QClipboard::Clipboard;
    const auto read = [flush = m_flush](const QMimeData& data, const QString& format,
                                        ToolkitContent::Clock::time_point deadline) {
        if (!flush())
            return QByteArray();
        // As in a drop.
        const ChildReader::Work work{ [&] { static_cast<void>(flush()); }, [&] { return data.data(format); } };
        return ChildReader::run(work, largestContent, deadline).value_or(QByteArray());
    };
    return std::make_unique<ToolkitContent>(m_clipboard.mimeData(mode), read);
}

// The action that adds the selection comes from another program, which has the focus then.
QString WaylandClipboard::selectionObstacle() const
{
    return m_access == ClipboardAccess::always ? QString()
                                               : tr("This desktop does not let the shelf read what is selected.");
}

void WaylandClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (m_access == ClipboardAccess::withFocus && !QGuiApplication::focusWindow()) {
        if (data && onCopyFailed)
            onCopyFailed(tr("Nothing was copied: this desktop lets the shelf copy only while it has the keyboard "
                            "focus."));
        return;
    }
    if (data)
        m_clipboard.setMimeData(data.release(), QClipboard::Clipboard);
    else
        m_clipboard.clear(QClipboard::Clipboard);
}

} // namespace nookle
