"""The figures of a run of trials."""

_PHASES = ("start", "create", "answer", "between")


def lines(counts):
    """Pairs of label and value."""
    yield "killed", counts["trials"]
    for phase in _PHASES:
        yield f"  in phase \"{phase}\"", counts[f"phase {phase}"]
    for what, label in (("journal", "a journal was left behind"), ("hot", "  that has to be rolled back"),
                        ("torn", "  after part of the database was written")):
        by_phase = ", ".join(f"{phase} {counts[f'{what} {phase}']}" for phase in _PHASES)
        yield label, f"{counts[what]} ({by_phase})"
    yield "killed with an answer or patient pressed, not yet confirmed", \
        sum(counts[f"fate {fate}"] for fate in ("stored", "on the way", "not stored"))
    yield "  found whole", counts["fate stored"]
    yield "  found as the first of the two saves of a changed answer", counts["fate on the way"]
    yield "  found as before", counts["fate not stored"]
    yield "patients confirmed by the window", counts["confirmed create"]
    yield "answers confirmed by the window", counts["confirmed answer"]
    yield "homes", counts["homes"]
    yield "starts whose window told how many wait", counts["windows"]
    yield "patients shown with the answers stored before the kill", counts["shown"]
