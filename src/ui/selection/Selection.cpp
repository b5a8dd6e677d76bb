#include "Selection.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookle {

void Selection::setRows(std::vector<QUuid> rows)
{
    const std::vector<QUuid> before = std::exchange(m_rows, std::move(rows));
    if (m_currentRow)
        m_currentRow = nearestRow(before, *m_currentRow);
    if (isEmpty())
        return;
    const QSet<QUuid> present(m_rows.begin(), m_rows.end());
    m_selected.intersect(present);
    if (isEmpty())
        clear();
}

std::optional<std::size_t> Selection::nearestRow(const std::vector<QUuid>& before, std::size_t row) const
{
    // Many items may have gone at once: looking for each of them among the rows would take too long.
    const QSet<QUuid> present(m_rows.begin(), m_rows.end());
    for (std::size_t below = row; below < before.size(); ++below) {
        if (present.contains(before[below]))
            return rowOf(before[below]);
    }
    for (std::size_t above = row; above > 0; --above) {
        if (present.contains(before[above - 1]))
            return rowOf(before[above - 1]);
    }
    return m_rows.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

std::optional<QUuid> Selection::currentId() const
{
    return m_currentRow ? std::optional(m_rows[*m_currentRow]) : std::nullopt;
}

std::optional<std::size_t> Selection::rowOf(const QUuid& id) const
{
    const auto found = std::find(m_rows.begin(), m_rows.end(), id);
    return found == m_rows.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - m_rows.begin()));
}

std::vector<QUuid> Selection::takenWith(const QUuid& id) const
{
    return contains(id) ? targets() : std::vector<QUuid>{ id };
}

std::vector<QUuid> Selection::targets() const
{
    std::vector<QUuid> targets;
    std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(targets),
                 [this](const QUuid& id) { return isTarget(id); });
    return targets;
}

bool Selection::isTarget(const QUuid& id) const
{
    return contains(id) || (isEmpty() && m_currentStandsForSelection && currentId() == id);
}

void Selection::choose(std::size_t row)
{
    m_currentRow = row;
    m_anchor = m_rows[row];
}

void Selection::press(std::size_t row)
{
    if (!contains(m_rows[row]))
        clear();
    choose(row);
}

bool Selection::isKept(Qt::KeyboardModifiers modifiers)
{
    return modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
}

void Selection::click(std::size_t row, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier)
        extendTo(row, modifiers);
    else
        toggle(row);
}

std::optional<std::size_t> Selection::rowForKey(int key, qsizetype shownRows) const
{
    if (m_rows.empty())
        return std::nullopt;
    const std::size_t last = m_rows.size() - 1;
    if (!m_currentRow)
        return key == Qt::Key_End ? last : 0;
    const auto page = static_cast<std::size_t>(std::max<qsizetype>(shownRows, 2) - 1);
    const std::size_t row = *m_currentRow;
    switch (key) {
    case Qt::Key_Up:
        return row - std::min<std::size_t>(row, 1);
    case Qt::Key_Down:
        return std::min(row + 1, last);
    case Qt::Key_PageUp:
        return row - std::min(row, page);
    case Qt::Key_PageDown:
        return std::min(row + page, last);
    case Qt::Key_Home:
        return 0;
    default:
        return last;
    }
}

void Selection::moveTo(std::size_t row, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier) {
        extendTo(row, modifiers);
    } else if (modifiers & Qt::ControlModifier) {
        keepTargets();
        m_currentRow = row;
    } else {
        clear();
        choose(row);
    }
}

void Selection::keepTargets()
{
    for (const QUuid& id : targets())
        m_selected.insert(id);
}

void Selection::toggle(std::size_t row)
{
    choose(row);
    if (!m_selected.remove(m_rows[row]))
        m_selected.insert(m_rows[row]);
    m_currentStandsForSelection = false;
}

void Selection::extendTo(std::size_t row, Qt::KeyboardModifiers modifiers)
{
    if (!(modifiers & Qt::ControlModifier))
        m_selected.clear();
    const auto anchor = m_anchor ? rowOf(*m_anchor) : std::nullopt;
    const std::size_t start = anchor.value_or(m_currentRow.value_or(row));
    const auto [first, last] = std::minmax(start, row);
    for (std::size_t each = first; each <= last; ++each)
        m_selected.insert(m_rows[each]);
    m_anchor = m_rows[start];
    m_currentRow = row;
}

void Selection::selectAll()
{
    select(QSet<QUuid>(m_rows.begin(), m_rows.end()));
}

void Selection::select(const QSet<QUuid>& ids)
{
    m_selected = QSet<QUuid>(m_rows.begin(), m_rows.end()).intersect(ids);
    m_currentStandsForSelection = true;
}

void Selection::setSelected(const QUuid& id, bool isSelected)
{
    keepTargets();
    if (!isSelected)
        m_selected.remove(id);
    else if (rowOf(id))
        m_selected.insert(id);
    m_currentStandsForSelection = false;
}

void Selection::selectNone()
{
    m_selected.clear();
    m_currentStandsForSelection = false;
}

void Selection::clear()
{
    m_selected.clear();
    m_currentStandsForSelection = true;
}

void Selection::clearCurrent()
{
    clear();
    m_currentRow.reset();
    m_anchor.reset();
}

} // namespace nookle
