// The menu object's entries, those that pages do without among them.
#include "DemonstrationGrid.h"
#include "MenuFixture.h"

namespace {

using MalyObject = MenuFixture;

const QString kDelete = "حذف رديف", kFilter = "پالايش گزارش ...", kUnfilter = "بازگشت از پالايش",
              kCopyRow = "کپي رديف به حافظه", kPasteRow = "بازيابي رديف از حافظه", kSure = "آيا حذف شود؟";

TEST_F(MalyObject, DeletesTheRowAfterItsQuestion) {
    items->choose(1, 1);
    EXPECT_EQ(choose(*items, kDelete, widgets::mrNo), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from items"), 3);
    EXPECT_FALSE(items->rows.property("Tag").isValid());
    EXPECT_EQ(choose(*items, kDelete), QStringList(kSure));
    EXPECT_EQ(number("select count(*) from items where code=2"), 0);
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
    // A code that is typed over is still the one that others refer to.
    groups->rows.setValue("Tafsily2GrohCod", "02");
    EXPECT_EQ(choose(*groups, kDelete), QStringList("گردش دارد."));
    groups->rows.cancel();

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

TEST_F(MalyObject, SwitchesBetweenAllRowsAndSome) {
    items->choose(1, 1);
    items->rows.setValue("name", "شبانه");
    filterWith("Select * From items Where code>1");
    EXPECT_EQ(choose(*items, kFilter), QStringList());
    EXPECT_EQ(number("select count(*) from items where name='شبانه'"), 1)
        << "the row in edit is stored first";
    const data::Dataset& view = *items->grid.dataset();
    EXPECT_EQ(codes(), "2,3");
    EXPECT_EQ(items->grid.cellText(0, 2), "1,234,567.5") << "numbers of a restricted view";
    EXPECT_EQ(entry(*items, kFilter), nullptr);
    EXPECT_EQ(items->rows.recordCount(), 3) << "the page's own rows stay";

    // Read-only, by every way in.
    items->choose(0, 1);
    EXPECT_NE(choose(*items, kDelete), QStringList(kSure));
    setClipboard("code=2\tname=x\tamount=1\tmark=\t");
    EXPECT_EQ(choose(*items, kPasteRow).size(), 1);
    EXPECT_EQ(choose(*items, "بازيابي خانه از حافظه").size(), 1);
    answered([&] {
        QTest::keyClick(&items->grid, Qt::Key_A);
        QTest::keyClick(&items->grid, Qt::Key_Insert);
        QTest::keyClick(&items->grid, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&items->grid, Qt::Key_Down);
    });
    EXPECT_EQ(view.state(), State::Browse);
    EXPECT_EQ(number("select count(*) from items where name<>'x'"), 3);
    // Exports hold the rows in sight.
    choose(*items, "Clipboard (محيط ديگر ...)");
    EXPECT_EQ(clipboard().count('\n'), 3);

    EXPECT_EQ(choose(*items, kUnfilter), QStringList());
    EXPECT_EQ(items->grid.dataset(), &items->rows);
    EXPECT_EQ(items->grid.cellText(1, 2), "1,234,567.50");
    EXPECT_NE(entry(*items, kFilter), nullptr);
}

TEST_F(MalyObject, StaysOnAllRowsWithoutAStatement) {
    for (const char* statement :
         {"Delete From items", "Select * From items Where code=", "Select * From nowhere"}) {
        filterWith(statement);
        EXPECT_EQ(choose(*items, kFilter).size(), 1) << statement;
        EXPECT_EQ(items->grid.dataset(), &items->rows) << statement;
    }
    EXPECT_EQ(number("select count(*) from items"), 3);
    // A view without rows can be left again.
    filterWith("Select * From items Where code>100");
    choose(*items, kFilter);
    EXPECT_TRUE(items->grid.dataset()->isEmpty());
    EXPECT_FALSE(entry(*items, kDelete)->isEnabled());
    choose(*items, kUnfilter);
    EXPECT_EQ(items->grid.dataset()->recordCount(), 3);
}

TEST_F(MalyObject, ActsOnTheGridItWasBuiltFor) {
    openGroups();
    items->choose(2, 1);
    groups->choose(1, 1);
    QAction* const copy = entry(*items, "کپي خانه به حافظه");
    QAction* const filter = find(*items->grid.popupMenu(), kFilter);
    entry(*groups, kDelete);
    copy->trigger();
    EXPECT_EQ(clipboard(), "حق مسكن");
    filterWith("Select * From items Where code=1");
    answered([&] { filter->trigger(); });
    EXPECT_EQ(codes(), "1");
    EXPECT_EQ(groups->grid.dataset()->recordCount(), 2);
    EXPECT_NE(entry(*groups, kFilter), nullptr) << "one page's view is not another's";
    // A page that goes with its view shown leaves nothing behind.
    items.reset();
    EXPECT_NE(entry(*groups, kFilter), nullptr);
}

// What an entry needs: 'r' rows, 'c' the copy right, 'p' the print right, 'R' the report right.
QList<std::pair<QString, QString>> needs() {
    QList<std::pair<QString, QString>> needs;
    for (const QString& entry :
         QString("راهنما=|جستجو ...=r|ثبت وضعيت ستونها=|بازگشت به وضعيت اوليه ستونها=|"
                 "ارسال به=rc|Clipboard (محيط ديگر ...)=rc|Excel=rc|Word=rc|HTML=rc|"
                 "کپي رديف به حافظه=rc|بازيابي رديف از حافظه=c|کپي خانه به حافظه=rc|"
                 "بازيابي خانه از حافظه=c|حذف رديف=r|پالايش گزارش ...=r|مشخصات گزارش ...=R|"
                 "چاپ ...=rp|چاپ پيشرفته ...=rp|مرتب سازي پيشرفته ...=r|تنظيم عرض ستونها=r|"
                 "Dbf->Dos=rc|Dbf->Win=rc")
             .split(u'|'))
        needs.append({entry.section(u'=', 0, 0), entry.section(u'=', 1)});
    return needs;
}

TEST_F(MalyObject, OffersWhatRightsAndRowsAllow) {
    const auto expectOffered = [&](const QString& has) {
        for (const auto& [caption, wants] : needs()) {
            const bool offered =
                std::all_of(wants.begin(), wants.end(), [&](QChar need) { return has.contains(need); });
            const QAction* action = entry(*items, caption);
            ASSERT_NE(action, nullptr) << qUtf8Printable(caption);
            EXPECT_EQ(action->isEnabled(), offered)
                << qUtf8Printable(caption) << " with " << qUtf8Printable(has);
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

TEST_F(MalyObject, HasNothingTakenAwayOnTheHostsGrid) {
    run("insert into person(code, name, family) values ('1', 'علي', 'رضايي'), ('2', 'مريم', 'كرمي')");
    host::DemonstrationGrid demonstration(*objects);
    auto* grid = demonstration.component<widgets::DataGrid>("DBGrid1");
    ASSERT_NE(grid, nullptr);
    acts = {[&](Form& form) {
        grid->beforePopup();
        for (const auto& [caption, wants] : needs())
            EXPECT_NE(find(*grid->popupMenu(), caption), nullptr) << qUtf8Printable(caption);
        find(*grid->popupMenu(), kCopyRow)->trigger();
        EXPECT_TRUE(clipboard().startsWith("code=1\tname=علي\tfamily=رضايي\t"));
        grid->dataset()->moveTo(1);
        grid->dataset()->setValue("family", "اكبري");
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isModalShown());
    }};
    answered([&] { demonstration.showModal(); });
    EXPECT_EQ(number("select count(*) from person where family='اكبري'"), 1) << "what was typed is stored";
}

}  // namespace
