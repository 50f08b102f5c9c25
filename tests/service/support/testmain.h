#pragma once

#include "ownnetwork.h"
#include "testhome.h"

#include <QApplication>
#include <QtTest>

/// `main` of a test of the service: sets up a home and a network for the test, printing to files only, and runs the
/// test.
#define SERVICE_TEST_MAIN(TestClass)                                                                                   \
    int main(int argc, char *argv[])                                                                                   \
    {                                                                                                                  \
        OwnNetwork::enter();                                                                                           \
        TestHome home;                                                                                                 \
        qputenv("CUPS_SERVER", "localhost:1");                                                                         \
        QApplication application(argc, argv);                                                                          \
        application.setQuitOnLastWindowClosed(false);                                                                  \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
