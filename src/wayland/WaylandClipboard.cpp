#include "WaylandClipboard.h"

#include "ChildReader.h"
#include "ToolkitContent.h"

#include <KSystemClipboard>
#include <QMimeData>

#include <utility>

namespace nookle {

namespace {

/// For one format, in bytes.
inline constexpr qsizetype largestContent = qsizetype{ 256 } * 1024 * 1024;

} // namespace

WaylandClipboard::WaylandClipboard(std::function<bool()> flush)
    : m_flush(std::move(flush))
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

void WaylandClipboard::copy(std::unique_ptr<QMimeData> data)
{
    if (data)
        m_clipboard.setMimeData(data.release(), QClipboard::Clipboard);
    else
        m_clipboard.clear(QClipboard::Clipboard);
}

} // namespace nookle
