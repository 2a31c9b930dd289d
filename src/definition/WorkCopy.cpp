#include "WorkCopy.h"

#include <QThread>

#include "DatabaseHelpers.h"
#include "TextHelpers.h"

namespace definition {
namespace {

constexpr int kHundredth = 10;  // milliseconds, the step of a time stamp

}  // namespace

QString freeTableName(data::HostDatabase& db, const data::HostContext& context, const QString& mark) {
    for (;;) {
        QString name = context.Temp_Prefix + mark + Time_Stamp();
        if (!Is_Object_Exist(db, name))
            return name;
        QThread::msleep(kHundredth);
    }
}

void WorkCopy::create(data::HostDatabase& db, const QString& name, const QString& source) {
    m_name = name;
    Exec_Sql(db, "Select * into " + name + " From " + source);
    m_exists = true;
}

void WorkCopy::drop(data::HostDatabase& db) {
    if (!m_exists)
        return;
    Exec_Sql(db, " if EXISTS (select [name] from sysobjects where name=" + data::quoted(m_name) +
                     " and xtype='U') drop table " + m_name);
    m_exists = false;
}

}  // namespace definition
