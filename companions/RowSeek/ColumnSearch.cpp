#include "ColumnSearch.h"

#include <algorithm>

#include "CodePage.h"
#include "GridModel.h"
#include "Progress.h"
#include "Query.h"

namespace rowseek {

using widgets::ColumnKind;

namespace {

const QString kCheck = QStringLiteral("✓");

// Texts that a reader takes for the same become the same.
QString folded(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (const QChar character : data::foldDigits(text)) {
        // Joiners and vowels are written or not.
        if (character.category() == QChar::Other_Format || character.category() == QChar::Mark_NonSpacing)
            continue;
        switch (character.unicode()) {
            case 0x06CC:
            case 0x0649:
                result.append(QChar(0x064A));
                break;
            case 0x06A9:
                result.append(QChar(0x0643));
                break;
            case 0x0640:  // the stroke that stretches a word
                break;
            default:
                result.append(character.toLower());
        }
    }
    return result;
}

QString withoutSeparators(QString number) {
    return number.remove(u',').remove(QChar(0x066C));
}

}  // namespace

ColumnSearch::ColumnSearch(widgets::DataGrid& grid, int column)
    : m_grid(grid),
      m_column(grid.gridColumns().value(column)),
      m_field(grid.dataset()->columnIndex(m_column.field)) {}

void ColumnSearch::setText(const QString& text, bool atBeginning) {
    const QString wanted = folded(text.trimmed());
    if (m_collected && wanted == m_text && atBeginning == m_atBeginning)
        return;
    m_text = wanted;
    m_atBeginning = atBeginning;
    m_collected = false;
}

QString ColumnSearch::shown(const QVariant& value) const {
    bool number = false;
    const double amount = value.toDouble(&number);
    return number && !m_column.displayFormat.isEmpty() ? widgets::formatNumber(m_column.displayFormat, amount)
                                                       : data::valueText(value);
}

bool ColumnSearch::holds(const QVariant& value) const {
    const auto matches = [this](const QString& text, const QString& wanted) {
        return m_atBeginning ? text.startsWith(wanted) : text.contains(wanted);
    };
    const QString stored = data::valueText(value);
    if (m_column.kind == ColumnKind::Mark && stored.trimmed() == data::kMark)
        return m_text == kCheck || m_text == data::kMark;
    const int type = value.metaType().id();
    if (type != QMetaType::LongLong && type != QMetaType::Double)
        return matches(folded(stored).trimmed(), m_text);
    const QString wanted = withoutSeparators(m_text);
    return matches(shown(value), m_text) ||
           (!wanted.isEmpty() &&
            (matches(stored, wanted) || matches(withoutSeparators(shown(value)), wanted)));
}

void ColumnSearch::collect() {
    m_rows.clear();
    data::Dataset& rows = *m_grid.dataset();
    int row = 0;
    if (m_field >= 0) {
        widgets::Progress progress(QStringLiteral("جستجو ..."), rows.recordCount());
        rows.connection()->stream(
            rows.selection({m_column.field}), [](const QList<data::ColumnInfo>&) {},
            [&](const data::RowView& view) {
                if (holds(view.value(0)))
                    m_rows.append(row);
                progress.advance(++row);
                return true;
            });
    }
    m_collected = true;
}

ColumnSearch::Found ColumnSearch::nearest(bool forwards) const {
    if (m_rows.isEmpty())
        return {};
    const int from = m_grid.dataset()->row();
    Found found;
    found.count = static_cast<int>(m_rows.size());
    const auto after = std::upper_bound(m_rows.begin(), m_rows.end(), from);
    const auto atOrAfter = std::lower_bound(m_rows.begin(), m_rows.end(), from);
    found.wrapped = forwards ? after == m_rows.end() : atOrAfter == m_rows.begin();
    const auto chosen =
        forwards ? (found.wrapped ? m_rows.begin() : after) : (found.wrapped ? m_rows.end() : atOrAfter) - 1;
    found.row = *chosen;
    found.place = static_cast<int>(chosen - m_rows.begin()) + 1;
    return found;
}

ColumnSearch::Found ColumnSearch::find(bool forwards) {
    data::Dataset& rows = *m_grid.dataset();
    if (!m_collected)
        collect();
    Found found = nearest(forwards);
    // Rows that were added or re-ordered since they were read stand elsewhere than the server gives them.
    if (found.row >= 0 && !holds(rows.valueAt(found.row, m_field))) {
        rows.refresh();
        collect();
        found = nearest(forwards);
    }
    if (found.row >= 0)
        rows.moveTo(found.row);
    return found;
}

ColumnSearch::Found ColumnSearch::next() {
    return find(true);
}

ColumnSearch::Found ColumnSearch::prior() {
    return find(false);
}

}  // namespace rowseek
