"""A year in the tray: messages, refreshes and uploads come as often as the rules require, and the program does not grow."""

import pathlib
import statistics

from yearly import rules
from yearly.trayyear import BEGIN, DAY_SECONDS, HOUR_SECONDS, TrayYear

DESCRIPTION = "lets a year pass in the tray by a fast clock: messages, days, uploads, memory"
# Known growth, and the limit for each. Replies of the statistics service are required to stay unread and undeleted (measured:
# 13.4 KiB, for a certificate of 2048 bits and an answer of 15 bytes). Qt keeps some memory for each message, also in a program
# that only sends messages (measured: half a KiB).
REPLY_KIB, MESSAGE_KIB = 14, 0.6
_GROWTH = 0.02
_FIRST_MEMORY_DAY = 10


def add_arguments(parser):
    parser.add_argument("--days", type=int, default=365, help="number of days (default 365)")
    # Qt gives a connection 30 s of this clock, less than a millisecond at full speed: a busy machine needs a slower one.
    parser.add_argument("--speed", type=int, default=36000, help="speed of the program's clock, as a multiple of real time (default 36000)")


def run(options, report):
    assert options.days >= _FIRST_MEMORY_DAY, f"at least {_FIRST_MEMORY_DAY} days: the memory is first measured then"
    observer = pathlib.Path(options.build) / "tools" / "soak" / "observer" / "plugins"
    year = TrayYear(options.program, str(observer), options.days, options.speed)
    try:
        year.live(lambda sample: int(sample.day) % 30 or report.progress(f"day {sample.day:.0f}: {sample.own} KiB"))
        for label, value in count(year, least=0.95):
            report.value(label, value)
        problems = []
        messages = sum(event.what == "message" for event in year.events())
        for label, value in measure(year, messages, problems):
            report.value(label, value)
        assert not problems, "; ".join(problems)
    finally:
        year.close()


def count(year, least):
    """Compares all counts with the rules and returns them. At least this part of the hourly ticks must have come: when the
    machine is too slow for the clock, Qt skips some."""
    events = year.events()
    start = int(BEGIN.timestamp())
    ticks = [event.second for event in events if event.what == "tick"]
    hours = (events[-1].second - start) // HOUR_SECONDS
    assert least * hours <= len(ticks) <= hours, f"{len(ticks)} ticks in {hours} hours"

    counted = year.counted()
    expected = rules.expect(year.practice, start, ticks, counted)
    # The run may have ended between a tick and its refresh.
    same([number for _, number in counted][:len(expected.counts)], expected.counts, "the badge after each refresh")
    assert len(counted) - len(expected.counts) in (0, 1), f"{len(counted)} refreshes, {len(expected.counts)} expected"
    messages = [event.text for event in events if event.what == "message"]
    same(messages, [rules.text_of(number) for _, number in expected.messages], "the messages")

    days = [event.second for event in events if event.what == "day"]
    uploads = check_uploads(year, days)
    return [("hourly ticks, of hours", f"{len(ticks)} of {hours}"), ("messages", len(messages)),
            ("refreshes, one at the start and one on each new day", len(expected.counts)),
            ("uploads, one at the start and one a day", uploads)]


def check_uploads(year, days):
    """The number of uploads: one at the start and one after every 24 hours, each complete and accepted. The other daily
    timer checks for updates."""
    for earlier, later in zip(days, days[2:]):
        assert abs(later - earlier - DAY_SECONDS) < DAY_SECONDS / 2, f"{later - earlier} s between two daily ticks"
    requests = year.server.requests
    assert len(requests) in (len(days) // 2 + 1, len(days) // 2 + 2), \
        f"{len(requests)} uploads, {len(days)} daily ticks; {year.server.failures[:3]}"
    assert {request.line for request in requests} == {"POST /api/vesktandry/tracking/ HTTP/1.1"}, "another request"
    totals = [field(request.body, "PatientsCounter") for request in requests]
    # The first upload is sent before the patients are counted for the first time.
    assert totals == [""] + [str(year.patients)] * (len(requests) - 1), f"patients in the uploads: {totals}"
    return len(requests)


def measure(year, messages, problems):
    """The memory results; adds those over their limit to `problems`."""
    def around(day):
        return [sample for sample in year.samples if day - 3 <= sample.day <= day + 3]

    early, late = around(_FIRST_MEMORY_DAY), around(year.days)
    whole, own = ([statistics.median(getattr(sample, name) for sample in group) for group in (early, late)]
                  for name in ("whole", "own"))
    replies = len(year.server.requests) - _FIRST_MEMORY_DAY
    grown = own[1] - own[0]
    later_messages = messages * replies / len(year.server.requests)
    beside = grown - REPLY_KIB * replies - MESSAGE_KIB * later_messages
    # Other processes change the program's share of mapped files: growth is measured on its own pages.
    if beside > _GROWTH * whole[0]:
        problems.append(f"{beside:.0f} KiB more, beside replies and messages, than on day {_FIRST_MEMORY_DAY}")
    # A connection to the service may be open at the moment of a sample.
    descriptors = [statistics.median(sample.descriptors for sample in group) for group in (early, late)]
    if descriptors[1] > descriptors[0]:
        problems.append(f"{descriptors[0]} open files have become {descriptors[1]}")
    yield f"memory on day {_FIRST_MEMORY_DAY}, own pages of it", f"{whole[0]:.0f} KiB, {own[0]:.0f} KiB"
    yield f"memory on day {year.days}, own pages of it", f"{whole[1]:.0f} KiB, {own[1]:.0f} KiB"
    yield "growth of its own pages", f"{grown:.0f} KiB in {replies} replies and {later_messages:.0f} messages"
    yield "growth by neither replies nor messages", f"{max(0, beside):.0f} KiB"
    yield "open files on these days", f"{descriptors[0]:.0f}, {descriptors[1]:.0f}"


def same(seen, expected, what):
    """Fails at the first difference of two lists."""
    for index, (one, other) in enumerate(zip(seen, expected)):
        assert one == other, f"{what}: number {index} is {one!r}, expected {other!r}"
    assert len(seen) == len(expected), f"{what}: {len(seen)}, expected {len(expected)}"


def field(body, name):
    """The text of a field of an uploaded form."""
    head = f'name="{name}"\r\n\r\n'.encode()
    return body.partition(head)[2].partition(b"\r\n")[0].decode()
