// What the host has handed over, as the entry hands it on to windows, pages and services.
#pragma once

#include "HostContext.h"

struct SuiteHost {
    data::HostDatabase* database = nullptr;
    data::HostContext* context = nullptr;
};
