// The layouts of outgoing files: what their tables hold, and their window under an operator's hands.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "DataGrid.h"
#include "Embedded.h"
#include "EventBoundary.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "ModuleVariables.h"
#include "Untdefbimdisk.h"
#include "Untdefine.h"
#include "Untdefmalydisk.h"
#include "Untfmsg.h"

extern "C" {
widgets::Form *_FrmDefBimDisk = nullptr, *_FrmDefMalyDisk = nullptr, *_FrmDefine = nullptr;
}

namespace {

using layouts::BankFile;

const QString kFields = QStringLiteral("f_des,f_name,f_len,f_raj,f_type,f_fix,f_field,f_lr,f_lrf,f_lat,");

class Layouts : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        const QString file = folder.filePath("a.company");
        host::createEmptyCompany(file);
        objects =
            std::make_unique<host::HostObjects>(tsql::open(file, tsql::OpenMode::Existing), folder.path());
        objects->connection().setMonitor([this](const QString& sql) {
            inserts += sql.contains("insert into", Qt::CaseInsensitive);
            if (!refused.isEmpty() && sql.contains(refused, Qt::CaseInsensitive))
                throw data::ServerError(refusal);
        });
        _Global = &objects->global;
        _MyDatabase = &objects->database;
        _TempGridForm = objects->tempGridForm.get();
        _DlgMsg = objects->dlgMsg.get();
        widgets::EventBoundary::setMessageSink([this](const QString& message) { said.append(message); });
    }
    void TearDown() override { widgets::EventBoundary::setMessageSink({}); }

    data::HostDatabase& db() { return objects->database; }
    void run(const QString& sql) { objects->connection().execute(sql); }
    // The rows as literals, a line each.
    QStringList rows(const QString& table, const QString& fields) {
        QStringList lines;
        for (const QVariantList& row :
             objects->connection().execute("select " + fields + " from " + table).rows) {
            QStringList cells;
            for (const QVariant& value : row)
                cells.append(data::literal(value));
            lines.append(cells.join(u'\t'));
        }
        return lines;
    }
    QString value(const QString& table, const QString& field, int row) {
        return rows(table, field).value(row - 1);
    }

    // Opens a window, does something in it and closes it.
    void open(
        widgets::Form*& window, const std::function<void()>& opener,
        const std::function<void()>& work = [] {}) {
        bool worked = false;
        QTimer::singleShot(0, [&] {
            worked = true;
            ASSERT_TRUE(window != nullptr && QTest::qWaitForWindowActive(window));
            grid = window->component<widgets::DataGrid>("DBGrid1");
            work();
            grid = nullptr;
            EXPECT_TRUE(window == nullptr || window->closeForm());
        });
        opener();
        EXPECT_TRUE(worked);
        EXPECT_EQ(window, nullptr);
    }
    void insurance(
        const QString& file, const std::function<void()>& work = [] {}) {
        open(
            _FrmDefBimDisk, [&] { layouts::openInsuranceLayout(file); }, work);
    }
    void tax(
        const QString& table, const std::function<void()>& work = [] {}) {
        open(
            _FrmDefMalyDisk, [&] { layouts::openTaxLayout(table, "         اقلام حقوق و دستمزد"); }, work);
    }
    void bank(
        BankFile file, int row, const std::function<void()>& work = [] {}) {
        open(
            _FrmDefine, [&] { layouts::openBankLayout(file, row); }, work);
    }

    // --- an operator's hands ---
    void go(int row, int column) {
        grid->dataset()->moveTo(row - 1);
        grid->selectColumn(column);
    }
    void key(int pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(pressed), modifiers);
    }
    void type(const QString& typed) {
        for (const QChar character : typed) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(QApplication::focusWidget(), &press);
        }
    }
    QString cell(int row, int column) { return grid->cellText(row - 1, column); }
    // What the dialogs that the work raises say, in order; each is answered.
    QStringList messages(const std::function<void()>& work, int answer = widgets::mrYes) {
        QStringList texts;
        QTimer dismiss;
        QObject::connect(&dismiss, &QTimer::timeout, [&] {
            if (!_DlgMsg->isModalShown())
                return;
            texts.append(_DlgMsg->Memo1->toPlainText());
            _DlgMsg->setModalResult(answer);
        });
        dismiss.start(0);
        work();
        return texts;
    }
    QAction* entry(const QString& caption) {
        grid->beforePopup();
        for (QAction* action : grid->popupMenu()->actions())
            if (action->text() == caption && !action->property(widgets::kShortcutOnly).toBool())
                return action;
        return nullptr;
    }

    QTemporaryDir folder;
    std::unique_ptr<host::HostObjects> objects;
    widgets::DataGrid* grid = nullptr;
    QStringList said;
    QString refused, refusal;
    int inserts = 0;
};

