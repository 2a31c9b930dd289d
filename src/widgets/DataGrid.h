// The editable grid over a dataset: right to left, row indicator, check-mark cells, keyboard entry.
//
// A column keeps its design index wherever the operator drags it; every index here is that one. The
// selected cell is the dataset's current row and the selected column. The dataset moves first and the
// view after it, so that a refused post holds both.
#pragma once

#include <QColor>
#include <QFont>
#include <QTableView>
#include <functional>
#include <optional>

#include "Dataset.h"

class QMenu;

namespace widgets {

// What stands in a column: it decides how a cell is shown, aligned and typed into.
enum class ColumnKind {
    Code,    // an integer that the page writes
    Name,    // text
    Number,  // a number, shown by its display format
    Text,    // text
    Mark,    // set or empty, drawn as a check mark
    Cycle    // one of a few texts, changed by a key of its page
};

// A column as it is designed.
struct GridColumn {
    QString field;
    QString title;
    int width = 64;  // pixels
    ColumnKind kind = ColumnKind::Text;
    bool readOnly = false;
    bool centred = false;
    QString displayFormat = {};  // ICU number pattern ("###,###,##0.##"); empty shows the shortest form
    int maxLength = 0;           // characters that can be typed; 0 takes the field's own
    bool visible = true;
    bool totalled = true;  // reports sum its numbers; not those that are codes or lengths
    // What is said of a typed text that the field does not take; the dataset's own words where empty.
    QString refusal = {};
};

// How the operator has arranged a column.
struct ColumnLayout {
    int column;  // design index
    int width;   // pixels
    bool visible;
};

// A rectangle of cells: rows from `first` to `last`, columns as the operator sees them, from the right.
struct GridBlock {
    int first = 0, last = 0;
    QList<int> columns;
};

// What a colour scheme sets on a grid.
struct GridColors {
    QColor background, text, title, titleText;
    QColor readOnlyBackground, readOnlyText, readOnlyTitle, readOnlyTitleText;
};

// Whether the key goes to another cell: arrows, Page, Home and End.
bool isMove(int key);

// Property of a menu entry that is never seen and acts on its shortcut alone. beforePopup makes it anew.
inline constexpr char kShortcutOnly[] = "shortcutOnly";

// Property of an entry whose key is the grid's own as long as it is disabled.
inline constexpr char kSharesKey[] = "sharesKey";

class DataGrid : public QTableView {
    Q_OBJECT

public:
    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    // Which the grid does not own; null for none.
    void setDataset(data::Dataset* dataset);
    data::Dataset* dataset() const;
    // Replaces the columns; column 0 is selected.
    void setGridColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& gridColumns() const;
    void setColors(const GridColors& colors);
    void setTitleColor(int column, const QColor& color);
    QColor titleColor(int column) const;
    // How the column's numbers are shown from now on (GridColumn::displayFormat).
    void setColumnFormat(int column, const QString& format);

    // Selected column, design index. Selecting runs onColumnExit and onColumnEnter when it changes, and
    // shows a column that is hidden.
    int selectedColumn() const;
    void selectColumn(int column);
    // Visible columns in the order in which the operator sees them, from the right.
    QList<int> visibleOrder() const;
    int lastVisibleColumn() const;
    // All columns in the order in which they stand, from the right, hidden ones at their place.
    QList<ColumnLayout> columnLayout() const;
    // Takes each column once. Where the selected one is hidden, the first visible one is selected. No effect
    // where none would be visible.
    void setColumnLayout(const QList<ColumnLayout>& layout);

    // The cells that Shift with a move or a click has marked; none while it is no more than the selected one.
    std::optional<GridBlock> block() const;

    // In-cell editing on and off; what marks and their detail lists need.
    void setEditing(bool on);
    bool editing() const;
    // Whether the selected cell takes typed text now.
    bool canType() const;
    // Whether a cell's text is being typed and not handed to the dataset yet.
    bool typingInCell() const;
    QString textInCell() const;  // what is being typed
    // Hands the typed text to the dataset; Refusal leaves it in the cell.
    void commitCell();
    // What of a text that comes in from outside may stand in the column: one line, without the characters
    // that the page does not admit there.
    QString admitted(int column, const QString& text) const;
    // What a cell shows: formatted number, "✓" or empty for a mark.
    QString cellText(int row, int column) const;
    // What the column shows of a value.
    QString shownText(int column, const QVariant& value) const;

    // The menu that a right click or the menu key opens. beforePopup fills it each time; an empty one
    // does not open. A right click does not move the cell. Its shortcuts act while the grid, or a cell
    // being typed into, has the focus; beforePopup runs first and a disabled entry does nothing. Other keys
    // do not run it: an entry that comes and goes with the rows has no shortcut.
    QMenu* popupMenu() const;
    void setPopupEnabled(bool enabled);
    // A list beside the grid from which a cell takes its value: whoever chooses there has not left the grid.
    void setPickList(QWidget* list);
    std::function<void()> beforePopup;

    // Events; each is entered through the event boundary.
    // Key pressed, before the grid acts: true when the page has dealt with it.
    std::function<bool(QKeyEvent& key)> onKeyDown;
    // A character about to be typed: the character to use instead.
    std::function<QChar(QChar character)> onKeyPress;
    // Whether a character may stand in the column, however it comes in.
    std::function<bool(int column, QChar character)> admits;
    std::function<void(int column)> onCellClick;
    std::function<void(int column)> onDoubleClick;
    // In an empty grid, where its first row would stand; the selected column stays.
    std::function<void(int column)> onEmptyDoubleClick;
    std::function<void(int column)> onTitleClick;
    std::function<void(int column)> onColumnEnter;
    std::function<void(int column)> onColumnExit;
    std::function<void()> onEnter;                              // the grid takes the focus
    std::function<QColor(int row, int column)> cellBackground;  // invalid: the grid's own

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

}  // namespace widgets
