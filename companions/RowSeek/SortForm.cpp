#include "SortForm.h"

#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "Components.h"
#include "EventBoundary.h"

namespace rowseek {
namespace {

const QString kDown = QStringLiteral(" DESC");

}  // namespace

SortForm::SortForm(widgets::DataGrid& grid)
    : DialogForm(QStringLiteral("TSortForm"), QStringLiteral("مرتب سازي پيشرفته")), m_rows(*grid.dataset()) {
    for (const int column : grid.visibleOrder()) {
        const widgets::GridColumn& shown = grid.gridColumns()[column];
        const int field = m_rows.columnIndex(shown.field);
        if (field >= 0 && m_rows.columns()[field].type != data::ColumnType::Binary)
            m_columns.append({m_rows.columns()[field].name, shown.title.trimmed()});
    }

    auto* lists = new QHBoxLayout;
    lists->setSpacing(8);
    auto* left = new QVBoxLayout;
    auto* middle = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    lsColumns = addList(*right, QStringLiteral("lsColumns"), QStringLiteral("&ستون ها"));
    middle->addStretch();
    addButton(*middle, QStringLiteral("AddBtn"), QStringLiteral("ا&فزودن"), [this] {
        addKey();
    })->setToolTip(QStringLiteral("Insert"));
    addButton(*middle, QStringLiteral("RemoveBtn"), QStringLiteral("&حذف"), [this] {
        removeKey();
    })->setToolTip(QStringLiteral("Delete"));
    addButton(*middle, QStringLiteral("TurnBtn"), QStringLiteral("صعودي/&نزولي"), [this] {
        turnKey();
    })->setToolTip(QStringLiteral("Space"));
    addButton(*middle, QStringLiteral("UpBtn"), QStringLiteral("&بالا"), [this] {
        moveKey(-1);
    })->setToolTip(QStringLiteral("Ctrl+Up"));
    addButton(*middle, QStringLiteral("DownBtn"), QStringLiteral("&پايين"), [this] {
        moveKey(1);
    })->setToolTip(QStringLiteral("Ctrl+Down"));
    middle->addStretch();
    lsOrder = addList(*left, QStringLiteral("lsOrder"), QStringLiteral("&ترتيب رديف ها"));
    lists->addLayout(right, 1);
    lists->addLayout(middle);
    lists->addLayout(left, 1);
    body().addLayout(lists, 1);

    lbStatus = widgets::named(new QLabel(this), "lbStatus");
    lbStatus->setWordWrap(true);
    lbStatus->setText(
        QStringLiteral("افزودن: Insert، حذف: Delete، صعودي يا نزولي: Space، جابجايي: Ctrl با پيکان ها"));
    body().addWidget(lbStatus);
    QHBoxLayout& buttons = addButtonRow();
    addButton(buttons, QStringLiteral("OkBtn"), QStringLiteral("تا&ييد"), [this] { apply(); });
    buttons.addStretch();
    addButton(buttons, QStringLiteral("CancelBtn"), QStringLiteral("ان&صراف"),
              [this] { setModalResult(widgets::mrCancel); });
    connect(lsColumns, &QListWidget::itemDoubleClicked, this, [this] { addKey(); });
    connect(lsOrder, &QListWidget::itemDoubleClicked, this, [this] { turnKey(); });

    loadOrder();
    showLists(0, 0);
    onShow = [this] { lsColumns->setFocus(); };
    resize(560, 330);
}

QListWidget* SortForm::addList(QBoxLayout& column, const QString& name, const QString& caption) {
    auto* label = new QLabel(caption, this);
    auto* list = new QListWidget(this);
    list->setObjectName(name);
    list->installEventFilter(this);
    label->setBuddy(list);
    column.addWidget(label);
    column.addWidget(list, 1);
    return list;
}

// The order that the rows have now.
void SortForm::loadOrder() {
    for (const QString& term : m_rows.indexFieldNames().split(u';', Qt::SkipEmptyParts)) {
        QString field = term.trimmed();
        const bool descends = field.endsWith(kDown, Qt::CaseInsensitive);
        if (descends)
            field = field.chopped(kDown.size()).trimmed();
        const auto shown = std::find_if(m_columns.begin(), m_columns.end(), [&](const Key& key) {
            return key.field.compare(field, Qt::CaseInsensitive) == 0;
        });
        m_chosen.append({field, shown != m_columns.end() ? shown->title : field, descends});
    }
}

void SortForm::showLists(int available, int chosen) {
    const auto isChosen = [this](const Key& column) {
        return std::any_of(m_chosen.begin(), m_chosen.end(), [&](const Key& key) {
            return key.field.compare(column.field, Qt::CaseInsensitive) == 0;
        });
    };
    m_available.clear();
    lsColumns->clear();
    for (const Key& column : m_columns)
        if (!isChosen(column)) {
            m_available.append(column);
            lsColumns->addItem(column.title);
        }
    lsOrder->clear();
    for (const Key& key : m_chosen)
        lsOrder->addItem(
            (key.descends ? QStringLiteral("▼ %1 (نزولي)") : QStringLiteral("▲ %1 (صعودي)")).arg(key.title));
    lsColumns->setCurrentRow(qMin(available, lsColumns->count() - 1));
    lsOrder->setCurrentRow(qMin(chosen, lsOrder->count() - 1));
}

void SortForm::addKey() {
    const int row = lsColumns->currentRow();
    if (row < 0)
        return;
    m_chosen.append(m_available[row]);
    showLists(row, static_cast<int>(m_chosen.size()) - 1);
}

void SortForm::removeKey() {
    const int row = lsOrder->currentRow();
    if (row < 0)
        return;
    m_chosen.removeAt(row);
    showLists(qMax(0, lsColumns->currentRow()), row);
}

void SortForm::turnKey() {
    const int row = lsOrder->currentRow();
    if (row < 0)
        return;
    m_chosen[row].descends = !m_chosen[row].descends;
    showLists(lsColumns->currentRow(), row);
}

void SortForm::moveKey(int step) {
    const int row = lsOrder->currentRow();
    const int target = row + step;
    if (row < 0 || target < 0 || target >= m_chosen.size())
        return;
    m_chosen.swapItemsAt(row, target);
    showLists(lsColumns->currentRow(), target);
}

bool SortForm::keyOfLists(const QObject* list, const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const int key = event.key();
    if (list == lsColumns && (key == Qt::Key_Insert || key == Qt::Key_Space))
        addKey();
    else if (list == lsOrder && key == Qt::Key_Delete)
        removeKey();
    else if (list == lsOrder && key == Qt::Key_Space)
        turnKey();
    else if (list == lsOrder && control && (key == Qt::Key_Up || key == Qt::Key_Down))
        moveKey(key == Qt::Key_Up ? -1 : 1);
    else
        return false;
    return true;
}

bool SortForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && keyOfLists(watched, *static_cast<QKeyEvent*>(event)))
        return true;
    return DialogForm::eventFilter(watched, event);
}

void SortForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<QPushButton*>(focusWidget()) == nullptr)
        widgets::EventBoundary::run([this] { apply(); });
    else
        DialogForm::keyPressEvent(event);
}

QString SortForm::order() const {
    QStringList terms;
    for (const Key& key : m_chosen)
        terms.append(key.descends ? key.field + kDown : key.field);
    return terms.join(u';');
}

void SortForm::apply() {
    try {
        m_rows.setIndexFieldNames(order());
    } catch (const data::ServerError& error) {
        lbStatus->setText(QStringLiteral("بانک اطلاعات اين ترتيب را نپذيرفت: ") + error.text());
        return;
    }
    setModalResult(widgets::mrOk);
}

}  // namespace rowseek
