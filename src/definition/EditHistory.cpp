#include "EditHistory.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "Errors.h"
#include "HeldRows.h"
#include "Malyobjectunit.h"
#include "MenuIcons.h"
#include "Step.h"

namespace definition {
namespace {

using data::Dataset;

const QString kChangedElsewhere = QStringLiteral("اين رديف ها را ديگري تغيير داده است و برگردانده نشدند.");

// Columns that have come since a row was kept are empty in it.
QVariantList fitted(QVariantList row, qsizetype columns) {
    row.resize(columns);
    return row;
}

}  // namespace

EditHistory::EditHistory(Dataset& rows) : m_rows(rows) {
    connect(&rows, &Dataset::stateChanged, this, [this] { stateChanged(); });
    connect(&rows, &Dataset::cursorMoved, this, [this] {
        if (!m_rows.connection()->inTransaction())
            m_cursor = m_rows.row();
    });
    connect(&rows, &Dataset::rowChanged, this, [this] { noteCell(); });
}

EditHistory::Rows EditHistory::readRows() const {
    Rows rows;
    const qsizetype columns = m_rows.columns().size();
    for (int row = 0; row < m_rows.recordCount(); ++row) {
        QVariantList values;
        for (int column = 0; column < columns; ++column)
            values.append(m_rows.valueAt(row, column));
        // Rows that have not changed are shared by all images.
        const bool same = row < m_now.rows.size() && m_now.rows[row] == values;
        rows.append(same ? m_now.rows[row] : values);
    }
    return rows;
}

EditHistory::Image EditHistory::image() const {
    return {readRows(), remember ? remember() : std::any(), 0};
}

void EditHistory::begin(widgets::DataGrid& grid) {
    m_grid = &grid;
    m_done.clear();
    m_undone.clear();
    m_row.reset();
    m_begun = m_unread = false;
    m_now = {};
    try {
        if (m_rows.active())
            m_now = image();
        m_begun = m_rows.active();
    } catch (const data::TextException&) {
        m_unread = true;
    }
}

void EditHistory::note() {
    if (m_unread && m_rows.state() == Dataset::State::Browse)
        return begin(*m_grid);
    if (!m_begun || m_applies || m_rows.state() != Dataset::State::Browse)
        return;
    Image now;
    try {
        now = image();
    } catch (const data::TextException&) {
        m_begun = false;
        m_unread = true;
        return;
    }
    for (QVariantList& row : m_now.rows)
        row = fitted(row, m_rows.columns().size());
    if (isShared && m_editedRow >= 0)
        takeOver(m_now.rows, now.rows);
    if (now.rows == m_now.rows) {
        m_now.memory = now.memory;
        return;
    }
    m_now.place = m_editedRow >= 0 ? m_editedRow : m_cursor;
    m_done.append(std::exchange(m_now, now));
    m_undone.clear();
    m_cursor = m_rows.row();
}

// What others have changed meanwhile has been so all the time.
void EditHistory::takeOver(const Rows& expected, const Rows& found) {
    QList<std::pair<QVariantList, QVariantList>> changed;
    for (int row = 0; expected.size() == found.size() && row < found.size(); ++row)
        if (row != m_editedRow && expected[row] != found[row])
            changed.append({expected[row], found[row]});
    for (const auto& [before, now] : changed) {
        for (QList<Image>* images : {&m_done, &m_undone})
            for (Image& image : *images)
                std::replace(image.rows.begin(), image.rows.end(), before, now);
        std::replace(m_now.rows.begin(), m_now.rows.end(), before, now);
    }
}

// --- the row in edit --------------------------------------------------------------------------------

QVariantList EditHistory::rowInEdit() const {
    QVariantList values;
    for (int column = 0; column < m_rows.columns().size(); ++column)
        values.append(m_rows.value(column));
    return values;
}

void EditHistory::stateChanged() {
    m_row.reset();
    if (m_rows.state() != Dataset::State::Browse)
        m_editedRow = m_rows.row();
    else if (!m_rows.connection()->inTransaction())
        note();
    if (m_rows.state() == Dataset::State::Browse)
        m_editedRow = -1;
}

void EditHistory::noteCell() {
    const bool edits = m_rows.state() == Dataset::State::Edit || m_rows.state() == Dataset::State::Insert;
    if (!m_begun || m_applies || !edits)
        return;
    const QVariantList values = rowInEdit();
    if (!m_row) {
        // What a new row starts with is no step of the operator's.
        QVariantList original;
        for (int column = 0; column < values.size(); ++column)
            original.append(m_rows.originalValue(column));
        m_row = RowSteps{{original}};
    }
    if (!m_rows.modified()) {
        m_row->values = {values};
        m_row->at = 0;
        return;
    }
    if (values == m_row->values[m_row->at])
        return;
    // All that one key or click has done is one step.
    if (m_row->at == 0 || m_row->step != widgets::Step::number())
        ++m_row->at;
    m_row->values.resize(m_row->at);
    m_row->values.append(values);
    m_row->step = widgets::Step::number();
    m_undone.clear();
}

void EditHistory::setRow(const QVariantList& values) {
    const QScopedValueRollback applies(m_applies, true);
    const QVariantList before = rowInEdit();
    for (int column = 0; column < values.size(); ++column)
        if (values[column] != before[column])
            m_rows.setValue(column, values[column]);
    m_row->step = 0;
    showChange(m_rows.row(), before, values);
}

// --- back and forth ---------------------------------------------------------------------------------

bool EditHistory::canUndo() const {
    return m_begun &&
           (!m_done.isEmpty() || m_rows.state() == Dataset::State::Insert || (m_row && m_row->at > 0));
}

bool EditHistory::canRedo() const {
    return m_begun && (!m_undone.isEmpty() || (m_row && m_row->at + 1 < m_row->values.size()));
}

void EditHistory::undo() {
    if (m_row && m_row->at > 0)
        return setRow(m_row->values[--m_row->at]);
    const bool wasNew = m_rows.state() == Dataset::State::Insert;
    m_rows.cancel();
    if (!wasNew && !m_done.isEmpty())
        go(m_done, m_undone);
}

void EditHistory::redo() {
    if (m_row && m_row->at + 1 < m_row->values.size())
        return setRow(m_row->values[++m_row->at]);
    if (m_undone.isEmpty())
        return;
    m_rows.cancel();
    go(m_undone, m_done);
}

void EditHistory::go(QList<Image>& from, QList<Image>& to) {
    const Image target = from.last();
    {
        const QScopedValueRollback applies(m_applies, true);
        m_rows.transact([&] { apply(target.rows); }, Dataset::After::SameRow);
    }
    const Image before = std::exchange(m_now, target);
    from.removeLast();
    to.append(before);
    try {
        takeOver(target.rows, readRows());
    } catch (const data::TextException&) {
        m_unread = true;  // it is done all the same
    }
    if (recall)
        recall(target.memory);
    const int place = &from == &m_done ? target.place : before.place;
    showChange(place, before.rows.value(place), target.rows.value(place));
}

// Only what stands there as it was left is written over.
void EditHistory::apply(const Rows& target) {
    data::Connection& connection = *m_rows.connection();
    QList<int> changed;
    for (int row = 0; target.size() == m_now.rows.size() && row < target.size(); ++row)
        if (target[row] != m_now.rows[row])
            changed.append(row);
    if (changed.size() == 1) {
        const int row = changed.first();
        const QVariantList now = fitted(target[row], m_rows.columns().size());
        QStringList settings;
        for (int column = 0; column < now.size(); ++column)
            if (now[column] != m_now.rows[row].value(column))
                settings.append(data::bracketed(m_rows.columns()[column].name) + u'=' +
                                data::literal(now[column]));
        const qint64 affected = connection
                                    .execute("Update Top (1) " + data::bracketed(m_rows.tableName()) +
                                             " Set " + settings.join(u',') + " Where " +
                                             data::holdsValues(m_rows.columns(), m_now.rows[row]))
                                    .affected;
        if (affected != 1)
            throw data::Refusal(kChangedElsewhere);
        return;
    }
    const data::ResultSet stored = connection.execute("Select * From " + data::bracketed(m_rows.tableName()));
    Rows there = stored.rows, left = m_now.rows;
    for (QVariantList& row : left)
        row = fitted(row, stored.columns.size());
    for (const QVariantList& row : there)
        if (!left.removeOne(row))
            throw data::Refusal(kChangedElsewhere);
    if (!left.isEmpty())
        throw data::Refusal(kChangedElsewhere);
    connection.execute(statements(target).join(u'\n'));
}

QStringList EditHistory::statements(const Rows& target) const {
    QStringList statements = {"Delete From " + data::bracketed(m_rows.tableName())};
    for (const QVariantList& row : target)
        statements.append(data::insertion(m_rows.tableName(), m_rows.columns(), row));
    return statements;
}

void EditHistory::showChange(int row, const QVariantList& before, const QVariantList& now) {
    if (m_rows.state() == Dataset::State::Browse && !m_rows.isEmpty())
        m_rows.moveTo(qBound(0, row, m_rows.recordCount() - 1));
    for (const int column : m_grid->visibleOrder()) {
        const int field = m_rows.columnIndex(m_grid->gridColumns()[column].field);
        if (field >= 0 && before.value(field) != now.value(field)) {
            m_grid->selectColumn(column);
            return;
        }
    }
}

void EditHistory::addEntries(QMenu& menu) {
    const auto add = [&](const QString& caption, int image, int key, bool enabled,
                         void (EditHistory::*action)()) {
        TMalyObject::Add_Item(menu, caption, image, QKeySequence(Qt::CTRL | Qt::Key(key)), [this, action] {
            m_grid->commitCell();
            (this->*action)();
        })->setEnabled(enabled);
    };
    add(QStringLiteral("واگرد"), kImageUndo, Qt::Key_Z, canUndo() || m_grid->typingInCell(),
        &EditHistory::undo);
    add(QStringLiteral("از نو"), kImageRedo, Qt::Key_Y, canRedo(), &EditHistory::redo);
}

void EditHistory::renew(const std::function<void(QVariantList&)>& change) {
    const auto renewRows = [&](Rows& rows) {
        for (QVariantList& row : rows) {
            row = fitted(row, m_rows.columns().size());
            change(row);
        }
    };
    renewRows(m_now.rows);
    for (QList<Image>* images : {&m_done, &m_undone})
        for (Image& image : *images)
            renewRows(image.rows);
    if (m_row)
        renewRows(m_row->values);
}

}  // namespace definition
