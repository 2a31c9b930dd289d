// What a scenario plays on: a private company, the host's objects, the module and its window.
#pragma once

#include <QMap>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>

#include "HostObjects.h"
#include "WireServer.h"

namespace play {

// What holds for the whole run.
struct RunOptions {
    QString runFolder;  // fixtures, made once and copied
    QString moduleFile;
    QString shotsFolder;  // empty: no pictures
    QString sqlLog;       // empty: none
    QString results;      // every statement with what it gave; empty: none
    QString odbc;         // empty: the embedded database
    bool wire = false;    // the embedded database, behind the tests' own server
    int latency = 0;      // of that server, in milliseconds
    int timeoutSeconds = 60;
    bool quiet = false;   // nothing is printed
    QString companyFile;  // played on as it is; empty: a copy of what the scenario names
    // For those who try what befalls a program. In the process that plays: before it does, and at each line.
    std::function<void()> onStart;
    std::function<void(int line)> onLine;
    int killedAtLine = 0;  // 0: not at all
    int killedAfter = 0;   // microseconds
};

class Stage {
public:
    Stage(const RunOptions& options, const QString& scenarioFile);
    ~Stage();

    // Before the company is first used. Throws Failure when the name is none.
    void chooseCompany(const QString& name);
    // Both hold from the next show on.
    void setUser(int user) { m_user = user; }
    void setContext(const QString& key, const QString& value);

    void setMonitor(data::StatementMonitor monitor) { m_monitor = std::move(monitor); }
    // The host's objects over the company; made when first asked for.
    host::HostObjects& objects();

    // Cuts the line to the server; where there is none the statement that is about to be sent finds it cut.
    void cutLine();
    // The same once the next commit has been carried out; on the tests' own server only.
    void cutAtCommit();

    void show();
    void release();
    void closeWindow();
    // The base-information window; null when there is none.
    widgets::Form* window() const;
    QWidget* canvas() const { return m_canvas.get(); }

    // A path below the installation folder.
    QString installed(const QString& path);

private:
    std::unique_ptr<data::Connection> openCompany();
    std::unique_ptr<data::Connection> openServerCompany();
    std::unique_ptr<data::Connection> openBehindServer(const QString& file);
    QString fixture(const QString& name) const;
    QString installFolder();
    void fillInstallation(const QString& name);
    void applyContext();
    host::Module& module();

    const RunOptions m_options;
    const QString m_scenarioFile;
    QTemporaryDir m_folder;
    QString m_company = QStringLiteral("empty");
    QString m_companyScript;
    QString m_serverDatabase;
    int m_user = 1;
    QMap<QString, QString> m_context;
    data::StatementMonitor m_monitor;
    std::unique_ptr<wire::WireServer> m_server;
    std::unique_ptr<host::HostObjects> m_objects;
    std::unique_ptr<QWidget> m_canvas;
    std::unique_ptr<host::Module> m_module;
};

}  // namespace play
