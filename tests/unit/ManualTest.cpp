// The manual speaks of every column that a page has.
#include <gtest/gtest.h>

#include <QFile>

#include "BankForms.h"
#include "Formpay.h"
#include "FrmBimeh.h"
#include "FrmMaliyat.h"
#include "FrmTax.h"
#include "LayoutDefinition.h"
#include "OrgForms.h"
#include "PayForms.h"

namespace {

QString manualPage(const QString& name) {
    QFile file(QStringLiteral(KORVANTA_SOURCE_DIR "/docs/manual/") + name + QStringLiteral(".md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void expectExplained(const QString& page, QString title) {
    title = title.replace(QLatin1String("{L}"), QStringLiteral("مرکز هزينه")).simplified();
    EXPECT_TRUE(manualPage(page).contains("<td>" + title)) << qPrintable(page + ": " + title);
}

TEST(Manual, ExplainsEveryColumnOfEveryPage) {
    const forms::PageLayout* pages[] = {
        &forms::formpay(),    &forms::frmPaykar(),  &forms::frmEzaf(),          &forms::frmNobat(),
        &forms::frmGheybat(), &forms::frmPadash(),  &forms::frmMamor(),         &forms::frmKhedmat(),
        &forms::frmKharid(),  &forms::frmBomr(),    &forms::frmBon(),           &forms::frmSayer(),
        &forms::frmTax(),     &forms::frmbimeh(),   &forms::frmVam(),           &forms::frmBank(),
        &forms::frmEdari(),   &forms::frmMaliyat(), &forms::grohTafsily2Form(), &forms::marakezForm()};
    for (const forms::PageLayout* page : pages)
        for (const forms::PageColumn& column : page->columns)
            if (column.grid.visible)
                expectExplained(page->className, column.grid.title);
    for (const forms::PageColumn& column : forms::sematColumns())
        expectExplained(QStringLiteral("TFrmEdari"), column.grid.title);
    for (const layouts::LayoutColumn& column : layouts::layoutColumns({}))
        expectExplained(QStringLiteral("SharhSabet"), column.grid.title);
}

}  // namespace
