// The copies of the company, of which the operator brings one back.
#pragma once

#include "Backups.h"
#include "DlgMsg.h"
#include "ListDialog.h"

namespace host {

class BackupsForm : public forms::ListDialog {
public:
    // `messages` asks before anything is brought back.
    BackupsForm(const QString& companyFile, TDlgMsg& messages);

    // The copy that he has chosen; empty for none. Bringing it back is the caller's, who closes the company.
    QString chosen() const { return m_chosen; }

private:
    void choose();

    TDlgMsg& m_messages;
    QList<Backup> m_backups;
    QString m_chosen;
};

}  // namespace host
