// Texts that would end a literal, a name or a statement, on every page: typed and pasted into its cells, none
// is ever more than a value.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const QStringList kPages = {"tab ts_Payment", "tab ts_NoPay", "tab ts_Malyat",
                            "tab ts_Bimeh",   "tab ts_Bank",  "tab ts_Vam"};

// Each page: the lines that bring it to the front.
QStringList pages() {
    QStringList all = kPages;
    const std::tuple<const char*, const char*, int> lists[] = {{"ts_Mul", "cmbZarayeb", 10},
                                                               {"ts_Marakez", "cmbMarakez", 2},
                                                               {"ts_Edari", "cmbEdari", 9},
                                                               {"ts_MaliyatInfo", "cmbMaliyatinfo", 18}};
    for (const auto& [tab, combo, count] : lists)
        for (int list = 0; list < count; ++list)
            all.append(QStringLiteral("tab %1\ncombo %2 %3").arg(tab, combo).arg(list));
    return all;
}

QStringList texts() {
    QStringList all = {"'; drop table canary;--",
                       "]; drop table canary;--",
                       "*/ drop table canary /*",
                       "'); drop table canary;--",
                       "\"; drop table canary;--",
                       "' or ''='",
                       "%_[^]",
                       "''",
                       "]]",
                       "\\",
                       "--",
                       "/*",
                       "';"};
    all.append(QString(10'000, u'\''));
    all.append(QString(10'000, u'ا'));
    QString controls;
    for (char16_t code = 1; code < 0xA0; code += code == 0x1F ? 0x60 : 1)
        controls += QChar(code);
    controls.remove(u'\t').remove(u'\n').remove(u'\r');  // these make a block
    all.append(controls);
    for (const QChar control : std::as_const(controls))
        if (control.unicode() % 8 == 0)  // one of each kind
            all.append("x" + QString(control) + "'");
    return all;
}

QString written(QString text) {
    return u'"' + text.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\"")) + u'"';
}

QString scenario() {
    QString lines = QStringLiteral(
        "company demo\n"
        "sql\ncreate table canary(a int)\ninsert into canary values (1)\n\n"
        "show\n");
    for (const QString& page : pages()) {
        lines += page + "\nwait 1\n";
        for (const QString& text : texts())
            for (const int column : {0, 1}) {
                lines += QStringLiteral("cell . 1 %1\nclipboard %2\nkey Ctrl+V\nkey Escape*2\n")
                             .arg(column)
                             .arg(written(text));
                if (column == 1 && text.size() < 100)
                    lines += "type " + written(text) + "\nkey Down\nkey Escape*2\n";
            }
    }
    return lines + QStringLiteral(
                       "forget\nsql\nselect a from canary\n----\n1\n\n"
                       "sql\nselect count(*) from person where family is not null\n----\n240\n\n");
}

TEST(HostileTexts, AreValuesOnEveryPage) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("hostile.play"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(scenario().toUtf8());
    file.close();
    QProcess player;
    player.setProcessChannelMode(QProcess::MergedChannels);
    player.start(QCoreApplication::applicationDirPath() + "/korvanta-play",
                 {"--timeout", "120", file.fileName()});
    ASSERT_TRUE(player.waitForFinished(300'000));
    EXPECT_EQ(player.exitCode(), 0) << player.readAll().left(4000).constData();
}

}  // namespace
