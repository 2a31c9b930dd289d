#include "DataGrid.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include "Components.h"
#include "DataGridPrivate.h"
#include "EventBoundary.h"

namespace widgets {

using data::Dataset;

namespace {

// The colours of a grid that no scheme has touched.
GridColors defaultColors() {
    const QColor cream(0xFF, 0xFF, 0xE1), face(0xF0, 0xF0, 0xF0);
    return {cream, Qt::black, face, Qt::black, QColor(0x63, 0x78, 0x9C), Qt::yellow, face, Qt::black};
}

}  // namespace

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), d(std::make_unique<Private>(this)) {
    d->model = new GridModel(this);
    d->delegate = new GridDelegate(this, d->model);
    d->titles = new TitleHeader(this);
    d->indicator = new IndicatorHeader(this);
    d->menu = new QMenu(this);
    d->makeEditor();
    d->titles->colors = [this](int column) { return d->titleLook(column); };
    d->indicator->indicator = [this](int row) { return d->indicatorOf(row); };

    setLayoutDirection(Qt::RightToLeft);
    d->menu->setLayoutDirection(Qt::RightToLeft);
    setFont(formFont());
    setHorizontalHeader(d->titles);
    setVerticalHeader(d->indicator);
    // The view's own answers to clicks on its edges would move its cursor away from the dataset's.
    for (QHeaderView* edge :
         {static_cast<QHeaderView*>(d->titles), static_cast<QHeaderView*>(d->indicator)}) {
        edge->setFont(font());
        disconnect(edge, &QHeaderView::sectionPressed, this, nullptr);
        disconnect(edge, &QHeaderView::sectionEntered, this, nullptr);
    }
    d->indicator->setDefaultSectionSize(qMax(22, fontMetrics().height() + 6));
    setModel(d->model);
    setItemDelegate(d->delegate);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setColors(defaultColors());

    connect(d->titles, &QHeaderView::sectionClicked, this, [this](int column) {
        EventBoundary::run([&] {
            if (onTitleClick)
                onTitleClick(column);
        });
    });
    connect(d->titles, &QHeaderView::sectionResized, this, [this] { d->placeEditor(); });
    connect(d->titles, &QHeaderView::sectionMoved, this, [this] { d->placeEditor(); });
}

DataGrid::~DataGrid() {
    if (Dataset* rows = dataset(); rows != nullptr)
        rows->updateRecord = nullptr;
    d->editor->removeEventFilter(this);
    // One of its entries may be what takes the grid away: the menu must outlive its own click.
    d->menu->setParent(nullptr);
    d->menu->deleteLater();
}

// --- dataset and columns ----------------------------------------------------------------------------

void DataGrid::setDataset(Dataset* dataset) {
    d->stopTyping();
    if (Dataset* old = this->dataset(); old != nullptr) {
        old->disconnect(this);
        old->updateRecord = nullptr;
    }
    d->model->setDataset(dataset);
    d->attach(dataset);
    d->showCursor();
}

Dataset* DataGrid::dataset() const {
    return d->dataset();
}

void DataGrid::Private::attach(Dataset* dataset) {
    if (dataset == nullptr)
        return;
    dataset->updateRecord = [this] { commit(); };
    const auto dropTyping = [this] { stopTyping(); };
    // The model has its connections already, so that it knows the rows before the view looks at them.
    for (const auto signal : {&Dataset::rowInserted, &Dataset::rowRemoved})
        connect(dataset, signal, q, [this] { anchor.reset(); });
    connect(dataset, &Dataset::rowsReset, q, [this] { anchor.reset(); });
    connect(dataset, &Dataset::rowsReset, q, dropTyping);
    connect(dataset, &Dataset::rowRemoved, q, dropTyping);
    connect(dataset, &QObject::destroyed, q, dropTyping);
    for (const auto signal : {&Dataset::rowsReset, &Dataset::cursorMoved})
        connect(dataset, signal, q, [this] { showCursor(); });
    connect(dataset, &Dataset::stateChanged, q, [this] {
        if (!editingRow())
            stopTyping();
        indicator->viewport()->update();
        q->viewport()->update();
    });
}

bool DataGrid::Private::editingRow() const {
    return active() && dataset()->state() != Dataset::State::Browse;
}

void DataGrid::setGridColumns(const QList<GridColumn>& columns) {
    d->stopTyping();
    d->model->setGridColumns(columns);
    d->titleColors.clear();
    d->column = 0;
    for (int i = 0; i < columns.size(); ++i) {
        d->titles->moveSection(d->titles->visualIndex(i), i);
        setColumnHidden(i, !columns[i].visible);
        setColumnWidth(i, columns[i].width);
    }
    d->showCursor();
}

