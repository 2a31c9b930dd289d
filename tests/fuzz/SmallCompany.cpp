#include "SmallCompany.h"

#include <QCoreApplication>

#include "Embedded.h"
#include "HostCompany.h"
#include "ModuleVariables.h"

namespace fuzz {

SmallCompany& SmallCompany::instance() {
    // Goes with the application: what has windows cannot stay longer.
    static SmallCompany* const company = [] {
        qAddPostRoutine([] { delete &instance(); });
        return new SmallCompany;
    }();
    return *company;
}

namespace {

std::unique_ptr<data::Connection> made(const QString& file) {
    host::createEmptyCompany(file);
    auto connection = tsql::open(file, tsql::OpenMode::Existing);
    connection->execute(
        QStringLiteral("create table items(id int identity, code int, name varchar(20), length float, mark "
                       "varchar(1), day datetime)"));
    return connection;
}

}  // namespace

SmallCompany::SmallCompany()
    : m_objects(made(path(QStringLiteral("a.company"))), path(QStringLiteral("suite"))) {}

void SmallCompany::withGrid(const std::function<void(widgets::DataGrid& grid)>& step) {
    _Global = &m_objects.global;
    _MyDatabase = &m_objects.database;
    _DlgMsg = m_objects.dlgMsg.get();
    run(QStringLiteral(
        "delete from items insert into items(code, name, length, mark) values (1, 'حقوق پايه', 9, 'ض'), "
        "(2, '<b>حق & مسكن', 1234567.5, ''), (3, 'بن', NULL, NULL)"));
    const Overheard overheard;
    data::Dataset rows;
    rows.setObjectName(QStringLiteral("Table2"));
    rows.setConnection(&m_objects.connection());
    rows.setTableName(QStringLiteral("items"));
    rows.setIndexFieldNames(QStringLiteral("code"));
    widgets::DataGrid grid;
    using widgets::ColumnKind;
    grid.setGridColumns(
        {{.field = "code", .title = "كد", .width = 40, .kind = ColumnKind::Code, .readOnly = true},
         {.field = "name", .title = "نام حقوق", .width = 188, .kind = ColumnKind::Name},
         {.field = "length",
          .title = "طول",
          .width = 60,
          .kind = ColumnKind::Number,
          .displayFormat = "#,##0.00"},
         {.field = "mark", .title = "ماليات", .width = 60, .kind = ColumnKind::Mark},
         {.field = "day", .title = "روز", .width = 60}});
    grid.setDataset(&rows);
    rows.open();
    step(grid);
    grid.setDataset(nullptr);
}

}  // namespace fuzz
