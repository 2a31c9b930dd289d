#include "PropertyForm.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "CodePage.h"
#include "Components.h"
#include "Errors.h"
#include "Query.h"

using report::Part;
using report::ReportProperties;
using widgets::named;

TRepPropertyForm::TRepPropertyForm(const QString& installDir, const QString& gridKey,
                                   const QString& pageTitle)
    : DialogForm(QStringLiteral("TRepPropertyForm"), QStringLiteral("مشخصات گزارش")),
      m_installDir(installDir),
      m_gridKey(gridKey),
      m_pageTitle(pageTitle.trimmed()) {
    build();
    fill(report::readProperties(installDir, gridKey));
    onShow = [this] {
        m_title->setFocus();
        m_title->selectAll();
    };
}

void TRepPropertyForm::build() {
    auto* titleRow = new QHBoxLayout;
    titleRow->setSpacing(kSpacing);
    titleRow->addWidget(new QLabel(QStringLiteral("عنوان گزارش"), this));
    m_title = named(new QLineEdit(this), "TitleEdit");
    titleRow->addWidget(m_title, 1);
    body().addLayout(titleRow);
    auto* groups = new QGridLayout;
    groups->setSpacing(kSpacing);
    groups->addWidget(paperGroup(), 0, 0);
    groups->addWidget(marginGroup(), 0, 1);
    groups->addWidget(fontGroup(), 1, 0);
    groups->addWidget(contentGroup(), 1, 1);
    body().addLayout(groups);
    QHBoxLayout& buttons = addButtonRow();
    setDefaultButton(
        addButton(buttons, QStringLiteral("OkBtn"), QStringLiteral("تاييد"), [this] { accept(); }));
    buttons.addStretch();
    addButton(buttons, QStringLiteral("DefaultBtn"), QStringLiteral("پيش فرض"), [this] { fill({}); });
    buttons.addStretch();
    addButton(buttons, QStringLiteral("CancelBtn"), QStringLiteral("انصراف"),
              [this] { setModalResult(widgets::mrCancel); });
    resize(460, sizeHint().height());
}

