// Tax and marginal rate against income, painted: a full line and a dashed one, so that a print without
// colours can be read. Its words go from right to left, its axis from left to right.
#pragma once

#include <QWidget>

#include "TaxBrackets.h"

namespace definition {

class TaxChart : public QWidget {
public:
    TaxChart(const QList<Bracket>& brackets, QWidget* parent);

    void paint(QPainter& painter, const QRectF& room) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Bracket> m_brackets;  // those with a width
    double m_income = 1;        // the largest that is shown
    double m_tax = 1, m_percent = 1;
};

}  // namespace definition
