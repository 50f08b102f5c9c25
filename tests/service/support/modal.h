#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>

#include <functional>

/// Runs \a open, which is expected to show a modal dialog and wait for it, and lets \a drive use that dialog once it
/// is on the screen; what is still open then is closed. Another dialog that comes up before or meanwhile is closed,
/// too, and the text of a message box is added to \a others. False when the dialog never came.
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
            // Not from here: a timer does not fire while its own slot runs, and another dialog has to be noticed.
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
