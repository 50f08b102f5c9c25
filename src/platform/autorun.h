#pragma once

#include <QtGlobal>

class QSettings;

/// Launch at login: a per-user agent property list in the LaunchAgents folder of the user's home, which starts the
/// program with the argument "startup". The list alone holds the state.
class Autorun
{
    Q_DISABLE_COPY(Autorun)

public:
    Autorun();
    ~Autorun();

    /// Reads the state from the list, which may have been edited by hand, and updates the desktop's autostart entry to
    /// match. False when the list, or its key `Disabled`, is missing or unreadable.
    bool isAutorun() const;

    /// Writes the whole job with the running executable, so that toggling the switch repairs the job of a moved
    /// program. A failing write is not reported.
    void setAutorun(bool autorun);

private:
    void updateEntry(bool on) const;

    QSettings *m_settings;
};
