#include "Commands.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMenu>

#include "Arguments.h"
#include "CodePage.h"
#include "Expectations.h"
#include "Player.h"
#include "Statements.h"

namespace play {
namespace {

using Command = void (*)(Player&, Arguments&);

// --- setting the stage -------------------------------------------------------------------------------

void company(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    arguments.end();
    player.stage.chooseCompany(name);
}

void user(Player& player, Arguments& arguments) {
    const int number = arguments.number();
    arguments.end();
    player.stage.setUser(number);
}

void context(Player& player, Arguments& arguments) {
    const QString key = arguments.text();
    const QString value = arguments.text();
    arguments.end();
    player.stage.setContext(key, value);
}

// What a link in the installation leads to is the program's own: it gives way to a file of that name, and a
// linked folder is not written into.
void partFromLinks(const QString& path, const QString& installation) {
    if (QFileInfo(path).isSymLink() && !QFile::remove(path))
        throw Failure{QStringLiteral("is a link that cannot be removed: ") + path};
    for (QString folder = QFileInfo(path).path(); folder.size() > installation.size();
         folder = QFileInfo(folder).path())
        if (QFileInfo(folder).isSymLink())
            throw Failure{QStringLiteral("is a link, and nothing is written through it: ") + folder};
}

// A file below the installation folder, in the code page of the suite's files.
void writeFile(Player& player, Arguments& arguments) {
    const QString path = player.stage.installed(arguments.text());
    const QString text = arguments.text();
    arguments.end();
    partFromLinks(path, player.stage.installed(QString()));
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly))
        throw Failure{QStringLiteral("cannot be written: ") + path};
    for (const QChar character : data::foldToCodePage(text))
        file.putChar(static_cast<char>(data::codePageByte(character)));
}

// --- acting ------------------------------------------------------------------------------------------

void show(Player& player, Arguments& arguments) {
    arguments.end();
    player.stage.show();
}

void close(Player& player, Arguments& arguments) {
    const bool byHost = arguments.take("now");  // whatever stands open over it
    arguments.end();
    if (player.stage.window() != nullptr && (byHost || Finder::usable(player.stage.window())))
        player.stage.closeWindow();
}

void release(Player& player, Arguments& arguments) {
    arguments.end();
    player.stage.release();
}

void tab(Player& player, Arguments& arguments) {
    const QString sheet = arguments.text();
    arguments.end();
    player.actor.activateTab(sheet);
}

void combo(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    const int item = arguments.number();
    arguments.end();
    auto* box = qobject_cast<QComboBox*>(player.finder.component(name));
    if (box == nullptr)
        throw Failure{name + QStringLiteral(" is no combo")};
    player.actor.choose(box, item);
}

void cell(Player& player, Arguments& arguments) {
    const QString grid = arguments.text();
    const int row = arguments.number(), column = arguments.number();
    arguments.end();
    player.actor.clickCell(player.finder.table(grid), row - 1, column, false);
}

void focus(Player& player, Arguments& arguments) {
    const QString grid = arguments.text();
    arguments.end();
    player.actor.focus(grid == QLatin1String(".") ? player.finder.table(grid)
                                                  : player.finder.component(grid));
}

void doubleClick(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    if (arguments.atEnd()) {
        player.actor.doubleClick(player.finder.component(name));
        return;
    }
    const int row = arguments.number(), column = arguments.number();
    arguments.end();
    player.actor.clickCell(player.finder.table(name), row - 1, column, true);
}

void title(Player& player, Arguments& arguments) {
    const QString grid = arguments.text();
    const int column = arguments.number();
    arguments.end();
    player.actor.clickTitle(player.finder.table(grid), column);
}

void click(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    arguments.end();
    player.actor.click(player.finder.component(name));
}

void type(Player& player, Arguments& arguments) {
    const QString text = arguments.text();
    arguments.end();
    player.actor.type(text);
}

void key(Player& player, Arguments& arguments) {
    for (const QString& name : arguments.rest())
        player.actor.key(name);
}

void set(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    const QString text = arguments.text();
    arguments.end();
    player.actor.replaceText(player.finder.component(name), text);
}

void menu(Player& player, Arguments& arguments) {
    const QStringList captions = arguments.rest();
    bool found = true;
    player.actor.withMenu(player.finder.table(QStringLiteral(".")), true, [&](QMenu* opened) {
        found = opened == nullptr || Actor::chooseEntry(opened, captions);
    });
    if (!found)
        throw Failure{QStringLiteral("the menu has no entry ") +
                      written(captions.join(QStringLiteral(" / ")))};
}

void move(Player& player, Arguments& arguments) {
    const QString grid = arguments.text();
    const int from = arguments.number(), to = arguments.number();
    arguments.end();
    player.actor.moveColumn(player.finder.table(grid), from, to);
}

