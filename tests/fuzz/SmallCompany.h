// An empty company in memory, the host's objects around it, and a grid over a small table of its own.
#pragma once

#include <QTemporaryDir>

#include "DataGrid.h"
#include "Dataset.h"
#include "HostObjects.h"
#include "Untfmsg.h"

namespace fuzz {

class SmallCompany {
public:
    static SmallCompany& instance();

    data::HostContext& context() { return m_objects.global; }
    data::HostDatabase& database() { return m_objects.database; }
    data::ResultSet run(const QString& sql) { return m_objects.connection().execute(sql); }
    // The grid over the table as it was at first; messages are heard by nobody meanwhile.
    void withGrid(const std::function<void(widgets::DataGrid& grid)>& step);
    QString path(const QString& file) const { return m_folder.filePath(file); }

private:
    SmallCompany();

    QTemporaryDir m_folder;
    host::HostObjects m_objects;
};

}  // namespace fuzz
