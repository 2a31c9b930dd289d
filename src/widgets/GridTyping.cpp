// Typing into the selected cell.
#include <QScopedValueRollback>

#include "CellText.h"
#include "DataGridPrivate.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Query.h"

namespace widgets {

QString DataGrid::admitted(int column, const QString& text) const {
    QString line = cellLine(text);
    if (admits)
        line.removeIf([&](QChar character) { return !admits(column, character); });
    return line;
}

// The keyboard's own letters are put right before they are looked at; what is pasted means what it says.
QString DataGrid::Private::typedText(QString text) const {
    if (q->onKeyPress)
        for (QChar& character : text)
            character = q->onKeyPress(character);
    return q->admitted(column, text);
}

QString DataGrid::Private::rawText() const {
    return data::valueText(dataset()->value(model->field(column)));
}

void DataGrid::Private::makeEditor() {
    editor = new CellEditor(q->viewport());
    editor->pasted = [this](const QString& text) {
        dataset()->edit();
        return q->admitted(column, text);
    };
    editor->typed = [this](const QString& text) {
        dataset()->edit();
        return typedText(text);
    };
    editor->setObjectName(QStringLiteral("CellEditor"));
    editor->setFrame(false);
    editor->setContextMenuPolicy(Qt::NoContextMenu);
    editor->setTextMargins(1, 0, 1, 0);
    editor->hide();
    editor->installEventFilter(q);
    // The first change puts the row in edit, whichever way it comes.
    connect(editor, &QLineEdit::textEdited, q, [this] {
        if (typing)
            EventBoundary::run([this] { dataset()->edit(); });
    });
}

void DataGrid::Private::placeEditor() {
    if (!typing)
        return;
    const QRect cell = q->visualRect(model->index(dataset()->row(), column));
    // The highlight of the selected cell shows around it as a frame.
    editor->setGeometry(cell.adjusted(2, 1, -1, -2));
}

void DataGrid::Private::startTyping(const QString& text) {
    if (typing)
        return;
    showCursor();
    const bool number = model->isNumber(column);
    const data::ColumnInfo& stored = dataset()->columns()[model->field(column)];
    textBefore = rawText();
    // A limit holds back what is typed; a longer text that is stored already stays whole.
    editor->setMaxLength(qMax(cellLength(stored, selected()), static_cast<int>(text.size())));
    editor->setFont(q->font());
    editor->setLayoutDirection(number ? Qt::LeftToRight : Qt::RightToLeft);
    editor->setAlignment(model->alignment(column));
    QPalette colors = q->palette();
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::Text, Qt::black);
    editor->setPalette(colors);
    editor->setText(text);
    typing = true;
    placeEditor();
    editor->show();
    editor->setFocus();
}

void DataGrid::Private::stopTyping() {
    if (!typing)
        return;
    typing = false;
    refusedOnLeave = false;
    // The focus goes back first: hiding a focused widget would send it to a neighbour of the grid, in a
    // window that is not the active one as well.
    if (q->window()->focusWidget() == editor)
        q->setFocus();
    editor->hide();
    q->viewport()->update();
}

void DataGrid::Private::commit() {
    if (!typing)
        return;
    refusedOnLeave = false;
    const QString text = editor->text();
    if (text != textBefore) {
        // The way back into the cell is no way out of it.
        const auto hold = [this] {
            const QScopedValueRollback back(returning, true);
            editor->selectAll();
            editor->setFocus();
        };
        try {
            const int field = model->field(column);
            dataset()->setValue(
                field, cellValue(dataset()->columns()[field], selected(), text, editor->maxLength()));
        } catch (...) {
            hold();
            throw;
        }
    }
    stopTyping();
}

}  // namespace widgets
