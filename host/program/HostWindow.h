// The host's one window: a company, a user, a month, and the module's window below them.
#pragma once

#include <QMainWindow>
#include <QThread>
#include <atomic>
#include <memory>
#include <optional>

#include "CompanyUse.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "Odbc.h"

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;

class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    HostWindow();
    ~HostWindow() override;

    // Each tells the operator what went wrong, and leaves what was open before as it was.
    void openFile(const QString& file);
    // Makes the company there first where the database holds none and `demo` is given.
    void openServer(const QString& connectionString, const odbc::Waits& waits,
                    const std::optional<host::DemoSize>& demo);
    void createFile(const QString& file, const std::optional<host::DemoSize>& demo);
    void chooseUser(int user);
    void chooseMonth(int month);
    void showModule();
    void showDemonstration();
    void showBackups();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void speakHere();
    QWidget* makeHeader();
    QWidget* makeWelcome();
    QPushButton* makeAction(const QString& caption, void (HostWindow::*action)());
    void askOpen();
    void askEmpty();
    void askDemo();
    void take(std::unique_ptr<data::Connection> connection, const QString& title, const QString& file);
    // False when the operator keeps the window, or its page cannot be left.
    bool leaveModule(const QString& question);
    void userChosen();
    void monthChosen();
    void refresh();
    void choosePage();
    void startBackup();
    void stopBackup();
    bool moduleShown() const;
    QString companyCode() const;

    TDlgMsg m_messages;
    std::unique_ptr<host::HostObjects> m_objects;
    std::unique_ptr<host::Module> m_module;
    int m_month = 0;
    std::unique_ptr<host::CompanyUse> m_use;  // of its file
    QString m_file;                           // of the company; empty for one on a server
    std::unique_ptr<QThread> m_backup;
    std::atomic<bool> m_backsUp = false;

    QLabel* m_title;
    QComboBox* m_users;
    QComboBox* m_months;
    QPushButton* m_showModule;
    QPushButton* m_showDemonstration;
    QPushButton* m_showBackups;
    QStackedWidget* m_pages;
    QWidget* m_welcome = nullptr;
    QWidget* m_canvas;
};
