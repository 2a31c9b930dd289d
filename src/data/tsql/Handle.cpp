#include "Handle.h"

#include <QFile>
#include <QFileInfo>
#include <QStringEncoder>
#include <QtEndian>

#include "Collation.h"
#include "Functions.h"
#include "ServerText.h"

namespace tsql {
namespace {

constexpr int kBusyMilliseconds = 3000;

// A file that was cut short opens well and fails later, in the middle of work; its header tells at once.
bool isCutShort(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray header = file.read(100);
    if (header.size() < 100)
        return true;
    const auto at = [&](int offset) { return qFromBigEndian<quint32>(header.constData() + offset); };
    const quint32 pageSize = qFromBigEndian<quint16>(header.constData() + 16);
    const quint32 pages = at(28), counter = at(24), validFor = at(92);
    return counter == validFor && qint64(pages) * (pageSize == 1 ? 65536 : pageSize) > file.size();
}

}  // namespace

Handle::Handle(const QString& file, bool create) {
    const bool onDisk = file != QLatin1String(":memory:");
    const QFileInfo info(file);
    if (onDisk && !create && !info.isFile())
        refuse(u"Cannot open database file '%1': it does not exist.", file);
    // What a program that was ended half-way has not brought over from its log is no loss: it is read from
    // there.
    const bool hasLog = QFileInfo(file + "-wal").size() > 0;
    if (onDisk && info.isFile() && (info.size() > 0 || !create) && !hasLog && isCutShort(file))
        refuse(u"Database file '%1' is damaged.", file);
    // One thread uses a handle, so it needs no locks of its own.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(file.toUtf8().constData(), &m_handle, flags, nullptr) != SQLITE_OK) {
        sqlite3_close(m_handle);
        refuse(u"Cannot open database file '%1'.", file);
    }
    try {
        prepareFile();
    } catch (...) {
        sqlite3_close(m_handle);
        throw;
    }
}

Handle::~Handle() {
    sqlite3_close_v2(m_handle);
}

void Handle::prepareFile() {
    sqlite3_busy_timeout(m_handle, kBusyMilliseconds);
    registerCollation(m_handle);
    registerFunctions(m_handle);
    // A quoted name that is none must not turn into a text.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // The first read finds a file that is damaged, no database, or locked.
    number("SELECT count(*) FROM main.sqlite_master");
    number("PRAGMA journal_mode = WAL");
    // A confirmed month survives a power failure.
    run("PRAGMA synchronous = FULL");
    run("PRAGMA temp_store = MEMORY");
    run("PRAGMA cache_size = -65536");
    run("PRAGMA legacy_alter_table = ON");
    // An index that SQLite makes for one join brings a filter that hashes a text by its length: it loses
    // rows whose texts are equal but for trailing blanks.
    run("PRAGMA automatic_index = OFF");
    renewIndexes();
}

// An index is in the order of texts that it was made with: when that changes, all are made anew, once.
void Handle::renewIndexes() {
    constexpr int kOrder = 1;  // counts the orders that there have been
    if (number("PRAGMA user_version") >= kOrder)
        return;
    run("BEGIN IMMEDIATE");
    if (sqlite3_exec(m_handle, "REINDEX server", nullptr, nullptr, nullptr) != SQLITE_OK) {
        const bool equal = (sqlite3_errcode(m_handle) & 0xff) == SQLITE_CONSTRAINT;
        const QString columns = QString::fromUtf8(sqlite3_errmsg(m_handle)).section(QLatin1String(": "), 1);
        run("ROLLBACK");
        if (equal)
            refuseEqualKeys(columns);
        fail();
    }
    run("PRAGMA user_version = " + std::to_string(kOrder));
    run("COMMIT");
}

