#include "Bench.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "HostCompany.h"

namespace bench {
namespace {

constexpr int kPatience = 60'000;  // milliseconds

// Tells the companies of one set of scripts from those of another.
QString schemaMark() {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const QFileInfoList scripts =
        QDir(host::schemaFolder()).entryInfoList({"*.sql"}, QDir::Files, QDir::Name);
    for (const QFileInfo& script : scripts) {
        QFile file(script.filePath());
        if (file.open(QIODevice::ReadOnly))
            hash.addData(file.readAll());
    }
    return QString::fromLatin1(hash.result().toHex().left(8));
}

}  // namespace

double timed(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    const qsizetype middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Comparison compare(int rounds, const Work& measured, const Work& floor) {
    QList<double> ratios, ours, theirs;
    floor();
    measured();
    for (int round = 0; round < rounds; ++round) {
        theirs.append(floor());
        ours.append(measured());
        ratios.append(ours.last() / theirs.last());
    }
    return {median(ratios), median(ours), median(theirs)};
}

void tableHead() {
    std::printf("%-28s %8s %8s  %s\n", "name", "ratio", "aim", "verdict");
    std::fflush(stdout);
}

void report(const QString& name, double ratio, std::optional<double> aim) {
    const QByteArray most = aim ? "<= " + QByteArray::number(*aim) : QByteArray("-");
    // As it is printed: a ratio within its aim by less than that is no miss.
    const char* verdict = !aim ? "-" : std::round(ratio * 100) <= *aim * 100 + 1e-6 ? "met" : "missed";
    std::printf("%-28s %8.2f %8s  %s\n", qUtf8Printable(name), ratio, most.constData(), verdict);
    std::fflush(stdout);
}

void report(const QString& name, const Comparison& comparison, std::optional<double> aim) {
    report(name, comparison.ratio, aim);
    detail(name, QStringLiteral("%1 ms, floor %2 ms")
                     .arg(comparison.measured, 0, 'f', 2)
                     .arg(comparison.floor, 0, 'f', 2));
}

void detail(const QString& name, const QString& text) {
    std::fprintf(stderr, "  %s: %s\n", qUtf8Printable(name), qUtf8Printable(text));
}

QString keptFile(const QString& name, const std::function<void(const QString&)>& make) {
    const QDir folder(QCoreApplication::applicationDirPath() + "/../bench-data");
    folder.mkpath(QStringLiteral("."));
    QString file = QDir::cleanPath(folder.filePath(schemaMark() + u'-' + name));
    if (QFile::exists(file))
        return file;
    // Made under another name: a run that is stopped half-way leaves no half company behind.
    const QString making = file + ".making";
    QFile::remove(making);
    detail(name, QStringLiteral("being made; the next run finds it there"));
    make(making);
    QFile::rename(making, file);
    return file;
}

void waitUntil(const std::function<bool()>& done) {
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        QCoreApplication::processEvents();
        if (timer.elapsed() > kPatience)
            throw std::runtime_error("what was waited for did not come");
    }
}

}  // namespace bench
