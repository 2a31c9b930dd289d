// A page's work copy: made of the month's rows, given marks for the month's salary items, and stored as
// a whole.
#include <QGuiApplication>
#include <QPushButton>

#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "ModuleVariables.h"
#include "Untfmsg.h"

namespace definition {
namespace {

const QString kCodeBefore = QStringLiteral("Codetemp");
const QString kItemMark = QStringLiteral("CODMOZ_");

// The columns of a table, bracketed, in its own order.
QStringList columnsOf(data::HostDatabase& db, const QString& table) {
    QStringList names;
    for (const data::ColumnInfo& column :
         db.Connection->execute("Select * From " + table + " Where 1=0").columns)
        names.append(data::bracketed(column.name).toLower());
    return names;
}

QString typeOf(const data::ColumnInfo& column) {
    switch (column.type) {
        case data::ColumnType::Integer:
            return QStringLiteral("int");
        case data::ColumnType::Real:
            return QStringLiteral("float");
        case data::ColumnType::DateTime:
            return QStringLiteral("datetime");
        case data::ColumnType::Binary:
            return QStringLiteral("image");
        case data::ColumnType::Text:
            break;
    }
    return column.length > 0 ? QStringLiteral("varchar(%1)").arg(column.length) : QStringLiteral("text");
}

}  // namespace

void DefinitionPage::copyMonth() {
    data::HostDatabase& db = *_MyDatabase;
    m_opening.run([&] { m_copy.drop(db); });  // left by an opening that failed half-way
    upgradeTable();
    // One transaction, so that the disk is waited for once.
    data::Transaction transaction(*db.Connection);
    const QString& code = m_definition.fields.code;
    m_copy.create(db, freeTableName(db, *_Global, QString()),
                  m_definition.table + " Where Codemah=" + data::quoted(m_window.Month_Curent()));
    if (!m_definition.keepsCodes)
        Exec_Sql(db, "Update " + m_copy.name() + " Set Codetemp=" + code);
    transaction.commit();
}

void DefinitionPage::rememberCopied() {
    QList<qint64> codes;
    const int code = m_rows.columnIndex(m_definition.fields.code);
    for (int row = 0; row < m_rows.recordCount(); ++row)
        codes.append(m_rows.valueAt(row, code).toLongLong());
    m_copied = CopiedRows(codes);
}

CopiedRow DefinitionPage::copiedRow() const {
    if (m_copied.codes().isEmpty() || m_rows.state() == data::Dataset::State::Insert)
        return {};
    if (m_definition.keepsCodes)
        return m_copied.left(m_rows.row());
    const int column = m_rows.columnIndex(kCodeBefore);
    const auto codeBefore = [&](int row) { return m_rows.valueAt(row, column).toLongLong(); };
    int twins = 0;
    for (int row = 0; row < m_rows.row(); ++row)
        twins += codeBefore(row) == codeBefore(m_rows.row()) ? 1 : 0;
    const CopiedRow copied = m_copied.withCode(codeBefore(m_rows.row()), twins);
    return copied.place > 0 ? copied : CopiedRow{codeBefore(m_rows.row())};
}

QStringList DefinitionPage::itemNames() const {
    data::Query items(_MyDatabase->Connection);
    items.setSql(" select code_field,desk from paymozd where codemah=" +
                 data::quoted(m_window.Month_Curent()) + " order by code_field ");
    QStringList names;
    for (items.open(); !items.eof(); items.next())
        names.append(items.text(1).trimmed());
    return names;
}

QList<forms::PageColumn> DefinitionPage::GridColumns() {
    return m_definition.layout->columns + ExtraColumns();
}

QList<forms::PageColumn> DefinitionPage::ExtraColumns() {
    QList<forms::PageColumn> marks;
    if (!m_definition.itemMarks)
        return marks;
    int item = 0;
    for (const QString& name : itemNames()) {
        const QString field = kItemMark.toLower() + QString::number(++item);
        // A mark whose column could not be added would be forgotten.
        if (!m_rows.active() || m_rows.columnIndex(field) >= 0)
            marks.append(
                forms::markColumn(field, name, forms::kDefaultWidth,
                                  " در صورتيکه " + name + " مبناي محاسبه{D} مي باشد علامت دار گردد"));
    }
    return marks;
}

// The rows can be shown without what an older company's table lacks.
void DefinitionPage::upgradeTable() {
    if (!m_upgraded) {
        m_upgraded = true;
        for (const QString& upgrade : m_definition.upgrades)
            if (!m_opening.run([&] { Exec_Sql(*_MyDatabase, upgrade); }))
                m_upgraded = false;
    }
    if (m_definition.itemMarks)
        m_opening.run([this] { addItemColumns(); });
}

void DefinitionPage::addItemColumns() {
    data::HostDatabase& db = *_MyDatabase;
    const QSet<QString> columns = Column_Names(db, m_definition.table);
    // One transaction, so that the disk is waited for once.
    data::Transaction transaction(*db.Connection);
    for (qsizetype item = 1, count = itemNames().size(); item <= count; ++item) {
        const QString name = kItemMark + QString::number(item);
        if (!columns.contains(name.toLower()))
            Exec_Sql(db, "Alter Table " + m_definition.table + " Add " + name + " varchar(1)");
    }
    transaction.commit();
}

// Gives the copy the columns that its table has got since it was made.
void DefinitionPage::completeCopy() {
    data::HostDatabase& db = *_MyDatabase;
    QStringList copied = columnsOf(db, m_copy.name());
    for (const data::ColumnInfo& column :
         db.Connection->execute("Select * From " + m_definition.table + " Where 1=0").columns) {
        const QString name = data::bracketed(column.name);
        if (!column.nullable || copied.contains(name.toLower()))
            continue;
        Exec_Sql(db, "Alter Table " + m_copy.name() + " Add " + name + u' ' + typeOf(column));
        copied.append(name);
    }
    if (copied.size() != m_rows.columns().size())
        m_rows.refresh();
}

void DefinitionPage::ConfirmPage() {
    // Disabled with the focus, the button would hand it to whatever stands behind it.
    m_grid->setFocus();
    m_confirm->setEnabled(false);
    const auto enableAgain = qScopeGuard([confirm = QPointer(m_confirm)] {
        if (confirm)
            confirm->setEnabled(true);
    });
    if (!m_rows.active())
        return;
    m_rows.checkBrowseMode();
    if (m_definition.kind == PageKind::Direct)
        return;
    const QPointer<DefinitionPage> alive(this);
    std::optional<ConfirmPlan> plan;
    // What is agreed to is what is done: another question is asked again.
    for (QString agreed;
         !(plan = storeWorkCopy(agreed))->question().isEmpty() && plan->question() != agreed;) {
        agreed = plan->question();
        if (Show_Msg(agreed, QString(), QStringLiteral("3QC")) != widgets::mrYes || !alive)
            return;
    }
    if (!plan->notice().isEmpty())
        Show_Msg(plan->notice(), QString(), QStringLiteral("1IR"));
}

// The rows as they are now, each with what it was when the copy was made.
QList<ItemCode> DefinitionPage::itemCodes() const {
    const QString& code = m_definition.fields.code;
    data::Query items(_MyDatabase->Connection);
    items.setSql("Select " + code + (m_definition.keepsCodes ? QString() : QStringLiteral(", Codetemp")) +
                 " From " + m_copy.name() + " order by " + code);
    QList<ItemCode> codes;
    QHash<qint64, int> met;
    for (items.open(); !items.eof(); items.next()) {
        const qint64 before = items.integer(1);
        const CopiedRow row =
            m_definition.keepsCodes ? m_copied.left(codes.size()) : m_copied.withCode(before, met[before]++);
        codes.append({items.integer(0), m_definition.keepsCodes ? row.code : before, row.place});
    }
    return codes;
}

ConfirmPlan DefinitionPage::plan() const {
    QList<OpenCopy> copies;
    for (const DefinitionPage* page : m_window.OpenPages())
        if (page != this && page->m_copy.exists() && page->m_rows.active())
            copies.append({page->m_definition.table, page->m_copy.name()});
    return {
        *_MyDatabase, {m_definition.table, m_window.Month_Curent(), itemCodes(), m_copied.codes()}, copies};
}

ConfirmPlan DefinitionPage::storeWorkCopy(const QString& agreed) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointAgain = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    try {
        data::Transaction transaction(*_MyDatabase->Connection);
        ConfirmPlan plan = this->plan();
        if (!plan.question().isEmpty() && plan.question() != agreed)
            return plan;
        QList<DefinitionPage*> holding = m_window.OpenPages();
        holding.removeIf(
            [&](DefinitionPage* page) { return page == this || !plan.touches(page->m_rows.tableName()); });
        // What is being typed there is part of a row in edit from here on.
        for (DefinitionPage* page : holding)
            page->m_grid->commitCell();
        replaceMonth();
        FollowConfirm(plan);
        // Read while it can still be undone: whoever is told of a failure has nothing stored.
        m_rows.refresh();
        transaction.commit();
        m_copied = CopiedRows(plan.codesNow());
        for (DefinitionPage* page : holding)
            page->m_rows.renew([&](QVariantList& row) {
                plan.followInRow(page->m_rows.tableName(), page->m_rows.columns(), row);
            });
        return plan;
    } catch (...) {
        m_rows.refresh();
        throw;
    }
}

