#pragma once

#include <QSet>
#include <QUuid>

#include <cstddef>
#include <optional>
#include <vector>

namespace nookle {

/// Which rows of a list are selected, and which one is the current row, from which the arrow keys go on. Rows are known
/// by the ids of their items, so that both follow the items when the rows change. As long as nothing is selected, the
/// current row stands for the selection.
class Selection final {
public:
    /// Replaces the rows. Items that are gone are no longer selected. If the current item is gone, the nearest one that
    /// is still there becomes the current one, preferably one below it.
    void setRows(std::vector<QUuid> rows);
    [[nodiscard]] const std::vector<QUuid>& rows() const { return m_rows; }
    [[nodiscard]] std::optional<std::size_t> rowOf(const QUuid& id) const;

    [[nodiscard]] std::optional<std::size_t> currentRow() const { return m_currentRow; }
    [[nodiscard]] std::optional<QUuid> currentId() const;

    [[nodiscard]] bool isEmpty() const { return m_selected.isEmpty(); }
    [[nodiscard]] bool contains(const QUuid& id) const { return m_selected.contains(id); }
    [[nodiscard]] const QSet<QUuid>& ids() const { return m_selected; }

    /// The items that an action on `id` is for, in the order of the rows: all selected ones if `id` is one of them,
    /// else `id` alone.
    [[nodiscard]] std::vector<QUuid> takenWith(const QUuid& id) const;

    /// The items that keys are for, in the order of the rows: the selected ones, or the current one if it stands for
    /// them.
    [[nodiscard]] std::vector<QUuid> targets() const;
    [[nodiscard]] bool isTarget(const QUuid& id) const;

    /// A row was pressed without other keys. The selection stays if the row is selected, and ends otherwise.
    void press(std::size_t row);

    /// Whether a click or an arrow key together with these keys changes the selection instead of ending it.
    [[nodiscard]] static bool isKept(Qt::KeyboardModifiers modifiers);

    /// A row was clicked with Control, which adds it to the selection or takes it out; or with Shift, which selects the
    /// rows from the one that was chosen last to this one, or adds them with Control.
    void click(std::size_t row, Qt::KeyboardModifiers modifiers);

    /// The row that an arrow key, Page Up, Page Down, Home or End goes to, where `shownRows` are in view.
    [[nodiscard]] std::optional<std::size_t> rowForKey(int key, qsizetype shownRows) const;

    /// Makes a row the current one. Without Control and Shift, the selection ends. With Control it stays, also if only
    /// the current row stood for it. With Shift, the rows on the way are selected as by a click.
    void moveTo(std::size_t row, Qt::KeyboardModifiers modifiers);

    void selectAll();

    /// Selects those of these items that have a row, and no others.
    void select(const QSet<QUuid>& ids);

    /// Adds an item to what is selected, or takes it out. The current row stays; if it stood for the selection, it is
    /// selected itself from now on.
    void setSelected(const QUuid& id, bool isSelected);

    /// Takes out all items, also the current one if it stood for them. The current row stays.
    void selectNone();

    /// Ends the selection. The current row stays.
    void clear();

    /// Ends the selection, and leaves no row the current one.
    void clearCurrent();

private:
    void choose(std::size_t row);
    void toggle(std::size_t row);
    void extendTo(std::size_t row, Qt::KeyboardModifiers modifiers);
    /// What the current row stands for is selected from now on.
    void keepTargets();
    [[nodiscard]] std::optional<std::size_t> nearestRow(const std::vector<QUuid>& before, std::size_t row) const;

    std::vector<QUuid> m_rows;
    QSet<QUuid> m_selected;
    std::optional<std::size_t> m_currentRow;
    /// Where ranges begin.
    std::optional<QUuid> m_anchor;
    /// False once the user has taken the last row out of the selection: keys are for nothing then.
    bool m_currentStandsForSelection = true;
};

} // namespace nookle
