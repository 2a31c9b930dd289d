#include "BlockPaste.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalBlocker>

#include "CellText.h"
#include "CodePage.h"
#include "Errors.h"
#include "GridBlock.h"
#include "ListDialog.h"
#include "Progress.h"
#include "Untfmsg.h"

namespace definition {
namespace {

using data::Dataset;
using widgets::ColumnKind;

constexpr int kManyRows = 200;

struct Refused {
    int line = 0;  // of the block, from 0
    int column = -1;
    QString text, why;
};

class Paste {
public:
    Paste(widgets::DataGrid& grid, const PasteRules& rules, const QList<QStringList>& lines)
        : m_grid(grid), m_rows(*grid.dataset()), m_rules(rules), m_lines(lines) {
        const QList<int> order = grid.visibleOrder();
        m_columns = order.mid(order.indexOf(grid.selectedColumn()));
        qsizetype width = 0;
        for (const QStringList& line : lines)
            width = qMax(width, line.size());
        if (width > m_columns.size())
            throw data::Refusal(
                QStringLiteral("متن حافظه %1 ستون دارد و از اين خانه به بعد %2 ستون هست. چيزي "
                               "تغيير نکرد.")
                    .arg(width)
                    .arg(m_columns.size()));
        m_first = m_rows.state() == Dataset::State::Insert && !m_rows.modified() ? m_rows.recordCount() - 1
                                                                                 : qMax(0, m_rows.row());
        m_rows.checkBrowseMode();
        m_before = m_rows.recordCount();
        if (!m_rows.restriction().isEmpty())
            throw data::Refusal(QStringLiteral("در فهرست پالايش شده چيزي جاي نمي گيرد و چيزي تغيير نکرد."));
    }

    int overwritten() const { return qBound(0, m_before - m_first, static_cast<int>(m_lines.size())); }

    // Stores the block, or nothing of it where a row is refused.
    void store() {
        QSet<int> broken;  // lines whose refusal has ended a transaction
        for (;;) {
            m_refused.removeIf([&](const Refused& refused) { return !broken.contains(refused.line); });
            const qsizetype before = broken.size();
            if (tryAll(broken) || broken.size() == before)
                return;
        }
    }

    // The rows that are right.
    void storeRest() {
        for (const Refused& refused : m_refused)
            m_left.insert(refused.line);
        m_refused.clear();
        store();
    }

    const QList<Refused>& refused() const { return m_refused; }
    bool anyIsRight() const {
        QSet<int> wrong;
        for (const Refused& refused : m_refused)
            wrong.insert(refused.line);
        return wrong.size() < m_lines.size();
    }
    QString titleOf(int column) const {
        return column < 0 ? QString() : m_grid.gridColumns()[column].title.simplified();
    }

private:
    // True where all is stored.
    bool tryAll(QSet<int>& broken) {
        m_grid.setUpdatesEnabled(false);
        const auto shown = qScopeGuard([this] { m_grid.setUpdatesEnabled(true); });
        try {
            m_rows.transact(
                [&] {
                    std::optional<widgets::Progress> progress;
                    if (m_lines.size() > kManyRows)
                        progress.emplace(QStringLiteral("در حال بازيابي رديف ها ..."), m_lines.size());
                    const Overheard overheard;
                    const QSignalBlocker unseen(m_rows);  // until all stands or nothing does
                    m_rules.begin();
                    m_rows.deferReading();
                    for (int line = 0; line < m_lines.size(); ++line) {
                        if (progress)
                            progress->advance(line);
                        if (!broken.contains(line) && !m_left.contains(line) && !tryLine(line)) {
                            broken.insert(line);
                            throw data::SilentAbort();
                        }
                    }
                    if (!m_refused.isEmpty())
                        throw data::SilentAbort();
                    m_rules.end();
                },
                Dataset::After::SameRow);
            return true;
        } catch (const data::SilentAbort&) {
            // Given up by the operator, where nothing was refused.
            if (m_refused.isEmpty())
                throw;
        }
        return false;
    }

    // False where the server's refusal has ended the transaction.
    bool tryLine(int line) {
        const int before = m_refused.size();
        try {
            goTo(line);
            for (int cell = 0; cell < m_lines[line].size(); ++cell)
                write(line, m_columns[cell], m_lines[line][cell]);
            if (m_refused.size() == before)
                m_rows.checkBrowseMode();
        } catch (const data::ServerError& error) {
            m_refused.append({line, -1, {}, m_rules.refusal(error)});
            return false;
        } catch (const data::Refusal& refusal) {
            m_refused.append({line, -1, {}, refusal.text()});
        } catch (const data::SilentAbort&) {
            m_refused.append({line, -1, {}, QStringLiteral("رديف تازه اي جا نمي گيرد")});
        }
        m_rows.cancel();
        return true;
    }

