#include "Embedded.h"

#include <QFileInfo>
#include <map>
#include <mutex>

#include "Engine.h"

namespace tsql {
namespace {

bool placesHidden = false;

class EmbeddedConnection : public data::Connection {
public:
    explicit EmbeddedConnection(std::shared_ptr<Engine> engine) : m_engine(std::move(engine)) {}
    ~EmbeddedConnection() override {
        if (!inTransaction())
            return;
        try {
            m_engine->rollback();
        } catch (const data::ServerError&) {
            // The file is closed next, which rolls back as well.
        }
    }

    QString rowIdentity(const QString& table) override {
        return placesHidden ? m_engine->keyColumn(table) : QStringLiteral("%%physloc%%");
    }

protected:
    qint64 run(const QString& sql, const ColumnsHandler& columns, const RowHandler& row) override {
        return m_engine->run(sql, columns, row);
    }

    void beginTransaction() override { m_engine->begin(); }
    void commitTransaction() override {
        try {
            m_engine->commit();
        } catch (const data::ServerError&) {
            m_engine->rollback();
            throw;
        }
    }
    void undoTransaction() override { m_engine->rollback(); }

private:
    std::shared_ptr<Engine> m_engine;
};

// The engines of the process, by the file's true path.
std::shared_ptr<Engine> engineOf(const QString& file, bool create) {
    static std::mutex mutex;
    static std::map<QString, std::weak_ptr<Engine>> engines;
    if (file == QLatin1String(":memory:"))
        return std::make_shared<Engine>(file, true);
    const std::lock_guard lock(mutex);
    const QString known = QFileInfo(file).canonicalFilePath();
    if (!known.isEmpty())
        if (std::shared_ptr<Engine> engine = engines[known].lock())
            return engine;
    auto engine = std::make_shared<Engine>(file, create);
    engines[QFileInfo(file).canonicalFilePath()] = engine;
    return engine;
}

}  // namespace

void hideRowPlaces() {
    placesHidden = true;
}

std::unique_ptr<data::Connection> open(const QString& file, OpenMode mode) {
    return std::make_unique<EmbeddedConnection>(engineOf(file, mode == OpenMode::Create));
}

}  // namespace tsql
