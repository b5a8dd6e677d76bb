#pragma once

#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

namespace nookle {

/// What the tests of selecting tiles have in common: a shelf whose texts are named by the letters from "a", and what
/// the user does there with mouse and keys.
class SelectingFixture {
protected:
    /// The shelf with six texts, whose list has the keyboard.
    void open()
    {
        m_shelf = std::make_unique<ShelfFixture>();
        m_shelf->view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
        addTexts(6);
        list().setFocus();
    }
    [[nodiscard]] TileList& list() { return *m_shelf->view.findChild<TileList*>(); }
    [[nodiscard]] ItemInteractionView& tile(qsizetype row)
    {
        return list().tile(m_shelf->store.items().at(row).id)->interaction();
    }
    void click(qsizetype row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&tile(row), button, modifiers, tile(row).rect().center());
        // The next click is not the second one of a double click.
        QTest::qWait(0);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&list(), static_cast<Qt::Key>(key), modifiers);
    }
    /// The names of the selected items; what their tiles show must agree.
    [[nodiscard]] QString selected()
    {
        QString names;
        for (const ShelfItem& item : m_shelf->store.items()) {
            const bool isSelected = list().selection().contains(item.id);
            if (isSelected)
                names += item.displayName();
            const ShelfItemView* view = list().tile(item.id);
            if (view && view->isSelected() != isSelected)
                names += QLatin1Char('!');
        }
        return names;
    }
    [[nodiscard]] QString takenWith(qsizetype row)
    {
        QString names;
        for (const ShelfItem& item : m_shelf->view.itemsTakenWith(m_shelf->store.items().at(row)))
            names += item.displayName();
        return names;
    }
    void addTexts(int count)
    {
        for (int number = count - 1; number >= 0; --number)
            m_shelf->store.addText(QChar(static_cast<char16_t>(u'a' + number)));
    }
    void moveTo(QWidget& widget, const QPoint& position, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent move(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton, buttons, {});
        QApplication::sendEvent(&widget, &move);
    }
    /// The middle of the gap below a tile, at the left edge of the list.
    [[nodiscard]] QPoint below(qsizetype row)
    {
        const ShelfItemView* view = list().tile(m_shelf->store.items().at(row).id);
        return { 2, view->y() + view->height() + 2 };
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

} // namespace nookle
