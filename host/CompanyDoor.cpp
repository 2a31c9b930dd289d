#include "CompanyDoor.h"

#include <QFileInfo>
#include <QRegularExpression>

#include "Embedded.h"
#include "Errors.h"
#include "HostCompany.h"
#include "Query.h"

namespace host {
namespace {

const QString kMonthOption = QStringLiteral("Month_Curent");

// Where a key's entry stands: its beginning and its value. An entry begins the text or follows a ";".
QRegularExpressionMatch entryOf(const QString& options, const QString& key) {
    return QRegularExpression(QStringLiteral("(?:^|;)\\s*%1=([^;]*)").arg(QRegularExpression::escape(key)),
                              QRegularExpression::CaseInsensitiveOption)
        .match(options);
}

QString paymentOptions(data::Connection& connection, const QString& companyCode) {
    const data::ResultSet result = connection.execute(
        QStringLiteral("select Payment from Options where SCode=") + data::quoted(companyCode));
    if (result.rows.isEmpty())
        throw data::Refusal(
            QStringLiteral("تنظيمات شرکت «%1» در بانک اطلاعات نيست. نسخه پشتيبان شرکت را باز کنيد.")
                .arg(companyCode));
    return data::valueText(result.rows.first().first());
}

// What went wrong, as one who opens a file can put it right.
QString advice(const data::ServerError& error) {
    const QString& serverText = error.text();
    if (serverText.contains(QLatin1String("damaged")))
        return QStringLiteral("آسيب ديده يا پرونده شرکت نيست. نسخه پشتيبان را باز کنيد.");
    if (serverText.contains(QLatin1String("become equal")))
        return QStringLiteral(
                   "كدهايي دارد كه جز كشيده يا نويسه هاي بي عرض تفاوتي ندارند: %1. يكي از آنها را در نسخه "
                   "پيشين برنامه عوض كنيد.")
            .arg(data::pathInText(serverText.section(QLatin1String(": "), 1)));
    if (serverText.contains(QLatin1String("read-only")))
        return QStringLiteral("فقط خواندني است. اجازه نوشتن بگيريد و دوباره باز کنيد.");
    return QStringLiteral("باز نشد. اجازه دسترسي به پرونده و پوشه آن را ببينيد.");
}

}  // namespace

std::unique_ptr<data::Connection> openCompany(const QString& file) {
    const QString name = data::pathInText(file);
    if (!QFileInfo(file).isFile())
        throw data::Refusal(QStringLiteral("پرونده شرکت «%1» پيدا نشد. نام و جاي آن را ببينيد.").arg(name));
    try {
        auto connection = tsql::open(file, tsql::OpenMode::Existing);
        if (!holdsCompany(*connection))
            throw data::Refusal(QStringLiteral("پرونده «%1» پرونده شرکت نيست.").arg(name));
        return connection;
    } catch (const data::ServerError& error) {
        if (error.fault() == data::Fault::LockTimeout)
            throw CompanyLocked(
                QStringLiteral(
                    "پرونده شرکت «%1» در برنامه ديگري باز است. آن برنامه را ببنديد و دوباره باز کنيد.")
                    .arg(name));
        throw data::Refusal(QStringLiteral("پرونده شرکت «%1» ").arg(name) + advice(error));
    }
}

int paymentMonth(data::Connection& connection, const QString& companyCode) {
    const auto entry = entryOf(paymentOptions(connection, companyCode), kMonthOption);
    const int month = entry.captured(1).trimmed().toInt();
    return month >= 1 && month <= 12 ? month : 0;
}

void setPaymentMonth(data::Connection& connection, const QString& companyCode, int month) {
    const QString options =
        withOption(paymentOptions(connection, companyCode), kMonthOption, QString::number(month));
    connection.execute(QStringLiteral("update Options set Payment=%1 where SCode=%2")
                           .arg(data::quoted(options), data::quoted(companyCode)));
}

QList<int> companyUsers(data::Connection& connection) {
    QList<int> users;
    for (const data::ColumnInfo& column :
         connection.execute(QStringLiteral("select top 1 * from UserSdcDetail")).columns) {
        bool number = false;
        const int user = column.name.toInt(&number);
        if (number)
            users.append(user);
    }
    return users;
}

QString withOption(const QString& options, const QString& key, const QString& value) {
    const auto entry = entryOf(options, key);
    if (!entry.hasMatch()) {
        const bool open = !options.isEmpty() && !options.endsWith(u';');
        return options + (open ? QStringLiteral(";") : QString()) + key + u'=' + value + u';';
    }
    QString result = options;
    return result.replace(entry.capturedStart(1), entry.capturedLength(1), value);
}

}  // namespace host
