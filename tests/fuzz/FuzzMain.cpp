// The fuzzer's way in: KORVANTA_FUZZ names the target.
#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "Appearance.h"
#include "FuzzTargets.h"

namespace {

const fuzz::Target& target() {
    static const fuzz::Target* const named = [] {
        for (const fuzz::Target& each : fuzz::targets())
            if (qgetenv("KORVANTA_FUZZ") == each.name)
                return &each;
        for (const fuzz::Target& each : fuzz::targets())
            std::fprintf(stderr, "%s\n", each.name);
        std::exit(2);
    }();
    return *named;
}

}  // namespace

// The names are the fuzzer's.
extern "C" int LLVMFuzzerInitialize(int* count, char*** values);
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size);

extern "C" int LLVMFuzzerInitialize(int* count, char*** values) {
    target();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    auto* application = new QApplication(*count, *values);  // lives as long as the process
    host::applyAppearance(*application);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    target().run(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