// `columns` is a key's, "table.column" and so on. Nothing is taken away from it: somebody has to say which of
// the rows is meant.
void Handle::refuseEqualKeys(const QString& columns) {
    const QString first = columns.section(u',', 0, 0);
    const QString table = first.section(u'.', 0, 0), column = first.section(u'.', 1);
    const PreparedStatement twins =
        prepare(QStringLiteral("SELECT group_concat(t.\"%2\", ', ') FROM \"%1\" t NOT INDEXED WHERE "
                               "(SELECT count(*) FROM \"%1\" o NOT INDEXED WHERE o.\"%2\"=t.\"%2\")>1")
                    .arg(table, column)
                    .toStdString());
    const QString values = sqlite3_step(twins.get()) == SQLITE_ROW ? columnText(twins.get(), 0) : QString();
    refuse(u"Keys of %1 that differ only in letters without weight have become equal: %2", columns, values);
}

void Handle::fail() const {
    const QString text = QString::fromUtf8(sqlite3_errmsg(m_handle));
    switch (sqlite3_errcode(m_handle) & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            refuse(u"Lock request time out period exceeded: another program is using the database file.");
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            refuse(u"The database file is damaged or is no database (%1).", text);
        case SQLITE_READONLY:
            refuse(u"Failed to update database because the database is read-only.");
        case SQLITE_FULL:
            refuse(u"Could not allocate space in the database because the disk is full.");
        default:
            break;
    }
    // SQLite's own limits to what one statement may hold.
    for (const char* limit : {"parser stack overflow", "maximum depth", "too many terms", "too many columns",
                              "at most 64 tables", "too many SQL", "too many arguments"})
        if (text.contains(QLatin1String(limit)))
            refuseDepth();
    throw data::ServerError(text);
}

PreparedStatement Handle::prepare(std::string_view sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_handle, sql.data(), int(sql.size()), &statement, nullptr) != SQLITE_OK)
        fail();
    return PreparedStatement(statement);
}

void Handle::run(std::string_view sql) const {
    const PreparedStatement statement = prepare(sql);
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW)
        code = sqlite3_step(statement.get());
    if (code != SQLITE_DONE)
        fail();
}

qint64 Handle::number(std::string_view sql) const {
    const PreparedStatement statement = prepare(sql);
    const int code = sqlite3_step(statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        fail();
    return code == SQLITE_ROW ? sqlite3_column_int64(statement.get(), 0) : 0;
}

Savepoint::Savepoint(const Handle& handle) : m_handle(handle) {
    m_handle.run("SAVEPOINT step");
}

Savepoint::~Savepoint() {
    if (!m_open)
        return;
    sqlite3_exec(m_handle.get(), "ROLLBACK TO step", nullptr, nullptr, nullptr);
    sqlite3_exec(m_handle.get(), "RELEASE step", nullptr, nullptr, nullptr);
}

void Savepoint::release() {
    m_handle.run("RELEASE step");
    m_open = false;
}

QString columnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

void appendUtf8(std::string& sql, QStringView text) {
    // Most of it is ASCII and shorter than an encoder is worth.
    qsizetype plain = 0;
    while (plain < text.size() && text[plain].unicode() < 0x80)
        sql += char(text[plain++].unicode());
    if (plain == text.size())
        return;
    QStringEncoder encoder(QStringEncoder::Utf8);
    const size_t start = sql.size();
    sql.resize(start + size_t(encoder.requiredSpace(text.size() - plain)));
    sql.resize(size_t(encoder.appendToBuffer(sql.data() + start, text.sliced(plain)) - sql.data()));
}

namespace {

void appendQuoted(std::string& sql, QStringView text, char quote) {
    sql += quote;
    const size_t start = sql.size();
    appendUtf8(sql, text);
    for (size_t at = sql.find(quote, start); at != std::string::npos; at = sql.find(quote, at + 2))
        sql.insert(at, 1, quote);
    sql += quote;
}

}  // namespace

void appendName(std::string& sql, QStringView name) {
    appendQuoted(sql, name, '"');
}
void appendText(std::string& sql, QStringView text) {
    appendQuoted(sql, text, '\'');
}

std::string quotedName(QStringView name) {
    std::string result;
    appendName(result, name);
    return result;
}

}  // namespace tsql
