#include "FuzzTargets.h"

#include <stdexcept>

#include "Errors.h"

namespace fuzz {

const QList<Target>& targets() {
    static const QList<Target> all = {
        {"statement", statement}, {"sequence", sequence}, {"options", options},
        {"details", details},     {"settings", settings}, {"layout", gridLayout},
        {"block", block},         {"record", record},     {"dbf", dbf},
        {"scenario", scenario},
    };
    return all;
}

void answered(const std::function<void()>& step) {
    try {
        step();
    } catch (const data::ServerError&) {
    } catch (const data::Refusal&) {
    } catch (const data::SilentAbort&) {
    }
}

void require(bool holds, const char* what) {
    if (!holds)
        throw std::logic_error(what);
}

}  // namespace fuzz
