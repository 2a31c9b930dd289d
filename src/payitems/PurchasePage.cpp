#include "PurchasePage.h"

#include "DatabaseHelpers.h"
#include "ItemMarks.h"
#include "Untfmsg.h"

namespace payitems {

definition::PageDefinition purchasePage(const forms::PageLayout& layout, const QString& table,
                                        const QString& pageKey, const QString& reportTitle) {
    return {.layout = &layout,
            .kind = definition::PageKind::Direct,
            .table = table,
            .newRow = definition::NewRow::Never,
            .deletion = definition::Deletion::Refused,
            .pageKey = pageKey,
            .reportTitle = reportTitle,
            .make = definition::made<PurchasePage>};
}

bool PurchasePage::itemsChanged() {
    data::Questions questions;
    qsizetype rows = 0;
    QStringList items;
    questions.ask("select count(*) from " + definition().table,
                  [&rows](const data::ResultSet& found) { rows = found.rows[0][0].toInt(); });
    definition::askItemNames(questions, month(), items);
    questions.send(*db().Connection);
    return rows != items.size();
}

void PurchasePage::makeRows() {
    const auto change = [this] {
        const QString& table = definition().table;
        Exec_Sql(db(), "delete from " + table);
        Exec_Sql(db(), "insert into " + table +
                           " (code_field,desk) select code_field,desk from paymozd where codemah=" +
                           data::quoted(month()));
    };
    rows().transact(change, data::Dataset::After::SameRow);
}

// Where the rows cannot be made anew, those of before are shown.
void PurchasePage::followItems() {
    opening().run([this] {
        if (itemsChanged())
            makeRows();
    });
}

void PurchasePage::openData() {
    DefinitionPage::openData();
    followItems();
}

void PurchasePage::reopenData() {
    followItems();
    DefinitionPage::reopenData();
}

bool PurchasePage::hasEntries() {
    for (const forms::PageColumn& column : definition().layout->columns) {
        const int field = rows().columnIndex(column.grid.field);
        for (int row = 0; !column.grid.readOnly && row < rows().recordCount(); ++row)
            if (!rows().valueAt(row, field).toString().isEmpty())
                return true;
    }
    return false;
}

void PurchasePage::ConfirmPage() {
    if (!rows().active())
        return;
    rows().checkBrowseMode();
    const QString question =
        QStringLiteral("با تعريف مجدد، علامت ها و مقادير ثبت شده همه رديف ها پاك مي شوند. ادامه مي دهيد؟");
    if (hasEntries() && Show_Msg(question, QString(), QStringLiteral("3QC")) != widgets::mrYes)
        return;
    makeRows();
}

}  // namespace payitems
