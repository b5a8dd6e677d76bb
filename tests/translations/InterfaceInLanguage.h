#pragma once

#include "AppSettings.h"
#include "FakeFolderWatch.h"
#include "FakeGlobalShortcuts.h"
#include "FakeLoginItem.h"
#include "FakeUserDefaults.h"
#include "LanguageInUse.h"
#include "PanelPinning.h"
#include "SettingsWindowController.h"
#include "ShelfFixture.h"
#include "StatusMenu.h"

#include <QList>
#include <QMenu>
#include <QString>

#include <memory>

namespace nookle {

/// Everything that shows texts, in one language: the settings with every row, an empty shelf, one with items, the
/// menus.
class InterfaceInLanguage final {
public:
    InterfaceInLanguage(const QString& language, LanguageInUse::MissingLetters missingLetters);

    [[nodiscard]] QWidget& settings() const;
    [[nodiscard]] QList<QWidget*> widgets();

private:
    /// Fills it with the entries of the first tile's menu.
    void fillItemMenu(QMenu& menu);

    LanguageInUse m_language;
    FakeUserDefaults m_defaults;
    AppSettings m_settings{ m_defaults };
    FakeLoginItem m_loginItem;
    FakeGlobalShortcuts m_shortcuts;
    FakeFolderWatch m_folders;
    SettingsWindowController m_controller;
    ShelfFixture m_empty;
    ShelfFixture m_full;
    PanelPinning m_pinning{ m_defaults };
    StatusMenu m_statusMenu{ m_pinning };
    QMenu m_itemMenu;
    QMenu m_selectionMenu;
    std::unique_ptr<QMenu> m_panelMenu;
};

/// The font of a desktop, in a size in which its letters are wider than those of other desktops' fonts are in theirs.
void prepareDesktopFont();

} // namespace nookle
