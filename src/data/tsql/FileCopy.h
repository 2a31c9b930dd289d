// Copies of company files, made while others read and write them.
#pragma once

#include <QString>
#include <functional>

namespace tsql {

// Makes `to` what `from` is, whole or not at all: a file that is there is written over in one transaction,
// one that is not is made for its owner alone. Asks `goesOn` every few megabytes where one is given; false
// gives it up, and then the copy is not made. Throws data::ServerError, data::Refusal where it cannot be
// written. Any thread may call it.
bool copyCompany(const QString& from, const QString& to, const std::function<bool()>& goesOn = {});

// Whether the file is a database without a fault.
bool isSound(const QString& file);

}  // namespace tsql
