#include "Expectations.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QHeaderView>
#include <QMenu>
#include <QStringConverter>

#include "Arguments.h"
#include "CodePage.h"
#include "Components.h"
#include "Player.h"

namespace play {
namespace {

using Expectation = void (*)(Player&, Arguments&);

[[noreturn]] void differ(const QString& expected, const QString& found) {
    throw Failure{QStringLiteral("expected ") + expected + QStringLiteral(" but found ") + found};
}

void same(const QString& expected, const QString& found) {
    if (comparable(expected) != comparable(found))
        differ(written(expected), written(found));
}

void sameNumber(int expected, int found) {
    if (expected != found)
        differ(QString::number(expected), QString::number(found));
}

void holds(const QString& what, bool expected, bool found) {
    const auto word = [](bool yes) { return yes ? QStringLiteral("yes") : QStringLiteral("no"); };
    if (expected != found)
        differ(what + u' ' + word(expected), word(found));
}

// A text, or `contains` and a part of it.
struct TextPattern {
    QString text;
    bool part = false;

    static TextPattern read(Arguments& arguments) {
        const bool part = arguments.take("contains");
        return {arguments.text(), part};
    }
    void check(const QString& found) const {
        if (!part)
            same(text, found);
        else if (!comparable(found).contains(comparable(text)))
            differ(QStringLiteral("a text that contains ") + written(text), written(found));
    }
};

// --- messages and lists ------------------------------------------------------------------------------

void message(Player& player, Arguments& arguments) {
    const TextPattern pattern = TextPattern::read(arguments);
    const bool withCode = !arguments.atEnd();
    const QString code = withCode ? arguments.text() : QString();
    arguments.end();
    if (player.observer.messages.isEmpty())
        differ(QStringLiteral("the message ") + written(pattern.text), QStringLiteral("none"));
    const Observer::Message found = player.observer.messages.takeFirst();
    pattern.check(found.text);
    if (withCode && code.compare(found.code, Qt::CaseInsensitive) != 0)
        differ(QStringLiteral("a message of code ") + written(code), written(found.code));
}

void offered(Player& player, Arguments& arguments) {
    const QStringList codes = arguments.atEnd() ? QStringList() : arguments.rest();
    same(codes.join(u' '), player.observer.offered.join(u' '));
}

// --- grids -------------------------------------------------------------------------------------------

void cell(Player& player, Arguments& arguments) {
    QTableView* table = player.finder.table(arguments.text());
    const int row = arguments.number(), column = arguments.number();
    const QString text = arguments.text();
    arguments.end();
    if (!table->model()->index(row - 1, column).isValid())
        differ(QStringLiteral("a cell %1 %2").arg(row).arg(column), QStringLiteral("none"));
    const auto* grid = qobject_cast<widgets::DataGrid*>(table);
    if (grid == nullptr)
        return same(text, table->model()->index(row - 1, column).data().toString());
    const bool typed =
        grid->typingInCell() && row == grid->dataset()->recNo() && column == grid->selectedColumn();
    same(text, typed ? grid->textInCell() : grid->cellText(row - 1, column));
}

void rows(Player& player, Arguments& arguments) {
    const QTableView* table = player.finder.table(arguments.text());
    const int count = arguments.number();
    arguments.end();
    const auto* grid = qobject_cast<const widgets::DataGrid*>(table);
    if (grid == nullptr)
        sameNumber(count, table->model()->rowCount());
    else
        sameNumber(count, grid->dataset() != nullptr && grid->dataset()->active()
                              ? grid->dataset()->recordCount()
                              : 0);
}

void at(Player& player, Arguments& arguments) {
    const QTableView* table = player.finder.table(arguments.text());
    const int row = arguments.number(), column = arguments.number();
    arguments.end();
    const auto place = [](int atRow, int atColumn) {
        return QStringLiteral("%1 %2").arg(atRow).arg(atColumn);
    };
    QString found = place(table->currentIndex().row() + 1, qMax(0, table->currentIndex().column()));
    if (const auto* grid = qobject_cast<const widgets::DataGrid*>(table)) {
        const data::Dataset* dataset = grid->dataset();
        found = place(dataset != nullptr && dataset->active() ? dataset->recNo() : 0, grid->selectedColumn());
    }
    if (place(row, column) != found)
        differ(place(row, column), found);
}

void state(Player& player, Arguments& arguments) {
    const widgets::DataGrid* grid = player.finder.grid(arguments.text());
    const QString expected = arguments.text();
    arguments.end();
    static const QStringList names = {"closed", "browse", "edit", "insert"};
    if (!names.contains(expected))
        throw Failure{QStringLiteral("not understood: the state ") + expected};
    const auto found = grid->dataset() ? grid->dataset()->state() : data::Dataset::State::Closed;
    same(expected, names[int(found)]);
}

void typing(Player& player, Arguments& arguments) {
    const widgets::DataGrid* grid = player.finder.grid(arguments.text());
    const bool expected = arguments.yes();
    arguments.end();
    holds(QStringLiteral("typing"), expected, grid->canType());
}

void titles(Player& player, Arguments& arguments) {
    const QTableView* table = player.finder.table(arguments.text());
    const QStringList expected = arguments.rest();
    QStringList found;
    if (const auto* grid = qobject_cast<const widgets::DataGrid*>(table))
        for (int column : grid->visibleOrder())
            found.append(grid->gridColumns()[column].title);
    else
        for (int column = 0; column < table->model()->columnCount(); ++column)
            found.append(table->model()->headerData(column, Qt::Horizontal).toString());
    same(expected.join(QStringLiteral(" | ")), found.join(QStringLiteral(" | ")));
}

// `range` is a number, or two with ".." between them.
void expectWithin(const QString& range, qsizetype found) {
    const QStringList ends = range.split(QStringLiteral(".."));
    bool lowest = false, highest = false;
    const int low = ends.first().toInt(&lowest), high = ends.last().toInt(&highest);
    if (!lowest || !highest || ends.size() > 2)
        throw Failure{QStringLiteral("not understood: the range ") + range};
    if (found < low || found > high)
        differ(range, QString::number(found));
}

void width(Player& player, Arguments& arguments) {
    const QTableView* table = player.finder.table(arguments.text());
    const int column = arguments.number();
    const QString range = arguments.text();
    arguments.end();
    expectWithin(range, table->columnWidth(column));
}

void trips(Player& player, Arguments& arguments) {
    const QString range = arguments.text();
    arguments.end();
    expectWithin(range, player.observer.trips());
}

void menu(Player& player, Arguments& arguments) {
    const bool closed = arguments.take("closed");
    QString expected = closed ? QStringLiteral("closed") : QString();
    QStringList captions;
    while (expected.isEmpty()) {
        for (const char* word : {"enabled", "disabled", "absent"})
            if (!captions.isEmpty() && expected.isEmpty() && arguments.take(word))
                expected = QLatin1String(word);
        if (expected.isEmpty())
            captions.append(arguments.text());
    }
    arguments.end();
    QString found = QStringLiteral("closed");
    player.actor.withMenu(player.finder.table(QStringLiteral(".")), false, [&](const QMenu* opened) {
        if (opened == nullptr)
            return;
        found = QStringLiteral("enabled");
        for (const QString& caption : captions) {
            const QAction* entry = opened != nullptr ? Actor::entry(opened, caption) : nullptr;
            if (entry == nullptr) {
                found = QStringLiteral("absent");
                return;
            }
            if (!entry->isEnabled())
                found = QStringLiteral("disabled");
            opened = entry->menu();
        }
        if (captions.isEmpty())
            found = QStringLiteral("open");
    });
    if (found == QLatin1String("closed") && expected == QLatin1String("absent"))
        return;
    if (expected != found)
        differ(QStringLiteral("the menu ") + captions.join(QStringLiteral(" / ")) + u' ' + expected, found);
}

// --- components and forms ----------------------------------------------------------------------------

void hint(Player& player, Arguments& arguments) {
    const QString text = arguments.text();
    arguments.end();
    auto* status = player.finder.front()->component<widgets::Panel>(QStringLiteral("plStatus"));
    if (status == nullptr)
        throw Failure{QStringLiteral("the form in front has no status line")};
    same(text, status->caption());
}

void caption(Player& player, Arguments& arguments) {
    QWidget* widget = player.finder.component(arguments.text());
    const QString text = arguments.text();
    arguments.end();
    const QString found = Finder::caption(widget);
    // The mark of an access key is no letter of the caption, unless the scenario writes it.
    const bool button = qobject_cast<QAbstractButton*>(widget) != nullptr && !text.contains(u'&');
    same(text, button ? QString(found).remove(u'&') : found);
}

void text(Player& player, Arguments& arguments) {
    QWidget* widget = player.finder.component(arguments.text());
    const QString expected = arguments.text();
    arguments.end();
    same(expected, Finder::caption(widget));
}

void enabled(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    const bool expected = arguments.yes();
    arguments.end();
    holds(QStringLiteral("enabled"), expected, player.finder.component(name)->isEnabled());
}

void visible(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    const bool expected = arguments.yes();
    arguments.end();
    holds(QStringLiteral("visible"), expected, player.finder.component(name)->isVisible());
}

void checked(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    const bool expected = arguments.yes();
    arguments.end();
    const auto* button = qobject_cast<QAbstractButton*>(player.finder.component(name));
    if (button == nullptr)
        throw Failure{name + QStringLiteral(" cannot be checked")};
    holds(QStringLiteral("checked"), expected, button->isChecked());
}

void form(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    arguments.end();
    const widgets::Form* modal = player.finder.modal();
    same(name, modal != nullptr ? modal->className() : QStringLiteral("none"));
}

void window(Player& player, Arguments& arguments) {
    const bool expected = arguments.yes();
    arguments.end();
    holds(QStringLiteral("window"), expected, player.stage.window() != nullptr);
}

// --- what goes out -----------------------------------------------------------------------------------

void clipboard(Player&, Arguments& arguments) {
    const TextPattern pattern = TextPattern::read(arguments);
    arguments.end();
    pattern.check(QApplication::clipboard()->text());
}

QString decoded(const QByteArray& bytes) {
    if (const auto encoding = QStringConverter::encodingForData(bytes))
        return QStringDecoder(*encoding)(bytes);
    QString text;
    for (const char byte : bytes)
        text.append(data::codePageCharacter(static_cast<uchar>(byte)));
    return text;
}

void file(Player& player, Arguments& arguments) {
    const QString path = player.stage.installed(arguments.text());
    const bool looksInside = !arguments.atEnd();
    const QString part = looksInside ? TextPattern::read(arguments).text : QString();
    arguments.end();
    QFile found(path);
    if (!QFileInfo(path).isFile() || !found.open(QIODevice::ReadOnly))
        differ(QStringLiteral("the file ") + path, QStringLiteral("none"));
    if (looksInside)
        TextPattern{part, true}.check(decoded(found.readAll()));
}

void opened(Player& player, Arguments& arguments) {
    const QString path = player.stage.installed(arguments.text());
    arguments.end();
    for (QString& file : player.observer.opened)
        if (QFileInfo(file).absoluteFilePath() == QFileInfo(path).absoluteFilePath()) {
            player.observer.opened.removeOne(QString(file));
            return;
        }
    differ(QStringLiteral("to open ") + path, player.observer.opened.join(u' '));
}

void sent(Player& player, Arguments& arguments) {
    const QString part = arguments.text();
    arguments.end();
    if (!player.observer.wasSent(part))
        differ(QStringLiteral("a statement with ") + written(part), QStringLiteral("none"));
}

void notSent(Player& player, Arguments& arguments) {
    if (!arguments.take("sent"))
        throw Failure{QStringLiteral("not understood: expect not")};
    const QString part = arguments.text();
    arguments.end();
    if (player.observer.wasSent(part))
        differ(QStringLiteral("no statement with ") + written(part), QStringLiteral("one"));
}

void nothing(Player& player, Arguments& arguments) {
    if (arguments.take("message")) {
        arguments.end();
        if (!player.observer.messages.isEmpty())
            differ(QStringLiteral("no message"), written(player.observer.messages.first().text));
        return;
    }
    if (arguments.take("other")) {
        if (!arguments.take("window"))
            throw Failure{QStringLiteral("not understood: expect no other")};
        arguments.end();
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget != player.stage.canvas())
                differ(QStringLiteral("no window but the host's"),
                       QLatin1String(widget->metaObject()->className()) + u' ' + widget->objectName());
        return;
    }
    if (!arguments.take("file"))
        throw Failure{QStringLiteral("not understood: expect no")};
    const QString path = player.stage.installed(arguments.text());
    arguments.end();
    if (QFileInfo::exists(path))
        differ(QStringLiteral("no file ") + path, QStringLiteral("one"));
}

const QHash<QString, Expectation>& expectations() {
    static const QHash<QString, Expectation> table = {
        {"message", message}, {"no", nothing},      {"offered", offered}, {"cell", cell},
        {"rows", rows},       {"at", at},           {"state", state},     {"typing", typing},
        {"titles", titles},   {"width", width},     {"hint", hint},       {"caption", caption},
        {"text", text},       {"enabled", enabled}, {"visible", visible}, {"checked", checked},
        {"form", form},       {"window", window},   {"menu", menu},       {"clipboard", clipboard},
        {"file", file},       {"opened", opened},   {"sent", sent},       {"not", notSent},
        {"trips", trips},
    };
    return table;
}

}  // namespace

void expect(Player& player, Arguments& arguments) {
    const QString what = arguments.text();
    const Expectation expectation = expectations().value(what);
    if (expectation == nullptr)
        throw Failure{QStringLiteral("not understood: expect ") + what};
    expectation(player, arguments);
}

}  // namespace play
