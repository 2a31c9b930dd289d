#include "Stage.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>

#include "Embedded.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "HostCompany.h"
#include "Messages.h"
#include "Odbc.h"
#include "Recording.h"
#include "Script.h"

namespace play {
namespace {

using ContextSetter = void (*)(data::HostContext&, const QString&);

const QMap<QString, ContextSetter>& contextSetters() {
    static const QMap<QString, ContextSetter> setters = {
        {"keyboard", [](data::HostContext& context, const QString& value) { context.Keyboard = value; }},
        {"platform", [](data::HostContext& context, const QString& value) { context.Platform = value; }},
        {"popups", [](data::HostContext& context,
                      const QString& value) { context.Popups_Allowed = value == QLatin1String("yes"); }},
        {"date", [](data::HostContext& context, const QString& value) { context.Current_Date = value; }},
        {"prefix", [](data::HostContext& context, const QString& value) { context.Temp_Prefix = value; }},
        {"install", [](data::HostContext& context, const QString& value) { context.Install_Dir = value; }},
    };
    return setters;
}

}  // namespace

Stage::Stage(const RunOptions& options, const QString& scenarioFile)
    : m_options(options),
      m_scenarioFile(scenarioFile),
      m_folder(options.runFolder + QStringLiteral("/scenario-XXXXXX")) {
    QDir(m_folder.path()).mkpath(QStringLiteral("install/Data"));
}

Stage::~Stage() {
    m_module.reset();
    m_canvas.reset();
    widgets::EventBoundary::setMessageSink({});
    if (m_objects && !m_serverDatabase.isEmpty()) {
        m_objects->connection().setMonitor({});
        try {
            m_objects->connection().execute(QStringLiteral("use master drop database ") + m_serverDatabase);
        } catch (const data::TextException& error) {
            qWarning("%s stays on the server: %s", qUtf8Printable(m_serverDatabase), error.what());
        }
    }
}

void Stage::chooseCompany(const QString& name) {
    if (m_objects)
        throw Failure{QStringLiteral("the company is in use; it is chosen before")};
    if (name == QLatin1String("empty") || name == QLatin1String("demo")) {
        m_company = name;
        m_companyScript.clear();
        return;
    }
    const QDir beside = QFileInfo(m_scenarioFile).absoluteDir();
    m_company = QStringLiteral("empty");
    m_companyScript = beside.absoluteFilePath(name);
    if (!QFileInfo::exists(m_companyScript))
        throw Failure{QStringLiteral("there is no company ") + name};
}

void Stage::setContext(const QString& key, const QString& value) {
    if (!contextSetters().contains(key))
        throw Failure{QStringLiteral("the host context has no ") + key};
    m_context.insert(key, value);
    if (key == QLatin1String("install"))
        fillInstallation(value);
}

void Stage::applyContext() {
    m_objects->global.UserId = m_user;
    for (auto entry = m_context.cbegin(); entry != m_context.cend(); ++entry)
        contextSetters().value(entry.key())(m_objects->global, entry.value());
    m_objects->global.Install_Dir = installFolder();
    host::provideCompanions(installFolder());
}

// A folder beside the scenario gives the files that its installation begins with.
void Stage::fillInstallation(const QString& name) {
    const QDir source(QFileInfo(m_scenarioFile).absoluteDir().absoluteFilePath(name));
    if (name.isEmpty() || QDir::isAbsolutePath(name) || !source.exists())
        return;
    QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString from = files.next();
        const QString to = installed(source.relativeFilePath(from));
        if (!QDir().mkpath(QFileInfo(to).path()) || !(QFile::exists(to) || QFile::copy(from, to)))
            throw Failure{QStringLiteral("cannot be copied: ") + from};
    }
}

QString Stage::installFolder() {
    const QString own = m_folder.path() + QStringLiteral("/install");
    const QString said = m_context.value(QStringLiteral("install"));
    return said.isEmpty() ? own : QDir::cleanPath(QDir(own).absoluteFilePath(said));
}

QString Stage::installed(const QString& path) {
    QString portable = path;
    return QDir::cleanPath(installFolder() + u'/' + portable.replace(u'\\', u'/'));
}

