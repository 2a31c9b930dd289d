// The message dialog: one instance, the host's, through which every message of the module is shown.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "Components.h"
#include "Form.h"

class TDlgMsg : public widgets::Form {
    Q_OBJECT

public:
    explicit TDlgMsg(QWidget* parent = nullptr);

    // The title of messages whose caller gives none; the host fills it.
    QString DefaultTitle;
    // What Esc and the close button end the dialog with.
    qint32 CloseResult = widgets::mrOk;

    widgets::CaptionBar* Caption_Panel;
    widgets::Panel *Panel1, *InfoPanel, *Panel2, *BottomPanel;
    widgets::Shape* Close_Shape;
    widgets::SpeedButton* sb_Closed;
    QFrame* Bevel2;
    QPlainTextEdit* Memo1;
    QLabel *I_Warning, *I_Question, *I_Error, *I_Stop, *I_Info;
    QPushButton *BBtnOK1, *BBtnOK2, *BBtnCancel, *BBtnYes, *BBtnNo, *BBtnDetails;

    // The memo's text. Up to four lines stand in a dialog of normal height; more can be scrolled.
    void setMessage(const QString& text);
    // What an administrator may want to know besides; the operator sees it on demand. None where empty.
    void setDetails(const QString& details);
    // Lines of the memo as it is laid out now.
    int memoLines() const;
    // Everything placed for the current width and height, as each resize does. Left and width of the memo
    // are its caller's: they follow the message code.
    void layOut();

    // The code the dialog was last configured with ("1ER"), for those who watch messages.
    QString code;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showDetails();
    void makeIcons();
    void makeButtons();
    QList<QPushButton*> shownButtons() const;

    QString m_details;
};
