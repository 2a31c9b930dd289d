#include "Help.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "Errors.h"

void Open_Help(const data::HostContext& context, const QString& keyword) {
    const QString page = context.Install_Dir + "/Help/" + keyword + ".html";
    if (!QFileInfo(page).isFile())
        throw data::Refusal(QStringLiteral("صفحه راهنما پيدا نشد: %1\nپوشه Help برنامه را از نو نصب کنيد.")
                                .arg(data::pathInText(page)));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        throw data::Refusal(
            QStringLiteral("برنامه اي براي نشان دادن راهنما پيدا نشد. اين صفحه را با مرورگر باز کنيد: %1")
                .arg(data::pathInText(page)));
}
