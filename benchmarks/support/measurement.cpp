#include "measurement.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>

Measurement::Measurement(int &argc, char *argv[])
    : application(argc, argv)
{
    for (int i = 1; i + 1 < argc; i += 2) {
        const int value = std::atoi(argv[i + 1]);
        if (!std::strcmp(argv[i], "--pairs") && value > 0) {
            pairs = value;
        } else if (!std::strcmp(argv[i], "--patients") && value > 0) {
            patients = value;
        } else {
            qFatal("Unknown option: %s %s", argv[i], argv[i + 1]);
        }
    }
}

void Measurement::compare(const char *label, const std::function<double(int)> &program,
                          const std::function<double(int)> &bare) const
{
    for (int number = 0; number <= pairs; ++number) {
        double programMs = 0;
        double bareMs = 0;

        if (number % 2 == 0) {
            programMs = program(number);
            bareMs = bare(number);
        } else {
            bareMs = bare(number);
            programMs = program(number);
        }
        if (number > 0) {
            printPair(label, programMs, bareMs);
        }
    }
}

void Measurement::measure(const char *label, const std::function<double(int)> &program) const
{
    for (int number = 0; number <= pairs; ++number) {
        const double programMs = program(number);
        if (number > 0) {
            printValue(label, programMs);
        }
    }
}

void printValue(const char *label, double program)
{
    std::printf("value\t%s\t%.4f\n", label, program);
    std::fflush(stdout);
}

void printPair(const char *label, double program, double bare)
{
    std::printf("pair\t%s\t%.4f\t%.4f\n", label, program, bare);
    std::fflush(stdout);
}