    void goTo(int line) {
        // Lines that are left out leave no gap among new rows.
        int place = m_first + line;
        for (const int left : m_left)
            place -= m_first + left >= m_before && left < line ? 1 : 0;
        if (place < m_before) {
            m_rows.moveTo(place);
            return m_rows.edit();
        }
        m_rows.last();
        m_rows.append();
        if (m_rows.state() != Dataset::State::Insert)
            throw data::SilentAbort();
    }

    void write(int line, int column, const QString& cell) {
        try {
            if (m_rules.takes(column))
                put(column, cell);
        } catch (const data::Refusal& refusal) {
            m_refused.append({line, column, cell, refusal.text()});
        }
    }

    void put(int column, const QString& cell) {
        const widgets::GridColumn& shown = m_grid.gridColumns()[column];
        const int field = m_rows.columnIndex(shown.field);
        if (shown.kind == ColumnKind::Mark)
            return m_rules.mark(column, isSet(cell.trimmed()));
        if (shown.kind == ColumnKind::Cycle) {
            for (const QString& value : m_rules.cycleValues(column))
                if (value.trimmed() == cell.trimmed())
                    return m_rows.setValue(field, value);
            throw data::Refusal(QStringLiteral("از مقدارهاي اين ستون نيست"));
        }
        const data::ColumnInfo& stored = m_rows.columns()[field];
        const QString text = m_grid.admitted(column, cell);
        m_rows.setValue(field, widgets::cellValue(stored, &shown, text, widgets::cellLength(stored, &shown)));
    }

    static bool isSet(const QString& cell) {
        if (cell.isEmpty())
            return false;
        if (cell == QStringLiteral("✓") || cell == QString(data::kMark) || cell == QLatin1String("1"))
            return true;
        throw data::Refusal(QStringLiteral("علامت نيست: ✓، ض، 1 يا خالي"));
    }

    widgets::DataGrid& m_grid;
    Dataset& m_rows;
    const PasteRules& m_rules;
    const QList<QStringList> m_lines;
    QList<int> m_columns;
    int m_first = 0, m_before = 0;
    QSet<int> m_left;  // lines that the operator does without
    QList<Refused> m_refused;
};

// Whether he takes the rows that are right.
bool report(const Paste& paste) {
    using forms::ListColumn;
    forms::ListDialog window(QStringLiteral("TPasteReportForm"), QStringLiteral("خانه هايي که جاي نگرفتند"),
                             QStringLiteral("dbgErrors"),
                             {{QStringLiteral("رديف"), 60, ListColumn::Kind::Number},
                              {QStringLiteral("ستون"), 150},
                              {QStringLiteral("متن"), 180},
                              {QStringLiteral("علت"), 320}},
                             {760, 420});
    QList<QStringList> rows;
    for (const Refused& refused : paste.refused())
        rows.append({QString::number(refused.line + 1), paste.titleOf(refused.column), refused.text,
                     refused.why.trimmed()});
    std::stable_sort(rows.begin(), rows.end(), [](const QStringList& one, const QStringList& other) {
        return one.first().toInt() < other.first().toInt();
    });
    window.setRows(rows);
    window
        .addButtons(QStringLiteral("ثبت رديف هاي درست"), [&window] { window.setModalResult(widgets::mrOk); })
        ->setEnabled(paste.anyIsRight());
    return window.showModal() == widgets::mrOk;
}

}  // namespace

bool pasteBlock(widgets::DataGrid& grid, const PasteRules& rules) {
    const QString text = QGuiApplication::clipboard()->text();
    if (grid.typingInCell() || grid.gridColumns().isEmpty() || !Is_Block(text))
        return false;
    Paste paste(grid, rules, Parse_Block(text));
    if (const int rows = paste.overwritten(); rules.storesAtOnce && rows > 0)
        if (Show_Msg(QStringLiteral("%1 رديف موجود با متن حافظه جايگزين مي شود. آيا ثبت شود؟").arg(rows),
                     QString(), QStringLiteral("3QC")) != widgets::mrYes)
            return true;
    const int column = grid.selectedColumn();
    const auto back = qScopeGuard([&] { grid.selectColumn(column); });
    paste.store();
    if (!paste.refused().isEmpty() && report(paste))
        paste.storeRest();
    return true;
}

}  // namespace definition
