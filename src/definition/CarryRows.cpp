#include "CarryRows.h"

#include <QPushButton>

#include "ConfirmPreview.h"
#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "EarlierMonth.h"
#include "ListDialog.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

using forms::ListColumn;

enum Column { Chosen, Code, Name, Status, Difference };

const QString kMissing = QStringLiteral("ندارد");
const QString kDiffers = QStringLiteral("متفاوت");

void tell(const QString& text) {
    Show_Msg(text, QString(), QStringLiteral("1IR"));
}

class Carry {
public:
    explicit Carry(DefinitionPage& page) : m_page(page), m_month(page) {}

    bool hasRows() const { return !m_month.rows().rows.isEmpty(); }

    // Every row of the earlier month under its own code.
    void bringAll() {
        for (const QVariantList& row : m_month.rows().rows)
            bring(row, m_month.codeOf(row));
        store();
    }

    // What the operator may choose from: a row of the list for each row of the earlier month that is missing
    // here or differs.
    QList<QStringList> offer() {
        QList<QStringList> offered;
        for (const QVariantList& row : m_month.rows().rows) {
            const int here = rowNamed(m_month.nameOf(row));
            const QStringList differences = here < 0 ? QStringList() : differencesTo(here, row);
            if (here >= 0 && differences.isEmpty())
                continue;
            m_offered.append({row, here});
            offered.append({QString(), QString::number(m_month.codeOf(row)), m_month.nameOf(row),
                            here < 0 ? kMissing : kDiffers, differences.join(QStringLiteral("؛ "))});
        }
        return offered;
    }

    void bringChosen(const QList<QStringList>& list) {
        qint64 next = 0;
        for (int row = 0; row < rows().recordCount(); ++row)
            next = qMax(next, codeAt(row));
        // The rows that are new here have their codes before any list is asked about them.
        QList<std::pair<QVariantList, qint64>> added;
        for (int i = 0; i < list.size(); ++i)
            if (!list[i][Chosen].isEmpty() && m_offered[i].second < 0) {
                added.append({m_offered[i].first, ++next});
                m_month.addItem(m_month.nameOf(m_offered[i].first), next);
            }
        for (const auto& [row, code] : added)
            bring(row, code);
        for (int i = 0; i < list.size(); ++i)
            if (!list[i][Chosen].isEmpty() && m_offered[i].second >= 0)
                change(m_offered[i].second, m_offered[i].first);
        store();
    }

private:
    data::Dataset& rows() const { return m_page.rows(); }
    qint64 codeAt(int row) const {
        return rows().valueAt(row, rows().columnIndex(m_page.definition().fields.code)).toLongLong();
    }

    int rowNamed(const QString& name) const {
        const int column = rows().columnIndex(m_page.definition().fields.name);
        for (int row = 0; row < rows().recordCount(); ++row)
            if (Bare_Name(data::valueText(rows().valueAt(row, column))) == Bare_Name(name))
                return row;
        return -1;
    }

    QStringList differencesTo(int here, const QVariantList& row) {
        const QHash<QString, QVariant> values = m_month.valuesHere(row);
        return valueChanges(
            m_page, [&](const QString& field) { return rows().valueAt(here, rows().columnIndex(field)); },
            [&](const QString& field) { return values.value(field.toLower()); },
            [](qint64 code) { return code; });
    }

    // The code that what is stored under the row's code has had: its own where amounts of this month wait for
    // it.
    qint64 codeBefore(qint64 code) {
        const bool waits = m_month.hasHolders(code) && !m_page.copy().wasThere(code);
        return waits ? code : 0;
    }

    void bring(const QVariantList& row, qint64 code) {
        QHash<QString, QVariant> values = m_month.valuesHere(row, &m_leftOut);
        values[m_page.definition().fields.code.toLower()] = code;
        values[QStringLiteral("codemah")] = m_page.month();
        values[QStringLiteral("codetemp")] = codeBefore(code);
        QVariantList inOrder;
        for (const data::ColumnInfo& column : rows().columns())
            inOrder.append(values.value(column.name.toLower()));
        m_statements.append(data::insertion(rows().tableName(), rows().columns(), inOrder));
        m_brought.append(code);
    }

