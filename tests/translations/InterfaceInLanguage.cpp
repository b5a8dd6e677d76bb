#include "InterfaceInLanguage.h"

#include "TileList.h"

#include <QApplication>
#include <QDialog>
#include <QStyleFactory>

namespace nookle {

InterfaceInLanguage::InterfaceInLanguage(const QString& language, LanguageInUse::MissingLetters missingLetters)
    : m_language(language, missingLetters)
    , m_controller(
          m_settings, m_loginItem, m_shortcuts, SettingsView::Abilities(),
          [] { return QUrl(QStringLiteral("file:///home/me/Pictures/Shots")); },
          { QUrl(QStringLiteral("file:///home/me/.local/share/Nookle")), [](const QUrl&) {}, m_folders }, [] {})
{
    m_loginItem.current = LoginItem::Status::requiresApproval;
    m_shortcuts.reason = QStringLiteral("123");
    m_shortcuts.mayBeAsked = true;
    m_controller.show();
    // A button has got its text only now.
    QCoreApplication::sendPostedEvents();

    m_empty.view.introduce();
    m_full.store.addText(QStringLiteral("123"));
    m_full.store.addText(QStringLiteral("https://example.org/"));
    (void)m_full.addImage();
    const QUrl lost = m_full.addFile("lost.txt");
    m_full.store.togglePinned(m_full.top().id);
    m_full.references.removeFile(lost);
    m_full.store.refreshFiles();

    (void)m_full.addFile("found.txt");
    fillItemMenu(m_itemMenu);
    auto& list = *m_full.view.findChild<TileList*>();
    list.selectAll();
    fillItemMenu(m_selectionMenu);
    (void)list.endSelection();
    m_panelMenu = m_full.view.makeMenu();
    for (QMenu* menu : { static_cast<QMenu*>(&m_statusMenu), &m_itemMenu, &m_selectionMenu, m_panelMenu.get() })
        menu->resize(menu->sizeHint());
    // The tiles are made when the shelf is drawn.
    m_full.view.grab();
}

void InterfaceInLanguage::fillItemMenu(QMenu& menu)
{
    for (const auto& action : m_full.view.interaction(m_full.top()).menu()) {
        if (action)
            menu.addAction(action->title);
    }
}

QWidget& InterfaceInLanguage::settings() const
{
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (qobject_cast<QDialog*>(each))
            return *each;
    }
    qFatal("no settings window");
}

QList<QWidget*> InterfaceInLanguage::widgets()
{
    return {
        &settings(), &m_empty.view, &m_full.view, &m_statusMenu, &m_itemMenu, &m_selectionMenu, m_panelMenu.get()
    };
}

void prepareDesktopFont()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(10);
    QApplication::setFont(font);
}

} // namespace nookle
