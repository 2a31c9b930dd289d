#include "DlgMsg.h"

#include <QKeyEvent>
#include <QTextLayout>

#include "Components.h"
#include "MessageIcons.h"

using widgets::named;

namespace {

constexpr QSize kDesignSize(298, 135);
constexpr int kCaptionHeight = 24;
constexpr int kBottomHeight = 32;
constexpr int kLinesWithoutScrolling = 4;
constexpr int kShortHeight = 141;
constexpr int kShortMemoHeight = 69;
constexpr int kDetailedHeight = 300;

}  // namespace

TDlgMsg::TDlgMsg(QWidget* parent) : Form(QStringLiteral("TDlgMsg"), parent) {
    Caption_Panel = named(new widgets::CaptionBar(this), "Caption_Panel");
    Caption_Panel->setColors(palette().color(QPalette::Highlight), Qt::white);
    Caption_Panel->setContentsMargins(0, 0, 20, 0);  // with the blanks before each title: clear of the button
    Close_Shape = named(new widgets::Shape(Caption_Panel), "Close_Shape");
    Close_Shape->setBrush(palette().color(QPalette::Highlight));
    Close_Shape->setPen(Qt::white);
    sb_Closed = named(new widgets::SpeedButton(Caption_Panel), "sb_Closed");
    sb_Closed->setGlyph(widgets::SpeedButton::Glyph::Close);
    sb_Closed->setToolTip(QStringLiteral("بستن فرم"));
    connect(sb_Closed, &QToolButton::clicked, this, [this] { setModalResult(CloseResult); });

    Panel1 = named(new widgets::Panel(this), "Panel1");
    Panel1->setBevel(widgets::Panel::Bevel::Raised);
    InfoPanel = named(new widgets::Panel(Panel1), "InfoPanel");
    Bevel2 = named(new QFrame(InfoPanel), "Bevel2");
    Bevel2->setFrameStyle(QFrame::Box | QFrame::Sunken);
    Memo1 = named(new QPlainTextEdit(InfoPanel), "Memo1");
    Memo1->setReadOnly(true);
    Memo1->setFrameStyle(QFrame::NoFrame);
    Memo1->setFocusPolicy(Qt::ClickFocus);
    Memo1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Memo1->document()->setDocumentMargin(2);
    QTextOption reading = Memo1->document()->defaultTextOption();
    reading.setTextDirection(Qt::RightToLeft);
    reading.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    Memo1->document()->setDefaultTextOption(reading);
    Memo1->setGeometry(6, 7, 213, 66);
    QPalette colours = Memo1->palette();
    colours.setColor(QPalette::Base, colours.color(QPalette::Window));
    colours.setColor(QPalette::Text, Qt::black);
    Memo1->setPalette(colours);
    Panel2 = named(new widgets::Panel(InfoPanel), "Panel2");
    Panel2->setBevel(widgets::Panel::Bevel::Lowered);
    BottomPanel = named(new widgets::Panel(this), "BottomPanel");
    BottomPanel->setBevel(widgets::Panel::Bevel::Raised);

    // However it is closed, the answer is the dismissing one.
    onClose = [this] {
        if (modalResult() == widgets::mrNone)
            setModalResult(CloseResult);
        return true;
    };
    makeIcons();
    makeButtons();
    resize(kDesignSize);
    layOut();
}

void TDlgMsg::makeIcons() {
    struct Entry {
        QLabel** label;
        const char* name;
        MessageIcon icon;
        QSize size;
    };
    const Entry entries[] = {{&I_Warning, "I_Warning", MessageIcon::Warning, {36, 37}},
                             {&I_Question, "I_Question", MessageIcon::Question, {36, 37}},
                             {&I_Error, "I_Error", MessageIcon::Error, {36, 37}},
                             {&I_Stop, "I_Stop", MessageIcon::Stop, {45, 48}},
                             {&I_Info, "I_Info", MessageIcon::Information, {36, 37}}};
    for (const Entry& entry : entries) {
        *entry.label = named(new QLabel(Panel2), entry.name);
        (*entry.label)->setPixmap(messageIcon(entry.icon, entry.size, devicePixelRatioF()));
        (*entry.label)->resize(entry.size);
        (*entry.label)->hide();
    }
}