const QList<GridColumn>& DataGrid::gridColumns() const {
    return d->model->gridColumns();
}

const GridColumn* DataGrid::Private::selected() const {
    const QList<GridColumn>& columns = model->gridColumns();
    return column < columns.size() ? &columns[column] : nullptr;
}

QString DataGrid::cellText(int row, int column) const {
    return d->model->text(row, column);
}

QString DataGrid::shownText(int column, const QVariant& value) const {
    return d->model->format(column, value);
}

// --- colours ----------------------------------------------------------------------------------------

void DataGrid::setColors(const GridColors& colors) {
    d->delegate->setColors(colors);
    d->titleColors.clear();
    d->indicator->face = colors.title;
    QPalette palette = this->palette();
    palette.setColor(QPalette::Base, colors.background);
    palette.setColor(QPalette::Text, colors.text);
    setPalette(palette);
    d->titles->viewport()->update();
    viewport()->update();
}

TitleHeader::Colors DataGrid::Private::titleLook(int column) const {
    const GridColors& colors = delegate->colors();
    const bool readOnly = model->gridColumns().value(column).readOnly;
    return {readOnly ? colors.readOnlyTitle : colors.title, q->titleColor(column)};
}

void DataGrid::setTitleColor(int column, const QColor& color) {
    d->titleColors[column] = color;
    d->titles->viewport()->update();
}

QColor DataGrid::titleColor(int column) const {
    const GridColors& colors = d->delegate->colors();
    const bool readOnly = gridColumns().value(column).readOnly;
    return d->titleColors.value(column, readOnly ? colors.readOnlyTitleText : colors.titleText);
}

void DataGrid::setColumnFormat(int column, const QString& format) {
    d->model->setFormat(column, format);
    viewport()->update();
}

// --- selected cell ----------------------------------------------------------------------------------

int DataGrid::selectedColumn() const {
    return d->column;
}

void DataGrid::selectColumn(int column) {
    if (column == d->column || column < 0 || column >= gridColumns().size())
        return;
    d->commit();
    const bool left = EventBoundary::run([this] {
        if (onColumnExit)
            onColumnExit(d->column);
    });
    if (!left)
        return;
    setColumnHidden(column, false);
    d->column = column;
    d->showCursor();
    EventBoundary::run([&] {
        if (onColumnEnter)
            onColumnEnter(column);
    });
}

QList<int> DataGrid::visibleOrder() const {
    QList<int> order;
    for (int place = 0; place < d->titles->count(); ++place) {
        const int column = d->titles->logicalIndex(place);
        if (!isColumnHidden(column))
            order.append(column);
    }
    return order;
}

int DataGrid::lastVisibleColumn() const {
    const QList<int> order = visibleOrder();
    return order.isEmpty() ? 0 : order.last();
}

QList<ColumnLayout> DataGrid::columnLayout() const {
    QList<ColumnLayout> layout;
    for (int place = 0; place < d->titles->count(); ++place) {
        const int column = d->titles->logicalIndex(place);
        const bool visible = !isColumnHidden(column);
        layout.append({column, visible ? columnWidth(column) : gridColumns()[column].width, visible});
    }
    return layout;
}

void DataGrid::setColumnLayout(const QList<ColumnLayout>& layout) {
    if (std::none_of(layout.begin(), layout.end(), [](const ColumnLayout& column) { return column.visible; }))
        return;
    for (int place = 0; place < layout.size(); ++place) {
        const auto& [column, width, visible] = layout[place];
        d->titles->moveSection(d->titles->visualIndex(column), place);
        setColumnHidden(column, !visible);
        setColumnWidth(column, width);
        d->model->setWidth(column, width);
    }
    if (const QList<int> order = visibleOrder(); isColumnHidden(d->column) && !order.isEmpty())
        selectColumn(order.first());
    d->showCursor();
}

void DataGrid::Private::showCursor() {
    const QModelIndex index = model->index(active() ? dataset()->row() : -1, column);
    q->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (index.isValid())
        q->scrollTo(index);
    placeEditor();
    indicator->viewport()->update();
    q->viewport()->update();
}

Indicator DataGrid::Private::indicatorOf(int row) const {
    if (!active() || row != dataset()->row())
        return Indicator::None;
    switch (dataset()->state()) {
        case Dataset::State::Insert:
            return Indicator::New;
        case Dataset::State::Edit:
            return Indicator::Edited;
        default:
            return Indicator::Current;
    }
}

