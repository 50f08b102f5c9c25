#pragma once

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <functional>
#include <string>

#include <unistd.h>

/// Executes orders from standard input, one on each line, and answers each with "done". The application ends with the
/// input.
class Orders
{
    Q_DISABLE_COPY(Orders)

public:
    explicit Orders(const std::function<void(const std::string &)> &obey)
    {
        QObject::connect(&input, &QSocketNotifier::activated, &input, [obey] {
            char line[80];
            const ssize_t size = read(STDIN_FILENO, line, sizeof line);
            if (size <= 0) {
                QCoreApplication::quit();
                return;
            }
            obey(std::string(line, static_cast<std::size_t>(size - 1)));
            std::puts("done");
            std::fflush(stdout);
        });
    }

private:
    QSocketNotifier input{STDIN_FILENO, QSocketNotifier::Read};
};
