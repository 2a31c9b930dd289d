#include "BackupsForm.h"

#include <QCalendar>
#include <QPushButton>

#include "FileCopy.h"
#include "Messages.h"

namespace host {
namespace {

QList<forms::ListColumn> titles() {
    using Kind = forms::ListColumn::Kind;
    return {{QStringLiteral("روز"), 150},
            {QStringLiteral("اندازه"), 110, Kind::Number},
            {QStringLiteral("وضعيت"), 120}};
}

QString dayOf(const QDateTime& moment) {
    static const QCalendar calendar(QCalendar::System::Jalali);
    const QCalendar::YearMonthDay day = calendar.partsFromDate(moment.date());
    const QString date = QStringLiteral("%1/%2/%3")
                             .arg(day.year)
                             .arg(day.month, 2, 10, QLatin1Char('0'))
                             .arg(day.day, 2, 10, QLatin1Char('0'));
    return moment.time().msecsSinceStartOfDay() == 0 ? date
                                                     : date + moment.toString(QStringLiteral(" HH:mm"));
}

}  // namespace

BackupsForm::BackupsForm(const QString& companyFile, TDlgMsg& messages)
    : ListDialog(QStringLiteral("TBackupsForm"), QStringLiteral("پشتيبان ها"), QStringLiteral("dbgBackups"),
                 titles(), {520, 380}),
      m_messages(messages),
      m_backups(backupsOf(companyFile)) {
    QList<QStringList> rows;
    for (const Backup& backup : m_backups)
        rows.append(
            {dayOf(backup.made),
             QStringLiteral("%1 مگابايت").arg(static_cast<double>(backup.size) / (1 << 20), 0, 'f', 1),
             tsql::isSound(backup.file) ? QStringLiteral("سالم") : QStringLiteral("ناسالم")});
    setRows(rows);
    onChoose = [this](int) { choose(); };
    addButtons(QStringLiteral("بازگرداندن"), [this] { choose(); })->setEnabled(!rows.isEmpty());
}

void BackupsForm::choose() {
    const int row = currentRow();
    if (row < 0)
        return;
    if (!ask(m_messages, QStringLiteral("شرکت به پشتيبان %1 بازگردد؟ آنچه اکنون هست هم نگه داشته مي شود.")
                             .arg(rows()[row].first())))
        return;
    m_chosen = m_backups[row].file;
    setModalResult(widgets::mrOk);
}

}  // namespace host
