#include "CriterionRow.h"

#include <QHBoxLayout>

#include "Components.h"

namespace rowsieve {

CriterionRow::CriterionRow(const QList<Field>& fields, int field, QWidget* parent)
    : QWidget(parent), m_fields(fields) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    const auto combo = [&](const char* name, int width, int stretch) {
        auto* made = new QComboBox(this);
        made->setObjectName(QString::fromLatin1(name));
        made->setFont(widgets::formFont());
        made->setMinimumWidth(width);
        row->addWidget(made, stretch);
        connect(made, &QComboBox::currentIndexChanged, this, [this, made] {
            if (made == cmbColumn)
                showComparisons();
            showValue();
            changed();
        });
        return made;
    };
    cmbJoin = combo("cmbJoin", 58, 0);
    cmbColumn = combo("cmbColumn", 170, 2);
    cmbComparison = combo("cmbComparison", 160, 1);
    ValueEdit = widgets::named(new QLineEdit(this), "ValueEdit");
    ValueEdit->setMinimumWidth(140);
    ValueEdit->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    row->addWidget(ValueEdit, 2);
    connect(ValueEdit, &QLineEdit::textChanged, this, [this] { changed(); });

    cmbJoin->addItems({QStringLiteral("و"), QStringLiteral("يا")});
    cmbJoin->setToolTip(QStringLiteral("«و» پيش از «يا» حساب مي شود."));
    for (QWidget* optional : std::initializer_list<QWidget*>{cmbJoin, ValueEdit}) {
        QSizePolicy policy = optional->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        optional->setSizePolicy(policy);
    }
    for (const Field& offered : fields)
        cmbColumn->addItem(offered.title);
    cmbColumn->setCurrentIndex(field);
}

Criterion CriterionRow::criterion() const {
    const Field field = m_fields.value(cmbColumn->currentIndex());
    return {!cmbJoin->isHidden() && cmbJoin->currentIndex() == 1, field,
            comparisonsOf(field.sort).value(cmbComparison->currentIndex()), ValueEdit->text()};
}

void CriterionRow::setFirst(bool first) {
    cmbJoin->setVisible(!first);
}

void CriterionRow::focusValue() {
    if (ValueEdit->isHidden())
        return cmbComparison->setFocus();
    ValueEdit->setFocus();
    ValueEdit->selectAll();
}

QWidget* CriterionRow::firstInTabOrder() const {
    return cmbJoin;
}

QWidget* CriterionRow::lastInTabOrder() const {
    return ValueEdit;
}

void CriterionRow::showComparisons() {
    const QSignalBlocker silent(cmbComparison);
    cmbComparison->clear();
    for (const Comparison& comparison : comparisonsOf(m_fields.value(cmbColumn->currentIndex()).sort))
        cmbComparison->addItem(comparison.caption);
}

void CriterionRow::showValue() {
    ValueEdit->setVisible(criterion().comparison.takesValue());
}

void CriterionRow::changed() {
    if (onChange)
        onChange();
}

}  // namespace rowsieve
