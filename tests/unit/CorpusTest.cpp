// The inputs that the fuzzer has kept: what read them before reads them as well today. A line of a corpus is
// an input in base64.
#include <gtest/gtest.h>

#include <QFile>

#include "FuzzTargets.h"

TEST(FuzzCorpora, AreRead) {
    for (const fuzz::Target& target : fuzz::targets()) {
        QFile corpus(
            QStringLiteral(KORVANTA_SOURCE_DIR "/tests/fuzz/corpora/%1").arg(QLatin1String(target.name)));
        ASSERT_TRUE(corpus.open(QIODevice::ReadOnly)) << target.name;
        for (const QByteArray& line : corpus.readAll().split('\n'))
            EXPECT_NO_THROW(target.run(QByteArray::fromBase64(line)))
                << target.name << ": " << line.constData();
    }
}
