#include "FaultyFiles.h"

#include <sqlite3.h>

#include <cstdlib>

namespace play {
namespace {

FilePlan* plan = nullptr;
sqlite3_vfs* real = nullptr;

struct File {
    sqlite3_file base;
    sqlite3_file* inner;
};

sqlite3_file* innerOf(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->inner;
}

// Whether this operation is the one.
bool fails(FileFault kind) {
    const FileFault counted = plan->fault == FileFault::Full ? FileFault::Write : plan->fault;
    if (!plan->counts || counted != kind)
        return false;
    const int number = ++plan->done;
    const bool now = plan->failing > 0 &&
                     (number == plan->failing || (plan->fault == FileFault::Full && number > plan->failing));
    plan->failed = plan->failed || now;
    return now;
}

int closeFile(sqlite3_file* file) {
    const int code = innerOf(file)->pMethods->xClose(innerOf(file));
    std::free(innerOf(file));
    return code;
}
int readFile(sqlite3_file* file, void* to, int count, sqlite3_int64 from) {
    return fails(FileFault::Read) ? SQLITE_IOERR_READ
                                  : innerOf(file)->pMethods->xRead(innerOf(file), to, count, from);
}
int writeFile(sqlite3_file* file, const void* from, int count, sqlite3_int64 to) {
    if (fails(FileFault::Write))
        return plan->fault == FileFault::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    return innerOf(file)->pMethods->xWrite(innerOf(file), from, count, to);
}
int syncFile(sqlite3_file* file, int flags) {
    return fails(FileFault::Sync) ? SQLITE_IOERR_FSYNC : innerOf(file)->pMethods->xSync(innerOf(file), flags);
}

// The operations that only go on.
template <auto Method, class... Arguments>
int pass(sqlite3_file* file, Arguments... arguments) {
    return (innerOf(file)->pMethods->*Method)(innerOf(file), arguments...);
}
void passBarrier(sqlite3_file* file) {
    innerOf(file)->pMethods->xShmBarrier(innerOf(file));
}

using Methods = sqlite3_io_methods;
const Methods kMethods = {
    3,
    closeFile,
    readFile,
    writeFile,
    pass<&Methods::xTruncate, sqlite3_int64>,
    syncFile,
    pass<&Methods::xFileSize, sqlite3_int64*>,
    pass<&Methods::xLock, int>,
    pass<&Methods::xUnlock, int>,
    pass<&Methods::xCheckReservedLock, int*>,
    pass<&Methods::xFileControl, int, void*>,
    pass<&Methods::xSectorSize>,
    pass<&Methods::xDeviceCharacteristics>,
    pass<&Methods::xShmMap, int, int, int, void volatile**>,
    pass<&Methods::xShmLock, int, int, int>,
    passBarrier,
    pass<&Methods::xShmUnmap, int>,
    pass<&Methods::xFetch, sqlite3_int64, int, void**>,
    pass<&Methods::xUnfetch, sqlite3_int64, void*>,
};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* own = reinterpret_cast<File*>(file);
    own->base.pMethods = nullptr;
    own->inner = static_cast<sqlite3_file*>(std::calloc(1, static_cast<size_t>(real->szOsFile)));
    const int code = real->xOpen(real, name, own->inner, flags, outFlags);
    if (code == SQLITE_OK)
        own->base.pMethods = &kMethods;
    else
        std::free(own->inner);
    return code;
}

}  // namespace

void failFiles(FilePlan* failing) {
    plan = failing;
    real = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs faulty = *real;
    faulty.szOsFile = sizeof(File);
    faulty.zName = "faulty";
    faulty.pNext = nullptr;
    faulty.xOpen = openFile;
    sqlite3_vfs_register(&faulty, 1);
}

}  // namespace play