void resize(Player& player, Arguments& arguments) {
    const QString grid = arguments.text();
    const int column = arguments.number(), width = arguments.number();
    arguments.end();
    player.actor.resizeColumn(player.finder.table(grid), column, width);
}

void clipboard(Player&, Arguments& arguments) {
    const QString text = arguments.text();
    arguments.end();
    QApplication::clipboard()->setText(text);
}

// --- answers that wait -------------------------------------------------------------------------------

void answer(Player& player, Arguments& arguments) {
    static const QStringList known = {"yes", "no", "ok", "cancel", "hold"};
    for (const QString& word : arguments.rest()) {
        if (!known.contains(word))
            throw Failure{QStringLiteral("not understood: the answer ") + word};
        if (word == QLatin1String("hold"))
            player.observer.holdNextMessage();
        else
            player.observer.answers.append(word);
    }
}

void pick(Player& player, Arguments& arguments) {
    const bool cancels = arguments.take("cancel");
    const std::optional<QString> code = cancels ? std::nullopt : std::optional(arguments.text());
    arguments.end();
    player.observer.picks.append(code);
}

void file(Player& player, Arguments& arguments) {
    Observer::FileAnswer answer;
    if (!arguments.take("cancel")) {
        answer.folder = player.stage.installed(arguments.text());
        answer.name = arguments.text();
        if (!QDir().mkpath(answer.folder))
            throw Failure{QStringLiteral("the folder cannot be made: ") + answer.folder};
    }
    arguments.end();
    player.observer.files.append(answer);
}

void search(Player& player, Arguments& arguments) {
    player.observer.searches.append(arguments.text());
    arguments.end();
}

void filter(Player& player, Arguments& arguments) {
    player.observer.filters.append(arguments.text());
    arguments.end();
}

// --- the rest ----------------------------------------------------------------------------------------

// At the statement that the arguments name: by its number from now on, or by a part of it.
void troubleAt(Player& player, bool counted, const QString& which, const Observer::Trouble& trouble) {
    if (!counted)
        player.observer.failOn(which, trouble);
    else if (which.toInt() > 0)
        player.observer.failAt(which.toInt(), trouble);
    else
        throw Failure{QStringLiteral("not understood: statements count from 1")};
}

void fault(Player& player, Arguments& arguments) {
    if (arguments.take("off")) {
        arguments.end();
        player.observer.failNone();
        return;
    }
    const bool counted = arguments.nextIsNumber();
    const QString which = arguments.text();
    const QString message = arguments.text();
    // As a real server gives one; without it only the words say what it is.
    const int number = arguments.atEnd() ? 0 : arguments.number();
    arguments.end();
    troubleAt(player, counted, which, [=] { throw data::ServerError(message, number); });
}

// The line to the server: at a statement, or once a commit has been carried out.
void cut(Player& player, Arguments& arguments) {
    if (arguments.take("commit")) {
        arguments.end();
        player.stage.cutAtCommit();
        return;
    }
    const bool counted = arguments.nextIsNumber();
    const QString which = arguments.text();
    arguments.end();
    troubleAt(player, counted, which, [&player] { player.stage.cutLine(); });
}

void wait(Player& player, Arguments& arguments) {
    const int milliseconds = arguments.number();
    arguments.end();
    player.pause(milliseconds);
}

void shot(Player& player, Arguments& arguments) {
    const QString name = arguments.text();
    arguments.end();
    player.picture(name);
}

void forget(Player& player, Arguments& arguments) {
    arguments.end();
    player.observer.forget();
}

void sql(Player& player, Arguments& arguments) {
    runStatement(player, arguments.statement());
}

const QHash<QString, Command>& commands() {
    static const QHash<QString, Command> table = {
        {"company", company}, {"user", user},     {"context", context},
        {"write", writeFile}, {"show", show},     {"close", close},
        {"release", release}, {"tab", tab},       {"combo", combo},
        {"cell", cell},       {"focus", focus},   {"dblclick", doubleClick},
        {"title", title},     {"click", click},   {"type", type},
        {"key", key},         {"set", set},       {"menu", menu},
        {"move", move},       {"resize", resize}, {"clipboard", clipboard},
        {"answer", answer},   {"pick", pick},     {"file", file},
        {"search", search},   {"filter", filter}, {"fault", fault},
        {"cut", cut},         {"wait", wait},     {"shot", shot},
        {"forget", forget},   {"sql", sql},       {"expect", expect},
    };
    return table;
}

}  // namespace

void runCommand(Player& player, const Line& line) {
    const Word& name = line.words.first();
    const Command command = name.quoted ? nullptr : commands().value(name.text);
    if (command == nullptr)
        throw Failure{QStringLiteral("not understood: ") + name.text};
    Arguments arguments(line, 1);
    command(player, arguments);
}

}  // namespace play
