#pragma once

#include "testhome.h"

#include <QApplication>
#include <QElapsedTimer>

#include <functional>

/// The application of a benchmark in a temporary home, with the options `--pairs N --patients N` of its command line.
struct Measurement
{
    const TestHome home;
    QApplication application;
    int pairs = 11;
    int patients = 10000;

    Measurement(int &argc, char *argv[]);

    /// Measures the program and the bare program in turn, in alternating order, after one unmeasured pair. Each
    /// function takes the number of the pair and returns milliseconds.
    void compare(const char *label, const std::function<double(int)> &program,
                 const std::function<double(int)> &bare) const;
    /// Measures without a comparison.
    void measure(const char *label, const std::function<double(int)> &program) const;
};

/// Prints a measured value, or a value and the bare one, in the format that the driver reads.
void printValue(const char *label, double program);
void printPair(const char *label, double program, double bare);

/// Runs the work and returns its duration in milliseconds.
template<typename Work>
double elapsedMs(const Work &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}
