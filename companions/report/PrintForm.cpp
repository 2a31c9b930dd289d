#include "PrintForm.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include "CodePage.h"
#include "Components.h"
#include "PdfNameForm.h"
#include "ReportOutput.h"

namespace report {

// A sheet of paper on a grey table.
class PaperView : public QWidget {
public:
    PaperView(const GridReport& report, QWidget* parent) : QWidget(parent), m_report(report) {}

    static constexpr int kEdge = 12;  // pixels around the paper

    QSizeF paper() const {  // at 100 %
        return m_report.pageLayout().fullRect(QPageLayout::Point).size() * logicalDpiX() / 72.0;
    }
    void show(int page, qreal zoom) {
        if (page == m_page && qFuzzyCompare(zoom, m_zoom))
            return;
        m_page = page;
        m_zoom = zoom;
        m_picture = {};
        setFixedSize((paper() * zoom).toSize() + QSize(2 * kEdge, 2 * kEdge));
        update();
    }
    qreal zoom() const { return m_zoom; }

protected:
    void paintEvent(QPaintEvent*) override {
        const QSize size = (paper() * m_zoom).toSize();
        const qreal ratio = devicePixelRatioF();
        if (m_picture.isNull() || !qFuzzyCompare(m_picture.devicePixelRatio(), ratio)) {
            m_picture = QPixmap(size * ratio);
            m_picture.setDevicePixelRatio(ratio);
            m_picture.fill(Qt::white);
            QPainter painter(&m_picture);
            painter.setRenderHints(QPainter::TextAntialiasing | QPainter::Antialiasing);
            painter.scale(m_zoom, m_zoom);
            m_report.paint(painter, m_page);
        }
        QPainter painter(this);
        const QRect sheet(QPoint(kEdge, kEdge), size);
        painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 70));
        painter.drawPixmap(sheet.topLeft(), m_picture);
        painter.setPen(QColor(0x707070));
        painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    }

private:
    const GridReport& m_report;
    int m_page = -1;
    qreal m_zoom = 0;
    QPixmap m_picture;
};

namespace {

constexpr int kWholePage = 0;
constexpr int kPageWidth = -1;
constexpr int kZooms[] = {50, 75, 100, 125, 150, 200, 300};

}  // namespace

TPrintForm::TPrintForm(const GridReport& report, const QString& pdfFile)
    : DialogForm(QStringLiteral("TPrintForm"), QStringLiteral("پيش نمايش چاپ")),
      m_report(report),
      m_pdfFile(pdfFile) {
    m_area = widgets::named(new QScrollArea(this), "PageArea");
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setFrameShape(QFrame::NoFrame);
    QPalette table = m_area->palette();
    table.setColor(QPalette::Window, QColor(0x8E949B));
    m_area->setPalette(table);
    m_paper = new PaperView(report, nullptr);
    m_area->setWidget(m_paper);
    m_area->installEventFilter(this);

    body().setContentsMargins(0, 0, 0, 0);
    body().setSpacing(0);
    body().addLayout(makeBar());
    body().addWidget(m_area, 1);
    const QSize room = screen() ? screen()->availableGeometry().size() : QSize(1024, 768);
    resize(qMin(960, room.width() - 20), qMin(820, room.height() - 20));
    onShow = [this] {
        showPage(0);
        m_area->setFocus();
    };
}

QBoxLayout* TPrintForm::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(8, 6, 8, 6);
    bar->setSpacing(6);
    const auto button = [&](const char* name, const char* caption, std::function<void()> pressed) {
        auto* made = makeButton(QString::fromLatin1(name), QString::fromUtf8(caption), std::move(pressed));
        bar->addWidget(made);
        return made;
    };
    button("PrintBtn", "چاپ", [this] { print(m_report, this); });
    button("PdfBtn", "PDF", [this] { savePdf(); });
    bar->addSpacing(12);
    m_backward.append(button("FirstBtn", "نخستين", [this] { showPage(0); }));
    m_backward.append(button("PriorBtn", "پيشين", [this] { showPage(m_page - 1); }));
    bar->addWidget(new QLabel(QStringLiteral("صفحه"), this));
    m_pageEdit = widgets::named(new QLineEdit(this), "PageEdit");
    m_pageEdit->setAlignment(Qt::AlignCenter);
    m_pageEdit->setFixedWidth(52);
    connect(m_pageEdit, &QLineEdit::editingFinished, this, [this] { goToTyped(); });
    bar->addWidget(m_pageEdit);
    auto* pages =
        widgets::named(new QLabel(QStringLiteral("از %1").arg(m_report.pageCount()), this), "PagesLabel");
    bar->addWidget(pages);
    m_forward.append(button("NextBtn", "پسين", [this] { showPage(m_page + 1); }));
    m_forward.append(button("LastBtn", "آخرين", [this] { showPage(m_report.pageCount() - 1); }));
    bar->addSpacing(12);
    m_zoom = widgets::named(new QComboBox(this), "ZoomCombo");
    m_zoom->addItem(QStringLiteral("همه صفحه"), kWholePage);
    m_zoom->addItem(QStringLiteral("پهناي صفحه"), kPageWidth);
    for (const int zoom : kZooms)
        m_zoom->addItem(QString::number(zoom) + u'%', zoom);
    m_zoom->setCurrentIndex(1);
    connect(m_zoom, &QComboBox::currentIndexChanged, this, [this] { fit(); });
    bar->addWidget(m_zoom);
    m_note = widgets::named(new QLabel(this), "NoteLabel");
    bar->addWidget(m_note, 1);
    button("CloseBtn", "بستن", [this] { setModalResult(widgets::mrCancel); });
    return bar;
}