QString Stage::fixture(const QString& name) const {
    QString file = m_options.runFolder + u'/' + name + QStringLiteral(".company");
    if (QFileInfo::exists(file))
        return file;
    if (name == QLatin1String("demo"))
        host::createDemoCompany(file);
    else
        host::createEmptyCompany(file);
    return file;
}

std::unique_ptr<data::Connection> Stage::openCompany() {
    if (!m_options.odbc.isEmpty())
        return openServerCompany();
    const bool given = !m_options.companyFile.isEmpty();
    const QString file =
        given ? m_options.companyFile : m_folder.path() + u'/' + m_company + QStringLiteral(".company");
    if (!given && !QFile::copy(fixture(m_company), file))
        throw Failure{QStringLiteral("the company file cannot be copied to ") + file};
    if (m_options.wire)
        return openBehindServer(file);
    // Results that are compared with a server's must not know what a server does not tell.
    const auto places = m_options.results.isEmpty() ? tsql::RowPlaces::Shown : tsql::RowPlaces::Hidden;
    return tsql::open(file, tsql::OpenMode::Existing, places);
}

std::unique_ptr<data::Connection> Stage::openBehindServer(const QString& file) {
    m_server = std::make_unique<wire::WireServer>(
        [file] { return tsql::open(file, tsql::OpenMode::Existing, tsql::RowPlaces::Hidden); });
    m_server->harshness().latencyMilliseconds = m_options.latency;
    return odbc::open(m_server->connectionString());
}

std::unique_ptr<data::Connection> Stage::openServerCompany() {
    auto connection = odbc::open(m_options.odbc);
    m_serverDatabase = QStringLiteral("korvanta_play_%1").arg(QCoreApplication::applicationPid());
    connection->execute(QStringLiteral("create database ") + m_serverDatabase +
                        QStringLiteral(" collate Arabic_CI_AS"));
    connection->execute(QStringLiteral("use ") + m_serverDatabase);
    const bool demo = m_company == QLatin1String("demo");
    host::createCompanyOn(*connection, demo ? std::optional(host::DemoSize()) : std::nullopt);
    return connection;
}

host::HostObjects& Stage::objects() {
    if (!m_objects) {
        auto connection = openCompany();
        if (!m_companyScript.isEmpty())
            host::runScript(*connection, m_companyScript);
        if (!m_options.results.isEmpty())
            connection = recorded(std::move(connection), m_options.results);
        if (m_monitor)
            connection->setMonitor(m_monitor);
        m_objects = std::make_unique<host::HostObjects>(std::move(connection), installFolder());
        widgets::EventBoundary::setMessageSink(
            [dialog = m_objects->dlgMsg.get()](const QString& text) { host::notify(*dialog, text); });
    }
    return *m_objects;
}

void Stage::cutLine() {
    if (!m_server)
        throw data::ServerError(QStringLiteral("The line to the server is cut."), data::Fault::LineLost);
    m_server->cut();
}

void Stage::cutAtCommit() {
    if (!m_server)
        throw Failure{QStringLiteral("only the tests' own server is cut at a commit")};
    m_server->harshness().cutsAtCommit = true;
}

host::Module& Stage::module() {
    if (!m_module)
        m_module = std::make_unique<host::Module>(m_options.moduleFile);
    return *m_module;
}

void Stage::show() {
    objects();
    applyContext();
    if (!m_canvas) {
        m_canvas = std::make_unique<QWidget>();
        m_canvas->setWindowTitle(QStringLiteral("korvanta-play"));
        m_canvas->setLayoutDirection(Qt::RightToLeft);
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        m_canvas->setGeometry(room.left(), room.top(), room.width(), qMin(room.height(), 640));
        m_canvas->show();
        m_canvas->activateWindow();
    }
    widgets::EventBoundary::run([this] { module().show(m_canvas.get(), *m_objects); });
}

void Stage::release() {
    widgets::EventBoundary::run([this] { module().release(); });
}

void Stage::closeWindow() {
    if (widgets::Form* form = window())
        form->closeForm();
}

widgets::Form* Stage::window() const {
    return m_module ? m_module->window() : nullptr;
}

}  // namespace play
