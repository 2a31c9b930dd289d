// The file selection window: a folder and a file name. It decides nothing: the caller reads the folder
// of DirectoryListBox1 and the text of FlopyEdit after a modal result of 1.
#pragma once

#include "Form.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QTreeWidget;

class TSelForm : public widgets::Form {
    Q_OBJECT
    // The folder, for those who know the window as a plain form.
    Q_PROPERTY(QString folder READ folder WRITE setFolder)

public:
    TSelForm();
    ~TSelForm() override;

    // The name, which the caller sets before the window is shown; trimmed.
    void setFileName(const QString& name);
    QString fileName() const;
    // The chosen folder, absolute. One that is not there gives the nearest above it that is.
    void setFolder(const QString& folder);
    QString folder() const { return m_folder; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FormShow();
    void OkBitBtnClick() { setModalResult(widgets::mrOk); }
    void CancelBitBtnClick() { setModalResult(widgets::mrCancel); }
    void connectPickers();
    void listDrives();
    void listFolders();
    void listFiles();
    void openFolder();
    void goUp();
    bool folderKey(int key);

    QComboBox* DriveComboBox1;
    QTreeWidget* DirectoryListBox1;
    QListWidget* FileListBox1;
    QLineEdit* FlopyEdit;
    QString m_folder;
};

extern "C" {
// The window while it exists, else null.
extern TSelForm* _SelForm;
}