void TPrintForm::showPage(int page) {
    m_page = qBound(0, page, m_report.pageCount() - 1);
    m_pageEdit->setText(QString::number(m_page + 1));
    for (QPushButton* button : m_backward)
        button->setEnabled(m_page > 0);
    for (QPushButton* button : m_forward)
        button->setEnabled(m_page < m_report.pageCount() - 1);
    m_area->verticalScrollBar()->setValue(0);
    fit();
}

void TPrintForm::fit() {
    const QSizeF paper = m_paper->paper();
    const QSize edge(2 * PaperView::kEdge, 2 * PaperView::kEdge);
    const QSize room = m_area->maximumViewportSize() - edge;
    const int chosen = m_zoom->currentData().toInt();
    qreal zoom = chosen / 100.0;
    if (chosen == kWholePage)
        zoom = qMin(room.width() / paper.width(), room.height() / paper.height());
    else if (chosen == kPageWidth)
        zoom = (room.width() - m_area->verticalScrollBar()->sizeHint().width()) / paper.width();
    m_paper->show(m_page, qMax(0.05, zoom));
}

void TPrintForm::goToTyped() {
    bool good = false;
    const int typed = data::foldDigits(m_pageEdit->text().trimmed()).toInt(&good);
    showPage(good ? typed - 1 : m_page);
}

void TPrintForm::savePdf() {
    const QString file = askPdfName(m_pdfFile);
    if (file.isEmpty())
        return;
    m_note->clear();
    writePdf(m_report, file);
    m_pdfFile = file;
    m_note->setText(QStringLiteral("فايل PDF ساخته شد."));
    m_note->setToolTip(file);
}

bool TPrintForm::scrollBy(int step) {
    QScrollBar* bar = m_area->verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + step * bar->singleStep() * 3);
    return bar->value() != before;
}

void TPrintForm::zoomBy(int step) {
    const int now = qRound(m_paper->zoom() * 100);
    int index = m_zoom->findData(kZooms[0]);
    const int last = m_zoom->count() - 1;
    if (step > 0)
        while (index < last && m_zoom->itemData(index).toInt() <= now)
            ++index;
    else
        while (index < last && m_zoom->itemData(index + 1).toInt() < now)
            ++index;
    m_zoom->setCurrentIndex(index);
}

bool TPrintForm::handleKey(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_PageUp:
            showPage(m_page - 1);
            return true;
        case Qt::Key_PageDown:
            showPage(m_page + 1);
            return true;
        case Qt::Key_Home:
            showPage(0);
            return true;
        case Qt::Key_End:
            showPage(m_report.pageCount() - 1);
            return true;
        case Qt::Key_Down:
            if (!scrollBy(1))
                showPage(m_page + 1);
            return true;
        case Qt::Key_Up:
            if (!scrollBy(-1))
                showPage(m_page - 1);
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            zoomBy(1);
            return true;
        case Qt::Key_Minus:
            zoomBy(-1);
            return true;
        default:
            return false;
    }
}

bool TPrintForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_area && event->type() == QEvent::KeyPress && handleKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return DialogForm::eventFilter(watched, event);
}

void TPrintForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_pageEdit->hasFocus())
        m_area->setFocus();  // which goes to the typed page
    else if (!handleKey(*event))
        DialogForm::keyPressEvent(event);
}

void TPrintForm::resizeEvent(QResizeEvent* event) {
    DialogForm::resizeEvent(event);
    fit();
}

void showPreview(const TDLLPrnParam& parameters, const QList<ReportColumn>& columns,
                 const Grouping& grouping) {
    ReportTable table = parameters.Grid ? ReportTable::read(*parameters.Grid, columns) : ReportTable(columns);
    const GridReport report = makeReport(parameters, std::move(table), grouping);
    TPrintForm form(report, suggestedPdf(installDirOf(parameters), gridKeyOf(parameters)));
    form.showModal();
}

}  // namespace report
