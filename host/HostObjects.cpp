#include "HostObjects.h"

#include "EventBoundary.h"

namespace host {
namespace {

// Until the module brings its own message function, the boundary speaks through the same dialog.
void showNotice(TDlgMsg& dialog, const QString& text) {
    for (QPushButton* button :
         {dialog.BBtnOK1, dialog.BBtnOK2, dialog.BBtnCancel, dialog.BBtnYes, dialog.BBtnNo})
        button->setVisible(button == dialog.BBtnOK1);
    for (QLabel* icon : {dialog.I_Warning, dialog.I_Question, dialog.I_Error, dialog.I_Stop, dialog.I_Info})
        icon->setVisible(icon == dialog.I_Error);
    dialog.CloseResult = widgets::mrOk;
    dialog.code = QStringLiteral("1ER");
    dialog.Memo1->setPlainText(text);
    dialog.setCaption(dialog.DefaultTitle);
    dialog.Caption_Panel->setCaption(QStringLiteral("     ") + dialog.DefaultTitle);
    dialog.showModal();
}

}  // namespace

HostObjects::HostObjects(std::unique_ptr<data::Connection> connection, const QString& installDir)
    : showStateForm(QStringLiteral("TShowStateForm")),
      tempGridForm(std::make_unique<TTempGridForm>(connection.get())),
      dlgMsg(std::make_unique<TDlgMsg>()),
      m_connection(std::move(connection)),
      m_query(m_connection.get()) {
    global.UserId = 1;
    global.SCode_1 = QStringLiteral("01");
    global.SCode_2 = QStringLiteral("01");
    global.Temp_Prefix = QStringLiteral("W_");
    global.Install_Dir = installDir;
    global.Current_Date = QStringLiteral("1404/07/15");
    global.Platform = QStringLiteral("Windows NT");
    global.Keyboard = QStringLiteral("WIN");
    database = {&m_query, m_connection.get()};
    dlgMsg->DefaultTitle = QStringLiteral("حقوق و دستمزد");
    widgets::EventBoundary::setMessageSink([this](const QString& text) { showNotice(*dlgMsg, text); });
}

HostObjects::~HostObjects() {
    // The module's function speaks through the dialog that goes now.
    widgets::EventBoundary::setMessageSink({});
}

}  // namespace host
