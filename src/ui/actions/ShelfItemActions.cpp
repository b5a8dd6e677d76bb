#include "ShelfItemActions.h"

#include "Colors.h"
#include "FileIcon.h"
#include "FilePayload.h"
#include "FileUrl.h"
#include "ImageType.h"
#include "LinkPayload.h"
#include "Log.h"
#include "Overloaded.h"
#include "Pasteboard.h"
#include "ShelfStore.h"
#include "ShortPath.h"
#include "Symbol.h"
#include "TextPayload.h"
#include "Trash.h"
#include "Workspace.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>

#include <filesystem>
#include <memory>
#include <utility>

namespace nookle {

namespace {

/// In pixels. Larger than shown, for displays with several pixels a point.
inline constexpr int pictureSize = 104;

[[nodiscard]] QPixmap symbolPicture(Symbol symbol)
{
    QPixmap picture(pictureSize, pictureSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawSymbol(painter, symbol, SymbolWeight::light, picture.rect(), secondaryColor(QGuiApplication::palette()));
    return picture;
}

[[nodiscard]] QPixmap iconPicture(const QUrl& file, bool isFolder)
{
    const QPixmap picture = fileIcon(file, isFolder).pixmap(pictureSize);
    return picture.isNull() ? symbolPicture(Symbol::document) : picture;
}

[[nodiscard]] std::shared_ptr<const DragPayload> shared(DragPayload payload)
{
    return std::make_shared<const DragPayload>(std::move(payload));
}

/// A quick test whether a text may be an address that can be opened. Most texts are not, and some are very long.
[[nodiscard]] bool beginsAsAddress(QStringView text)
{
    const auto begins = [text](QLatin1String scheme) { return text.startsWith(scheme, Qt::CaseInsensitive); };
    return begins(QLatin1String("http:")) || begins(QLatin1String("https:")) || begins(QLatin1String("mailto:"));
}

[[nodiscard]] bool fileExists(const QUrl& file)
{
    std::error_code error;
    return std::filesystem::exists(filePath(file).toStdString(), error);
}

} // namespace

ShelfItemActions::ShelfItemActions(ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard, Trash& trash,
                                   FileTransfers& transfers)
    : m_store(store)
    , m_workspace(workspace)
    , m_pasteboard(pasteboard)
    , m_trash(trash)
    , m_transfers(transfers)
{
}

DragOperations ShelfItemActions::allowedOperations(const ShelfItem& item)
{
    using Operation = DragOperation;
    return std::visit(overloaded{
                          [](const FileContent&) -> DragOperations {
                              return Operation::copy | Operation::generic | Operation::move | Operation::remove;
                          },
                          [](const TextContent&) -> DragOperations {
                              return Operation::copy | Operation::generic | Operation::remove;
                          },
                          [](const LinkContent&) -> DragOperations {
                              return Operation::copy | Operation::link | Operation::generic | Operation::remove;
                          },
                          [](const ImageContent&) -> DragOperations { return Operation::copy | Operation::remove; },
                      },
                      item.content);
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

std::optional<DragItem> ShelfItemActions::dragItem(const ShelfItem& item, const QPixmap& thumbnail) const
{
    if (const auto* text = std::get_if<TextContent>(&item.content))
        return DragItem{ shared(textPayload(text->text)), symbolPicture(Symbol::document) };
    if (const auto* link = std::get_if<LinkContent>(&item.content)) {
        return DragItem{ shared(linkPayload(*link)), thumbnail.isNull() ? symbolPicture(Symbol::link) : thumbnail };
    }
    const std::optional<QUrl> localURL = m_store.localURL(item);
    if (!localURL)
        return std::nullopt;
    return DragItem{ shared(filePayload(*localURL, m_transfers)),
                     thumbnail.isNull() ? iconPicture(*localURL, m_store.isFolder(item)) : thumbnail };
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

void ShelfItemActions::dragEnded(const ShelfItem& item, DragOperation operation) const
{
    if (operation != DragOperation::remove)
        return;
    // A referenced file may be on a file system that does not answer, so the references are resolved instead of
    // accessing it.
    const bool isReferredTo = std::holds_alternative<FileContent>(item.content);
    if (isReferredTo)
        m_store.refreshFiles();
    const std::optional<QUrl> localURL = m_store.localURL(item);
    bool isLeftInPlace = false;
    if (localURL && (isReferredTo || fileExists(*localURL))) {
        if (const auto failure = m_trash.moveToTrash(*localURL)) {
            isLeftInPlace = true;
            logLine(QStringLiteral("moving to Trash failed for %1: %2")
                        .arg(QString::fromUtf8(filePath(*localURL)), failure->description));
        }
    }
    if (isReferredTo && !isLeftInPlace)
        m_store.forget(item.id);
    else
        m_store.remove(item.id);
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
