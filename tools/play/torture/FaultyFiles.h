// SQLite's files, of which one operation fails: the embedded database must bear it like any error of a disk.
#pragma once

namespace play {

enum class FileFault { Read, Write, Sync, Full };

// How many operations of the kind there are from now on, and which of them fails: `failing` counts from 1. A
// full disk stays full from then on. Shared by the processes.
struct FilePlan {
    FileFault fault = FileFault::Read;
    bool counts = false;
    int done = 0;
    int failing = 0;
    bool failed = false;
};

// From then on in this process, for files that are opened later. The plan stays there.
void failFiles(FilePlan* plan);

}  // namespace play
