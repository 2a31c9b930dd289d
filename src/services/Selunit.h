// The file selection window: a folder and a file name. It decides nothing: the caller reads the folder
// of DirectoryListBox1 and the text of FlopyEdit after a modal result of 1.
#pragma once

#include "Form.h"

class TSelForm : public widgets::Form {
    Q_OBJECT

public:
    TSelForm();

    // The name, which the caller sets before the window is shown; trimmed.
    void setFileName(const QString& name);
    QString fileName() const;
    // The chosen folder.
    void setFolder(const QString& folder);
    QString folder() const;
};