    void change(int here, const QVariantList& row) {
        const QHash<QString, QVariant> values = m_month.valuesHere(row, &m_leftOut);
        const PageFields& fields = m_page.definition().fields;
        QStringList settings;
        for (const data::ColumnInfo& column : rows().columns())
            if (const QString name = column.name.toLower();
                name != fields.code.toLower() && name != fields.name.toLower() &&
                name != QLatin1String("codemah") && name != QLatin1String("codetemp"))
                settings.append(data::bracketed(column.name) + u'=' + data::literal(values.value(name)));
        m_statements.append("Update Top (1) " + rows().tableName() + " Set " + settings.join(u',') +
                            " Where " + fields.code + u'=' + QString::number(codeAt(here)) + " And " +
                            fields.name + u'=' +
                            data::literal(rows().valueAt(here, rows().columnIndex(fields.name))));
    }

    void store() {
        if (m_statements.isEmpty())
            return;
        const int most = m_page.definition().maxRows;
        if (most > 0 && rows().recordCount() + m_brought.size() > most)
            throw data::Refusal(
                QStringLiteral("اين صفحه بيش از %1 رديف نمي گيرد و رديفي آورده نشد.").arg(most));
        rows().transact([this] { Exec_Sql(m_page.db(), m_statements.join(u'\n')); },
                        data::Dataset::After::FirstRow);
        for (const qint64 code : m_brought)
            for (int row = 0; row < rows().recordCount(); ++row)
                if (codeAt(row) == code)
                    m_page.copy().carried(row, codeBefore(code));
        m_leftOut.removeDuplicates();
        if (!m_leftOut.isEmpty())
            tell(QStringLiteral("اينها در اين ماه نيستند و از رديف هاي آورده شده كنار گذاشته شدند: ") +
                 m_leftOut.join(QStringLiteral("، ")));
    }

    DefinitionPage& m_page;
    EarlierMonth m_month;
    QList<std::pair<QVariantList, int>>
        m_offered;  // rows of the earlier month, and the row here; -1 for none
    QStringList m_statements;
    QList<qint64> m_brought;
    QStringList m_leftOut;  // what rows that come speak of and this month has not
};

QList<ListColumn> titles() {
    return {{QStringLiteral("انتخاب"), 60, ListColumn::Kind::Mark},
            {QStringLiteral("كد"), 50, ListColumn::Kind::Number},
            {QStringLiteral("شرح"), 200},
            {QStringLiteral("وضعيت"), 80},
            {QStringLiteral("تفاوت"), 300}};
}

}  // namespace

void carryRows(DefinitionPage& page) {
    page.rows().checkBrowseMode();
    Carry carry(page);
    if (!carry.hasRows())
        return tell(QStringLiteral("پيش از اين ماه رديفي نيست"));
    if (page.rows().isEmpty())
        return carry.bringAll();
    const QList<QStringList> offered = carry.offer();
    if (offered.isEmpty())
        return tell(QStringLiteral("رديف هاي ماه قبل همه هستند و تفاوتي ندارند"));
    forms::ListDialog window(QStringLiteral("TCarryForm"), QStringLiteral("آوردن رديف هاي ماه قبل"),
                             QStringLiteral("dbgRows"), titles(), {780, 460});
    window.setRows(offered);
    window.onChoose = [&window](int row) {
        const bool marked = !window.rows()[row][Chosen].isEmpty();
        window.setText(row, Chosen, marked ? QString() : forms::kMarkText);
    };
    window.addButtons(QStringLiteral("تاييد"), [&window] { window.setModalResult(widgets::mrOk); });
    if (window.showModal() == widgets::mrOk)
        carry.bringChosen(window.rows());
}

}  // namespace definition
