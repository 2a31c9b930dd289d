#include "ChoiceForm.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "Components.h"
#include "Errors.h"

namespace {

constexpr int kShown = 0;
constexpr int kSummed = 1;

QTableWidgetItem* checkable(const QString& text, bool checked) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    return item;
}

}  // namespace

TAdvPrintForm::TAdvPrintForm(const QList<report::ReportColumn>& columns)
    : DialogForm(QStringLiteral("TAdvPrintForm"), QStringLiteral("چاپ پيشرفته")), m_columns(columns) {
    build();
    for (int column = 0; column < columns.size(); ++column)
        addRow(column, column, true, columns[column].totalled);
    if (m_list->rowCount() > 0)
        m_list->setCurrentCell(0, kShown);
    look();
    onShow = [this] { m_list->setFocus(); };
}

void TAdvPrintForm::build() {
    body().addWidget(new QLabel(QStringLiteral("ستونهايي که چاپ مي شوند، به ترتيب از راست"), this));
    m_list = widgets::named(new QTableWidget(0, 2, this), "ColumnList");
    m_list->setHorizontalHeaderLabels({QStringLiteral("ستون"), QStringLiteral("جمع")});
    m_list->horizontalHeader()->setSectionResizeMode(kShown, QHeaderView::Stretch);
    m_list->horizontalHeader()->setSectionResizeMode(kSummed, QHeaderView::Fixed);
    m_list->horizontalHeader()->setSectionsClickable(false);
    m_list->horizontalHeader()->setHighlightSections(false);
    m_list->setColumnWidth(kSummed, 60);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(24);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setTabKeyNavigation(false);
    auto* moves = new QVBoxLayout;
    moves->setSpacing(kSpacing);
    moves->addWidget(makeButton(QStringLiteral("UpBtn"), QStringLiteral("بالا"), [this] { moveRow(-1); }));
    moves->addWidget(makeButton(QStringLiteral("DownBtn"), QStringLiteral("پايين"), [this] { moveRow(1); }));
    moves->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    row->addWidget(m_list, 1);
    row->addLayout(moves);
    body().addLayout(row, 1);

    m_group = widgets::named(new QComboBox(this), "GroupCombo");
    m_group->addItem(QStringLiteral("بدون گروه بندي"));
    for (const report::ReportColumn& column : m_columns)
        m_group->addItem(column.title);
    auto* group = new QHBoxLayout;
    group->setSpacing(kSpacing);
    group->addWidget(new QLabel(QStringLiteral("گروه بندي با"), this));
    group->addWidget(m_group, 1);
    body().addLayout(group);
    m_subTotals = widgets::named(new QCheckBox(QStringLiteral("جمع هر گروه"), this), "SubTotalsCheck");
    m_subTotals->setChecked(true);
    m_newPages = widgets::named(new QCheckBox(QStringLiteral("هر گروه از صفحه تازه"), this), "NewPagesCheck");
    auto* checks = new QHBoxLayout;
    checks->setSpacing(2 * kSpacing);
    checks->addWidget(m_subTotals);
    checks->addWidget(m_newPages);
    checks->addStretch();
    body().addLayout(checks);
    connect(m_group, &QComboBox::currentIndexChanged, this, [this] { look(); });

    QHBoxLayout& buttons = addButtonRow();
    addButton(buttons, QStringLiteral("OkBtn"), QStringLiteral("تاييد"), [this] { accept(); });
    buttons.addStretch();
    addButton(buttons, QStringLiteral("CancelBtn"), QStringLiteral("انصراف"),
              [this] { setModalResult(widgets::mrCancel); });
    resize(420, 460);
}

void TAdvPrintForm::addRow(int row, int column, bool shown, bool summed) {
    m_list->insertRow(row);
    auto* name = checkable(m_columns[column].title, shown);
    name->setData(Qt::UserRole, column);
    m_list->setItem(row, kShown, name);
    auto* sum = new QTableWidgetItem;
    if (m_columns[column].totalled)
        sum = checkable({}, summed);
    else
        sum->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    m_list->setItem(row, kSummed, sum);
}

int TAdvPrintForm::columnAt(int row) const {
    return m_list->item(row, kShown)->data(Qt::UserRole).toInt();
}

void TAdvPrintForm::moveRow(int step) {
    const int row = m_list->currentRow();
    const int target = row + step;
    if (row < 0 || target < 0 || target >= m_list->rowCount())
        return;
    const int column = columnAt(row);
    const bool shown = m_list->item(row, kShown)->checkState() == Qt::Checked;
    const bool summed = m_list->item(row, kSummed)->checkState() == Qt::Checked;
    m_list->removeRow(row);
    addRow(target, column, shown, summed);
    m_list->setCurrentCell(target, kShown);
}

void TAdvPrintForm::look() {
    const bool grouped = m_group->currentIndex() > 0;
    m_subTotals->setEnabled(grouped);
    m_newPages->setEnabled(grouped);
}

QList<report::ReportColumn> TAdvPrintForm::columns() const {
    QList<report::ReportColumn> chosen;
    for (int row = 0; row < m_list->rowCount(); ++row) {
        if (m_list->item(row, kShown)->checkState() != Qt::Checked)
            continue;
        report::ReportColumn column = m_columns[columnAt(row)];
        column.totalled = column.totalled && m_list->item(row, kSummed)->checkState() == Qt::Checked;
        chosen.append(column);
    }
    if (const int group = m_group->currentIndex() - 1; group >= 0) {
        chosen.append(m_columns[group]);
        chosen.last().shown = false;
        chosen.last().totalled = false;
    }
    return chosen;
}

report::Grouping TAdvPrintForm::grouping() const {
    if (m_group->currentIndex() <= 0)
        return {};
    return {int(columns().size()) - 1, m_subTotals->isChecked(), m_newPages->isChecked()};
}

void TAdvPrintForm::accept() {
    const QList<report::ReportColumn> chosen = columns();
    if (std::none_of(chosen.begin(), chosen.end(),
                     [](const report::ReportColumn& column) { return column.shown; }))
        throw data::Refusal(QStringLiteral("دست کم يک ستون را براي چاپ برگزينيد."));
    setModalResult(widgets::mrOk);
}