QHash<QString, QStringList> listedRows() {
    QFile file(QStringLiteral(KORVANTA_SOURCE_DIR "/tests/unit/LayoutRows.tsv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QHash<QString, QStringList> listed;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        listed[line.section(u'\t', 0, 0)].append(line.section(u'\t', 1));
    return listed;
}

TEST_F(Layouts, AreSeededAsListedAndOnce) {
    const auto openAll = [this] {
        insurance("BIMFILE1");
        insurance("BIMFILE2");
        for (const char* table : {"BCK_TAX1", "BCK_TAX2", "BCK_TAX3"}) {
            layouts::prepareTaxLayout(db(), table);
            tax(table);
        }
        bank(BankFile::Sent, 3);
        bank(BankFile::Control, 3);
        bank(BankFile::Loan, 2);
    };
    openAll();
    const QHash<QString, QStringList> listed = listedRows();
    EXPECT_EQ(listed.size(), 8);
    EXPECT_EQ(inserts, 23 + 28 + 23 + 34 + 14 + 10 + 10 + 13);
    for (auto table = listed.begin(); table != listed.end(); ++table) {
        const QString last = table.key().startsWith("BCK_FBANK") ? "f_repeat" : "f_dec";
        EXPECT_EQ(rows(table.key(), kFields + last), table.value()) << qPrintable(table.key());
    }
    inserts = 0;
    openAll();
    layouts::FillTaxLayout(db(), "BCK_TAX4");
    EXPECT_EQ(inserts, 0);
    EXPECT_EQ(said, QStringList());
}

TEST_F(Layouts, OfOlderCompaniesAreBroughtUpToDate) {
    insurance("BIMFILE1");
    insurance("BIMFILE2");
    run("delete from BCK_FBIM01 where f_field='PeymanRow' update BCK_FBIM01 set f_len=77 where "
        "f_field='year'");
    run("delete from BCK_FBIM11 where f_field in ('secondcod','birthdate')");
    insurance("BIMFILE1");
    insurance("BIMFILE2");
    EXPECT_EQ(rows("BCK_FBIM01", "f_name").size(), 23);
    EXPECT_EQ(value("BCK_FBIM01", "f_name", 23), "'mon_pym'");
    EXPECT_EQ(value("BCK_FBIM01", "f_len", 6), "77");
    EXPECT_EQ(rows("BCK_FBIM11", "f_name").mid(26), QStringList({"'per_natcod'", "'dsw_bdate'"}));

    run("create table BCK_FBANK1(F_DES varchar(15), F_NAME varchar(15), F_LEN int, F_RAJ int, F_TYPE "
        "varchar(1), "
        "F_FIX varchar(50), F_FIELD varchar(10), F_LR varchar(1), F_LRF varchar(1), F_LAT varchar(1)) "
        "insert into BCK_FBANK1(F_DES, F_LEN) values ('ش', 12)");
    bank(BankFile::Sent, 1);
    EXPECT_EQ(rows("BCK_FBANK1", "F_DES, F_LEN, F_REPEAT"), QStringList("'ش'\t12\tNULL"));

    // Emptied row by row, it is seeded again; without a column that counts it is refused.
    run("delete from BCK_FBIM01");
    insurance("BIMFILE1");
    EXPECT_EQ(rows("BCK_FBIM01", "f_des").size(), 23);
    run("create table BCK_FBANK2(F_DES varchar(15), F_LEN varchar(9)) insert into BCK_FBANK2 values ('ش', "
        "'ده')");
    layouts::openBankLayout(BankFile::Sent, 2);
    EXPECT_EQ(_FrmDefine, nullptr);
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].contains("F_LAT") && !said[0].contains("F_REPEAT")) << qPrintable(said[0]);
}

