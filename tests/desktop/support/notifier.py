"""A StatusNotifier tray, as in KDE, Xfce, MATE, LXQt and GNOME's extension: icons register on the session bus, and a click
reaches the program even while a dialog is open. Run as a program, this file is the watcher."""

import atexit
import os
import subprocess
import sys

from . import processes
from .waiting import wait_until

_TESTS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
_NAME = "org.kde.StatusNotifierWatcher"
_INTERFACE = f"""<node><interface name="{_NAME}">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


class Notifier:
    """The watcher on a desktop's bus, and the icons that programs have registered."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._watcher = desktop.start([sys.executable, "-B", "-m", "support.notifier"], cwd=_TESTS)
        atexit.register(self.stop)
        wait_until(lambda: "true" in self._call(_NAME, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get",
                                                _NAME, "IsStatusNotifierHostRegistered"), "the watcher is on the bus")

    def stop(self):
        """Ends the watcher; a second call does nothing."""
        processes.stop(self._watcher)

    def has_icon(self, widget):
        """Whether the program has registered its icon."""
        return f"'{self._item(widget)}'" in self._call(
            _NAME, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get", _NAME,
            "RegisteredStatusNotifierItems")

    def click(self, widget):
        """Clicks the program's icon, by the message that a panel sends."""
        wait_until(lambda: self.has_icon(widget), "the icon is registered")
        self._call(self._item(widget), "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", "0", "0")

    @staticmethod
    def _item(widget):
        return f"org.kde.StatusNotifierItem-{widget.process.pid}-1"

    def _call(self, name, path, method, *arguments):
        command = ["gdbus", "call", "--session", "--dest", name, "--object-path", path, "--method", method, *arguments]
        return subprocess.run(command, env=self._desktop.environment, capture_output=True, text=True,
                              timeout=60).stdout


def watch():
    """Serves the watcher's interface until the process ends."""
    from gi.repository import Gio, GLib  # pylint: disable=import-outside-toplevel

    items = []

    def called(_connection, _sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            items.append(arguments[0])
        invocation.return_value(None)

    def asked(_connection, _sender, _path, _interface, name):
        answers = {"RegisteredStatusNotifierItems": GLib.Variant("as", items), "ProtocolVersion": GLib.Variant("i", 0)}
        return answers.get(name, GLib.Variant("b", True))

    def acquired(connection, _name):
        interface = Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces[0]
        connection.register_object("/StatusNotifierWatcher", interface, called, asked, None)

    Gio.bus_own_name(Gio.BusType.SESSION, _NAME, Gio.BusNameOwnerFlags.NONE, acquired, None, None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    watch()
