#include "TaxChart.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "Components.h"
#include "GridModel.h"

namespace definition {
namespace {

constexpr int kLines = 4;               // of the grid, besides the axis
constexpr double kMillion = 1'000'000;  // rials

const QColor kTaxInk(0x10, 0x48, 0x80), kRateInk(0xA0, 0x40, 0x00), kGridInk(0xC8, 0xC8, 0xC8);

// The next of 1, 2, 2.5, 5 and 10 times a power of ten.
double roundUp(double number) {
    const double power = std::pow(10, std::floor(std::log10(qMax(number, 1.0))));
    for (const double step : {1.0, 2.0, 2.5, 5.0})
        if (number <= step * power)
            return step * power;
    return 10 * power;
}

QString label(double number) {
    return widgets::formatNumber(QStringLiteral("###,##0.##"), number);
}

}  // namespace

TaxChart::TaxChart(const QList<Bracket>& brackets, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TaxChart"));
    setAccessibleName(QStringLiteral("نمودار ماليات"));
    for (const Bracket& bracket : brackets)
        if (bracket.to > bracket.from)
            m_brackets.append(bracket);
    if (m_brackets.isEmpty())
        return;
    // A last bracket without an end is shown as wide as what is below it.
    const double below = m_brackets.last().from - 1;
    m_income = below > 0 ? qMin(m_brackets.last().to, 2 * below) : m_brackets.last().to;
    for (const Bracket& bracket : m_brackets) {
        const double end = qMin(bracket.to, m_income);
        m_tax = qMax(m_tax, bracket.tax - (bracket.to - end) * bracket.percent / 100);
        m_percent = qMax(m_percent, bracket.percent);
    }
    m_income = roundUp(m_income);
    m_tax = roundUp(m_tax);
    m_percent = roundUp(m_percent);
}

void TaxChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter, rect());
}

void TaxChart::paint(QPainter& painter, const QRectF& room) const {
    const QFont font = widgets::formFont();
    painter.save();
    painter.setFont(QFont(font.family(), 8));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(room, Qt::white);
    const double line = painter.fontMetrics().height();
    const double side = painter.fontMetrics().horizontalAdvance(QStringLiteral("00,000.00")) + line;
    const QRectF plot = room.adjusted(side, 2.4 * line, -side, -2.6 * line);
    const auto at = [&](double income, double part) {
        return QPointF(plot.left() + plot.width() * income / m_income, plot.bottom() - plot.height() * part);
    };
    const auto write = [&](const QRectF& where, int how, const QString& text, const QColor& ink = Qt::black) {
        painter.setPen(ink);
        painter.setLayoutDirection(Qt::RightToLeft);
        painter.drawText(where, how | Qt::TextDontClip | Qt::AlignAbsolute, text);
    };
    for (int i = 0; i <= kLines; ++i) {
        const double part = double(i) / kLines;
        painter.setPen(QPen(kGridInk, 0));
        painter.drawLine(at(0, part), at(m_income, part));
        painter.drawLine(at(m_income * part, 0), at(m_income * part, 1));
        const double y = at(0, part).y() - line / 2, x = at(m_income * part, 0).x();
        write({room.left(), y, side - line / 2, line}, Qt::AlignRight | Qt::AlignVCenter,
              label(m_tax * part / kMillion), kTaxInk);
        write({plot.right() + line / 2, y, side, line}, Qt::AlignLeft | Qt::AlignVCenter,
              label(m_percent * part), kRateInk);
        write({x - side / 2, plot.bottom() + line / 4, side, line}, Qt::AlignHCenter,
              label(m_income * part / kMillion));
    }
    QPainterPath tax, rate;
    tax.moveTo(at(0, 0));
    for (const Bracket& bracket : m_brackets) {
        const double from = qMin(bracket.from - 1, m_income), to = qMin(bracket.to, m_income);
        const double atStart = bracket.tax - (bracket.to - bracket.from + 1) * bracket.percent / 100;
        tax.lineTo(at(from, atStart / m_tax));
        tax.lineTo(at(to, (atStart + (to - from) * bracket.percent / 100) / m_tax));
        const QPointF start = at(from, bracket.percent / m_percent);
        rate.isEmpty() ? rate.moveTo(start) : rate.lineTo(start);
        rate.lineTo(at(to, bracket.percent / m_percent));
    }
    painter.setClipRect(plot.adjusted(-2, -2, 2, 2));
    painter.setPen(QPen(kRateInk, line / 9, Qt::DashLine));
    painter.drawPath(rate);
    painter.setPen(QPen(kTaxInk, line / 6));
    painter.drawPath(tax);
    painter.setClipping(false);
    write({room.left() + line / 2, room.top() + line / 2, room.width() / 2, line}, Qt::AlignLeft,
          QStringLiteral("ماليات (ميليون ريال) ━━"), kTaxInk);
    write({room.center().x(), room.top() + line / 2, room.width() / 2 - line / 2, line}, Qt::AlignRight,
          QStringLiteral("نرخ نهايي (درصد) ╍╍"), kRateInk);
    write({plot.left(), plot.bottom() + 1.4 * line, plot.width(), line}, Qt::AlignHCenter,
          QStringLiteral("درآمد (ميليون ريال)"));
    painter.restore();
}

}  // namespace definition
