#include "Messages.h"

namespace host {
namespace {

int show(TDlgMsg& dialog, const QString& text, const QString& code, const QList<QPushButton*>& buttons,
         const QLabel* icon, int closeResult) {
    for (QPushButton* button :
         {dialog.BBtnOK1, dialog.BBtnOK2, dialog.BBtnCancel, dialog.BBtnYes, dialog.BBtnNo})
        button->setVisible(buttons.contains(button));
    for (QLabel* each : {dialog.I_Warning, dialog.I_Question, dialog.I_Error, dialog.I_Stop, dialog.I_Info})
        each->setVisible(each == icon);
    dialog.CloseResult = closeResult;
    dialog.code = code;
    dialog.setMessage(text);
    dialog.setCaption(dialog.DefaultTitle);
    dialog.Caption_Panel->setCaption(QStringLiteral("     ") + dialog.DefaultTitle);
    return dialog.showModal();
}

}  // namespace

void notify(TDlgMsg& dialog, const QString& text) {
    show(dialog, text, QStringLiteral("1ER"), {dialog.BBtnOK1}, dialog.I_Error, widgets::mrOk);
}

bool ask(TDlgMsg& dialog, const QString& text) {
    return show(dialog, text, QStringLiteral("3QR"), {dialog.BBtnYes, dialog.BBtnNo}, dialog.I_Question,
                widgets::mrNo) == widgets::mrYes;
}

}  // namespace host
