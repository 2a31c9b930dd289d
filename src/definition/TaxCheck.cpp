#include "TaxCheck.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <cmath>

#include "DefinitionPage.h"
#include "GridModel.h"
#include "ListDialog.h"
#include "Step.h"
#include "TaxChart.h"
#include "UserRights.h"

namespace definition {
namespace {

constexpr int kChartHeight = 260;

QString amount(double number) {
    return widgets::formatNumber(QStringLiteral("###,###,###,##0.##"), number);
}

bool isWide(const Bracket& bracket) {
    return bracket.to >= bracket.from;
}

// A new row that is not stored yet is not looked at.
QList<Bracket> bracketsOf(DefinitionPage& page) {
    const data::Dataset& rows = page.rows();
    const BracketFields& fields = *page.definition().brackets;
    QList<Bracket> brackets;
    for (int row = 0; row < rows.recordCount(); ++row) {
        if (rows.state() == data::Dataset::State::Insert && row == rows.row())
            continue;
        const auto value = [&](const QString& field) {
            return rows.valueAt(row, rows.columnIndex(field)).toDouble();
        };
        brackets.append({value(fields.from), value(fields.to), value(fields.percent), value(fields.tax)});
    }
    return brackets;
}

void print(const TaxChart& chart, widgets::Form& window) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, &window);
    if (widgets::runDialog(dialog) != QDialog::Accepted)
        return;
    QPainter painter(&printer);
    chart.paint(painter, QRectF(printer.pageRect(QPrinter::DevicePixel)));
}

}  // namespace

QList<TaxNote> taxNotes(const QList<Bracket>& brackets) {
    QList<TaxNote> notes;
    double sum = 0;
    for (int i = 0; i < brackets.size(); ++i) {
        const Bracket& bracket = brackets[i];
        const auto note = [&](const QString& text) { notes.append({i + 1, text}); };
        if (i == 0 && bracket.from > 1)
            note(QStringLiteral("محدوده نخست از %1 آغاز مي شود، نه از 1").arg(amount(bracket.from)));
        if (i > 0) {
            const Bracket& below = brackets[i - 1];
            const double next = boundAbove(below.to);
            if (bracket.from > next)
                note(QStringLiteral("از %1 تا %2 در هيچ محدوده اي نيست")
                         .arg(amount(next), amount(bracket.from - 1)));
            else if (bracket.from < next)
                note(QStringLiteral("از %1 تا %2 در محدوده قبل هم هست")
                         .arg(amount(bracket.from), amount(qMin(below.to, bracket.to))));
            if (bracket.percent < below.percent)
                note(QStringLiteral("درصد ماليات (%1) از محدوده قبل (%2) كمتر است")
                         .arg(amount(bracket.percent), amount(below.percent)));
        }
        // A tax that only carries on what is wrong below it is not told again.
        const auto follows = [&](double below) {
            return std::abs(bracket.tax - (isWide(bracket) ? cumulativeTax(bracket, below) : below)) <= 1;
        };
        const bool carriesOn = i > 0 && follows(brackets[i - 1].tax);
        const bool isSound = follows(sum);
        if (isWide(bracket))
            sum = cumulativeTax(bracket, sum);
        if (!isSound && !carriesOn)
            note(QStringLiteral("مبلغ ماليات %1 است و جمع محدوده ها %2")
                     .arg(amount(bracket.tax), amount(sum)));
    }
    return notes;
}

bool hasBrackets(const DefinitionPage& page) {
    return page.definition().brackets.has_value();
}

QString taxAdvice(DefinitionPage& page) {
    const qsizetype notes = taxNotes(bracketsOf(page)).size();
    return notes == 0 ? QString() : QStringLiteral("%1 نكته در جدول ماليات").arg(notes);
}

void checkTaxTable(DefinitionPage& page) {
    const QList<Bracket> brackets = bracketsOf(page);
    QList<QStringList> rows;
    for (const TaxNote& note : taxNotes(brackets))
        rows.append({QString::number(note.row), note.text});
    forms::ListDialog window(
        QStringLiteral("TTaxCheckForm"), QStringLiteral("بررسي جدول ماليات"), QStringLiteral("dbgAdvice"),
        {{QStringLiteral("رديف"), 60, forms::ListColumn::Kind::Number}, {QStringLiteral("نكته"), 560}},
        {760, 560});
    auto* chart = new TaxChart(brackets, &window);
    chart->setMinimumHeight(kChartHeight);
    window.addAbove(chart, 5);
    window.setRows(rows);
    Load_User_Rights(page.db(), page.global());
    window.addButtons(QStringLiteral("چاپ نمودار"), [&] { print(*chart, window); })
        ->setEnabled(page.global().Print_Right != QLatin1String("NO"));
    window.showModal();
}

}  // namespace definition
