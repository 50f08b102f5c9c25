#pragma once

#include <QElapsedTimer>

#include <functional>

/// What a benchmark was asked for on its command line: `--pairs N --patients N`.
struct Figure
{
    int pairs = 11;
    int patients = 10000;

    Figure(int argc, char *argv[]);

    /// Measures program and bare program in turn, the other one first every second time, after one unmeasured pair.
    /// Each takes the number of the pair and returns its milliseconds.
    void compare(const char *label, const std::function<double(int)> &program,
                 const std::function<double(int)> &bare) const;
    /// Measures what has nothing to be compared with.
    void measure(const char *label, const std::function<double(int)> &program) const;
};

/// Prints one measured value (with a bare one beside it) the way the driver reads it.
void printValue(const char *label, double program);
void printPair(const char *label, double program, double bare);

/// Milliseconds that the work takes.
template<typename Work>
double elapsedMs(const Work &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}