TEST_F(Layouts, OfBanksFollowTheirRows) {
    for (int row = 1; row <= 6; ++row) {
        if (row == 4)
            continue;
        bank(BankFile::Loan, row);
        run(QStringLiteral("update BCK_FBANKV%1 set F_NAME='was %1', F_LEN=NULL").arg(row));
    }
    const auto names = [this] {
        QStringList list;
        for (int row = 1; row <= 7; ++row)
            list.append(rows("sysobjects", "name").contains(QStringLiteral("'BCK_FBANKV%1'").arg(row))
                            ? value(QStringLiteral("BCK_FBANKV%1").arg(row), "F_NAME", 1)
                            : QString());
        return list;
    };
    // A swap, a chain over a gap, a deletion.
    {
        data::Transaction transaction(*db().Connection);
        layouts::moveBankLayouts(db(), BankFile::Loan,
                                 {{1, 2}, {2, 1}, {3, 0}, {4, 3}, {5, 4}, {6, 5}, {7, 6}});
        transaction.commit();
    }
    EXPECT_EQ(names(), QStringList({"'was 2'", "'was 1'", "", "'was 5'", "'was 6'", "", ""}));
    EXPECT_EQ(rows("BCK_FBANKV5", "F_FIELD, F_LEN, F_REPEAT").value(12), "'HESAB_K'\tNULL\tNULL");
    // A cycle; what is left of a row long gone does not become the layout of one that takes its place.
    layouts::moveBankLayouts(db(), BankFile::Loan, {{1, 4}, {4, 2}, {2, 1}, {3, 5}});
    EXPECT_EQ(names(), QStringList({"'was 1'", "'was 5'", "", "'was 2'", "", "", ""}));
    {
        data::Transaction transaction(*db().Connection);
        layouts::moveBankLayouts(db(), BankFile::Loan, {{1, 2}, {2, 1}, {4, 0}});
    }
    EXPECT_EQ(names(), QStringList({"'was 1'", "'was 5'", "", "'was 2'", "", "", ""})) << "rolled back";
}

TEST_F(Layouts, StepThroughTheirLetters) {
    const auto steps = [this](int row, int column, int times) {
        go(row, column);
        QStringList values;
        while (times-- > 0) {
            key(Qt::Key_Space);
            values.append(grid->dataset()->text(grid->gridColumns()[column].field));
        }
        return values;
    };
    insurance("BIMFILE2", [&] {
        EXPECT_EQ(steps(1, 5, 4), QStringList({"L", "R", " ", "L"}));
        EXPECT_EQ(steps(1, 7, 3), QStringList({"F", "L", " "}));
        EXPECT_EQ(steps(1, 4, 3), QStringList({"N", "F", "C"}));
        EXPECT_EQ(steps(2, 5, 1), QStringList("")) << "a number is not aligned";
        type("x");
        key(Qt::Key_Delete);
        EXPECT_FALSE(grid->typingInCell());
        EXPECT_FALSE(grid->canType());
    });
    EXPECT_EQ(value("BCK_FBIM11", "f_lr", 1), "'L'") << "leaving the row stored it";
    bank(BankFile::Sent, 1, [&] {
        EXPECT_EQ(steps(1, 8, 3), QStringList({"R", "", "R"}));
        run("update BCK_FBANK1 set F_REPEAT=' ' where F_FIELD='netpay'");
        grid->dataset()->refresh();
        EXPECT_EQ(steps(2, 8, 1), QStringList(" "));
    });
}