QWidget* TRepPropertyForm::paperGroup() {
    auto* group = new QGroupBox(QStringLiteral("کاغذ"), this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(kSpacing);
    grid->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    m_paper = named(new QComboBox(group), "PaperCombo");
    for (const report::Paper& paper : report::papers())
        m_paper->addItem(paper.caption, paper.key);
    m_portrait = named(new QRadioButton(QStringLiteral("ايستاده"), group), "PortraitRadio");
    m_landscape = named(new QRadioButton(QStringLiteral("خوابيده"), group), "LandscapeRadio");
    grid->addWidget(new QLabel(QStringLiteral("اندازه"), group), 0, 0);
    grid->addWidget(m_paper, 0, 1);
    grid->addWidget(m_portrait, 1, 0, 1, 2);
    grid->addWidget(m_landscape, 2, 0, 1, 2);
    return group;
}

QLineEdit* TRepPropertyForm::numberEdit(const char* name, QWidget* parent) {
    auto* edit = named(new QLineEdit(parent), name);
    edit->setFixedWidth(60);
    edit->setMaxLength(6);
    edit->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    return edit;
}

QWidget* TRepPropertyForm::marginGroup() {
    auto* group = new QGroupBox(QStringLiteral("حاشيه (ميليمتر)"), this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(kSpacing);
    grid->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    const auto add = [&](const QString& caption, const char* name, int row) {
        QLineEdit* edit = numberEdit(name, group);
        grid->addWidget(new QLabel(caption, group), row, 0);
        grid->addWidget(edit, row, 1, Qt::AlignLeft);
        return edit;
    };
    m_top = add(QStringLiteral("بالا"), "TopEdit", 0);
    m_bottom = add(QStringLiteral("پايين"), "BottomEdit", 1);
    m_right = add(QStringLiteral("راست"), "RightEdit", 2);
    m_left = add(QStringLiteral("چپ"), "LeftEdit", 3);
    grid->setColumnStretch(1, 1);
    return group;
}

QWidget* TRepPropertyForm::fontGroup() {
    auto* group = new QGroupBox(QStringLiteral("قلم"), this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(kSpacing);
    grid->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    m_family = named(new QComboBox(group), "FontCombo");
    QStringList families = QFontDatabase::families(QFontDatabase::Arabic);
    if (!families.contains(ReportProperties().family))
        families.prepend(ReportProperties().family);
    m_family->addItems(families);
    m_family->setMinimumWidth(120);
    m_titleSize = numberEdit("TitleSizeEdit", group);
    m_bodySize = numberEdit("BodySizeEdit", group);
    grid->addWidget(new QLabel(QStringLiteral("نام"), group), 0, 0);
    grid->addWidget(m_family, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("اندازه عنوان"), group), 1, 0);
    grid->addWidget(m_titleSize, 1, 1, Qt::AlignLeft);
    grid->addWidget(new QLabel(QStringLiteral("اندازه متن"), group), 2, 0);
    grid->addWidget(m_bodySize, 2, 1, Qt::AlignLeft);
    return group;
}

QWidget* TRepPropertyForm::contentGroup() {
    auto* group = new QGroupBox(QStringLiteral("جدول"), this);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(kSpacing);
    column->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    m_numbers = named(new QCheckBox(QStringLiteral("شماره رديف"), group), "NumbersCheck");
    m_totals = named(new QCheckBox(QStringLiteral("جمع ستونهاي عددي"), group), "TotalsCheck");
    m_shaded = named(new QCheckBox(QStringLiteral("زمينه رنگي رديفها يک در ميان"), group), "ShadedCheck");
    for (QCheckBox* box : {m_numbers, m_totals, m_shaded})
        column->addWidget(box);
    column->addStretch();
    return group;
}

void TRepPropertyForm::fill(const ReportProperties& properties) {
    m_title->setText(properties.title.isEmpty() ? m_pageTitle : properties.title);
    m_paper->setCurrentIndex(m_paper->findData(properties.paper));
    (properties.landscape ? m_landscape : m_portrait)->setChecked(true);
    const std::pair<QLineEdit*, qreal> numbers[] = {
        {m_top, properties.margins.top()},     {m_bottom, properties.margins.bottom()},
        {m_right, properties.margins.right()}, {m_left, properties.margins.left()},
        {m_titleSize, properties.titleSize},   {m_bodySize, properties.bodySize}};
    for (const auto& [edit, number] : numbers)
        edit->setText(data::valueText(double(number)));
    if (m_family->findText(properties.family) < 0)
        m_family->addItem(properties.family);
    m_family->setCurrentText(properties.family);
    m_shaded->setChecked(properties.shadedRows);
    m_numbers->setChecked(properties.rowNumbers);
    m_totals->setChecked(properties.totals);
}

double TRepPropertyForm::numberIn(QLineEdit* edit, const QString& caption) const {
    bool good = false;
    const double number =
        data::foldDigits(edit->text().trimmed()).replace(u'٫', u'.').replace(u'/', u'.').toDouble(&good);
    if (!good) {
        edit->setFocus();
        edit->selectAll();
        throw data::Refusal(QStringLiteral("براي %1 عدد وارد کنيد.").arg(caption));
    }
    return number;
}

ReportProperties TRepPropertyForm::entered() const {
    ReportProperties result;
    const QString title = m_title->text().trimmed();
    result.title = title == m_pageTitle ? QString() : data::foldToCodePage(title);
    result.paper = m_paper->currentData().toString();
    result.landscape = m_landscape->isChecked();
    const double top = numberIn(m_top, QStringLiteral("حاشيه بالا"));
    const double bottom = numberIn(m_bottom, QStringLiteral("حاشيه پايين"));
    const double right = numberIn(m_right, QStringLiteral("حاشيه راست"));
    const double left = numberIn(m_left, QStringLiteral("حاشيه چپ"));
    result.margins = QMarginsF(left, top, right, bottom);
    result.family = m_family->currentText();
    result.titleSize = qRound(numberIn(m_titleSize, QStringLiteral("اندازه عنوان")));
    result.bodySize = qRound(numberIn(m_bodySize, QStringLiteral("اندازه متن")));
    result.shadedRows = m_shaded->isChecked();
    result.rowNumbers = m_numbers->isChecked();
    result.totals = m_totals->isChecked();
    return result;
}

QWidget* TRepPropertyForm::widgetOf(Part part) const {
    switch (part) {
        case Part::Paper:
            return m_paper;
        case Part::Margins:
            return m_top;
        case Part::Family:
            return m_family;
        case Part::TitleSize:
            return m_titleSize;
        case Part::BodySize:
            return m_bodySize;
        default:
            return m_title;
    }
}

void TRepPropertyForm::accept() {
    const ReportProperties properties = entered();
    if (const report::Fault fault = report::faultOf(properties); fault.part != Part::None) {
        widgetOf(fault.part)->setFocus();
        throw data::Refusal(fault.sentence);
    }
    report::storeProperties(m_installDir, m_gridKey, properties);
    setModalResult(widgets::mrOk);
}
