#include "Player.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QRegularExpression>
#include <cstdio>

#include "Commands.h"
#include "Errors.h"

namespace play {

Player::Player(const RunOptions& options, Script script, Progress& progress)
    : options(options),
      observer([this](const QString& trouble) { fail(trouble); }),
      stage(options, script.file),
      finder(stage),
      actor(finder),
      m_script(std::move(script)),
      m_progress(progress) {
    observer.setSqlLog(options.sqlLog);
    stage.setMonitor([this](const QString& sql) { observer.statement(sql); });
    // A timer, not a posted call: what a handler posted is done before the next line.
    m_tick.setSingleShot(true);
    connect(&m_tick, &QTimer::timeout, this, [this] { tick(); });
}

void Player::play() {
    m_tick.start(0);
    QApplication::exec();
    for (const Observer::Message& message : observer.messages) {
        ++m_progress.messages;
        m_progress.foreign +=
            std::any_of(message.text.begin(), message.text.end(),
                        [](QChar letter) { return letter.script() == QChar::Script_Arabic; })
                ? 0
                : 1;
    }
}

int Player::depth() const {
    return observer.depth() + (actor.menuWaits() ? 1 : 0);
}

bool Player::ready() const {
    return m_running.isEmpty() || depth() > m_running.last().depth ||
           observer.newest() > m_running.last().newest;
}

void Player::tick() {
    if (!ready()) {
        m_tick.start(1);
        return;
    }
    if (m_next >= m_script.lines.size()) {
        QApplication::exit();  // quit would ask every window first
        return;
    }
    const Line& line = m_script.lines[m_next++];
    m_progress.line = line.number;
    if (options.onLine)
        options.onLine(line.number);
    m_running.append(
        {observer.depth(), observer.newest()});  // a menu that waits closes before its entry opens anything
    m_tick.start(0);  // goes on inside the line's handler where that enters a modal loop
    perform(line);
    m_running.removeLast();
    if (m_pause > 0)
        m_tick.start(std::exchange(m_pause, 0));
}

void Player::perform(const Line& line) {
    try {
        if (!line.trouble.isEmpty())
            throw Failure{line.trouble};
        runCommand(*this, line);
    } catch (const Failure& failure) {
        m_progress.line = line.number;  // lines that ran inside this one stood further on
        fail(failure.text);
    } catch (const data::TextException& error) {
        fail(error.text());
    }
}

void Player::fail(const QString& trouble) {
    ++m_progress.failures;
    m_progress.lastFailure = m_progress.line;
    std::printf("%s:%d: %s\n", qUtf8Printable(m_script.file), m_progress.line, qUtf8Printable(trouble));
    std::fflush(stdout);
}

QString Player::substituted(const QString& text) const {
    static const QRegularExpression place(QStringLiteral("\\{([A-Za-z_.][A-Za-z0-9_.]*)\\}"));
    QString result = text;
    for (auto match = place.match(result); match.hasMatch(); match = place.match(result)) {
        const data::Dataset* dataset = finder.grid(match.captured(1))->dataset();
        if (dataset == nullptr || dataset->tableName().isEmpty())
            throw Failure{match.captured(1) + QStringLiteral(" shows no table")};
        result.replace(match.capturedStart(), match.capturedLength(), dataset->tableName());
    }
    return result;
}

void Player::picture(const QString& name) const {
    if (options.shotsFolder.isEmpty())
        return;
    if (stage.canvas() == nullptr)
        throw Failure{QStringLiteral("there is no window yet")};
    // A window that reaches beyond the host's is seen wholly.
    QList<QWidget*> windows = {stage.canvas()};
    QRect room = stage.canvas()->geometry();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (!widget->isVisible() || widget == stage.canvas())
            continue;
        windows.append(widget);
        room |= widget->geometry();
    }
    QPixmap picture(room.size());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    for (QWidget* window : windows)
        painter.drawPixmap(window->geometry().topLeft() - room.topLeft(), window->grab());
    painter.end();
    const QString file = QDir(options.shotsFolder).absoluteFilePath(name);
    if (!QDir().mkpath(options.shotsFolder) || !picture.save(file))
        throw Failure{QStringLiteral("the picture cannot be written to ") + file};
}

}  // namespace play
