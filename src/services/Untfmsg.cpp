#include "Untfmsg.h"

#include <QApplication>
#include <QScopeGuard>
#include <QScreen>

#include "EventBoundary.h"
#include "ModuleVariables.h"

namespace {

// Once a message was titled so, the single OK button keeps this caption.
const QString kContinue = QStringLiteral("ادامه");
QString MsgOkCaption;
int overheard = 0;

}  // namespace

void Set_Msg_Buttons(TDlgMsg& dialog, const QString& code) {
    for (QPushButton* button :
         {dialog.BBtnOK1, dialog.BBtnOK2, dialog.BBtnCancel, dialog.BBtnYes, dialog.BBtnNo})
        button->hide();
    switch (code[0].unicode()) {
        case u'1':
            dialog.BBtnOK1->show();
            dialog.CloseResult = widgets::mrOk;
            break;
        case u'2':
            dialog.BBtnOK2->show();
            dialog.BBtnCancel->show();
            dialog.CloseResult = widgets::mrCancel;
            break;
        case u'3':
            dialog.BBtnYes->show();
            dialog.BBtnNo->show();
            dialog.CloseResult = widgets::mrNo;
            break;
        default:
            break;
    }
    const std::pair<char16_t, QLabel*> icons[] = {{u'W', dialog.I_Warning},
                                                  {u'Q', dialog.I_Question},
                                                  {u'E', dialog.I_Error},
                                                  {u'S', dialog.I_Stop},
                                                  {u'I', dialog.I_Info}};
    if (MsgOkCaption == kContinue)
        dialog.BBtnOK1->setText(kContinue);
    QRect memo = dialog.Memo1->geometry();
    memo.setLeft(6);
    memo.setWidth(213);
    for (const auto& [letter, icon] : icons) {
        icon->setVisible(code[1] == letter);
        if (code[1] == letter) {
            memo.setLeft(5);
            memo.setWidth(217);
        }
    }
    dialog.Memo1->setGeometry(memo);
}

Overheard::Overheard() {
    ++overheard;
}

Overheard::~Overheard() {
    --overheard;
}

int Show_Msg(const QString& text, const QString& title, const QString& code) {
    if (overheard > 0)
        throw data::Refusal(text);
    TDlgMsg& dialog = *_DlgMsg;
    // In the middle of the screen on which the operator works.
    const QWidget* active = QApplication::activeWindow();
    const QRect screen = (active ? active->screen() : QGuiApplication::primaryScreen())->geometry();
    dialog.move(screen.left() + screen.width() / 2 - dialog.width() / 2,
                screen.top() + screen.height() / 2 - dialog.height() / 2);
    const QString shownTitle = title.isEmpty() ? dialog.DefaultTitle : title;
    QString fullCode = code.toUpper();
    if (fullCode.isEmpty())
        fullCode = QStringLiteral("1 R");
    else if (fullCode.size() == 1)
        fullCode += QLatin1String(" R");
    else if (fullCode.size() == 2)
        fullCode += u'R';
    if (shownTitle == kContinue)
        MsgOkCaption = kContinue;
    dialog.code = fullCode;
    Set_Msg_Buttons(dialog, fullCode);
    dialog.setMessage(text);
    const data::ServerError* refusal = widgets::EventBoundary::told();
    dialog.setDetails(refusal ? refusal->details() : QString());
    dialog.setCaption(shownTitle);
    dialog.Caption_Panel->setCaption(QString(5, u' ') + shownTitle);
    return dialog.showModal(widgets::Form::Place::AsItStands);
}

void Offer_Reconnection(data::Connection& connection, const data::ServerError& error) {
    QString said = error.fault() == data::Fault::CommitUnknown
                       ? QStringLiteral(
                             "ارتباط با سرور هنگام ثبت قطع شد و معلوم نيست كه اين كار ثبت شده باشد. پس از "
                             "اتصال دوباره روشن مي شود.")
                       : QStringLiteral(
                             "ارتباط با سرور قطع شد و اين كار ثبت نشد. آنچه تايپ كرده ايد و رديف هاي تاييد "
                             "نشده مانده است.");
    const auto ask = [&said] {
        const std::pair<QPushButton*, QString> captions[] = {{_DlgMsg->BBtnYes, _DlgMsg->BBtnYes->text()},
                                                             {_DlgMsg->BBtnNo, _DlgMsg->BBtnNo->text()}};
        _DlgMsg->BBtnYes->setText(QStringLiteral("اتصال دوباره"));
        _DlgMsg->BBtnNo->setText(QStringLiteral("انصراف"));
        const auto captionsAgain = qScopeGuard([&] {
            for (const auto& [button, caption] : captions)
                button->setText(caption);
        });
        return Show_Msg(said, QString(), QStringLiteral("3WC")) == widgets::mrYes;
    };
    QStringList settled;
    while (connection.lineLost() && ask()) {
        try {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            const auto pointAgain = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
            settled = connection.connectAgain();
        } catch (const data::TextException& refused) {
            said = QStringLiteral("ارتباط با سرور برقرار نشد: ") + refused.text();
        }
    }
    if (!settled.isEmpty())
        Show_Msg(settled.join(u'\n'), QString(), QStringLiteral("1IR"));
}
