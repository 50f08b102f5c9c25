"""The expected behaviour of the tray, computed independently from the observed hourly ticks."""

import bisect
import collections
import datetime
import zoneinfo

Event = collections.namedtuple("Event", "second what text")
Expected = collections.namedtuple("Expected", "messages counts")


def read_events(path):
    """The observer's lines in order."""
    with open(path, encoding="utf-8") as file:
        pieces = [line.rstrip("\n").split(" ", 1) for line in file]
    parted = [(int(second), *what.partition("|")) for second, what in pieces]
    return [Event(second, what, text) for second, what, _, text in parted]


class Practice:
    """Patients who start waiting on the days in `reminders` (YYYY-MM-DD), in a time zone."""

    def __init__(self, reminders, zone):
        self._reminders = sorted(reminders)
        self._zone = zoneinfo.ZoneInfo(zone)

    def waiting(self, second):
        """The number of waiting patients at that second: the store compares with the date in UTC."""
        day = datetime.datetime.fromtimestamp(second, datetime.timezone.utc).date().isoformat()
        return bisect.bisect_right(self._reminders, day)

    def day(self, second):
        """The local day of the month at that second."""
        return datetime.datetime.fromtimestamp(second, self._zone).day


def expect(practice, start, ticks, counted):
    """The expected refreshes and messages after a start and its ticks. `counted` are the counts that the program logged, each
    with its second. On the fast clock, midnight may come between a tick, or the start, and its refresh: then either day is
    right."""
    logged = collections.deque(counted)
    number, counts, messages = 0, [], []
    announced = 0

    def logged_since(tick, following):
        return logged.popleft() if logged and tick <= logged[0][0] < following else None

    def count(second, seen):
        right = practice.waiting(second), practice.waiting(seen[0] if seen else second)
        counts.append(seen[1] if seen and seen[1] in right else right[0])
        return counts[-1]

    def compile_message(second):
        nonlocal announced
        if number >= 1 and number != announced:
            announced = number
            messages.append((second, number))
        else:
            announced = 0

    first = logged_since(start, float("inf"))
    refreshed = {practice.day(start), practice.day(first[0] if first else start)}
    number = count(start, first)
    compile_message(start)
    for tick, following in zip(ticks, ticks[1:] + [float("inf")]):
        compile_message(tick)
        seen = logged_since(tick, following)
        days = {practice.day(tick), practice.day(seen[0] if seen else tick)}
        if refreshed.isdisjoint(days) or seen and len(refreshed | days) > 1:
            refreshed = days
            number = count(tick, seen)
        elif seen:
            counts.append(f"none: on day {days} it had refreshed")
        else:
            refreshed = days
    return Expected(messages, counts)


def text_of(number):
    """The message that announces a number of patients, with its title."""
    return f"Tandry|Vous avez {number} {'patient' if number < 2 else 'patients'} en attente"
