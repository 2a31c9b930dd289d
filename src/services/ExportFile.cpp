#include "ExportFile.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "Errors.h"
#include "Untfmsg.h"

namespace {

QString pathToRead(const QString& path) {
    return data::pathInText(QDir::toNativeSeparators(path));
}

}  // namespace

ExportFile::ExportFile(const QString& path) : m_file(path) {
    const QFileInfo there(path);
    if ((there.exists() && !there.isFile()) || !m_file.open(QIODevice::WriteOnly))
        refuse();
}

void ExportFile::write(const char* bytes, qint64 count) {
    if (m_file.write(bytes, count) != count)
        refuse();
}

void ExportFile::finish() {
    if (!m_file.flush() || m_file.error() != QFileDevice::NoError || !m_file.commit())
        refuse();
}

void ExportFile::show() const {
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(m_file.fileName())))
        return;
    Show_Msg(QStringLiteral("پرونده ساخته شد، ولي برنامه اي براي باز کردن آن پيدا نشد. پرونده اينجاست:\n") +
                 pathToRead(m_file.fileName()),
             QString(), QStringLiteral("1IR"));
}

void ExportFile::refuse() const {
    throw data::Refusal(QStringLiteral("اين پرونده نوشته نشد. پوشه بايد اجازه نوشتن بدهد و ديسک جاي خالي "
                                       "داشته باشد. پرونده قبلي، اگر بود، دست نخورده است:\n") +
                        pathToRead(m_file.fileName()));
}
