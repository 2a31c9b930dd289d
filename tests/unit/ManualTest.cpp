// The manual speaks of every column that a page has.
#include <gtest/gtest.h>

#include <QFile>

#include "FrmEdari.h"
#include "LayoutDefinition.h"
#include "PageCatalogue.h"

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
    for (const shell::PagePlace& place : shell::pageCatalogue())
        for (const forms::PageColumn& column : place.page().layout->columns)
            if (column.grid.visible)
                expectExplained(place.page().layout->className, column.grid.title);
    for (const forms::PageColumn& column : forms::sematColumns())
        expectExplained(QStringLiteral("TFrmEdari"), column.grid.title);
    for (const layouts::LayoutColumn& column : layouts::layoutColumns({}))
        expectExplained(QStringLiteral("SharhSabet"), column.grid.title);
}

}  // namespace
