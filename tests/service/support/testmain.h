#pragma once

#include "ownnetwork.h"
#include "testhome.h"

#include <QApplication>
#include <QtTest>

/// `main` of a test of the service: a home and a network of its own, no printer but files, then the test.
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