// The block goes on from where it was begun, or from here; otherwise there is none any more.
void DataGrid::Private::markFrom(bool extends) {
    if (extends && active() && !dataset()->isEmpty()) {
        if (!anchor)
            anchor = QPoint(column, dataset()->row());
    } else if (std::exchange(anchor, std::nullopt)) {
        q->viewport()->update();
    }
}

std::optional<GridBlock> DataGrid::block() const {
    if (!d->anchor || !d->active())
        return {};
    const QList<int> order = visibleOrder();
    const int row = d->dataset()->row();
    const auto [left, right] = std::minmax({order.indexOf(d->anchor->x()), order.indexOf(d->column)});
    const auto [first, last] = std::minmax({d->anchor->y(), row});
    if (left < 0 || first < 0 || last >= d->dataset()->recordCount() || (left == right && first == last))
        return {};
    return GridBlock{first, last, order.mid(left, right - left + 1)};
}

void DataGrid::setEditing(bool on) {
    if (!on)
        d->commit();
    d->editing = on;
}

bool DataGrid::editing() const {
    return d->editing;
}

bool DataGrid::canType() const {
    const GridColumn* column = d->selected();
    return d->active() && d->editing && column != nullptr && !column->readOnly &&
           column->kind != ColumnKind::Mark && column->kind != ColumnKind::Cycle &&
           d->model->field(d->column) >= 0;
}

bool DataGrid::typingInCell() const {
    return d->typing;
}

QString DataGrid::textInCell() const {
    return d->typing ? d->editor->text() : QString();
}

void DataGrid::commitCell() {
    d->commit();
}

// --- menu -------------------------------------------------------------------------------------------

QMenu* DataGrid::popupMenu() const {
    return d->menu;
}

void DataGrid::setPickList(QWidget* list) {
    d->pickList = list;
}

void DataGrid::setPopupEnabled(bool enabled) {
    d->popupEnabled = enabled;
}

// --- keys and mouse ---------------------------------------------------------------------------------

bool DataGrid::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        d->menuAction(*static_cast<QKeyEvent*>(event)) != nullptr) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        // Before the view: it would turn Tab into a move of the focus that the page never hears of.
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return event->isAccepted();
    }
    return QTableView::event(event);
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(d->handleKey(*event));
}

bool DataGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched != d->editor)
        return QTableView::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            event->accept();
            return d->menuAction(*static_cast<QKeyEvent*>(event)) != nullptr;
        case QEvent::KeyPress:
            return d->handleKey(*static_cast<QKeyEvent*>(event));
        case QEvent::FocusOut:
            d->focusLost(*static_cast<QFocusEvent*>(event));
            return false;
        case QEvent::MouseButtonDblClick: {
            // The page's answer comes first; a cell that it leaves open selects the word under the mouse.
            event->accept();
            const QPointer<DataGrid> alive(this);
            EventBoundary::run([&] {
                if (onDoubleClick && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
                    onDoubleClick(d->column);
            });
            return !alive || d->editor->isHidden();
        }
        default:
            return false;
    }
}

// The dataset moves first: a refused post holds both.
bool DataGrid::Private::select(const QModelIndex& index) {
    if (!index.isValid() || !active())
        return false;
    return EventBoundary::run([&] {
        const int target = index.column();
        dataset()->moveTo(index.row());
        q->selectColumn(target);
        if (column == target && q->onCellClick)
            q->onCellClick(target);
    });
}

void DataGrid::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::LeftButton)
        d->markFrom(event->modifiers().testFlag(Qt::ShiftModifier) && !d->typing);
    if (event->button() == Qt::LeftButton)
        d->select(indexAt(event->position().toPoint()));
    event->accept();
}

void DataGrid::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void DataGrid::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    const QPoint place = event->position().toPoint();
    if (event->button() != Qt::LeftButton || !d->active())
        return;
    if (dataset()->isEmpty())
        return d->doubleClickEmpty(place);
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return;
    const bool chosen = index.row() == dataset()->row() && index.column() == d->column;
    if (!chosen && !d->select(index))
        return;
    EventBoundary::run([&] {
        if (onDoubleClick && index.column() == d->column)
            onDoubleClick(d->column);
    });
}

void DataGrid::Private::doubleClickEmpty(const QPoint& place) {
    const int target = q->columnAt(place.x());
    if (target >= 0 && place.y() < indicator->defaultSectionSize() && q->onEmptyDoubleClick)
        EventBoundary::run([&] { q->onEmptyDoubleClick(target); });
}

}  // namespace widgets
