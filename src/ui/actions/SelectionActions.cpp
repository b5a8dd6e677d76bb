#include "SelectionActions.h"

#include "CarriedItem.h"
#include "ItemOpener.h"
#include "Pasteboard.h"
#include "ShelfStore.h"
#include "Workspace.h"

#include <QKeyEvent>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

/// Each of them may be a window on the user's screen.
inline constexpr qsizetype mostWithoutQuestion = 10;

[[nodiscard]] bool arePinned(const QList<ShelfItem>& items)
{
    return std::all_of(items.begin(), items.end(), [](const ShelfItem& item) { return item.pinned; });
}

[[nodiscard]] bool areLinks(const QList<CarriedItem>& items)
{
    return std::all_of(items.begin(), items.end(), [](const CarriedItem& carried) {
        return std::holds_alternative<LinkContent>(carried.item.content);
    });
}

[[nodiscard]] QStringList addressesOf(const QList<CarriedItem>& links)
{
    QStringList addresses;
    for (const CarriedItem& link : links)
        addresses.append(std::get<LinkContent>(link.item.content).url.absoluteString());
    return addresses;
}

[[nodiscard]] QSet<QUuid> idsOf(const QList<ShelfItem>& items)
{
    QSet<QUuid> ids;
    for (const ShelfItem& item : items)
        ids.insert(item.id);
    return ids;
}

[[nodiscard]] int number(const QList<ShelfItem>& items)
{
    return static_cast<int>(items.size());
}

} // namespace

SelectionActions::SelectionActions(const ShelfItemActions& single, ShelfStore& store, Workspace& workspace,
                                   Pasteboard& pasteboard, MainQueue& queue, Ask ask)
    : m_single(single)
    , m_store(store)
    , m_workspace(workspace)
    , m_pasteboard(pasteboard)
    , m_opener(std::make_shared<ItemOpener>(single, store, queue))
    , m_ask(std::move(ask))
{
}

// The menu may outlive this object.
MenuActions SelectionActions::menuActions(const QList<ShelfItem>& items) const
{
    if (items.size() == 1)
        return m_single.menuActions(items.constFirst());
    const SelectionActions actions = *this;
    const int openableNumber = number(openable(items));
    const auto fileNumber = static_cast<int>(referencedFiles(items).size());
    const auto copyableNumber = static_cast<int>(presentItems(items, m_store).size());

    MenuActions menu;
    if (openableNumber > 0)
        menu.push_back(MenuAction{ tr("Open %n Item(s)", nullptr, openableNumber), true,
                                   [actions, items] { actions.open(items); } });
    if (fileNumber > 0)
        menu.push_back(MenuAction{ tr("Show %n Item(s) in Finder", nullptr, fileNumber), true,
                                   [actions, items] { actions.reveal(items); } });
    menu.push_back(MenuAction{ tr("Copy %n Item(s)", nullptr, copyableNumber), copyableNumber > 0,
                               [actions, items] { actions.copy(items); } });
    menu.push_back(MenuAction{ arePinned(items) ? tr("Unpin %n Item(s)", nullptr, number(items))
                                                : tr("Pin %n Item(s)", nullptr, number(items)),
                               true, [actions, items] { actions.togglePinned(items); } });
    menu.push_back(std::nullopt);
    menu.push_back(MenuAction{ tr("Remove %n Item(s)", nullptr, number(items)), true,
                               [actions, items] { actions.remove(items); } });
    return menu;
}

QList<ShelfItem> SelectionActions::openable(const QList<ShelfItem>& items) const
{
    QList<ShelfItem> openable;
    std::copy_if(items.begin(), items.end(), std::back_inserter(openable),
                 [this](const ShelfItem& item) { return m_single.openURL(item).has_value(); });
    return openable;
}

void SelectionActions::open(const QList<ShelfItem>& items) const
{
    const QList<ShelfItem> opened = openable(items);
    if (opened.size() > mostWithoutQuestion) {
        m_ask(tr("Open %n item(s) at once?", nullptr, number(opened)), tr("Open"),
              [opener = m_opener, opened] { opener->open(opened); });
        return;
    }
    for (const ShelfItem& item : opened)
        m_single.open(item);
}

QList<QUrl> SelectionActions::referencedFiles(const QList<ShelfItem>& items) const
{
    QList<QUrl> files;
    for (const ShelfItem& item : items) {
        const auto file = m_store.localURL(item);
        if (file && std::holds_alternative<FileContent>(item.content))
            files.append(*file);
    }
    return files;
}

void SelectionActions::reveal(const QList<ShelfItem>& items) const
{
    const QList<QUrl> files = referencedFiles(items);
    if (files.isEmpty())
        return;
    QSet<QUrl> folders;
    for (const QUrl& file : files)
        folders.insert(file.adjusted(QUrl::RemoveFilename));
    const auto revealAll = [workspace = &m_workspace, files] { workspace->reveal(files); };
    const auto folderNumber = static_cast<int>(folders.size());
    if (folderNumber > mostWithoutQuestion)
        m_ask(tr("Open %n folder(s) at once?", nullptr, folderNumber), tr("Open"), revealAll);
    else
        revealAll();
}

void SelectionActions::copy(const QList<ShelfItem>& items) const
{
    m_store.refreshFiles();
    const QList<CarriedItem> copied = presentItems(items, m_store);
    if (copied.isEmpty())
        return;
    QStringList files;
    for (const QUrl& file : filesOf(copied))
        files.append(QString::fromLatin1(file.toEncoded()));
    if (files.size() == copied.size())
        m_pasteboard.writeAddresses(files, {});
    else if (!files.isEmpty())
        m_pasteboard.writeAddresses(files, textOf(copied));
    else if (areLinks(copied))
        m_pasteboard.writeAddresses(addressesOf(copied), textOf(copied));
    else
        m_pasteboard.writeText(textOf(copied));
}

void SelectionActions::togglePinned(const QList<ShelfItem>& items) const
{
    m_store.setPinned(idsOf(items), !arePinned(items));
}

void SelectionActions::remove(const QList<ShelfItem>& items) const
{
    m_store.remove(idsOf(items));
}

bool SelectionActions::handleKey(const QKeyEvent& event, const QList<ShelfItem>& items) const
{
    if (items.isEmpty())
        return false;
    if (items.size() == 1)
        return m_single.handleKey(event, items.constFirst());
    if (event.matches(QKeySequence::Copy)) {
        copy(items);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        open(items);
        return true;
    case Qt::Key_Delete:
        remove(items);
        return true;
    case Qt::Key_Space:
        togglePinned(items);
        return true;
    default:
        return false;
    }
}

} // namespace nookle
