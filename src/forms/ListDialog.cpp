#include "ListDialog.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "Components.h"
#include "EventBoundary.h"

namespace forms {

class ListDialog::Rows : public QAbstractTableModel {
public:
    Rows(const QList<ListColumn>& columns, QObject* parent)
        : QAbstractTableModel(parent), m_columns(columns) {}

    void set(const QList<QStringList>& rows) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
    void setText(int row, int column, const QString& text) {
        m_rows[row][column] = text;
        const QModelIndex changed = index(row, column);
        Q_EMIT dataChanged(changed, changed);
    }
    const QList<QStringList>& rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const ListColumn::Kind kind = m_columns[index.column()].kind;
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return m_rows[index.row()].value(index.column());
        if (role != Qt::TextAlignmentRole)
            return {};
        if (kind == ListColumn::Kind::Mark)
            return static_cast<int>(Qt::AlignCenter);
        return static_cast<int>(Qt::AlignVCenter | Qt::AlignRight | Qt::AlignAbsolute);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
            return m_columns[section].title;
        return {};
    }

private:
    QList<ListColumn> m_columns;
    QList<QStringList> m_rows;
};

ListDialog::ListDialog(const QString& className, const QString& caption, const QString& gridName,
                       const QList<ListColumn>& columns, const QSize& size)
    : DialogForm(className, caption), m_rows(new Rows(columns, this)), m_list(new QTableView(this)) {
    m_list->setObjectName(gridName);
    m_list->setLayoutDirection(Qt::RightToLeft);
    m_list->setFont(widgets::formFont());
    m_list->setModel(m_rows);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setAlternatingRowColors(true);
    m_list->setTabKeyNavigation(false);
    m_list->setWordWrap(false);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(qMax(22, m_list->fontMetrics().height() + 6));
    m_list->horizontalHeader()->setFont(m_list->font());
    m_list->horizontalHeader()->setStretchLastSection(true);
    for (int column = 0; column < columns.size(); ++column)
        m_list->setColumnWidth(column, columns[column].width);
    m_list->installEventFilter(this);
    connect(m_list, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        widgets::EventBoundary::run([&] {
            if (onChoose)
                onChoose(index.row());
        });
    });
    body().addWidget(m_list, 3);
    resize(size);
    onShow = [this] { m_list->setFocus(); };
}

ListDialog::~ListDialog() = default;

void ListDialog::setRows(const QList<QStringList>& rows) {
    m_rows->set(rows);
    if (!rows.isEmpty())
        m_list->setCurrentIndex(m_rows->index(0, 0));
}

const QList<QStringList>& ListDialog::rows() const {
    return m_rows->rows();
}

void ListDialog::setText(int row, int column, const QString& text) {
    m_rows->setText(row, column, text);
}

int ListDialog::currentRow() const {
    return m_list->currentIndex().row();
}

void ListDialog::addNotes(const QStringList& notes, const QStringList& warnings) {
    const auto add = [this](const char* name, const QStringList& lines, const QColor& color) {
        if (lines.isEmpty())
            return;
        auto* label = widgets::named(new QLabel(lines.join(u'\n'), this), name);
        label->setFont(widgets::formFont());
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        QPalette colors = label->palette();
        if (color.isValid())
            colors.setColor(QPalette::WindowText, color);
        label->setPalette(colors);
        body().addWidget(label);
    };
    add("lbNotes", notes, {});
    add("lbWarning", warnings, QColor(0xB0, 0x00, 0x20));
}

void ListDialog::addAbove(QWidget* widget, int stretch) {
    body().insertWidget(0, widget, stretch);
}

QPushButton* ListDialog::addButtons(const QString& okCaption, std::function<void()> onOk) {
    QHBoxLayout& row = addButtonRow();
    QPushButton* ok =
        okCaption.isEmpty() ? nullptr : addButton(row, QStringLiteral("OkBtn"), okCaption, std::move(onOk));
    row.addStretch();
    addButton(row, QStringLiteral("CancelBtn"), QStringLiteral("انصراف"),
              [this] { setModalResult(widgets::mrCancel); });
    return ok;
}

bool ListDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_list || event->type() != QEvent::KeyPress)
        return DialogForm::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Space && onChoose && currentRow() >= 0) {
        widgets::EventBoundary::run([this] { onChoose(currentRow()); });
        return true;
    }
    if (key->key() == Qt::Key_Escape) {  // a list would take it
        setModalResult(widgets::mrCancel);
        return true;
    }
    return DialogForm::eventFilter(watched, event);
}

}  // namespace forms
