// Measuring one piece of work against another in the same run, so that the machine's noise cancels.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace bench {

// Runs once and says how many milliseconds of it count.
using Work = std::function<double()>;

// Milliseconds that `work` takes.
double timed(const std::function<void()>& work);

// What two pieces of work took beside each other.
struct Comparison {
    double ratio;            // median over the rounds of measured ÷ floor
    double measured, floor;  // medians, in milliseconds
};

// Does both in turn, `rounds` times after a round that does not count.
Comparison compare(int rounds, const Work& measured, const Work& floor);
// Of at least one value.
double median(QList<double> values);

// A line of the table on standard output: name, ratio, the aim that it is not to exceed, verdict. Some
// results are no ratios; their names then say what they are.
void tableHead();
void report(const QString& name, double ratio, std::optional<double> aim = {});
void report(const QString& name, const Comparison& comparison, std::optional<double> aim = {});
// What a result is made of, on standard error.
void detail(const QString& name, const QString& text);

// A file below the build folder that outlives the run, made by `make` when it is not there yet. Its name
// changes with the scripts in schema/.
QString keptFile(const QString& name, const std::function<void(const QString& file)>& make);

// Lets the event loop run until `done` holds; throws std::runtime_error after a minute.
void waitUntil(const std::function<bool()>& done);

// The benchmarks.
void confirmation(int employees);
void exportDbf();
void coldStart();
void openPages();
void wire();
void features();
void translation();
void translationDepth();
void grid();
void exportText();
void exportHtml();
void fitColumns();
void exportMemory();
// What a grid over that many rows has taken of memory once it was scrolled to its end, in bytes; run in
// a process of its own.
void gridMemory(int rows);
// Exports once and prints how the memory that the process had at most compares with what it had before; run
// in a process of its own. False when there is no export of that name.
bool exportOnce(const QString& name);

}  // namespace bench
