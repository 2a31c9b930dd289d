// Two pages with a grid each, the menu object that serves both, and an operator's hands on what it opens.
#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "CompanyFixture.h"
#include "DataGrid.h"
#include "Malyobjectunit.h"
#include "Untfmsg.h"

using widgets::Form;

class MenuFixture : public CompanyFixture {
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
            property = {.host = {_MyDatabase, _Global},
                        .grid = &grid,
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
        widgets::EventBoundary::setMessageSink(
            [](const QString& text) { Show_Msg(text, QString(), QStringLiteral("1ER")); });
        run("create table items (code int, name varchar(20), amount float, mark varchar(1))");
        run("insert into items values (1, 'حقوق پايه', 9, 'ض'), (2, 'كار شب', 1234567.5, ''), "
            "(3, 'حق مسكن', NULL, NULL)");
        run("insert into GrohTafsily2 values ('01', 'اداري'), ('02', 'توليد')");
        run("insert into Tafsily2(Tafsily2, NamHesab) values ('0100001', 'مركز')");
        using widgets::ColumnKind;
        items.reset(new Page(
            *this, "items",
            {{.field = "code", .title = "كد", .kind = ColumnKind::Code, .readOnly = true},
             {.field = "name", .title = "نام", .kind = ColumnKind::Name},
             {.field = "amount", .title = "مبلغ", .kind = ColumnKind::Number, .displayFormat = "#,##0.00"},
             {.field = "mark", .title = "ماليات", .kind = ColumnKind::Mark}}));
    }
    void TearDown() override {
        groups.reset();
        items.reset();
    }
    void openGroups() {
        groups.reset(new Page(
            *this, "GrohTafsily2",
            {{.field = "Tafsily2GrohCod", .title = "كد"}, {.field = "Tafsily2GrohNam", .title = "نام"}}));
    }

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
    // Runs a step; messages are answered, each other dialog is handed to the next of `acts` and then closed.
    QStringList answered(const std::function<void()>& step, int answer = widgets::mrOk) {
        QStringList said;
        QSet<Form*> handed;
        QTimer operators;
        QObject::connect(&operators, &QTimer::timeout, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                said.append(box->text());
                box->close();
                return;
            }
            Form* form = Form::front();
            if (!form || !form->isModalShown() || !form->isVisible() || handed.contains(form))
                return;
            if (form == _DlgMsg) {
                said.append(_DlgMsg->Memo1->toPlainText());
                form->setModalResult(answer);
                return;
            }
            opened.append(form->className());
            handed.insert(form);
            // What the act opens comes to the front before it returns.
            QTimer::singleShot(0, form, [&, form] {
                if (!acts.isEmpty())
                    acts.takeFirst()(*form);
                handed.remove(form);
                if (form->isModalShown())
                    form->setModalResult(widgets::mrCancel);
            });
        });
        operators.start(0);
        step();
        return said;
    }
    // What the filter library is to answer next.
    void filterWith(const QString& statement) {
        acts = {[statement](Form& form) {
            form.setProperty("Answer", statement);
            form.setModalResult(widgets::mrOk);
        }};
    }
    // The codes of the rows that the grid shows.
    QString codes() const {
        QStringList codes;
        for (int row = 0; row < items->grid.dataset()->recordCount(); ++row)
            codes.append(items->grid.cellText(row, 0));
        return codes.join(u',');
    }

    TMalyObject services;
    std::unique_ptr<Page> items, groups;
    QList<std::function<void(Form&)>> acts;
    QStringList opened;  // classes of the dialogs that were opened
};
