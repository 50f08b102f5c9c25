#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>

#include <functional>

/// Runs \a open, which must show a modal dialog and wait for it. Calls \a drive with that dialog once it is visible,
/// then closes the dialog if it is still open. Closes any other dialog that appears, and adds the text of message boxes
/// to \a others. False when the dialog did not appear.
template<typename Dialog>
bool withModal(const std::function<void()> &open, const std::function<void(Dialog &)> &drive,
               QStringList *others = nullptr)
{
    Dialog *driven = nullptr;
    bool finished = false;
    QTimer poll;
    poll.setInterval(5);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        auto *dialog = qobject_cast<Dialog *>(modal);
        if (dialog && !driven) {
            driven = dialog;
            // Deferred: a timer does not fire while its own slot runs, and other dialogs must still be noticed.
            QTimer::singleShot(0, dialog, [&] {
                drive(*driven);
                finished = true;
            });
            return;
        }
        if (modal == driven && !finished)
            return;
        if (modal != driven) {
            if (const auto *box = qobject_cast<QMessageBox *>(modal); box && others)
                others->append(box->text());
        }
        modal->close();
    });
    poll.start();
    open();
    return driven != nullptr;
}
