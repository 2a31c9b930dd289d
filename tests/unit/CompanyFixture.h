// An empty company, and the host's objects around it as the module finds them.
#pragma once

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTemporaryDir>

#include "Dataset.h"
#include "Embedded.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "ModuleVariables.h"

using State = data::Dataset::State;

class CompanyFixture : public testing::Test {
protected:
    CompanyFixture() {
        const QString file = folder.filePath("a.company");
        host::createEmptyCompany(file);
        objects = std::make_unique<host::HostObjects>(tsql::open(file, tsql::OpenMode::Existing),
                                                      folder.filePath("suite"));
        _Global = &objects->global;
        _MyDatabase = &objects->database;
        _DlgMsg = objects->dlgMsg.get();
        widgets::EventBoundary::setMessageSink([this](const QString& text) { messages.append(text); });
    }
    ~CompanyFixture() override { widgets::EventBoundary::setMessageSink({}); }

    data::HostContext& context() { return objects->global; }
    data::HostDatabase& db() { return objects->database; }
    data::ResultSet run(const QString& sql) { return objects->connection().execute(sql); }
    qint64 number(const QString& sql) { return run(sql).rows.at(0).at(0).toLongLong(); }
    // A file of the installation.
    QString path(const QString& file) { return folder.filePath("suite/" + file); }
    // The words that a step is refused with.
    static QString refusal(const std::function<void()>& step) {
        try {
            step();
        } catch (const data::Refusal& refusal) {
            return refusal.text();
        }
        return {};
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    static void setClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }

    QTemporaryDir folder;
    std::unique_ptr<host::HostObjects> objects;
    QStringList messages;
};
