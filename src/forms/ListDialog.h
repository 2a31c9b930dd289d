// A dialog about a list: rows of texts under titles, lines below it, and its buttons. The rows are this
// dialog's own; nothing of them is stored.
#pragma once

#include <QTableView>

#include "DialogForm.h"

class QAbstractTableModel;
class QLabel;

namespace forms {

struct ListColumn {
    enum class Kind { Text, Number, Mark };

    QString title;
    int width = 100;  // pixels
    Kind kind = Kind::Text;
};

inline const QString kMarkText = QStringLiteral("✓");  // of a mark that is set

class ListDialog : public DialogForm {
public:
    ListDialog(const QString& className, const QString& caption, const QString& gridName,
               const QList<ListColumn>& columns, const QSize& size);
    ~ListDialog() override;

    void setRows(const QList<QStringList>& rows);
    const QList<QStringList>& rows() const;
    void setText(int row, int column, const QString& text);
    // The current row, from 0; -1 for none.
    int currentRow() const;
    QTableView& list() { return *m_list; }

    // What follows a double click on a row, or the space bar.
    std::function<void(int row)> onChoose;

    // Lines below the list; a warning stands in red.
    void addNotes(const QStringList& notes, const QStringList& warnings = {});
    // A widget above the list, with so much of the room.
    void addAbove(QWidget* widget, int stretch);
    // OkBtn, where the dialog does something, and CancelBtn.
    QPushButton* addButtons(const QString& okCaption = {}, std::function<void()> onOk = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Rows;

    Rows* m_rows;
    QTableView* m_list;
};

}  // namespace forms