void TDlgMsg::makeButtons() {
    struct Entry {
        QPushButton** button;
        const char* name;
        QString caption;
        int result, left;
    };
    const Entry entries[] = {{&BBtnOK1, "BBtnOK1", QStringLiteral("&تاييد"), widgets::mrOk, 109},
                             {&BBtnOK2, "BBtnOK2", QStringLiteral("&تاييد"), widgets::mrOk, 205},
                             {&BBtnCancel, "BBtnCancel", QStringLiteral("&انصراف"), widgets::mrCancel, 10},
                             {&BBtnYes, "BBtnYes", QStringLiteral("&بله"), widgets::mrYes, 205},
                             {&BBtnNo, "BBtnNo", QStringLiteral("&خير"), widgets::mrNo, 10}};
    for (const Entry& entry : entries) {
        *entry.button = named(new QPushButton(entry.caption, BottomPanel), entry.name);
        (*entry.button)->setGeometry(entry.left, 2, 80, 28);
        (*entry.button)->setAutoDefault(true);
        (*entry.button)->hide();
        connect(*entry.button, &QPushButton::clicked, this, [this, entry] { setModalResult(entry.result); });
    }
    BBtnDetails = named(new QPushButton(QStringLiteral("&جزييات"), BottomPanel), "BBtnDetails");
    BBtnDetails->setGeometry(10, 2, 80, 28);
    BBtnDetails->hide();
    connect(BBtnDetails, &QPushButton::clicked, this, &TDlgMsg::showDetails);
}

void TDlgMsg::layOut() {
    // Places are those of the screen: the icon stands at the right, where a Persian reader begins.
    const int middle = height() - kCaptionHeight - kBottomHeight;
    Caption_Panel->setGeometry(0, 0, width(), kCaptionHeight);
    Close_Shape->setGeometry(width() - 37, 2, 20, 20);
    sb_Closed->setGeometry(Close_Shape->geometry());
    Panel1->setGeometry(0, kCaptionHeight, width(), middle);
    InfoPanel->setGeometry(1, 1, width() - 2, middle - 2);
    const int frame = height() == kDetailedHeight ? InfoPanel->height() - 8 : 75;
    Bevel2->setGeometry(4, 4, width() - 78, qMin(frame, InfoPanel->height() - 5));
    Panel2->setGeometry(width() - 72, 3, 65, qMin(76, InfoPanel->height() - 4));
    for (QLabel* icon : {I_Warning, I_Question, I_Error, I_Stop, I_Info})
        icon->move((Panel2->width() - icon->width()) / 2, (Panel2->height() - icon->height()) / 2);
    BottomPanel->setGeometry(0, height() - kBottomHeight, width(), kBottomHeight);
}

void TDlgMsg::setMessage(const QString& text) {
    if (height() == kDetailedHeight) {
        resize(kDesignSize);
        Memo1->resize(Memo1->width(), kShortMemoHeight);
    }
    Memo1->setPlainText(text);
    const bool scrolls = memoLines() > kLinesWithoutScrolling;
    Memo1->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    if (scrolls)
        return;
    resize(width(), kShortHeight);
    Memo1->resize(Memo1->width(), kShortMemoHeight);
}

void TDlgMsg::setDetails(const QString& details) {
    m_details = details;
    // Where there is one button, the place of the others is free.
    BBtnDetails->setVisible(!details.isEmpty() && !BBtnOK1->isHidden());
}

void TDlgMsg::showDetails() {
    BBtnDetails->hide();
    // Its words are the server's, which read from the left.
    QString lines;
    for (const QString& line : m_details.split(u'\n'))
        lines += u'\n' + QString(QChar(0x202A)) + line + QChar(0x202C);
    resize(width(), kDetailedHeight);
    Memo1->resize(Memo1->width(), kDetailedHeight - kShortHeight + kShortMemoHeight);
    Memo1->setPlainText(Memo1->toPlainText() + u'\n' + lines);
    Memo1->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    BBtnOK1->setFocus();
}

int TDlgMsg::memoLines() const {
    // Counted apart from the memo, whose own layout waits until it is seen.
    const qreal available = Memo1->width() - 2 * Memo1->document()->documentMargin();
    int lines = 0;
    for (const QString& paragraph : Memo1->toPlainText().split(u'\n')) {
        QTextLayout layout(paragraph, Memo1->font());
        QTextOption option = layout.textOption();
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
            line.setLineWidth(available);
        layout.endLayout();
        lines += qMax(1, layout.lineCount());
    }
    return lines;
}

QList<QPushButton*> TDlgMsg::shownButtons() const {
    QList<QPushButton*> shown;
    for (QPushButton* button : {BBtnOK1, BBtnOK2, BBtnYes, BBtnCancel, BBtnNo})
        if (!button->isHidden())
            shown.append(button);
    return shown;
}

void TDlgMsg::keyPressEvent(QKeyEvent* event) {
    const QList<QPushButton*> shown = shownButtons();
    switch (event->key()) {
        case Qt::Key_Escape:
            setModalResult(CloseResult);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!shown.isEmpty())
                shown.first()->click();
            return;
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (shown.size() > 1)
                shown[event->key() == Qt::Key_Left ? 1 : 0]->setFocus(Qt::TabFocusReason);
            return;
        default:
            // Keys of a message never reach the form under it.
            event->accept();
    }
}

void TDlgMsg::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    layOut();
}

void TDlgMsg::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (const QList<QPushButton*> shown = shownButtons(); !shown.isEmpty())
        shown.first()->setFocus(Qt::OtherFocusReason);
}
