#pragma once

#include <QtGlobal>

QT_FORWARD_DECLARE_CLASS(QSettings)

/// Launch at login: a per-user agent property list in the LaunchAgents folder under the user's home, which starts the
/// program with the argument "startup". The list is the only place where the state is kept.
class Autorun
{
public:
    Autorun();
    ~Autorun();

    /// The state as the list says now, so that an edit by hand counts. A list that is missing or cannot be read,
    /// or one without the key `Disabled`, is "off". What the desktop starts at login is brought in step with it.
    bool isAutorun() const;

    /// Writes the whole job and the state at once. The running executable becomes the one that is started, so a
    /// program that was moved is found again once its user toggles the switch. A failing write is not reported.
    void setAutorun(bool autorun);

private:
    Q_DISABLE_COPY(Autorun)

    void follow(bool on) const;

    QSettings *m_settings;
};
