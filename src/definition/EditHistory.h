// What has been done to the rows of a grid, step by step, back to the state last opened or confirmed and
// forward again. A changed cell of the row in edit is a step until the row is stored; then the whole row is
// one.
#pragma once

#include <any>

#include "DataGrid.h"

class QMenu;

namespace definition {

class EditHistory : public QObject {
public:
    // Which outlives it.
    explicit EditHistory(data::Dataset& rows);

    // What is kept of the rows outside of them: taken with each step and given back with it.
    std::function<std::any()> remember;
    std::function<void(const std::any&)> recall;

    // Others change the table as well: what they have stored is no step and is not written over.
    bool isShared = false;

    // The rows as they are now are where undoing ends; `grid` shows them. Neither this nor note can fail:
    // where the rows cannot be read there are no steps, until they can.
    void begin(widgets::DataGrid& grid);
    // A step, if the rows are others than they were; for changes that no row was in edit for.
    void note();

    bool canUndo() const;
    bool canRedo() const;
    // The cursor goes to where the change was. A Refusal where the stored rows have been changed elsewhere;
    // then nothing is.
    void undo();
    void redo();

    // Adds the entries for both to a menu.
    void addEntries(QMenu& menu);

    // The stored rows have been changed past the operator, all in one way.
    void renew(const std::function<void(QVariantList&)>& change);

private:
    using Rows = QList<QVariantList>;
    struct Image {
        Rows rows;
        std::any memory;
        int place = 0;  // of the row that was changed next
    };
    // The row in edit, as it began and after each of its steps.
    struct RowSteps {
        Rows values;
        int at = 0;
        quint64 step = 0;  // of the program, in which the last of them was made
    };

    Rows readRows() const;
    Image image() const;
    QVariantList rowInEdit() const;
    void stateChanged();
    void noteCell();
    void setRow(const QVariantList& values);
    void go(QList<Image>& from, QList<Image>& to);
    void takeOver(const Rows& expected, const Rows& found);
    void apply(const Rows& target);
    QStringList statements(const Rows& target) const;
    void showChange(int row, const QVariantList& before, const QVariantList& now);

    data::Dataset& m_rows;
    widgets::DataGrid* m_grid = nullptr;
    Image m_now;
    QList<Image> m_done, m_undone;  // the images before, and behind, the one that stands
    std::optional<RowSteps> m_row;
    int m_editedRow = -1;
    int m_cursor = 0;  // before what is being done
    bool m_begun = false;
    bool m_unread = false;   // the rows could not be read when they should have been
    bool m_applies = false;  // the changes are this object's own
};

}  // namespace definition
