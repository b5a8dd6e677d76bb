#include "ShelfItemActions.h"

#include "FileUrl.h"
#include "ImageType.h"
#include "Log.h"
#include "Overloaded.h"
#include "Pasteboard.h"
#include "ShelfStore.h"
#include "ShortPath.h"
#include "Workspace.h"

#include <QKeyEvent>
#include <QLocale>

namespace nookle {

namespace {

/// A quick test whether a text may be an address that can be opened. Most texts are not, and some are very long.
[[nodiscard]] bool beginsAsAddress(QStringView text)
{
    const auto begins = [text](QLatin1String scheme) { return text.startsWith(scheme, Qt::CaseInsensitive); };
    return begins(QLatin1String("http:")) || begins(QLatin1String("https:")) || begins(QLatin1String("mailto:"));
}

} // namespace

ShelfItemActions::ShelfItemActions(ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard)
    : m_store(store)
    , m_workspace(workspace)
    , m_pasteboard(pasteboard)
{
}

MenuActions ShelfItemActions::menuActions(const ShelfItem& item) const
{
    const ShelfItemActions actions = *this;
    const std::optional<QUrl> localURL = m_store.localURL(item);
    const bool isFile = std::holds_alternative<FileContent>(item.content);

    MenuActions menu;
    if (openURL(item))
        menu.push_back(MenuAction{ tr("Open"), true, [actions, item] { actions.open(item); } });
    if (isFile && localURL)
        menu.push_back(MenuAction{ tr("Show in Finder"), true,
                                   [actions, file = *localURL] { actions.m_workspace.reveal({ file }); } });
    menu.push_back(MenuAction{ tr("Copy"), canBeCopied(item), [actions, item] { actions.copyToPasteboard(item); } });
    menu.push_back(MenuAction{ item.pinned ? tr("Unpin") : tr("Pin"), true,
                               [actions, id = item.id] { actions.m_store.togglePinned(id); } });
    menu.push_back(std::nullopt);
    menu.push_back(MenuAction{ tr("Remove"), true, [actions, id = item.id] { actions.m_store.remove(id); } });
    return menu;
}

std::optional<QUrl> ShelfItemActions::openURL(const ShelfItem& item) const
{
    if (const auto* link = std::get_if<LinkContent>(&item.content))
        return link->url.url();
    const auto* text = std::get_if<TextContent>(&item.content);
    if (!text)
        return m_store.localURL(item);
    const QStringView trimmed = QStringView(text->text).trimmed();
    const std::optional<LinkUrl> url = beginsAsAddress(trimmed) ? LinkUrl::parse(trimmed.toString()) : std::nullopt;
    return url ? std::optional(url->url()) : std::nullopt;
}

void ShelfItemActions::open(const ShelfItem& item) const
{
    const auto url = openURL(item);
    if (!url)
        return;
    // An image comes from an untrusted source, and its file may be one that runs something when it is opened.
    if (std::holds_alternative<ImageContent>(item.content) && !isImageFile(*url))
        logLine(QStringLiteral("an image was not opened, because its file is none"));
    else
        m_workspace.open(*url);
}

bool ShelfItemActions::canBeCopied(const ShelfItem& item) const
{
    return !std::holds_alternative<FileContent>(item.content) || m_store.localURL(item);
}

void ShelfItemActions::copyToPasteboard(const ShelfItem& item) const
{
    m_pasteboard.clear();
    const std::optional<QUrl> localURL = m_store.localURL(item);
    std::visit(overloaded{
                   [&](const FileContent&) {
                       if (localURL)
                           m_pasteboard.writeFile(*localURL);
                   },
                   [&](const TextContent& text) { m_pasteboard.writeText(text.text); },
                   [&](const LinkContent& link) { m_pasteboard.writeLink(link.url.absoluteString()); },
                   [&](const ImageContent&) {
                       if (localURL)
                           m_pasteboard.writeImage(*localURL);
                   },
               },
               item.content);
}

QString ShelfItemActions::toolTip(const ShelfItem& item, const std::optional<QUrl>& localURL)
{
    if (std::holds_alternative<FileContent>(item.content) && localURL)
        return shortPath(QString::fromUtf8(filePath(*localURL)));
    if (const auto* link = std::get_if<LinkContent>(&item.content))
        return link->url.absoluteString();
    return item.shownName();
}

std::optional<QString> ShelfItemActions::distinctToolTip(const ShelfItem& item) const
{
    const QString own = toolTip(item, m_store.localURL(item));
    qsizetype count = 0;
    qsizetype number = 0;
    for (const ShelfItem& each : m_store.items()) {
        if (toolTip(each, m_store.localURL(each)) != own)
            continue;
        ++count;
        if (each.id == item.id)
            number = count;
    }
    if (count < 2)
        return std::nullopt;
    const QString added = QLocale().toString(item.createdAt.toLocalTime(), QLocale::ShortFormat);
    return tr("%1 (%2 of %3, added %4)").arg(own, QLocale().toString(number), QLocale().toString(count), added);
}

bool ShelfItemActions::handleKey(const QKeyEvent& event, const ShelfItem& item) const
{
    if (event.matches(QKeySequence::Copy)) {
        if (canBeCopied(item))
            copyToPasteboard(item);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        open(item);
        return true;
    case Qt::Key_Delete:
        m_store.remove(item.id);
        return true;
    case Qt::Key_Space:
        m_store.togglePinned(item.id);
        return true;
    default:
        return false;
    }
}

} // namespace nookle
