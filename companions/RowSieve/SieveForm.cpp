#include "SieveForm.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>

#include "Errors.h"
#include "EventBoundary.h"

namespace rowsieve {
namespace {

constexpr int kPause = 400;  // milliseconds without a key before the rows are counted

int placeOf(const QList<Field>& fields, const widgets::DataGrid& grid) {
    const QString selected = grid.gridColumns().value(grid.selectedColumn()).field;
    for (int i = 0; i < fields.size(); ++i)
        if (fields[i].name.compare(selected, Qt::CaseInsensitive) == 0)
            return i;
    return 0;
}

}  // namespace

SieveForm::SieveForm(data::Connection& connection, widgets::DataGrid& grid, QString table)
    : DialogForm(QStringLiteral("TSieveForm"), QStringLiteral("پالايش گزارش")),
      m_connection(connection),
      m_table(std::move(table)),
      m_fields(fieldsOf(grid)),
      m_firstField(placeOf(m_fields, grid)) {
    body().addWidget(new QLabel(QStringLiteral("رديف هايي نشان داده شوند که در آنها:"), this));
    m_area = new QScrollArea(this);
    m_area->setWidgetResizable(true);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* sheet = new QWidget;
    m_lines = new QVBoxLayout(sheet);
    m_lines->setContentsMargins(6, 6, 6, 6);
    m_lines->setSpacing(4);
    m_lines->addStretch();
    m_area->setWidget(sheet);
    body().addWidget(m_area, 1);

    QHBoxLayout& tools = addButtonRow();
    addButton(tools, QStringLiteral("AddBtn"), QStringLiteral("&شرط تازه"), [this] {
        addRow();
    })->setToolTip(QStringLiteral("Insert"));
    addButton(tools, QStringLiteral("RemoveBtn"), QStringLiteral("&حذف شرط"), [this] {
        removeRow();
    })->setToolTip(QStringLiteral("Ctrl+Delete"));
    tools.addWidget(
        new QLabel(QStringLiteral("شرط تازه: Insert، حذف: Ctrl+Delete، رفتن ميان شرط ها: Ctrl با پيکان ها"),
                   this),
        1);
    for (QLabel** label : {&lbSentence, &lbStatus}) {
        *label = new QLabel(this);
        (*label)->setWordWrap(true);
        (*label)->setAlignment(Qt::AlignLeading | Qt::AlignTop);
        (*label)->setMinimumHeight(2 * fontMetrics().lineSpacing());
        body().addWidget(*label);
    }
    lbSentence->setObjectName(QStringLiteral("lbSentence"));
    lbStatus->setObjectName(QStringLiteral("lbStatus"));
    QHBoxLayout& buttons = addButtonRow();
    addButton(buttons, QStringLiteral("OkBtn"), QStringLiteral("&تاييد"), [this] { confirm(); });
    buttons.addStretch();
    addButton(buttons, QStringLiteral("CancelBtn"), QStringLiteral("&انصراف"),
              [this] { setModalResult(widgets::mrCancel); });

    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(&m_pause, &QTimer::timeout, this,
            [this] { widgets::EventBoundary::run([this] { showCount(); }); });
    addRow();
    onShow = [this] {
        if (!m_rows.isEmpty())
            m_rows.first()->focusValue();
    };
    resize(660, 340);
}

QList<Criterion> SieveForm::criteria() const {
    QList<Criterion> result;
    for (const CriterionRow* row : m_rows)
        result.append(row->criterion());
    return result;
}

int SieveForm::currentRow() const {
    const QWidget* focused = focusWidget();
    for (int i = 0; i < m_rows.size(); ++i)
        if (focused != nullptr && m_rows[i]->isAncestorOf(focused))
            return i;
    return static_cast<int>(m_rows.size()) - 1;
}

void SieveForm::addRow() {
    if (m_fields.isEmpty())
        return;
    auto* row = new CriterionRow(m_fields, m_firstField, m_area->widget());
    m_lines->insertWidget(static_cast<int>(m_rows.size()), row);
    if (!m_rows.isEmpty())
        setTabOrder(m_rows.last()->lastInTabOrder(), row->firstInTabOrder());
    m_rows.append(row);
    row->setFirst(m_rows.size() == 1);
    row->onChange = [this] { showSentence(); };
    for (QWidget* part : row->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        part->installEventFilter(this);
    row->show();
    row->focusValue();
    m_lines->activate();
    m_area->ensureWidgetVisible(row);
    showSentence();
}

void SieveForm::removeRow() {
    const int place = currentRow();
    if (place < 0)
        return;
    CriterionRow* row = m_rows.takeAt(place);
    row->onChange = nullptr;
    if (!m_rows.isEmpty()) {
        m_rows.first()->setFirst(true);
        m_rows[qMin(place, static_cast<int>(m_rows.size()) - 1)]->focusValue();
    } else {
        component<QPushButton>(QStringLiteral("AddBtn"))->setFocus();
    }
    row->hide();
    row->deleteLater();
    showSentence();
}

void SieveForm::moveFocus(int step) {
    const int place = currentRow() + step;
    if (place < 0 || place >= m_rows.size())
        return;
    m_rows[place]->focusValue();
    m_area->ensureWidgetVisible(m_rows[place]);
}

void SieveForm::showSentence() {
    lbSentence->setText(m_rows.isEmpty() ? QStringLiteral("شرطي نيست: همه رديف ها نشان داده مي شوند.")
                                         : sentenceOf(criteria()) + u'.');
    lbStatus->clear();
    m_pause.start();
}

std::optional<qint64> SieveForm::count() {
    try {
        const data::ResultSet found =
            m_connection.execute("Select Count(*) From " + m_table + " Where " + conditionOf(criteria()));
        const qint64 number = found.rows.value(0).value(0).toLongLong();
        lbStatus->setText(QStringLiteral("%1 رديف اين شرط را دارد.").arg(QLocale::c().toString(number)));
        return number;
    } catch (const data::ServerError& error) {
        lbStatus->setText(QStringLiteral("بانک اطلاعات اين شرط را نپذيرفت: ") + error.text());
    } catch (const data::Refusal& refusal) {
        lbStatus->setText(refusal.text());
    }
    return {};
}

void SieveForm::showCount() {
    const QList<Criterion> written = criteria();
    for (const Criterion& criterion : written)
        if (!objection(criterion).isEmpty())
            return;
    if (!written.isEmpty())
        count();
}

void SieveForm::confirm() {
    for (CriterionRow* row : m_rows)
        if (const QString wrong = objection(row->criterion()); !wrong.isEmpty()) {
            row->focusValue();
            m_area->ensureWidgetVisible(row);
            m_pause.stop();
            lbStatus->setText(wrong);
            return;
        }
    m_pause.stop();
    QString statement;
    if (!m_rows.isEmpty()) {
        const QString condition = conditionOf(criteria());
        const std::optional<qint64> matching = count();
        if (!matching)
            return;
        if (*matching == 0 && std::exchange(m_toldEmpty, condition) != condition) {
            lbStatus->setText(QStringLiteral(
                "هيچ رديفي اين شرط را ندارد. شرط را تغيير دهيد، يا براي ديدن فهرست خالي دوباره تاييد کنيد."));
            return;
        }
        statement = "Select * From " + m_table + " Where " + condition;
    }
    setProperty(kAnswer, statement);
    setModalResult(widgets::mrOk);
}

bool SieveForm::keyOfRows(const QKeyEvent& event) {
    const int key = event.key();
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    if (key == Qt::Key_Insert && event.modifiers() == Qt::NoModifier)
        addRow();
    else if (key == Qt::Key_Delete && control)
        removeRow();
    else if ((key == Qt::Key_Up || key == Qt::Key_Down) && control)
        moveFocus(key == Qt::Key_Up ? -1 : 1);
    else
        return false;
    return true;
}

// Edits and lists have a meaning of their own for some of these keys.
bool SieveForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && keyOfRows(*static_cast<QKeyEvent*>(event)))
        return true;
    return DialogForm::eventFilter(watched, event);
}

void SieveForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<QPushButton*>(focusWidget()) == nullptr)
        widgets::EventBoundary::run([this] { confirm(); });
    else if (!keyOfRows(*event))
        DialogForm::keyPressEvent(event);
}

}  // namespace rowsieve
