#pragma once

#include <QStringList>
#include <QtTest>

/// Compares two lists of lines; when they differ, prints both in full.
#define COMPARE_LINES(actual, ...)                                                                                     \
    do {                                                                                                               \
        const QStringList actualLines = (actual);                                                                      \
        const QStringList expectedLines(__VA_ARGS__);                                                                  \
        QVERIFY2(                                                                                                      \
            actualLines == expectedLines,                                                                              \
            qPrintable("Actual:\n  " + actualLines.join("\n  ") + "\nExpected:\n  " + expectedLines.join("\n  ")));    \
    } while (false)
