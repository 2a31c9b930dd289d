#include "SeekForm.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

#include "Components.h"
#include "EventBoundary.h"

namespace rowseek {

SeekForm::SeekForm(widgets::DataGrid& grid, const QString& previous)
    : DialogForm(QStringLiteral("TSeekForm"), QStringLiteral("جستجو")),
      m_grid(grid),
      m_search(grid, grid.selectedColumn()),
      m_title(grid.gridColumns().value(grid.selectedColumn()).title.trimmed()),
      m_searched(previous) {
    auto* label = new QLabel(QStringLiteral("&متن مورد جستجو در ستون «%1»:").arg(m_title), this);
    SearchEdit = widgets::named(new QLineEdit(previous, this), "SearchEdit");
    SearchEdit->selectAll();
    label->setBuddy(SearchEdit);
    chBegin = widgets::named(new QCheckBox(QStringLiteral("&شروع با اين متن"), this), "chBegin");
    lbStatus = widgets::named(new QLabel(this), "lbStatus");
    lbStatus->setWordWrap(true);
    lbStatus->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    lbStatus->setMinimumHeight(5 * fontMetrics().lineSpacing() / 2);
    for (QWidget* line : std::initializer_list<QWidget*>{label, SearchEdit, chBegin, lbStatus})
        body().addWidget(line);
    QHBoxLayout& buttons = addButtonRow();
    const auto button = [&](const char* name, const QString& caption, const QString& hint,
                            std::function<void()> handler) {
        addButton(buttons, QString::fromLatin1(name), caption, std::move(handler))->setToolTip(hint);
    };
    button("FindNextBtn", QStringLiteral("&بعدي"), QStringLiteral("F3"), [this] { search(true); });
    button("FindPriorBtn", QStringLiteral("&قبلي"), QStringLiteral("Shift+F3"), [this] { search(false); });
    buttons.addStretch();
    button("CancelBitBtn", QStringLiteral("با&زگشت"), QStringLiteral("Esc"),
           [this] { setModalResult(widgets::mrCancel); });

    const auto forget = [this] { lbStatus->clear(); };
    connect(SearchEdit, &QLineEdit::textChanged, this, forget);
    connect(chBegin, &QCheckBox::toggled, this, forget);
    connect(this, &Form::modalShown, this, [this] { stepAside(); });
    onShow = [this] { SearchEdit->setFocus(); };
    resize(360, sizeHint().height());
}

void SeekForm::search(bool forwards) {
    const QString text = SearchEdit->text();
    SearchEdit->setFocus();
    if (text.trimmed().isEmpty()) {
        lbStatus->setText(QStringLiteral("متني را که بايد پيدا شود بنويسيد."));
        return;
    }
    m_searched = text;
    lbStatus->clear();
    m_search.setText(text, chBegin->isChecked());
    const ColumnSearch::Found found = forwards ? m_search.next() : m_search.prior();
    lbStatus->setText(report(found, forwards));
    stepAside();
}

QString SeekForm::report(const ColumnSearch::Found& found, bool forwards) const {
    if (found.row < 0)
        return QStringLiteral("«%1» در ستون «%2» پيدا نشد.").arg(m_searched.trimmed(), m_title);
    QString place =
        QStringLiteral("رديف %1، مورد %2 از %3.").arg(found.row + 1).arg(found.place).arg(found.count);
    if (!found.wrapped)
        return place;
    return place + u'\n' +
           (forwards ? QStringLiteral("جستجو به پايان فهرست رسيد و از ابتداي آن ادامه يافت.")
                     : QStringLiteral("جستجو به ابتداي فهرست رسيد و از پايان آن ادامه يافت."));
}

// The row that was found must be seen: the dialog goes below it, or above it where there is no room.
void SeekForm::stepAside() {
    QRect row = m_grid.visualRect(m_grid.model()->index(m_grid.dataset()->row(), m_grid.selectedColumn()));
    row.moveTopLeft(m_grid.viewport()->mapToGlobal(row.topLeft()));
    if (!row.isValid() || screen() == nullptr || row.bottom() < y() || row.top() > frameGeometry().bottom())
        return;
    constexpr int gap = 12;
    const int below = row.bottom() + gap;
    const bool fits = below + height() <= screen()->availableGeometry().bottom();
    move(x(), fits ? below : row.top() - gap - height());
}

void SeekForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool onButton = qobject_cast<QPushButton*>(focusWidget()) != nullptr;
    if (event->key() == Qt::Key_F3 || (enter && !onButton))
        widgets::EventBoundary::run([&] { search(!event->modifiers().testFlag(Qt::ShiftModifier)); });
    else
        DialogForm::keyPressEvent(event);
}

}  // namespace rowseek