TEST_F(Layouts, TakeWhatIsTyped) {
    const QString longTitle = QStringLiteral("عنواني که بيست حرف دارد");
    bank(BankFile::Sent, 1, [&] {
        go(9, 0);
        type("x");
        key(Qt::Key_F2);
        EXPECT_EQ(cell(9, 0), "شماره رديف") << "a title with a source stays";
        go(10, 9);
        type("123456789");
        key(Qt::Key_Return);
        EXPECT_EQ(cell(10, 9), "12345678");
        EXPECT_EQ(grid->dataset()->recNo(), 11) << "a new row after the last";
        EXPECT_EQ(grid->selectedColumn(), 0);
        type("یک");
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        type("100");
        key(Qt::Key_Return);
        EXPECT_EQ(grid->selectedColumn(), 2);
        ASSERT_EQ(said.size(), 1);
        EXPECT_TRUE(said[0].contains("99"));
        type("۹۹");
        key(Qt::Key_Return);
        EXPECT_EQ(grid->selectedColumn(), 3);
        type("abc");
        key(Qt::Key_Return);
        EXPECT_EQ(said.size(), 2);
        key(Qt::Key_Escape);
    });
    EXPECT_EQ(value("BCK_FBANK1", "F_DES, F_LEN, F_RAJ", 11), "'يک'\t99\tNULL") << "closing stores the row";

    insurance("BIMFILE1", [&] {
        run("insert into BCK_FBIM01(f_des, f_len) values (" + data::quoted(longTitle) + ", 150)");
        grid->dataset()->refresh();
        go(24, 0);
        key(Qt::Key_F2);
        type("!");
        key(Qt::Key_Return);
        EXPECT_EQ(cell(24, 0), longTitle) << "a longer stored title is not cut";
        go(24, 1);
        type("a name of sixteen");
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        EXPECT_EQ(cell(24, 1), "a name of sixte");
        go(24, 0);
        key(Qt::Key_Delete);
        EXPECT_EQ(messages([&] { key(Qt::Key_Down); }), QStringList(" نام ميدان خالي مي باشد"));
        EXPECT_EQ(grid->selectedColumn(), 1);
        EXPECT_EQ(grid->dataset()->state(), data::Dataset::State::Edit);
        grid->dataset()->cancel();
    });
    EXPECT_EQ(said.size(), 2);
}

TEST_F(Layouts, LoseOnlyRowsThatMayGo) {
    const QString entryText = QStringLiteral("حذف رديف ");
    const auto remove = [this] { key(Qt::Key_Delete, Qt::ControlModifier); };
    insurance("BIMFILE1", [&] {
        go(12, 1);
        EXPECT_FALSE(entry(entryText)->isEnabled());
        EXPECT_EQ(messages(remove), QStringList());
        run("insert into BCK_FBIM01(f_des) values ('a') insert into BCK_FBIM01(f_des) values ('a')");
        grid->dataset()->refresh();
        go(24, 1);
        EXPECT_TRUE(entry(entryText)->isEnabled());
        EXPECT_EQ(messages(remove, widgets::mrNo), QStringList("آيا كد مورد نظر حذف شود"));
        EXPECT_EQ(rows("BCK_FBIM01", "f_des").size(), 25);
        messages(remove);
        EXPECT_EQ(rows("BCK_FBIM01", "f_des").size(), 24) << "of twins one goes";
    });
    tax("BCK_TAX2", [&] {
        go(10, 1);
        EXPECT_EQ(messages(remove), QStringList());
        go(11, 1);
        EXPECT_FALSE(entry(entryText)->isEnabled());
        EXPECT_EQ(messages(remove).size(), 1);
        EXPECT_EQ(rows("BCK_TAX2", "f_name").size(), 33);
        EXPECT_EQ(value("BCK_TAX2", "f_name", 11), "'PF12'");

        QAction* anew = entry("ساختار جديد");
        refused = "'PF30'";
        refusal = "Violation of PRIMARY KEY constraint";
        EXPECT_EQ(messages([&] { anew->trigger(); }),
                  QStringList(
                      {"آيا ساختار فايل مورد نظر حذف شود", "توجه! كد ورودي تكراري است. كليد ESCرا بزنيد."}));
        EXPECT_EQ(grid->dataset()->recordCount(), 33) << "no half structure";
        refused.clear();
        messages([&] { anew->trigger(); });
        EXPECT_EQ(rows("BCK_TAX2", kFields + "f_dec"), listedRows()["BCK_TAX2"]);
        EXPECT_EQ(grid->dataset()->recordCount(), 34);
    });
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
