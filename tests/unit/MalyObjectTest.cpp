// The menu object's entries, those that pages do without among them.
#include "DemonstrationGrid.h"
#include "Errors.h"
#include "MenuFixture.h"

namespace {

using MalyObject = MenuFixture;

const QString kDelete = "حذف رديف", kFilter = "پالايش گزارش ...", kUnfilter = "بازگشت از پالايش",
              kCopyRow = "کپي رديف به حافظه", kPasteRow = "بازيابي رديف از حافظه",
              kSort = "مرتب سازي پيشرفته ...", kSearch = "جستجو ...", kSure = "آيا حذف شود؟";

// --- deletion ---------------------------------------------------------------------------------------

TEST_F(MalyObject, DeletesTheRowAfterItsQuestion) {
    items->choose(1, 1);
    EXPECT_EQ(choose(*items, kDelete, widgets::mrNo), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from items"), 3);
    EXPECT_FALSE(items->rows.property("Tag").isValid());
    EXPECT_TRUE(items->grid.hasFocus());
    EXPECT_EQ(choose(*items, kDelete), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from items where code=2"), 0);
    EXPECT_EQ(number("select count(*) from items"), 2);
    EXPECT_EQ(items->rows.property("Tag"), 10);
    EXPECT_EQ(items->rows.text("code"), "3") << "the row that took its place";

    // A new row is stored before it is asked about: what is refused is not deleted.
    items->rows.append();
    items->rows.setValue("code", 4);
    EXPECT_EQ(choose(*items, kDelete, widgets::mrNo), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from items where code=4"), 1);
    items->rows.append();
    items->rows.setValue("code", 5);
    items->rows.beforePost = [] { throw data::Refusal("نه"); };
    EXPECT_EQ(choose(*items, kDelete), QStringList("نه"));
    EXPECT_EQ(items->rows.state(), State::Insert);
    items->rows.beforePost = nullptr;
    items->rows.cancel();
    EXPECT_EQ(number("select count(*) from items"), 3);
}

TEST_F(MalyObject, AsksWhatDependsOnARow) {
    openGroups();
    groups->property.dependency = "Tafsily2GrohCod";
    EXPECT_EQ(choose(*groups, kDelete), QStringList("گردش دارد."));
    EXPECT_EQ(_DlgMsg->code, "1ER");
    // A code that is typed over is still the one that others refer to.
    groups->rows.setValue("Tafsily2GrohCod", "02");
    EXPECT_EQ(choose(*groups, kDelete), QStringList("گردش دارد."));
    groups->rows.cancel();
    EXPECT_EQ(number("select count(*) from GrohTafsily2"), 2);
    groups->choose(1, 0);
    EXPECT_EQ(choose(*groups, kDelete), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from GrohTafsily2"), 1);

    QStringList sent;
    objects->connection().setMonitor([&](const QString& sql) { sent.append(sql); });
    groups->property.dependency = "Tafsily2GrohCod + '_'+Tafsily2GrohNam";
    EXPECT_EQ(choose(*groups, kDelete, widgets::mrNo), QStringList(kSure));
    objects->connection().setMonitor({});
    EXPECT_TRUE(sent.contains("sp_M_Depended_GrohTafsily2 '01_اداري'"));
    // A company that cannot tell loses no row.
    items->property.dependency = "code";
    EXPECT_EQ(choose(*items, kDelete).size(), 1);
    EXPECT_EQ(number("select count(*) from items"), 3);
}

// --- restricted views -------------------------------------------------------------------------------

TEST_F(MalyObject, SwitchesBetweenAllRowsAndSome) {
    items->choose(1, 1);
    items->rows.setValue("name", "شبانه");
    filterWith("Select * From items Where code>1");
    EXPECT_EQ(choose(*items, kFilter), QStringList());
    EXPECT_EQ(number("select count(*) from items where name='شبانه'"), 1)
        << "the row in edit is stored first";
    const data::Dataset& view = *items->grid.dataset();
    EXPECT_NE(&view, &items->rows);
    EXPECT_EQ(view.recordCount(), 2);
    EXPECT_EQ(items->grid.cellText(0, 2), "1,234,567.5") << "numbers of a restricted view";
    EXPECT_EQ(entry(*items, kFilter), nullptr);
    EXPECT_NE(entry(*items, kUnfilter), nullptr);
    EXPECT_EQ(items->rows.recordCount(), 3) << "the page's own rows stay";

    // Read-only, by every way in.
    items->choose(0, 1);
    EXPECT_NE(choose(*items, kDelete), QStringList(kSure));
    QGuiApplication::clipboard()->setText("code=2\tname=x\tamount=1\tmark=\t");
    EXPECT_EQ(choose(*items, kPasteRow).size(), 1);
    EXPECT_EQ(choose(*items, "بازيابي خانه از حافظه").size(), 1);
    answered([&] {
        QTest::keyClick(&items->grid, Qt::Key_A);
        QTest::keyClick(&items->grid, Qt::Key_Insert);
        QTest::keyClick(&items->grid, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&items->grid, Qt::Key_Down);
    });
    EXPECT_EQ(view.state(), State::Browse);
    EXPECT_EQ(number("select count(*) from items where name='شبانه'"), 1);
    EXPECT_EQ(number("select count(*) from items"), 3);
    // Exports hold the rows in sight.
    choose(*items, "Clipboard (محيط ديگر ...)");
    EXPECT_EQ(clipboard().count('\n'), 3);

    EXPECT_EQ(choose(*items, kUnfilter), QStringList());
    EXPECT_EQ(items->grid.dataset(), &items->rows);
    EXPECT_EQ(items->grid.cellText(1, 2), "1,234,567.50");
    EXPECT_NE(entry(*items, kFilter), nullptr);
}

TEST_F(MalyObject, StaysOnAllRowsWithoutAStatement) {
    EXPECT_EQ(choose(*items, kFilter), QStringList());
    EXPECT_EQ(opened, QStringList("TSieveForm"));
    EXPECT_NE(entry(*items, kFilter), nullptr) << "given up";
    for (const char* statement :
         {"Delete From items", "Select * From items Where code=", "Select * From nowhere"}) {
        filterWith(statement);
        EXPECT_EQ(choose(*items, kFilter).size(), 1) << statement;
        EXPECT_EQ(items->grid.dataset(), &items->rows) << statement;
        EXPECT_NE(entry(*items, kFilter), nullptr) << statement;
    }
    EXPECT_EQ(number("select count(*) from items"), 3);
    // A row that cannot be stored keeps its place, and no dialog is opened over it.
    items->choose(0, 1);
    items->rows.beforePost = [] { throw data::Refusal("نه"); };
    items->rows.setValue("name", "ديگر");
    opened.clear();
    EXPECT_EQ(choose(*items, kFilter), QStringList("نه"));
    EXPECT_EQ(opened, QStringList());
    EXPECT_EQ(items->rows.state(), State::Edit);
    items->rows.beforePost = nullptr;
    items->rows.cancel();

    // One without rows can be left again.
    filterWith("Select * From items Where code>100");
    choose(*items, kFilter);
    EXPECT_TRUE(items->grid.dataset()->isEmpty());
    EXPECT_FALSE(entry(*items, kDelete)->isEnabled());
    choose(*items, kUnfilter);
    EXPECT_EQ(items->grid.dataset()->recordCount(), 3);
}

// --- rows -------------------------------------------------------------------------------------------

TEST_F(MalyObject, CopiesARowOntoAnother) {
    items->choose(1, 1);
    EXPECT_EQ(choose(*items, kCopyRow), QStringList());
    items->choose(2, 1);
    EXPECT_EQ(choose(*items, kPasteRow), QStringList());
    EXPECT_EQ(items->rows.state(), State::Edit);
    items->rows.post();
    EXPECT_EQ(number("select count(*) from items where code=2 and name='كار شب' and amount=1234567.5"), 2);
    // Between grids of the same table, as text; anything else is refused and changes nothing.
    openGroups();
    EXPECT_EQ(choose(*groups, kPasteRow).size(), 1);
    QGuiApplication::clipboard()->setText(QString(10'000'000, u'='));
    EXPECT_LT(choose(*groups, kPasteRow).value(0).size(), 300);
    EXPECT_EQ(groups->rows.state(), State::Browse);
    EXPECT_EQ(groups->rows.text("Tafsily2GrohNam"), "اداري");
    // By their shortcuts too.
    groups->grid.setFocus();
    QTest::keyClick(&groups->grid, Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "Tafsily2GrohCod=01\tTafsily2GrohNam=اداري\t");
}

TEST_F(MalyObject, SortsBySeveralColumns) {
    items->grid.setTitleColor(0, Qt::red);
    act = [](Form& form) {
        auto* order = form.component<QListWidget>("lsOrder");
        order->setFocus();
        QTest::keyClick(order, Qt::Key_Space);
        QTest::keyClick(order, Qt::Key_Return);
    };
    EXPECT_EQ(choose(*items, kSort), QStringList());
    EXPECT_EQ(items->rows.indexFieldNames(), "code DESC");
    EXPECT_EQ(items->rows.text("code"), "1") << "the same row";
    EXPECT_EQ(items->rows.row(), 2);
    EXPECT_NE(items->grid.titleColor(0), QColor(Qt::red)) << "a marked title tells the order no more";
}

TEST_F(MalyObject, ActsOnTheGridItWasBuiltFor) {
    openGroups();
    items->choose(2, 1);
    groups->choose(1, 1);
    QAction* const copy = entry(*items, "کپي خانه به حافظه");
    QAction* const filter = find(*items->grid.popupMenu(), kFilter);
    QAction* const store = find(*items->grid.popupMenu(), "ثبت وضعيت ستونها");
    entry(*groups, kDelete);
    copy->trigger();
    EXPECT_EQ(clipboard(), "حق مسكن");
    answered([&] { store->trigger(); });
    EXPECT_EQ(number("select count(*) from Grid_State where sForm='items'"), 4);
    EXPECT_EQ(number("select count(*) from Grid_State"), 4);
    filterWith("Select * From items Where code=1");
    answered([&] { filter->trigger(); });
    EXPECT_EQ(items->grid.dataset()->recordCount(), 1);
    EXPECT_EQ(groups->grid.dataset()->recordCount(), 2);
    EXPECT_NE(entry(*groups, kFilter), nullptr) << "one page's view is not another's";
    EXPECT_NE(entry(*items, kUnfilter), nullptr);
    // A page that goes with its view shown leaves nothing behind.
    items.reset();
    EXPECT_NE(entry(*groups, kFilter), nullptr);
}

// --- rights -----------------------------------------------------------------------------------------

// What an entry needs: 'r' rows, 'c' the copy right, 'p' the print right, 'R' the report right.
const std::pair<const char*, const char*> kNeeds[] = {{"راهنما", ""},
                                                      {"جستجو ...", "r"},
                                                      {"ثبت وضعيت ستونها", ""},
                                                      {"بازگشت به وضعيت اوليه ستونها", ""},
                                                      {"ارسال به", "rc"},
                                                      {"Clipboard (محيط ديگر ...)", "rc"},
                                                      {"Excel", "rc"},
                                                      {"Word", "rc"},
                                                      {"HTML", "rc"},
                                                      {"کپي رديف به حافظه", "rc"},
                                                      {"بازيابي رديف از حافظه", "c"},
                                                      {"کپي خانه به حافظه", "rc"},
                                                      {"بازيابي خانه از حافظه", "c"},
                                                      {"حذف رديف", "r"},
                                                      {"پالايش گزارش ...", "r"},
                                                      {"مشخصات گزارش ...", "R"},
                                                      {"چاپ ...", "rp"},
                                                      {"چاپ پيشرفته ...", "rp"},
                                                      {"مرتب سازي پيشرفته ...", "r"},
                                                      {"تنظيم عرض ستونها", "r"},
                                                      {"Dbf->Dos", "rc"},
                                                      {"Dbf->Win", "rc"}};

TEST_F(MalyObject, OffersWhatRightsAndRowsAllow) {
    const auto expectOffered = [&](const QString& has) {
        for (const auto& [caption, needs] : kNeeds) {
            const QString wants = needs;
            const bool offered =
                std::all_of(wants.begin(), wants.end(), [&](QChar need) { return has.contains(need); });
            const QAction* action = entry(*items, caption);
            ASSERT_NE(action, nullptr) << caption;
            EXPECT_EQ(action->isEnabled(), offered) << caption << " with " << qUtf8Printable(has);
        }
    };
    expectOffered("rcpR");
    objects->global.UserId = 2;
    expectOffered("r");
    objects->global.UserId = 3;  // nothing is said of this one
    expectOffered("rcp");
    run("delete from items");
    items->rows.refresh();
    expectOffered("cp");
    objects->global.UserId = 1;
    run("update UserSdc set KAVESTA='COPY=no;REPORT=YES;' where UserId=1");
    expectOffered("p");
}

TEST_F(MalyObject, DoesNotOpenWithoutRowsToActOn) {
    QStringList captions;
    items->grid.beforePopup();
    for (const QAction* action : items->grid.popupMenu()->actions())
        captions.append(action->isSeparator() ? QString("-") : action->text());
    EXPECT_EQ(captions.join(u'|'),
              "راهنما|-|جستجو ...|-|ثبت وضعيت ستونها|بازگشت به وضعيت اوليه ستونها|-|ارسال به|-|کپي رديف به "
              "حافظه|بازيابي رديف از حافظه|کپي خانه به حافظه|بازيابي خانه از حافظه|-|حذف رديف|-|پالايش گزارش "
              "...|مشخصات گزارش ...|-|چاپ ...|چاپ پيشرفته ...|مرتب سازي پيشرفته ...|تنظيم عرض "
              "ستونها|Dbf->Dos|Dbf->Win");
    TMalyObject::Remove_Item(*items->grid.popupMenu(), 5);
    EXPECT_NE(find(*items->grid.popupMenu(), "Excel"), nullptr) << "submenus keep theirs";
    for (const int image : {10, 14, 14, 99})
        TMalyObject::Remove_Item(*items->grid.popupMenu(), image);
    EXPECT_EQ(items->grid.popupMenu()->actions().size(), captions.size() - 3);

    objects->global.Popups_Allowed = false;
    items->grid.beforePopup();
    EXPECT_TRUE(items->grid.popupMenu()->isEmpty());
    objects->global.Popups_Allowed = true;
    items->rows.close();
    items->grid.beforePopup();
    EXPECT_TRUE(items->grid.popupMenu()->isEmpty());
    EXPECT_EQ(answered([&] { QTest::keyClick(&items->grid, Qt::Key_Delete, Qt::ControlModifier); }),
              QStringList());
}

// --- the host's own grid ----------------------------------------------------------------------------

TEST_F(MalyObject, HasNothingTakenAwayOnTheHostsGrid) {
    run("insert into person(code, name, family) values ('1', 'علي', 'رضايي'), ('2', 'مريم', 'كرمي')");
    host::DemonstrationGrid demonstration(*objects);
    auto* grid = demonstration.component<widgets::DataGrid>("DBGrid1");
    ASSERT_NE(grid, nullptr);
    bool shown = false;
    act = [&](Form& form) {
        shown = &form == &demonstration;
        grid->beforePopup();
        for (const auto& [caption, needs] : kNeeds)
            EXPECT_NE(find(*grid->popupMenu(), caption), nullptr) << caption;
        find(*grid->popupMenu(), kCopyRow)->trigger();
        EXPECT_TRUE(clipboard().startsWith("code=1\tname=علي\tfamily=رضايي\t"));
        grid->dataset()->moveTo(1);
        grid->dataset()->setValue("family", "اكبري");
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isModalShown());
    };
    answered([&] { demonstration.showModal(); });
    EXPECT_TRUE(shown);
    EXPECT_EQ(number("select count(*) from person where family='اكبري'"), 1) << "what was typed is stored";
}

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
