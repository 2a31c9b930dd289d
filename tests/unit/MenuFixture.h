// Two pages with a grid each over an embedded company, the menu object that serves both, and an operator's
// hands on what it opens.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "Embedded.h"
#include "EventBoundary.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "Untfmsg.h"

using widgets::Form;
using State = data::Dataset::State;

class MenuFixture : public testing::Test {
protected:
    // A form with a grid, as a page describes it to the menu object.
    struct Page {
        Page(MenuFixture& test, const QString& table, const QList<widgets::GridColumn>& columns)
            : form("TTestPage") {
            grid.setGridColumns(columns);
            grid.setDataset(&rows);
            rows.setObjectName("Table1");
            rows.setConnection(&test.objects->connection());
            rows.setTableName(table);
            rows.setIndexFieldNames(columns.first().field);
            rows.open();
            auto* layout = new QVBoxLayout(&form);
            layout->addWidget(&grid);
            form.resize(500, 300);
            form.showForm();
            grid.setFocus();
            property = {.grid = &grid,
                        .program = "J",
                        .item = "BASE",
                        .form = table,
                        .part = "1",
                        .reportTitle1 = "عنوان " + table,
                        .reportTitle2 = "عنوان " + table,
                        .sortColumn = columns.first().field,
                        .table = table,
                        .exportName = table};
            grid.beforePopup = [this, &test] {
                test.services.Property = property;
                test.services.Build(*grid.popupMenu());
            };
        }
        ~Page() {
            grid.setDataset(nullptr);
            grid.setParent(nullptr);
        }
        void choose(int row, int column) {
            grid.dataset()->moveTo(row);
            grid.selectColumn(column);
        }

        data::Dataset rows;
        widgets::DataGrid grid;
        Form form;
        TGridProperty property;
    };

    void SetUp() override {
        const QString file = folder.filePath("a.company");
        host::createEmptyCompany(file);
        objects = std::make_unique<host::HostObjects>(tsql::open(file, tsql::OpenMode::Existing),
                                                      folder.filePath("suite"));
        _Global = &objects->global;
        _MyDatabase = &objects->database;
        _DlgMsg = objects->dlgMsg.get();
        widgets::EventBoundary::setMessageSink(
            [](const QString& text) { Show_Msg(text, QString(), QStringLiteral("1ER")); });
        run("create table items (code int, name varchar(20), amount float, mark varchar(1))");
        run("insert into items values (1, 'حقوق پايه', 9, 'ض'), (2, 'كار شب', 1234567.5, ''), "
            "(3, 'حق مسكن', NULL, NULL)");
        run("insert into GrohTafsily2 values ('01', 'اداري'), ('02', 'توليد')");
        run("insert into Tafsily2(Tafsily2, NamHesab) values ('0100001', 'مركز')");
        items = std::make_unique<Page>(*this, "items", itemColumns());
    }
    void TearDown() override {
        groups.reset();
        items.reset();
        widgets::EventBoundary::setMessageSink({});
    }
    void openGroups() {
        groups =
            std::make_unique<Page>(*this, "GrohTafsily2",
                                   QList<widgets::GridColumn>{{.field = "Tafsily2GrohCod", .title = "كد"},
                                                              {.field = "Tafsily2GrohNam", .title = "نام"}});
    }

    static QList<widgets::GridColumn> itemColumns() {
        using widgets::ColumnKind;
        return {{.field = "code", .title = "كد", .kind = ColumnKind::Code, .readOnly = true},
                {.field = "name", .title = "نام", .kind = ColumnKind::Name},
                {.field = "amount", .title = "مبلغ", .kind = ColumnKind::Number, .displayFormat = "#,##0.00"},
                {.field = "mark", .title = "ماليات", .kind = ColumnKind::Mark}};
    }
    data::ResultSet run(const QString& sql) { return objects->connection().execute(sql); }
    qint64 number(const QString& sql) { return run(sql).rows.at(0).at(0).toLongLong(); }
    QString path(const QString& file) { return folder.filePath("suite/" + file); }

    // --- the menu ---
    static QAction* find(const QMenu& menu, const QString& caption) {
        for (QAction* action : menu.actions()) {
            if (action->text() == caption)
                return action;
            if (QAction* inner = action->menu() ? find(*action->menu(), caption) : nullptr)
                return inner;
        }
        return nullptr;
    }
    static QAction* entry(const Page& page, const QString& caption) {
        page.grid.beforePopup();
        return find(*page.grid.popupMenu(), caption);
    }
    // Chooses an entry as it stands, and answers the dialogs that it opens. What they said is returned.
    QStringList choose(const Page& page, const QString& caption, int answer = widgets::mrYes) {
        QAction* action = entry(page, caption);
        if (!action || !action->isEnabled()) {
            ADD_FAILURE() << "not offered: " << qUtf8Printable(caption);
            return {};
        }
        return answered([&] { action->trigger(); }, answer);
    }
    // Runs a step; messages are answered, the first other dialog is handed to `act`, and all are closed.
    QStringList answered(const std::function<void()>& step, int answer = widgets::mrOk) {
        QStringList said;
        QTimer operators;
        QObject::connect(&operators, &QTimer::timeout, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                said.append(box->text());
                box->close();
                return;
            }
            Form* form = Form::front();
            if (!form || !form->isModalShown() || !form->isVisible())
                return;
            if (form == _DlgMsg) {
                said.append(_DlgMsg->Memo1->toPlainText());
                form->setModalResult(answer);
                return;
            }
            opened.append(form->className());
            if (const auto once = std::exchange(act, nullptr))
                once(*form);
            if (form->isModalShown())
                form->setModalResult(widgets::mrCancel);
        });
        operators.start(0);
        step();
        return said;
    }
    // What the filter library is to answer next.
    void filterWith(const QString& statement) {
        act = [statement](Form& form) {
            form.setProperty("Answer", statement);
            form.setModalResult(widgets::mrOk);
        };
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    QTemporaryDir folder;
    std::unique_ptr<host::HostObjects> objects;
    TMalyObject services;
    std::unique_ptr<Page> items, groups;
    std::function<void(Form&)> act;
    QStringList opened;  // classes of the dialogs that were opened
};
