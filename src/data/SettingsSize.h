// The files of settings that an installation keeps are read whole; one that cannot be such a file is not.
#pragma once

#include <QString>

namespace data {

// Refusal, with the file's name, where it is larger than settings ever are.
void requireSettingsSize(const QString& file);

}  // namespace data