void DefinitionPage::replaceMonth() {
    data::HostDatabase& db = *_MyDatabase;
    const QString& table = m_definition.table;
    // The two may have come by their columns in another order, and one may have some that the other lacks.
    const QStringList copied = columnsOf(db, m_copy.name());
    QStringList stored = columnsOf(db, table);
    const bool alike = stored == copied;
    stored.removeIf([&](const QString& column) { return !copied.contains(column); });
    const QString list = stored.join(u',');
    QStringList statements = {
        m_definition.emptiesMonth.arg(table, data::quoted(m_window.Month_Curent())),
        alike ? "insert into " + table + " select * from " + m_copy.name()
              : "insert into " + table + " (" + list + ") select " + list + " from " + m_copy.name()};
    // From here on the codes are the stored ones: confirming again moves nothing twice.
    if (!m_definition.keepsCodes)
        statements.append("Update " + m_copy.name() + " Set Codetemp=" + m_definition.fields.code);
    Exec_Sql(db, statements.join(u'\n'));
}

void DefinitionPage::FollowConfirm(const ConfirmPlan& plan) {
    plan.carryOut();
    data::Query scratch(_MyDatabase->Connection);
    for (const QString& table : m_definition.upgradesAfterConfirm)
        Add_PayItem_Columns(*_MyDatabase, table, scratch, m_window.Month_Curent());
}

}  // namespace definition
