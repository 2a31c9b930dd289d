// Typing into the selected cell.
#include <QScopedValueRollback>

#include "DataGridPrivate.h"
#include "EventBoundary.h"
#include "Query.h"

namespace widgets {

QString DataGrid::Private::rawText() const {
    return data::valueText(dataset()->value(model->field(column)));
}

void DataGrid::Private::makeEditor() {
    editor = new QLineEdit(q->viewport());
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
    const GridColumn& definition = *selected();
    const bool number = model->isNumber(column);
    const data::ColumnInfo& stored = dataset()->columns()[model->field(column)];
    const int length = definition.maxLength > 0 ? definition.maxLength : stored.length;
    textBefore = rawText();
    // A limit holds back what is typed; a longer text that is stored already stays whole.
    editor->setMaxLength(length > 0 ? qMax(length, static_cast<int>(text.size())) : 32767);
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
            dataset()->setValue(model->field(column), text);
        } catch (const data::Refusal&) {
            hold();
            if (selected()->refusal.isEmpty())
                throw;
            throw data::Refusal(selected()->refusal);
        } catch (...) {
            hold();
            throw;
        }
    }
    stopTyping();
}

}  // namespace widgets
